#pragma once

#include "picture.h"
#include "pixel_image.h"

#include <QImage>

#include <gtest/gtest.h>

#include <cstdint>
#include <span>
#include <vector>

namespace quarlin {

/// Whether both are the same bytes; a failure tells the first difference, as pixel and channel, and how many.
testing::AssertionResult sameBytes(std::span<const std::uint8_t> expected,
                                   std::span<const std::uint8_t> actual);

/// Whether no byte differs by more than `tolerance`.
testing::AssertionResult nearlySameBytes(std::span<const std::uint8_t> expected,
                                         std::span<const std::uint8_t> actual, int tolerance);

/// The picture as the engine holds it, premultiplied.
PixelImage pixelImage(const fixtures::Picture& picture);

/// The bytes R, G, B, A of an on-screen image, premultiplied, without padding.
std::vector<std::uint8_t> bytesOf(const QImage& image);

/// One pixel of an image.
fixtures::Rgba pixelAt(const PixelImage& image, std::int64_t x, std::int64_t y);

/// Shows size and first pixels in a failed expectation.
void PrintTo(const PixelImage& image, std::ostream* out);

}  // namespace quarlin
