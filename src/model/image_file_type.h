#pragma once

#include "enumeration.h"

namespace quarlin {

/// The types of file that a texture may be chosen from, in the order in which they are offered.
enum class ImageFileType { png, jpeg, tiff, bmp, gif, heic };

template <>
struct EnumerationTable<ImageFileType> {
    struct Row {
        QLatin1StringView rawValue, title;
        /// The file name extensions, separated by spaces.
        QLatin1StringView extensions;
    };
    static constexpr std::array rows{
        Row{QLatin1StringView("png"), QLatin1StringView("PNG"), QLatin1StringView("png")},
        Row{QLatin1StringView("jpeg"), QLatin1StringView("JPEG"), QLatin1StringView("jpg jpeg jpe")},
        Row{QLatin1StringView("tiff"), QLatin1StringView("TIFF"), QLatin1StringView("tif tiff")},
        Row{QLatin1StringView("bmp"), QLatin1StringView("BMP"), QLatin1StringView("bmp")},
        Row{QLatin1StringView("gif"), QLatin1StringView("GIF"), QLatin1StringView("gif")},
        Row{QLatin1StringView("heic"), QLatin1StringView("HEIC"), QLatin1StringView("heic heif")},
    };
};

/// The file name extensions of `type`, separated by spaces.
inline QString extensions(ImageFileType type) { return tableRow(type).extensions; }

/// Whether `extension`, in any case and without its dot, is one of an image that can be read: those that may
/// be chosen, and WebP and AVIF.
bool isImageExtension(const QString& extension);

}  // namespace quarlin
