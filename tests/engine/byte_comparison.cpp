#include "byte_comparison.h"

#include <cstdlib>

namespace quarlin {

testing::AssertionResult nearlySameBytes(std::span<const std::uint8_t> expected,
                                         std::span<const std::uint8_t> actual, int tolerance) {
    if (expected.size() != actual.size()) {
        return testing::AssertionFailure()
               << expected.size() << " bytes expected, " << actual.size() << " found";
    }
    std::size_t differing = 0;
    std::size_t first = 0;
    for (std::size_t index = 0; index < expected.size(); ++index) {
        if (std::abs(int(expected[index]) - int(actual[index])) > tolerance) {
            first = differing == 0 ? index : first;
            ++differing;
        }
    }
    if (differing == 0) {
        return testing::AssertionSuccess() << "the bytes are the same";
    }
    return testing::AssertionFailure()
           << differing << " of " << expected.size() << " bytes differ, first in pixel " << first / 4
           << " channel " << first % 4 << ": expected " << +expected[first] << ", found " << +actual[first];
}

testing::AssertionResult sameBytes(std::span<const std::uint8_t> expected,
                                   std::span<const std::uint8_t> actual) {
    return nearlySameBytes(expected, actual, 0);
}

PixelImage pixelImage(const fixtures::Picture& picture) {
    const std::vector<std::uint8_t> bytes = fixtures::premultiplied(picture);
    return {picture.width, picture.height, PixelBuffer(bytes.begin(), bytes.end())};
}

std::vector<std::uint8_t> bytesOf(const QImage& image) {
    const QImage plain = image.convertToFormat(QImage::Format_RGBA8888_Premultiplied);
    std::vector<std::uint8_t> bytes;
    for (int y = 0; y < plain.height(); ++y) {
        const uchar* row = plain.constScanLine(y);
        bytes.insert(bytes.end(), row, row + static_cast<std::ptrdiff_t>(plain.width()) * 4);
    }
    return bytes;
}

fixtures::Rgba pixelAt(const PixelImage& image, std::int64_t x, std::int64_t y) {
    const auto offset = static_cast<std::size_t>((y * image.width + x) * bytesPerPixel);
    return {image.pixels.at(offset), image.pixels.at(offset + 1), image.pixels.at(offset + 2),
            image.pixels.at(offset + 3)};
}

void PrintTo(const PixelImage& image, std::ostream* out) {
    PrintTo(fixtures::Picture{static_cast<int>(image.width),
                              static_cast<int>(image.height),
                              {image.pixels.begin(), image.pixels.end()}},
            out);
}

}  // namespace quarlin
