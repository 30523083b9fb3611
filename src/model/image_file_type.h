#pragma once

#include "model/enumeration.h"

#include <QStringList>

namespace quarlin {

using namespace Qt::StringLiterals;

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
        Row{"png"_L1, "PNG"_L1, "png"_L1},        Row{"jpeg"_L1, "JPEG"_L1, "jpg jpeg jpe"_L1},
        Row{"tiff"_L1, "TIFF"_L1, "tif tiff"_L1}, Row{"bmp"_L1, "BMP"_L1, "bmp"_L1},
        Row{"gif"_L1, "GIF"_L1, "gif"_L1},        Row{"heic"_L1, "HEIC"_L1, "heic heif"_L1},
    };
};

/// The file name extensions of `type`, separated by spaces.
inline QString extensions(ImageFileType type) { return tableRow(type).extensions; }

/// The titles of the image formats that can be read: those that may be chosen, and WebP, AVIF and Targa.
QStringList readFormats();

/// Whether `extension`, in any case and without its dot, is one of those formats.
bool isImageExtension(const QString& extension);

/// Whether `extension`, in any case and without its dot, is one of a picture that textures come in, but that
/// can't be read.
bool isUnreadImageExtension(const QString& extension);

}  // namespace quarlin
