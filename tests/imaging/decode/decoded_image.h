#pragma once

#include "imaging/decode/decode_error.h"
#include "imaging/decode/image_decoder.h"

#include "picture.h"

#include <gtest/gtest.h>
#include <QImage>

#include <cstddef>

namespace quarlin {

/// The decoded pixel, premultiplied.
inline fixtures::Rgba pixelOf(const QImage& image, int x, int y) {
    const uchar* pixel = image.constScanLine(y) + std::ptrdiff_t{4} * x;
    return {pixel[0], pixel[1], pixel[2], pixel[3]};
}

inline testing::AssertionResult isRefused(const QByteArray& file) {
    try {
        decodeImage(file);
    } catch (const DecodeError&) {
        return testing::AssertionSuccess();
    }
    return testing::AssertionFailure() << "it was decoded";
}

}  // namespace quarlin
