#pragma once

#include "decoded_image.h"
#include "raw_tiff.h"

#include <gtest/gtest.h>
#include <QImage>

#include <cstdint>
#include <vector>

namespace quarlin {

/// Whether the image is gray and opaque, with these values from left to right and from top to bottom.
inline testing::AssertionResult isGray(const QByteArray& file, const std::vector<int>& expected) {
    const QImage image = decodeImage(file);
    if (image.width() * image.height() != static_cast<int>(expected.size())) {
        return testing::AssertionFailure() << image.width() << " x " << image.height();
    }
    for (int index = 0; index < static_cast<int>(expected.size()); ++index) {
        const fixtures::Rgba pixel = pixelOf(image, index % image.width(), index / image.width());
        const auto value = static_cast<std::uint8_t>(expected[static_cast<std::size_t>(index)]);
        if (pixel != fixtures::Rgba{value, value, value, 255}) {
            return testing::AssertionFailure()
                   << "pixel " << index << " is " << int{pixel[0]} << ' ' << int{pixel[1]} << ' '
                   << int{pixel[2]} << ' ' << int{pixel[3]} << ", not " << int{value};
        }
    }
    return testing::AssertionSuccess();
}

}  // namespace quarlin
