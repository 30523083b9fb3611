// Resampling of single pixels, of gradients and of the edges of transparent areas.

#include "engine/texture_processor.h"
#include "imaging/pixels/pixel_image.h"
#include "picture.h"
#include "png_files.h"
#include "rendering.h"
#include "temporary_folder.h"

#include <gtest/gtest.h>

#include <cmath>

using namespace Qt::StringLiterals;

using namespace quarlin;
using namespace quarlin::fixtures;

namespace {

class ResamplingEdges : public testing::Test {
protected:
    PixelImage stretched(const Picture& picture, int width, int height) const {
        writePng(file, picture);
        return processor.renderImage(file, width, height);
    }

    /// The largest distance of a visible color from `color`. The unit is the change of the straight color by
    /// one step of the premultiplied byte, at that alpha.
    static double largestFringe(const PixelImage& image, const Rgba& color) {
        double largest = 0;
        for (int y = 0; y < image.height; ++y) {
            for (int x = 0; x < image.width; ++x) {
                const Rgba pixel = pixelAt(image, x, y);
                for (std::size_t channel = 0; channel < 3; ++channel) {
                    largest = std::max(largest, std::abs(pixel[channel] - color[channel] * pixel[3] / 255.0));
                }
            }
        }
        return largest;
    }

    const TextureProcessor processor{};
    const TemporaryFolder folder;
    const QUrl file = folder.url(u"a.png"_s);
};

TEST_F(ResamplingEdges, ACutOutHasNeitherADarkNorABrightFringe) {
    // A disc of one color. Everything around it is transparent, with a hidden color: black, white or green.
    const Rgba color{200, 120, 40, 255};
    for (const Rgba hidden : {Rgba{0, 0, 0, 0}, Rgba{255, 255, 255, 0}, Rgba{0, 255, 0, 0}}) {
        const Picture disc = drawnPicture(
            80, 80, [&](int x, int y) { return std::hypot(x - 39.5, y - 39.5) < 30 ? color : hidden; });
        for (const auto& [width, height] : {std::pair{40, 40}, {33, 57}, {160, 160}, {233, 91}, {9, 9}}) {
            const PixelImage image = stretched(disc, width, height);
            // Each premultiplied byte is rounded, and so is its alpha.
            EXPECT_LE(largestFringe(image, color), 1.0) << width << 'x' << height;
            EXPECT_EQ(pixelAt(image, 0, 0), (Rgba{0, 0, 0, 0}));
            EXPECT_EQ(pixelAt(image, width / 2, height / 2), color);
        }
    }
}

TEST_F(ResamplingEdges, AHalfTransparentPlaneHasNoFringeEither) {
    const Rgba color{90, 255, 3, 100};
    const Picture plane = drawnPicture(
        64, 64, [&](int x, int y) { return x > 15 && x < 48 && y > 15 && y < 48 ? color : Rgba{}; });
    for (const int size : {32, 23, 128, 150}) {
        EXPECT_LE(largestFringe(stretched(plane, size, size), {90, 255, 3, 255}), 1.0) << size;
    }
}

TEST_F(ResamplingEdges, AnExportedCutOutHasItsColorUpToItsEdge) {
    // As another program reads the file: straight colors, even where alpha is low.
    const Rgba color{255, 255, 255, 255};
    const Picture disc = drawnPicture(
        80, 80, [&](int x, int y) { return std::hypot(x - 39.5, y - 39.5) < 30 ? color : Rgba{}; });
    const PixelImage image = stretched(disc, 31, 31);
    processor.writePNG(image, file);
    const Picture written = readPng(file);
    for (int y = 0; y < 31; ++y) {
        for (int x = 0; x < 31; ++x) {
            const Rgba pixel = written.at(x, y);
            EXPECT_TRUE(pixel[3] == 0 || pixel[0] == 255) << x << ',' << y;
        }
    }
}

TEST_F(ResamplingEdges, ASinglePixelKeepsItsEnergy) {
    // The pixel keeps its share of the area of the picture. The picture is gray, because overshoot below
    // black would be clamped.
    const auto pointOn = [](int size) {
        return drawnPicture(size, size, [&](int x, int y) {
            const std::uint8_t gray = x == size / 2 && y == size / 2 ? 255 : 100;
            return Rgba{gray, gray, gray, 255};
        });
    };
    for (const auto& [from, to] : {std::pair{33, 66}, {33, 99}, {33, 50}, {32, 16}, {33, 11}, {33, 24}}) {
        const PixelImage image = stretched(pointOn(from), to, to);
        double sum = 0;
        for (std::size_t at = 0; at < image.pixels.size(); at += 4) {
            sum += image.pixels[at] - 100.0;
        }
        const double area = static_cast<double>(from) * from / (static_cast<double>(to) * to);
        EXPECT_NEAR(sum * area, 155, 155 * 0.06) << from << " to " << to;
    }
}

TEST_F(ResamplingEdges, ASinglePixelStaysInItsPlaceAndSymmetric) {
    const Picture point = drawnPicture(21, 21, [](int x, int y) {
        const std::uint8_t gray = x == 10 && y == 10 ? 255 : 0;
        return Rgba{gray, gray, gray, 255};
    });
    for (const int size : {7, 13, 21, 42, 63, 100, 105}) {
        const PixelImage image = stretched(point, size, size);
        for (int y = 0; y < size; ++y) {
            for (int x = 0; x < size; ++x) {
                ASSERT_EQ(pixelAt(image, x, y), pixelAt(image, size - 1 - x, y)) << size;
                ASSERT_EQ(pixelAt(image, x, y), pixelAt(image, y, x)) << size;
            }
        }
        // The middle is brightest.
        const int middle = pixelAt(image, size / 2, size / 2)[0];
        for (std::size_t at = 0; at < image.pixels.size(); at += 4) {
            ASSERT_LE(image.pixels[at], middle) << size;
        }
    }
}

TEST_F(ResamplingEdges, AGradientKeepsItsEnds) {
    const Picture gradient = drawnPicture(256, 3, [](int x, int) {
        const auto gray = static_cast<std::uint8_t>(x);
        return Rgba{gray, gray, gray, 255};
    });
    for (const int width : {128, 64, 512, 1024, 300}) {
        const PixelImage image = stretched(gradient, width, 3);
        int before = 0;
        for (int x = 0; x < width; ++x) {
            const int gray = pixelAt(image, x, 1)[0];
            EXPECT_GE(gray, before) << width << " at " << x;
            EXPECT_NEAR(gray, 255 - pixelAt(image, width - 1 - x, 1)[0], 1) << width << " at " << x;
            before = gray;
        }
        // A pixel at the end is the mean of the area that it covers.
        const double covered = 256.0 / width;
        EXPECT_NEAR(pixelAt(image, 0, 1)[0], std::max(0.0, (covered - 1) / 2), 1.5) << width;
    }
}

}  // namespace
