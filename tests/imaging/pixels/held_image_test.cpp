#include "imaging/pixels/held_image.h"
#include "imaging/pixels/image_rows.h"
#include "picture.h"

#include <gtest/gtest.h>

#include <algorithm>

using namespace quarlin;
using fixtures::Picture;

namespace {

/// A picture of opaque gray noise.
Picture grayPicture(int width, int height) {
    Picture picture = fixtures::noisePicture(width, height, 7, false);
    for (std::size_t index = 0; index < picture.bytes.size(); index += 4) {
        std::fill_n(picture.bytes.begin() + static_cast<std::ptrdiff_t>(index), 3, picture.bytes[index]);
        picture.bytes[index + 3] = 255;
    }
    return picture;
}

QImage held(const Picture& picture) {
    ImageRows rows(ImageView(picture.width, picture.height, picture.bytes.data()));
    return readHeldImage(rows);
}

/// The pixels as a texture in memory gives them.
std::vector<std::uint8_t> pixelsOf(const QImage& image) {
    std::vector<std::uint8_t> pixels(static_cast<std::size_t>(image.width() * image.height()) * 4);
    ImageRows(image).read(image.height(), pixels.data());
    return pixels;
}

TEST(HeldImage, GrayIsHeldAsGrayAndGivesTheSamePixels) {
    // Rows of odd widths have padding in memory.
    for (const auto& [width, height] : {std::pair{1, 1}, {3, 5}, {64, 16}, {33, 17}, {1, 50}, {127, 100}}) {
        const Picture picture = grayPicture(width, height);
        const QImage image = held(picture);
        EXPECT_EQ(image.format(), QImage::Format_Grayscale8);
        EXPECT_EQ(image.size(), QSize(width, height));
        EXPECT_EQ(pixelsOf(image), picture.bytes);
    }
}

TEST(HeldImage, OneColoredOrTransparentPixelAnywhereKeepsTheColors) {
    constexpr int width = 7;
    for (const int height : {1, 16, 17, 40}) {
        const Picture gray = grayPicture(width, height);
        for (std::size_t pixel = 0; pixel < gray.bytes.size() / 4; ++pixel) {
            for (std::size_t channel = 0; channel < 4; ++channel) {
                Picture picture = gray;
                picture.bytes[pixel * 4 + channel] ^= 1;
                const QImage image = held(picture);
                ASSERT_EQ(image.format(), pixelFormat);
                ASSERT_EQ(pixelsOf(image), picture.bytes) << pixel;
            }
        }
    }
}

TEST(HeldImage, OnlyTheRowsThatAreLeftAreRead) {
    const Picture picture = grayPicture(5, 20);
    ImageRows rows(ImageView(picture.width, picture.height, picture.bytes.data()));
    skipTo(3, rows);
    const QImage image = readHeldImage(rows);
    EXPECT_EQ(image.size(), QSize(5, 17));
    EXPECT_EQ(pixelsOf(image), std::vector(picture.bytes.begin() + 3 * 5 * 4, picture.bytes.end()));
}

}  // namespace
