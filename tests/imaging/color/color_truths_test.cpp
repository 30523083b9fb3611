// Colors of files against values worked out from the definitions of their spaces.

#include "color_profiles.h"
#include "color_truth.h"
#include "imaging/pixels/pixel_image.h"
#include "jpeg_files.h"
#include "png_files.h"
#include "temporary_folder.h"
#include "tiff_files.h"

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

using namespace quarlin;
using namespace quarlin::fixtures;

namespace {

/// As near to the nearest byte as the 16-bit numbers of a profile allow.
constexpr double nearestByte = 0.6;

/// Every fifteenth level of each channel with every other, and all the darkest of each.
Picture levelChart() {
    return drawnPicture(18 * 18, 18 + 16, [](int x, int y) {
        const auto level = [](int step) { return static_cast<std::uint8_t>(step * 15); };
        if (y < 18) {
            return Rgba{level(x / 18), level(x % 18), level(y), 255};
        }
        const auto dark = [&](int shift) { return static_cast<std::uint8_t>((x + shift * y) % 17); };
        return Rgba{dark(0), dark(1), dark(3), 255};
    });
}

struct Space {
    const char* name;
    QByteArray profile;
    Primaries primaries;
    std::function<double(double)> decode;
};

void PrintTo(const Space& space, std::ostream* out) { *out << space.name; }

class SpaceOfPrimaries : public testing::TestWithParam<Space> {
protected:
    /// What the chart's pixel is in sRGB, 0...255.
    Color truth(int x, int y) const {
        const Rgba pixel = chart.at(x, y);
        Color light{};
        for (std::size_t channel = 0; channel < 3; ++channel) {
            light[channel] = GetParam().decode(pixel[channel] / 255.0);
        }
        light = inSRGB(GetParam().primaries, light);
        return {encodedSRGB(light[0]) * 255, encodedSRGB(light[1]) * 255, encodedSRGB(light[2]) * 255};
    }
    void expectTruth(const QUrl& file) const {
        EXPECT_TRUE(rendersNear(
            file, chart.width, chart.height, [&](int x, int y) { return truth(x, y); }, nearestByte));
    }
    std::vector<std::uint16_t> samples(int scale) const { return tiffPage(chart, 3, scale).samples; }

    const Picture chart = levelChart();
    const TemporaryFolder folder;
};

TEST_P(SpaceOfPrimaries, EveryPngSampleIsTheNearestByte) {
    for (const int bitDepth : {8, 16}) {
        PngForm form;
        form.colorType = 2;
        form.bitDepth = bitDepth;
        form.profile = GetParam().profile;
        const QUrl file = folder.url(u"a.png"_s);
        writePngSamples(file, chart.width, chart.height, samples(bitDepth == 16 ? 257 : 1), form);
        expectTruth(file);
    }
}

TEST_P(SpaceOfPrimaries, EveryTiffSampleIsTheNearestByte) {
    for (const int bits : {8, 16}) {
        TiffForm form;
        form.bitsPerSample = bits;
        form.profile = GetParam().profile;
        const QUrl file = folder.url(u"a.tif"_s);
        writeTiff(file, {tiffPage(chart, 3, bits == 16 ? 257 : 1)}, form);
        expectTruth(file);
    }
}

INSTANTIATE_TEST_SUITE_P(ColorTruths, SpaceOfPrimaries,
                         testing::Values(Space{"DisplayP3", displayP3Profile(), p3Primaries, decodedSRGB},
                                         Space{"AdobeRgb", adobeRgbProfile(), adobePrimaries,
                                               [](double value) { return std::pow(value, 563.0 / 256.0); }}),
                         [](const auto& instance) { return instance.param.name; });

class ColorTruths : public testing::Test {
protected:
    const TemporaryFolder folder;
};

TEST_F(ColorTruths, AWhitePointOfFiveThousandKelvinBecomesWhite) {
    // Every neutral of a space with another white is a neutral of sRGB.
    const QUrl file = folder.url(u"a.png"_s);
    writePngWithProfile(file,
                        drawnPicture(256, 1,
                                     [](int x, int) {
                                         const auto gray = static_cast<std::uint8_t>(x);
                                         return Rgba{gray, gray, gray, 255};
                                     }),
                        proPhotoProfile());
    EXPECT_TRUE(rendersNear(
        file, 256, 1,
        [](int x, int) {
            const double gray = encodedSRGB(std::pow(x / 255.0, 1.8)) * 255;
            return Color{gray, gray, gray};
        },
        0.75));
}

TEST_F(ColorTruths, ColorsOutsideOfSrgbAreCutOffAtItsEdge) {
    // The reddest red of ProPhoto has negative green and blue light in sRGB.
    const QUrl file = folder.url(u"a.png"_s);
    writePngWithProfile(file, constantPicture(3, 3, {255, 0, 0, 255}), proPhotoProfile());
    EXPECT_TRUE(rendersAs(constantPicture(3, 3, {255, 0, 0, 255}), file));
}

/// A gray image of every 8-bit level, or of the 16-bit levels that `step` apart.
class GrayTruths : public ColorTruths {
protected:
    void expectTruth(const QByteArray& profile, const std::function<double(double)>& decode) const {
        for (const bool isWide : {false, true}) {
            const int step = isWide ? 13 : 1;
            const int largest = isWide ? 65535 : 255;
            const int width = largest / step + 1;
            std::vector<std::uint16_t> levels;
            for (int index = 0; index < width; ++index) {
                levels.push_back(static_cast<std::uint16_t>(index * step));
            }
            const auto truth = [&](int x, int) {
                const double gray = encodedSRGB(decode(static_cast<double>(x * step) / largest)) * 255;
                return Color{gray, gray, gray};
            };
            PngForm form;
            form.colorType = 0;
            form.bitDepth = isWide ? 16 : 8;
            form.profile = profile;
            const QUrl png = folder.url(u"a.png"_s);
            writePngSamples(png, width, 1, levels, form);
            EXPECT_TRUE(rendersNear(png, width, 1, truth, nearestByte));
            TiffForm tiffForm;
            tiffForm.colors = 1;
            tiffForm.bitsPerSample = form.bitDepth;
            tiffForm.profile = profile;
            const QUrl tiff = folder.url(u"a.tif"_s);
            writeTiff(tiff, {TiffPage{width, 1, levels}}, tiffForm);
            EXPECT_TRUE(rendersNear(tiff, width, 1, truth, nearestByte));
        }
    }
};

TEST_F(GrayTruths, EveryLevelOfAGammaIsTheNearestByte) {
    expectTruth(grayGammaProfile(1.8), [](double value) { return std::pow(value, 1.8); });
    expectTruth(grayGammaProfile(1.0), [](double value) { return value; });
}

TEST_F(GrayTruths, EveryLevelOfADotGainIsTheNearestByte) {
    // The profile's curve is straight between 256 points, and so is this one where 8-bit levels meet them.
    expectTruth(grayDotGainProfile(), [](double value) {
        const auto at = [](double point) {
            const double area = 1 - point / 255;
            return 1 - (area + 0.4 * area * (1 - area));
        };
        const double below = std::floor(value * 255);
        return at(below) + (at(below + 1) - at(below)) * (value * 255 - below);
    });
}

TEST_F(GrayTruths, AConvertedGrayIsNeutral) {
    PngForm form;
    form.colorType = 0;
    form.profile = grayDotGainProfile();
    std::vector<std::uint16_t> levels(256);
    for (std::size_t level = 0; level < levels.size(); ++level) {
        levels[level] = static_cast<std::uint16_t>(level);
    }
    const QUrl file = folder.url(u"a.png"_s);
    writePngSamples(file, 256, 1, levels, form);
    const PixelImage image = rendered(file);
    for (int level = 0; level < 256; ++level) {
        const Rgba pixel = pixelAt(image, level, 0);
        EXPECT_EQ(pixel[0], pixel[1]) << level;
        EXPECT_EQ(pixel[0], pixel[2]) << level;
    }
}

class InkTruths : public ColorTruths {
protected:
    /// One of the colors that stand in the profile's table itself.
    static Rgba inks(int index) {
        const auto ink = [&](int divisor) { return static_cast<std::uint8_t>(index / divisor % 4 * 85); };
        return {ink(1), ink(4), ink(16), ink(64)};
    }
    static Color truth(const Rgba& ink) {
        const auto color = [&](std::size_t channel) {
            return 255 * (1 - ink[channel] / 255.0) * (1 - ink[3] / 255.0);
        };
        return {color(0), color(1), color(2)};
    }
};

TEST_F(InkTruths, AProfileDecidesWhatTheInksOfAJpegAre) {
    JpegForm form;
    form.profile = inkProfile();
    const QUrl file = folder.url(u"a.jpg"_s);
    for (int index = 0; index < 256; index += 5) {
        writeFile(file, inkJpeg(constantPicture(8, 8, inks(index)), form));
        // The inks are a level or so off in the file already, and the profile's numbers for the darkest
        // colors are coarse.
        EXPECT_TRUE(rendersNear(
            file, 8, 8, [&](int, int) { return truth(inks(index)); }, 3))
            << index;
    }
}

TEST_F(InkTruths, WithoutAProfileTheInksAreThoseOfAPress) {
    const auto colorOf = [&](Rgba inks) {
        const QUrl file = folder.url(u"a.jpg"_s);
        writeFile(file, inkJpeg(constantPicture(8, 8, inks)));
        return pixelAt(rendered(file), 4, 4);
    };
    EXPECT_EQ(colorOf({0, 0, 0, 0}), (Rgba{255, 255, 255, 255}));
    const Rgba black = colorOf({255, 255, 255, 255});
    EXPECT_LE(*std::max_element(black.begin(), black.begin() + 3), 30);
    // A printed cyan is far duller than the screen's.
    const Rgba cyan = colorOf({255, 0, 0, 0});
    EXPECT_LT(cyan[0], 60);
    EXPECT_NEAR(cyan[1], 170, 30);
    EXPECT_NEAR(cyan[2], 230, 30);
}

}  // namespace
