#include "imaging/pixels/pixel_image.h"
#include "jpeg_files.h"
#include "picture.h"
#include "png_files.h"
#include "rendering.h"
#include "temporary_folder.h"

#include <gtest/gtest.h>

#include <cmath>
#include <random>

using namespace Qt::StringLiterals;

using namespace quarlin;
using namespace quarlin::fixtures;

namespace {

std::vector<std::uint16_t> randomSamples(std::size_t count, unsigned largest, std::uint64_t seed) {
    std::mt19937_64 random(seed);
    std::vector<std::uint16_t> samples(count);
    for (std::uint16_t& sample : samples) {
        sample = static_cast<std::uint16_t>(random() % (largest + 1));
    }
    return samples;
}

std::uint8_t narrowed(unsigned sample, unsigned largest) {
    return static_cast<std::uint8_t>(std::lround(sample * 255.0 / largest));
}

class PngInput : public testing::Test {
protected:
    const TemporaryFolder folder;
    const QUrl file = folder.url(u"a.png"_s);
};

TEST_F(PngInput, GrayOfEveryDepthIsSpreadOverTheByte) {
    for (const int depth : {1, 2, 4, 8, 16}) {
        const unsigned largest = (1U << depth) - 1;
        for (const bool interlaced : {false, true}) {
            SCOPED_TRACE(testing::Message() << depth << " bits, interlaced " << interlaced);
            const auto samples = randomSamples(19 * 13, largest, static_cast<std::uint64_t>(depth));
            PngForm form;
            form.colorType = 0;
            form.bitDepth = depth;
            form.interlaced = interlaced;
            writePngSamples(file, 19, 13, samples, form);
            const auto expected = drawnPicture(19, 13, [&](int x, int y) {
                const std::uint8_t gray = narrowed(samples[static_cast<std::size_t>(y * 19 + x)], largest);
                return Rgba{gray, gray, gray, 255};
            });
            EXPECT_TRUE(rendersAs(expected, file));
        }
    }
}

TEST_F(PngInput, EverySixteenBitGrayIsRoundedToTheNearestByte) {
    std::vector<std::uint16_t> samples(65536);
    for (std::size_t value = 0; value < samples.size(); ++value) {
        samples[value] = static_cast<std::uint16_t>(value);
    }
    PngForm form;
    form.colorType = 0;
    form.bitDepth = 16;
    writePngSamples(file, 256, 256, samples, form);
    EXPECT_TRUE(rendersAs(drawnPicture(256, 256,
                                       [&](int x, int y) {
                                           const auto value = static_cast<unsigned>(y * 256 + x);
                                           const std::uint8_t gray = narrowed(value, 65535);
                                           return Rgba{gray, gray, gray, 255};
                                       }),
                          file));
}

TEST_F(PngInput, SixteenBitColorIsRoundedToTheNearestByte) {
    const auto samples = randomSamples(40 * 30 * 3, 65535, 5);
    PngForm form;
    form.colorType = 2;
    form.bitDepth = 16;
    writePngSamples(file, 40, 30, samples, form);
    EXPECT_TRUE(rendersAs(drawnPicture(40, 30,
                                       [&](int x, int y) {
                                           const auto at = static_cast<std::size_t>(y * 40 + x) * 3;
                                           return Rgba{narrowed(samples[at], 65535),
                                                       narrowed(samples[at + 1], 65535),
                                                       narrowed(samples[at + 2], 65535), 255};
                                       }),
                          file));
}

TEST_F(PngInput, SixteenBitColorWithAlphaIsRoundedAndPremultiplied) {
    const auto samples = randomSamples(40 * 30 * 4, 65535, 6);
    PngForm form;
    form.bitDepth = 16;
    writePngSamples(file, 40, 30, samples, form);
    const PixelImage image = rendered(file);
    ASSERT_EQ(image.pixels.size(), samples.size());
    for (std::size_t at = 0; at < samples.size(); at += 4) {
        ASSERT_EQ(image.pixels[at + 3], narrowed(samples[at + 3], 65535));
        for (std::size_t channel = 0; channel < 3; ++channel) {
            // The color may be narrowed before or after it is multiplied.
            const double exact = samples[at + channel] * (samples[at + 3] / 65535.0) * (255 / 65535.0);
            ASSERT_NEAR(image.pixels[at + channel], exact, 1.3);
            ASSERT_LE(image.pixels[at + channel], image.pixels[at + 3]);
        }
    }
}

TEST_F(PngInput, SixteenBitOpaqueColorWithAlphaIsRoundedToTheNearestByte) {
    auto samples = randomSamples(40 * 30 * 4, 65535, 7);
    for (std::size_t at = 3; at < samples.size(); at += 4) {
        samples[at] = 65535;
    }
    PngForm form;
    form.bitDepth = 16;
    writePngSamples(file, 40, 30, samples, form);
    const PixelImage image = rendered(file);
    for (std::size_t at = 0; at < samples.size(); ++at) {
        ASSERT_EQ(image.pixels[at], narrowed(samples[at], 65535));
    }
}

TEST_F(PngInput, PalettesOfEveryDepth) {
    for (const int depth : {1, 2, 4, 8}) {
        for (const bool interlaced : {false, true}) {
            SCOPED_TRACE(testing::Message() << depth << " bits, interlaced " << interlaced);
            PngForm form;
            form.colorType = 3;
            form.bitDepth = depth;
            form.interlaced = interlaced;
            const unsigned colors = 1U << depth;
            for (unsigned index = 0; index < colors; ++index) {
                form.palette.push_back({static_cast<std::uint8_t>(index * 7),
                                        static_cast<std::uint8_t>(255 - index),
                                        static_cast<std::uint8_t>(index * index)});
            }
            const auto samples = randomSamples(23 * 9, colors - 1, 8);
            writePngSamples(file, 23, 9, samples, form);
            EXPECT_TRUE(
                rendersAs(drawnPicture(23, 9,
                                       [&](int x, int y) {
                                           const auto& entry =
                                               form.palette[samples[static_cast<std::size_t>(y * 23 + x)]];
                                           return Rgba{entry[0], entry[1], entry[2], 255};
                                       }),
                          file));
        }
    }
}

TEST_F(PngInput, PaletteEntriesMayBeTransparent) {
    PngForm form;
    form.colorType = 3;
    form.palette = {{255, 0, 0}, {0, 255, 0}, {0, 0, 255}, {200, 100, 50}};
    form.paletteAlpha = {0, 128, 255};
    writePngSamples(file, 4, 1, {0, 1, 2, 3}, form);
    EXPECT_TRUE(
        rendersAs(Picture{4, 1, {255, 0, 0, 0, 0, 255, 0, 128, 0, 0, 255, 255, 200, 100, 50, 255}}, file));
}

TEST_F(PngInput, AGrayMayBeTransparent) {
    for (const int depth : {1, 2, 4, 8, 16}) {
        SCOPED_TRACE(depth);
        const unsigned largest = (1U << depth) - 1;
        PngForm form;
        form.colorType = 0;
        form.bitDepth = depth;
        form.transparent = {{1, 1, 1}};
        writePngSamples(file, 3, 1, {0, 1, static_cast<std::uint16_t>(largest)}, form);
        const std::uint8_t last = largest == 1 ? 0 : 255;
        EXPECT_TRUE(rendersAs(Picture{3, 1, {0, 0, 0, 255, 0, 0, 0, 0, 255, 255, 255, last}}, file));
    }
}

TEST_F(PngInput, AColorMayBeTransparent) {
    PngForm form;
    form.colorType = 2;
    form.transparent = {{10, 20, 30}};
    writePngSamples(file, 3, 1, {10, 20, 30, 10, 20, 31, 255, 255, 255}, form);
    EXPECT_TRUE(rendersAs(Picture{3, 1, {10, 20, 30, 0, 10, 20, 31, 255, 255, 255, 255, 255}}, file));
}

TEST_F(PngInput, ASixteenBitColorIsTransparentOnlyWhenAllItsBitsAre) {
    PngForm form;
    form.colorType = 2;
    form.bitDepth = 16;
    form.transparent = {{0x1234, 0x2345, 0x3456}};
    writePngSamples(file, 2, 1, {0x1234, 0x2345, 0x3456, 0x1234, 0x2345, 0x3457}, form);
    const PixelImage image = rendered(file);
    EXPECT_EQ(pixelAt(image, 0, 0), (Rgba{0, 0, 0, 0}));
    EXPECT_EQ(pixelAt(image, 1, 0),
              (Rgba{narrowed(0x1234, 65535), narrowed(0x2345, 65535), narrowed(0x3457, 65535), 255}));
}

TEST_F(PngInput, GrayWithAlpha) {
    const auto samples = randomSamples(31 * 7 * 2, 255, 10);
    PngForm form;
    form.colorType = 4;
    writePngSamples(file, 31, 7, samples, form);
    EXPECT_TRUE(
        rendersAs(drawnPicture(31, 7,
                               [&](int x, int y) {
                                   const auto at = static_cast<std::size_t>(y * 31 + x) * 2;
                                   const auto gray = static_cast<std::uint8_t>(samples[at]);
                                   return Rgba{gray, gray, gray, static_cast<std::uint8_t>(samples[at + 1])};
                               }),
                  file));
}

TEST_F(PngInput, SixteenBitGrayWithAlpha) {
    PngForm form;
    form.colorType = 4;
    form.bitDepth = 16;
    writePngSamples(file, 3, 1, {40000, 65535, 65535, 0, 128, 65535}, form);
    const std::uint8_t gray = narrowed(40000, 65535);
    EXPECT_TRUE(rendersAs(Picture{3, 1, {gray, gray, gray, 255, 255, 255, 255, 0, 0, 0, 0, 255}}, file));
}

TEST_F(PngInput, InterlacedImagesOfEverySmallSize) {
    for (int height = 1; height <= 9; ++height) {
        for (int width = 1; width <= 9; ++width) {
            const Picture picture = noisePicture(width, height, 11, true);
            PngForm form;
            form.interlaced = true;
            writePngSamples(file, width, height, {picture.bytes.begin(), picture.bytes.end()}, form);
            ASSERT_TRUE(rendersAs(picture, file)) << width << 'x' << height;
        }
    }
}

TEST_F(PngInput, ATaggedSrgbImageComesOutAsItsOwnBytes) {
    const Picture picture = noisePicture(40, 40, 12);
    PngForm form;
    form.taggedSrgb = true;
    writePngSamples(file, 40, 40, {picture.bytes.begin(), picture.bytes.end()}, form);
    EXPECT_TRUE(rendersAs(picture, file));
}

TEST_F(PngInput, TheGammaOfSrgbChangesNoByte) {
    const Picture picture = noisePicture(40, 40, 14);
    PngForm form;
    form.gamma = 45455;
    writePngSamples(file, 40, 40, {picture.bytes.begin(), picture.bytes.end()}, form);
    EXPECT_TRUE(rendersAs(picture, file));
}

TEST_F(PngInput, AnotherGammaConverts) {
    // The exponent of early screens: encoded with 1 / 1.8, and from there through light to the curve of sRGB.
    const auto encoded = [](double unit) {
        const double linear = std::pow(unit, 1.8);
        const double curved =
            linear <= 0.0031308 ? 12.92 * linear : 1.055 * std::pow(linear, 1 / 2.4) - 0.055;
        return static_cast<std::uint8_t>(std::lround(curved * 255));
    };
    for (const int colorType : {0, 2}) {
        PngForm form;
        form.colorType = colorType;
        form.gamma = 55556;
        std::vector<std::uint16_t> samples;
        for (std::uint16_t gray = 0; gray < 256; ++gray) {
            samples.insert(samples.end(), colorType == 0 ? 1 : 3, gray);
        }
        writePngSamples(file, 256, 1, samples, form);
        EXPECT_TRUE(rendersAs(drawnPicture(256, 1,
                                           [&](int x, int) {
                                               const std::uint8_t gray = encoded(x / 255.0);
                                               return Rgba{gray, gray, gray, 255};
                                           }),
                              file, 1))
            << colorType;
    }
}

TEST_F(PngInput, TheOrientationIsIgnored) {
    const Picture picture = noisePicture(6, 4, 13);
    for (int orientation = 1; orientation <= 8; ++orientation) {
        PngForm form;
        form.exif = exifWithOrientation(orientation);
        writePngSamples(file, 6, 4, {picture.bytes.begin(), picture.bytes.end()}, form);
        EXPECT_TRUE(rendersAs(picture, file)) << orientation;
    }
}

}  // namespace
