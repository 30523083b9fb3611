#include "engine/texture_processor.h"
#include "imaging/pixels/pixel_image.h"
#include "picture.h"
#include "png_files.h"
#include "rendering.h"
#include "temporary_folder.h"

#include <gtest/gtest.h>

#include <array>
#include <cmath>

using namespace Qt::StringLiterals;

using namespace quarlin;
using namespace quarlin::fixtures;

namespace {

struct Stretch {
    int fromWidth, fromHeight, toWidth, toHeight;
};

/// Larger, smaller, both at once, extreme and odd sizes, to and from one pixel.
const std::vector<Stretch> stretches{
    {100, 50, 64, 64},  {64, 64, 100, 50}, {31, 17, 62, 34},  {64, 64, 32, 32}, {33, 65, 32, 64},
    {40, 40, 41, 39},   {7, 3, 200, 111},  {200, 111, 7, 3},  {300, 2, 3, 200}, {1, 1, 9, 5},
    {9, 5, 1, 1},       {1, 40, 40, 1},    {2, 2, 3, 3},      {3, 3, 2, 2},     {512, 8, 8, 512},
    {250, 250, 10, 10}, {5, 5, 6, 5},      {90, 60, 45, 120}, {1, 2, 2, 1},     {17, 1, 1000, 1},
};

class Resampling : public testing::Test {
protected:
    PixelImage stretched(const Picture& picture, int width, int height) const {
        writePng(file, picture);
        PixelImage image = processor.renderImage(file, width, height);
        EXPECT_EQ(image.width, width);
        EXPECT_EQ(image.height, height);
        EXPECT_EQ(image.pixels.size(),
                  static_cast<std::size_t>(width) * static_cast<std::size_t>(height) * 4);
        return image;
    }

    const TextureProcessor processor{};
    const TemporaryFolder folder;
    const QUrl file = folder.url(u"a.png"_s);
};

std::string describe(const Stretch& stretch) {
    return std::to_string(stretch.fromWidth) + 'x' + std::to_string(stretch.fromHeight) + " to " +
           std::to_string(stretch.toWidth) + 'x' + std::to_string(stretch.toHeight);
}

Picture pictureOf(const PixelImage& image) {
    return {static_cast<int>(image.width),
            static_cast<int>(image.height),
            {image.pixels.begin(), image.pixels.end()}};
}

/// The mean of one channel of the premultiplied bytes.
double mean(const std::vector<std::uint8_t>& bytes, std::size_t channel) {
    double sum = 0;
    for (std::size_t at = channel; at < bytes.size(); at += 4) {
        sum += bytes[at];
    }
    return sum / (static_cast<double>(bytes.size()) / 4);
}

TEST_F(Resampling, StretchesWithoutKeepingTheAspect) {
    // A frame along all four sides stays along all four sides: nothing is cropped or padded.
    const Picture framed = drawnPicture(100, 50, [](int x, int y) {
        return x < 10    ? Rgba{255, 0, 0, 255}
               : x >= 90 ? Rgba{0, 255, 0, 255}
               : y < 10  ? Rgba{0, 0, 255, 255}
               : y >= 40 ? Rgba{255, 255, 0, 255}
                         : Rgba{0, 0, 0, 255};
    });
    const PixelImage image = stretched(framed, 64, 64);
    EXPECT_EQ(pixelAt(image, 1, 32), (Rgba{255, 0, 0, 255}));
    EXPECT_EQ(pixelAt(image, 62, 32), (Rgba{0, 255, 0, 255}));
    EXPECT_EQ(pixelAt(image, 32, 2), (Rgba{0, 0, 255, 255}));
    EXPECT_EQ(pixelAt(image, 32, 61), (Rgba{255, 255, 0, 255}));
    EXPECT_NEAR(pixelAt(image, 32, 32)[0], 0, 2);
}

TEST_F(Resampling, AConstantStaysConstant) {
    for (const Stretch& stretch : stretches) {
        for (const Rgba color : {Rgba{255, 255, 255, 255}, Rgba{1, 128, 254, 255}, Rgba{200, 100, 50, 77},
                                 Rgba{255, 255, 255, 1}, Rgba{0, 0, 0, 0}}) {
            const PixelImage image = stretched(constantPicture(stretch.fromWidth, stretch.fromHeight, color),
                                               stretch.toWidth, stretch.toHeight);
            ASSERT_TRUE(sameBytes(premultiplied(constantPicture(stretch.toWidth, stretch.toHeight, color)),
                                  image.pixels))
                << describe(stretch);
        }
    }
}

TEST_F(Resampling, AnOpaqueImageStaysOpaque) {
    for (const Stretch& stretch : stretches) {
        const PixelImage image = stretched(noisePicture(stretch.fromWidth, stretch.fromHeight, 1),
                                           stretch.toWidth, stretch.toHeight);
        for (std::size_t at = 3; at < image.pixels.size(); at += 4) {
            ASSERT_EQ(image.pixels[at], 255) << describe(stretch);
        }
    }
}

TEST_F(Resampling, AMirroredImageGivesTheMirroredResult) {
    for (const Stretch& stretch : stretches) {
        const Picture picture = noisePicture(stretch.fromWidth, stretch.fromHeight, 2, true);
        const Picture result = pictureOf(stretched(picture, stretch.toWidth, stretch.toHeight));
        EXPECT_TRUE(sameBytes(mirrored(result).bytes,
                              stretched(mirrored(picture), stretch.toWidth, stretch.toHeight).pixels))
            << describe(stretch);
        EXPECT_TRUE(sameBytes(flipped(result).bytes,
                              stretched(flipped(picture), stretch.toWidth, stretch.toHeight).pixels))
            << describe(stretch);
    }
}

TEST_F(Resampling, ColorNeverExceedsItsAlpha) {
    for (const Stretch& stretch : stretches) {
        for (const std::uint64_t seed : {3U, 4U}) {
            const Picture picture = noisePicture(stretch.fromWidth, stretch.fromHeight, seed, true);
            // The second picture has the hardest edges possible, where a resampler overshoots most.
            const Picture hard = drawnPicture(stretch.fromWidth, stretch.fromHeight, [&](int x, int y) {
                const Rgba noise = picture.at(x, y);
                return seed == 3 ? noise
                                 : Rgba{255, static_cast<std::uint8_t>(noise[1] < 128 ? 0 : 255), noise[2],
                                        static_cast<std::uint8_t>(noise[3] < 128 ? 0 : 255)};
            });
            const PixelImage image = stretched(hard, stretch.toWidth, stretch.toHeight);
            for (std::size_t at = 0; at < image.pixels.size(); at += 4) {
                const int alpha = image.pixels[at + 3];
                ASSERT_LE(image.pixels[at], alpha) << describe(stretch);
                ASSERT_LE(image.pixels[at + 1], alpha) << describe(stretch);
                ASSERT_LE(image.pixels[at + 2], alpha) << describe(stretch);
            }
        }
    }
}

TEST_F(Resampling, TransparentColorDoesNotBleed) {
    // Where alpha is 0, the color is bright red; only the visible blue may show.
    const Picture picture = drawnPicture(60, 60, [](int x, int y) {
        return (x / 5 + y / 5) % 2 == 0 ? Rgba{255, 0, 0, 0} : Rgba{0, 0, 255, 255};
    });
    for (const auto& [width, height] : {std::pair{31, 31}, {97, 97}, {13, 80}}) {
        const PixelImage image = stretched(picture, width, height);
        for (std::size_t at = 0; at < image.pixels.size(); at += 4) {
            ASSERT_EQ(image.pixels[at], 0);
            ASSERT_EQ(image.pixels[at + 2], image.pixels[at + 3]);
        }
    }
}

TEST_F(Resampling, KeepsTheMeanOfSmoothContent) {
    for (const Stretch& stretch : stretches) {
        const Picture picture = smoothPicture(stretch.fromWidth, stretch.fromHeight);
        // A window of very few or very large pixels weights the curves of the picture unevenly.
        const bool tiny =
            std::min({stretch.fromWidth, stretch.fromHeight, stretch.toWidth, stretch.toHeight}) < 8;
        const PixelImage image = stretched(picture, stretch.toWidth, stretch.toHeight);
        for (std::size_t channel = 0; channel < 3; ++channel) {
            EXPECT_NEAR(mean({image.pixels.begin(), image.pixels.end()}, channel),
                        mean(picture.bytes, channel), tiny ? 12 : 1)
                << describe(stretch) << " channel " << channel;
        }
    }
}

TEST_F(Resampling, KeepsTheMeanOfNoiseWhenItShrinks) {
    const Picture picture = noisePicture(240, 240, 5);
    for (const int size : {120, 97, 60, 24, 5}) {
        const PixelImage image = stretched(picture, size, size);
        for (std::size_t channel = 0; channel < 3; ++channel) {
            EXPECT_NEAR(mean({image.pixels.begin(), image.pixels.end()}, channel),
                        mean(picture.bytes, channel), 2.5)
                << size;
        }
    }
}

TEST_F(Resampling, AveragesAFinePatternAwayInsteadOfAliasing) {
    const Picture stripes = drawnPicture(256, 256, [](int x, int) {
        return x % 2 == 0 ? Rgba{0, 0, 0, 255} : Rgba{255, 255, 255, 255};
    });
    const PixelImage image = stretched(stripes, 50, 50);
    for (int x = 3; x < 47; ++x) {
        EXPECT_NEAR(pixelAt(image, x, 25)[0], 127.5, 12) << x;
    }
}

TEST_F(Resampling, ShiftsNothingByHalfAPixel) {
    // The center of mass of a blob keeps its place relative to the picture.
    const double centerX = 0.3;
    const double centerY = 0.6;
    const Picture blob = drawnPicture(120, 90, [=](int x, int y) {
        const double dx = (x + 0.5) / 120 - centerX;
        const double dy = (y + 0.5) / 90 - centerY;
        const auto gray = static_cast<std::uint8_t>(std::lround(255 * std::exp(-(dx * dx + dy * dy) * 60)));
        return Rgba{gray, gray, gray, 255};
    });
    for (const auto& [width, height] :
         {std::pair{120, 90}, {60, 45}, {41, 37}, {240, 180}, {333, 111}, {15, 12}}) {
        const PixelImage image = stretched(blob, width, height);
        double sum = 0;
        double sumX = 0;
        double sumY = 0;
        for (int y = 0; y < height; ++y) {
            for (int x = 0; x < width; ++x) {
                const double weight = pixelAt(image, x, y)[0];
                sum += weight;
                sumX += weight * (x + 0.5) / width;
                sumY += weight * (y + 0.5) / height;
            }
        }
        // Half a pixel of the smallest result would be 0.033.
        EXPECT_NEAR(sumX / sum, centerX, 0.003) << width << 'x' << height;
        EXPECT_NEAR(sumY / sum, centerY, 0.003) << width << 'x' << height;
    }
}

TEST_F(Resampling, ARampStaysARamp) {
    const Picture ramp = drawnPicture(100, 4, [](int x, int) {
        const auto gray = static_cast<std::uint8_t>(20 + 2 * x);
        return Rgba{gray, gray, gray, 255};
    });
    for (const int width : {50, 200, 73, 301}) {
        const PixelImage image = stretched(ramp, width, 4);
        const int margin = std::max(4, 4 * width / 100);
        for (int x = margin; x < width - margin; ++x) {
            const double position = (x + 0.5) * 100 / width - 0.5;
            EXPECT_NEAR(pixelAt(image, x, 2)[0], 20 + 2 * position, 1.01) << width << " at " << x;
        }
    }
}

TEST_F(Resampling, WorksInTheEncodedValues) {
    // Equal parts of black and white give the middle of the bytes, not the middle of the light (188).
    const Picture checks = drawnPicture(64, 64, [](int x, int y) {
        return (x + y) % 2 == 0 ? Rgba{0, 0, 0, 255} : Rgba{255, 255, 255, 255};
    });
    const PixelImage image = stretched(checks, 16, 16);
    EXPECT_NEAR(pixelAt(image, 8, 8)[0], 127.5, 4);
}

TEST_F(Resampling, SharpensRatherThanBlursWhenItEnlarges) {
    // A kernel with negative lobes overshoots next to an edge; linear interpolation never does.
    const Picture edge = drawnPicture(20, 4, [](int x, int) {
        return x < 10 ? Rgba{64, 64, 64, 255} : Rgba{192, 192, 192, 255};
    });
    const PixelImage image = stretched(edge, 200, 4);
    int lowest = 255;
    int highest = 0;
    for (int x = 0; x < 200; ++x) {
        lowest = std::min<int>(lowest, pixelAt(image, x, 1)[0]);
        highest = std::max<int>(highest, pixelAt(image, x, 1)[0]);
    }
    EXPECT_LT(lowest, 62);
    EXPECT_GT(highest, 194);
    EXPECT_EQ(pixelAt(image, 5, 1)[0], 64);
    EXPECT_EQ(pixelAt(image, 194, 1)[0], 192);
}

TEST_F(Resampling, OnePixelFillsEverything) {
    const PixelImage image = stretched(constantPicture(1, 1, {12, 34, 56, 255}), 37, 23);
    EXPECT_TRUE(sameBytes(constantPicture(37, 23, {12, 34, 56, 255}).bytes, image.pixels));
}

TEST_F(Resampling, RowsDoNotDependOnTheirNumber) {
    // Each column alone and all together: no row or column leaks into another.
    const Picture bars = drawnPicture(64, 64, [](int x, int) {
        const auto gray = static_cast<std::uint8_t>(x * 37 % 256);
        return Rgba{gray, gray, gray, 255};
    });
    const Picture oneRow = drawnPicture(64, 1, [&](int x, int) { return bars.at(x, 0); });
    const PixelImage wide = stretched(bars, 41, 64);
    const PixelImage row = stretched(oneRow, 41, 1);
    for (int y = 0; y < 64; ++y) {
        for (int x = 0; x < 41; ++x) {
            ASSERT_EQ(pixelAt(wide, x, y), pixelAt(row, x, 0));
        }
    }
}

TEST_F(Resampling, TheSameCallGivesTheSameBytes) {
    const Picture picture = noisePicture(301, 203, 6, true);
    const PixelImage first = stretched(picture, 512, 512);
    for (int repeat = 0; repeat < 3; ++repeat) {
        EXPECT_EQ(stretched(picture, 512, 512), first);
    }
}

}  // namespace
