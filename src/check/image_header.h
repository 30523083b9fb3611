#pragma once

#include <QByteArray>

#include <cstdint>
#include <optional>

namespace quarlin {

/// The image formats of glTF 2.0, determined from the first bytes.
enum class ImageFormat { png, jpeg, other };

ImageFormat imageFormat(const QByteArray& bytes);

/// The color types of the PNG standard.
enum class PngColor : std::uint8_t { gray = 0, rgb = 2, indexed = 3, grayAlpha = 4, rgba = 6 };

/// The contents of a PNG's first chunk.
struct PngHeader {
    std::int64_t width = 0;
    std::int64_t height = 0;
    int bitDepth = 0;
    PngColor color = PngColor::rgba;
};

/// The number of color components of a JPEG, 4 for CMYK; 0 if the bytes don't hold a header of one.
int jpegComponents(const QByteArray& bytes);

/// The header of a PNG; nothing if the bytes don't begin with one.
std::optional<PngHeader> readPngHeader(const QByteArray& bytes);

}  // namespace quarlin
