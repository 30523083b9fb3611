#pragma once

#include "imaging/color/color_profile.h"
#include "imaging/decode/opened_image.h"

#include <QByteArray>

#include <cstdint>
#include <functional>
#include <optional>

namespace quarlin {

/// Converts `count` decoded pixels to RGBA of 8 bits with premultiplied alpha. May be called from several
/// threads at once.
using RowConversion = std::function<void(const void* samples, std::int64_t count, std::uint8_t* pixels)>;

/// Whether the colors of a file are already multiplied by their alpha.
enum class FileAlpha { straight, premultiplied };

/// The form of decoded pixels.
struct SampleForm {
    /// Samples per pixel, with alpha, which is the last.
    int channels = 3;
    bool hasAlpha = false;
    /// Unsigned integers of 8 or 16 bits.
    int bits = 8;
    FileAlpha alpha = FileAlpha::straight;

    /// The channels that carry color.
    int colorChannels() const { return hasAlpha ? channels - 1 : channels; }
    std::int64_t bytesPerPixel() const { return std::int64_t{channels} * bits / 8; }
};

/// What a file says about the colors of its samples.
struct FileColors {
    /// The embedded ICC profile; empty if there is none.
    QByteArray profile;
    /// The profile that counts if that one is missing or can't be used; nothing if samples count as sRGB
    /// then.
    std::function<std::optional<NamedProfile>()> otherwise;
    /// Whether profiles count at all for gray and RGB.
    ColorHandling handling = ColorHandling::convert;
};

/// How the samples of a file become pixels.
struct FileConversion {
    /// Empty if there is no conversion: samples that count as sRGB have 1 (gray), 2 (gray and alpha), 3 (RGB)
    /// or 4 (RGBA) channels.
    RowConversion convert;
    /// See `OpenedImage`.
    QString convertedFrom = {};
};

/// The conversion of pixels of `form` that `colors` ask for.
FileConversion rowConversion(const SampleForm& form, const FileColors& colors);

}  // namespace quarlin
