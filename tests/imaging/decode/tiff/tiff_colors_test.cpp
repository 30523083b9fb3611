// What the samples of a TIFF file mean: gray, RGB, palettes, inks, CIELAB, brightness and color differences.

#include "lab_truth.h"
#include "raw_tiff_test.h"

#include <cmath>

using namespace quarlin;
using namespace quarlin::fixtures;

namespace {

constexpr int paletteColors = 3;
constexpr int inks = 5;
constexpr int yCbCr = 6;
constexpr int cieLab = 8;
constexpr int iccLab = 9;

TEST(TiffColors, PalettesOfEveryDepthAreLookedUp) {
    for (const int bits : {1, 2, 4, 8, 12, 16}) {
        const int size = 1 << bits;
        for (const int scale : {1, 256, 257}) {
            std::vector<int> palette;
            for (int channel = 0; channel < 3; ++channel) {
                for (int index = 0; index < size; ++index) {
                    palette.push_back((index * (channel + 3) + channel * 50) % 256 * scale);
                }
            }
            std::vector<std::uint64_t> samples;
            for (int index = 0; index < 40; ++index) {
                samples.push_back(static_cast<std::uint64_t>(index * 7 % size));
            }
            RawTiff tiff(20, 2, 1, bits);
            const QImage image = decodeImage(tiff.photometric(paletteColors).palette(palette).file(samples));
            for (int index = 0; index < 40; ++index) {
                const auto color = [&](int channel) {
                    const auto entry = static_cast<int>(samples[static_cast<std::size_t>(index)]);
                    return static_cast<std::uint8_t>((entry * (channel + 3) + channel * 50) % 256);
                };
                ASSERT_EQ(pixelOf(image, index % 20, index / 20), (Rgba{color(0), color(1), color(2), 255}))
                    << bits << " bits, times " << scale << ", pixel " << index;
            }
        }
    }
}

TEST(TiffColors, OfAPaletteMayHaveAlpha) {
    std::vector<int> palette(3 * 256, 0);
    palette[1] = 200 * 257;
    RawTiff tiff(1, 1, 2, 8);
    tiff.photometric(paletteColors).palette(palette).extraSamples({2});
    EXPECT_EQ(pixelOf(decodeImage(tiff.file({1, 128})), 0, 0), (Rgba{100, 0, 0, 128}));
}

TEST(TiffColors, WithoutTheirPaletteAreRefused) {
    for (const int bits : {1, 2, 4}) {
        EXPECT_TRUE(isRefused(RawTiff(2, 1, 1, bits).photometric(paletteColors).file({1, 0}))) << bits;
    }
}

/// Samples of CIELAB and the color that they stand for.
struct LabForm {
    const char* name;
    int photometric;
    int bits;
    int sampleFormat;
    double (*lightness)(std::uint64_t);
    double (*difference)(std::uint64_t);
};

double byteLightness(std::uint64_t sample) { return static_cast<double>(sample) * 100 / 255; }
double signedByte(std::uint64_t sample) { return static_cast<std::int8_t>(sample); }
double offsetByte(std::uint64_t sample) { return static_cast<double>(sample) - 128; }
double wordLightness(std::uint64_t sample) { return static_cast<double>(sample) * 100 / 65535; }
// The color library's numbers end at 127.
double signedWord(std::uint64_t sample) { return std::min(static_cast<std::int16_t>(sample) / 256.0, 127.0); }
double iccLightness(std::uint64_t sample) { return static_cast<double>(sample) * 100 / 65280; }
double offsetWord(std::uint64_t sample) { return std::min(static_cast<double>(sample) / 256 - 128, 127.0); }

TEST(TiffColors, OfCielabAreConverted) {
    for (const LabForm& form : {LabForm{"8 bits", cieLab, 8, 1, byteLightness, signedByte},
                                LabForm{"8 bits, signed", cieLab, 8, 2, byteLightness, signedByte},
                                LabForm{"16 bits", cieLab, 16, 1, wordLightness, signedWord},
                                LabForm{"8 bits of ICC", iccLab, 8, 1, byteLightness, offsetByte},
                                LabForm{"16 bits of ICC", iccLab, 16, 1, iccLightness, offsetWord}}) {
        const std::uint64_t largest = (std::uint64_t{1} << form.bits) - 1;
        constexpr int levels = 9;
        std::vector<std::uint64_t> samples;
        for (int lightness = 0; lightness < levels; ++lightness) {
            for (int a = 0; a < levels; ++a) {
                for (int b = 0; b < levels; ++b) {
                    for (const int level : {lightness, a, b}) {
                        samples.push_back(static_cast<std::uint64_t>(level) * largest / (levels - 1));
                    }
                }
            }
        }
        RawTiff tiff(levels * levels, levels, 3, form.bits);
        tiff.photometric(form.photometric).sampleFormat(form.sampleFormat);
        const QImage image = decodeImage(tiff.file(samples));
        for (int index = 0; index < levels * levels * levels; ++index) {
            const auto* lab = samples.data() + static_cast<std::size_t>(index) * 3;
            const double lightness = std::min(form.lightness(lab[0]), 100.0);
            const std::array<double, 3> expected =
                srgbOfLab(lightness, form.difference(lab[1]), form.difference(lab[2]));
            const Rgba pixel = pixelOf(image, index % (levels * levels), index / (levels * levels));
            for (std::size_t channel = 0; channel < 3; ++channel) {
                EXPECT_NEAR(pixel[channel], expected[channel], 0.75)
                    << form.name << ": L " << lightness << ", a " << form.difference(lab[1]) << ", b "
                    << form.difference(lab[2]);
            }
            ASSERT_EQ(pixel[3], 255);
        }
    }
}

TEST(TiffColors, OfCielabInFloatingPointAreConverted) {
    for (const int bits : {32, 64}) {
        RawTiff tiff(2, 1, 4, bits);
        tiff.photometric(cieLab).sampleFormat(3).extraSamples({2});
        std::vector<std::uint64_t> samples;
        for (const double number : {50.0, 0.0, 0.0, 1.0, 60.0, 40.0, -20.0, 1.0}) {
            samples.push_back(floatBits(number, bits));
        }
        const QImage image = decodeImage(tiff.file(samples));
        EXPECT_EQ(pixelOf(image, 0, 0), (Rgba{119, 119, 119, 255}));
        const std::array<double, 3> expected = srgbOfLab(60, 40, -20);
        for (std::size_t channel = 0; channel < 3; ++channel) {
            EXPECT_NEAR(pixelOf(image, 1, 0)[channel], expected[channel], 1.0);
        }
    }
}

TEST(TiffColors, OfFourInksAreTheSameInPlanesAndTiles) {
    std::vector<std::uint64_t> samples;
    for (int index = 0; index < 20 * 20 * 4; ++index) {
        samples.push_back(static_cast<std::uint64_t>(index * 37 % 256));
    }
    RawTiff plain(20, 20, 4, 8);
    const QImage expected = decodeImage(plain.photometric(inks).file(samples));
    RawTiff planes(20, 20, 4, 8);
    EXPECT_EQ(decodeImage(planes.photometric(inks).separatePlanes().file(samples)), expected);
    RawTiff tiles(20, 20, 4, 8);
    EXPECT_EQ(decodeImage(tiles.photometric(inks).separatePlanes().tiles(16, 16).file(samples)), expected);
    const QImage paper = decodeImage(RawTiff(1, 1, 4, 8).photometric(inks).file({0, 0, 0, 0}));
    EXPECT_GE(pixelOf(paper, 0, 0)[1], 250);
    // Inks of another set have no known colors.
    EXPECT_TRUE(isRefused(RawTiff(1, 1, 4, 8).photometric(inks).set(332, {2}).file({0, 0, 0, 0})));
}

TEST(TiffColors, OfBrightnessAndDifferencesAreConverted) {
    // Without differences, brightness of the full range is the gray.
    for (const bool isTiled : {false, true}) {
        RawTiff tiff(3, 1, 3, 8);
        tiff.photometric(yCbCr).set(530, {1, 1});
        if (isTiled) {
            tiff.tiles(16, 16);
        }
        EXPECT_TRUE(isGray(tiff.file({0, 128, 128, 100, 128, 128, 255, 128, 128}), {0, 100, 255})) << isTiled;
    }
    // The orientation is ignored here, too.
    RawTiff turned(3, 1, 3, 8);
    turned.photometric(yCbCr).set(530, {1, 1}).set(274, {6});
    EXPECT_TRUE(isGray(turned.file({0, 128, 128, 100, 128, 128, 255, 128, 128}), {0, 100, 255}));
}

TEST(TiffColors, OfAnUnknownModelAreRefused) {
    // A mask, the CIELAB of fax, sensors of cameras, and numbers that nobody has declared.
    for (const int photometric : {4, 10, 32803, 34892, 7, 11, 1234}) {
        EXPECT_TRUE(isRefused(RawTiff(2, 1, 3, 8).photometric(photometric).file({1, 2, 3, 4, 5, 6})))
            << photometric;
        EXPECT_TRUE(isRefused(RawTiff(2, 1, 1, 8).photometric(photometric).file({1, 2}))) << photometric;
    }
}

}  // namespace
