#include "engine/material/normal_conditioning.h"
#include "byte_comparison.h"
#include "imaging/pixels/pixel_image.h"
#include "picture.h"

#include <gtest/gtest.h>

using namespace quarlin;
using namespace quarlin::fixtures;

namespace {

TEST(NormalConditioning, FlatBlueFlipsToGreen127) {
    PixelImage image = pixelImage(constantPicture(5, 3, {128, 128, 255, 255}));
    normalizeAlpha(image.pixels);
    flipGreenChannel(image.pixels);
    EXPECT_EQ(image, pixelImage(constantPicture(5, 3, {128, 127, 255, 255})));
}

TEST(NormalConditioning, FlippingTwiceGivesTheStartBack) {
    const PixelImage before = pixelImage(noisePicture(33, 17, 1, true));
    PixelImage image = before;
    flipGreenChannel(image.pixels);
    EXPECT_NE(image, before);
    flipGreenChannel(image.pixels);
    EXPECT_EQ(image, before);
}

TEST(NormalConditioning, FlippingTurnsEveryGreenByteAround) {
    for (int green = 0; green < 256; ++green) {
        PixelImage image{1, 1, PixelBuffer{7, static_cast<std::uint8_t>(green), 9, 200}};
        flipGreenChannel(image.pixels);
        EXPECT_EQ(image.pixels, (PixelBuffer{7, static_cast<std::uint8_t>(255 - green), 9, 200}));
    }
}

TEST(NormalConditioning, OpaqueAlphaKeepsThePremultipliedColor) {
    PixelImage image{2, 1, PixelBuffer{64, 64, 128, 128, 0, 0, 0, 0}};
    normalizeAlpha(image.pixels);
    EXPECT_EQ(image.pixels, (PixelBuffer{64, 64, 128, 255, 0, 0, 0, 255}));
}

TEST(NormalConditioning, OpaqueAlphaTouchesNoColor) {
    const PixelImage before = pixelImage(noisePicture(41, 23, 2, true));
    PixelImage image = before;
    normalizeAlpha(image.pixels);
    for (std::size_t index = 0; index < image.pixels.size(); ++index) {
        ASSERT_EQ(image.pixels[index], index % 4 == 3 ? 255 : before.pixels[index]) << index;
    }
}

TEST(NormalConditioning, AnIncompleteLastPixelIsTouchedOnlyWhereItHasBytes) {
    for (std::size_t size = 0; size < 12; ++size) {
        PixelImage opaque{1, 1, PixelBuffer(size, 7)};
        normalizeAlpha(opaque.pixels);
        PixelImage turned{1, 1, PixelBuffer(size, 7)};
        flipGreenChannel(turned.pixels);
        ASSERT_EQ(opaque.pixels.size(), size);
        ASSERT_EQ(turned.pixels.size(), size);
        for (std::size_t index = 0; index < size; ++index) {
            EXPECT_EQ(opaque.pixels[index], index % 4 == 3 ? 255 : 7) << size;
            EXPECT_EQ(turned.pixels[index], index % 4 == 1 ? 248 : 7) << size;
        }
    }
}

TEST(NormalConditioning, LeavesAnEmptyImageEmpty) {
    PixelImage image;
    normalizeAlpha(image.pixels);
    flipGreenChannel(image.pixels);
    EXPECT_EQ(image, PixelImage());
}

}  // namespace
