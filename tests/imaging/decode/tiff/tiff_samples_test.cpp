// Numbers of every size and kind in TIFF files, in strips and tiles, side by side and in planes, against
// values that are computed here.

#include "raw_tiff_test.h"

#include <cmath>
#include <limits>

using namespace quarlin;
using namespace quarlin::fixtures;

namespace {

std::uint64_t largest(int bits) {
    return bits == 64 ? std::numeric_limits<std::uint64_t>::max() : (std::uint64_t{1} << bits) - 1;
}

/// The byte for a sample that is an unsigned integer.
int byteOf(std::uint64_t sample, int bits) {
    return static_cast<int>(
        std::lround(static_cast<long double>(sample) * 255 / static_cast<long double>(largest(bits))));
}

/// `count` numbers from 0 to the largest one, with every bit in use. (With a prime `count - 1`, none is
/// half-way between two bytes.)
std::vector<std::uint64_t> numbers(int count, int bits) {
    std::vector<std::uint64_t> result;
    for (int index = 0; index < count; ++index) {
        const auto part = static_cast<long double>(index) / (count - 1);
        const auto number = index == count - 1
                                ? largest(bits)
                                : static_cast<std::uint64_t>(part * static_cast<long double>(largest(bits)));
        result.push_back(number);
    }
    return result;
}

TEST(TiffSamples, UnsignedIntegersOfEveryDepthAreScaled) {
    constexpr int width = 38;
    constexpr int height = 3;
    for (int bits = 1; bits <= 64; ++bits) {
        const std::vector<std::uint64_t> samples = numbers(width * height, bits);
        std::vector<int> expected;
        std::vector<int> inverted;
        for (const std::uint64_t sample : samples) {
            expected.push_back(byteOf(sample, bits));
            inverted.push_back(byteOf(largest(bits) - sample, bits));
        }
        RawTiff tiff(width, height, 1, bits);
        EXPECT_TRUE(isGray(tiff.file(samples), expected)) << bits;
        EXPECT_TRUE(isGray(tiff.photometric(0).file(samples), inverted)) << bits;
        RawTiff bigEndian(width, height, 1, bits);
        EXPECT_TRUE(isGray(bigEndian.bigEndian().file(samples), expected)) << bits;
    }
}

TEST(TiffSamples, OfAnUndefinedFormatAreUnsignedIntegers) {
    EXPECT_TRUE(isGray(RawTiff(3, 1, 1, 8).sampleFormat(4).file({0, 100, 255}), {0, 100, 255}));
}

TEST(TiffSamples, OfRgbAreInTheSamePlaceHoweverTheFileKeepsThem) {
    constexpr int width = 35;
    constexpr int height = 21;
    for (const int bits : {1, 2, 4, 5, 8, 10, 12, 14, 16, 24, 32, 64}) {
        const std::vector<std::uint64_t> samples = numbers(width * height * 3, bits);
        for (const bool isBigEndian : {false, true}) {
            for (const bool isSeparate : {false, true}) {
                for (const bool isTiled : {false, true}) {
                    RawTiff tiff(width, height, 3, bits);
                    if (isBigEndian) {
                        tiff.bigEndian();
                    }
                    if (isSeparate) {
                        tiff.separatePlanes();
                    }
                    if (isTiled) {
                        tiff.tiles(16, 32);
                    }
                    const QImage image = decodeImage(tiff.file(samples));
                    for (int index = 0; index < width * height; ++index) {
                        const auto at = [&](int channel) {
                            return static_cast<std::uint8_t>(
                                byteOf(samples[static_cast<std::size_t>(index * 3 + channel)], bits));
                        };
                        ASSERT_EQ(pixelOf(image, index % width, index / width),
                                  (Rgba{at(0), at(1), at(2), 255}))
                            << bits << " bits" << (isBigEndian ? ", big-endian" : "")
                            << (isSeparate ? ", separate" : "") << (isTiled ? ", tiles" : "") << ", pixel "
                            << index;
                    }
                }
            }
        }
    }
}

/// Floating point numbers, and the bytes that they are.
struct FloatingPoint {
    std::vector<double> numbers;
    std::vector<int> bytes;
};

FloatingPoint floatingPoint() {
    constexpr double infinity = std::numeric_limits<double>::infinity();
    return {{0.0, 0.25, 0.5, 0.75, 1.0, -0.0, -0.5, 1.5, 65504.0, infinity, -infinity, std::nan(""),
             1.0 / 1024, 6e-8, 0.125, 0.0625},
            {0, 64, 128, 191, 255, 0, 0, 255, 255, 255, 0, 0, 0, 0, 32, 16}};
}

TEST(TiffSamples, OfFloatingPointCountFromZeroToOneAsTheyAre) {
    const FloatingPoint values = floatingPoint();
    for (const int bits : {16, 32, 64}) {
        std::vector<std::uint64_t> samples;
        for (const double number : values.numbers) {
            samples.push_back(floatBits(number, bits));
        }
        RawTiff tiff(static_cast<int>(samples.size()), 1, 1, bits);
        EXPECT_TRUE(isGray(tiff.sampleFormat(3).file(samples), values.bytes)) << bits;
        RawTiff bigEndian(static_cast<int>(samples.size()), 1, 1, bits);
        EXPECT_TRUE(isGray(bigEndian.sampleFormat(3).bigEndian().file(samples), values.bytes)) << bits;
    }
}

TEST(TiffSamples, OfFloatingPointCountTheSameInAnyNumberOfChannels) {
    for (const int bits : {16, 32, 64}) {
        const auto pixel = [&](const std::vector<double>& numbers) {
            std::vector<std::uint64_t> samples;
            for (const double number : numbers) {
                samples.push_back(floatBits(number, bits));
            }
            RawTiff tiff(1, 1, static_cast<int>(numbers.size()), bits);
            return pixelOf(decodeImage(tiff.sampleFormat(3).file(samples)), 0, 0);
        };
        EXPECT_EQ(pixel({0.5}), (Rgba{128, 128, 128, 255})) << bits;
        EXPECT_EQ(pixel({0.25, 0.5}), (Rgba{32, 32, 32, 128})) << bits;
        EXPECT_EQ(pixel({0.5, 0.25, 0.75}), (Rgba{128, 64, 191, 255})) << bits;
        EXPECT_EQ(pixel({1.0, 0.5, 0.25, 0.5}), (Rgba{128, 64, 32, 128})) << bits;
    }
}

TEST(TiffSamples, WithoutAClearMeaningAreRefused) {
    // Signed and complex integers, complex numbers, and formats that nobody has declared.
    for (const int format : {2, 5, 6, 7, 0}) {
        for (const int bits : {8, 16, 32, 64}) {
            EXPECT_TRUE(isRefused(RawTiff(2, 1, 1, bits).sampleFormat(format).file({5, 7})))
                << format << ' ' << bits;
        }
    }
    for (const int bits : {8, 24, 12, 48}) {
        EXPECT_TRUE(isRefused(RawTiff(2, 1, 1, bits).sampleFormat(3).file({5, 7}))) << bits;
    }
    RawTiff mixed(2, 1, 3, 8);
    EXPECT_TRUE(isRefused(mixed.set(258, {8, 16, 8}).file({1, 2, 3, 4, 5, 6})));
    RawTiff none(2, 1, 1, 8);
    EXPECT_TRUE(isRefused(none.set(258, {0}).file({1, 2})));
    RawTiff tooMany(2, 1, 1, 8);
    EXPECT_TRUE(isRefused(tooMany.set(258, {65}).file({1, 2})));
}

TEST(TiffSamples, ThatAreMissingMakeTheFileRefused) {
    std::vector<std::uint64_t> samples(16 * 16 * 3, 77);
    for (const bool isSeparate : {false, true}) {
        for (const bool isTiled : {false, true}) {
            RawTiff tiff(16, 16, 3, 8);
            if (isSeparate) {
                tiff.separatePlanes();
            }
            if (isTiled) {
                tiff.tiles(16, 16);
            }
            QByteArray file = tiff.file(samples);
            EXPECT_FALSE(isRefused(file));
            // The data come first in the file, so the place of the last block is that of its end.
            const qsizetype directory = 8 + 16 * 16 * 3;
            ASSERT_EQ(file.mid(4, 4), QByteArray("\x08\x03\0\0", 4));
            file.remove(directory - 10, 10);
            file[4] = static_cast<char>(directory - 10);
            file[5] = static_cast<char>((directory - 10) >> 8);
            EXPECT_TRUE(isRefused(file.first(directory + 20))) << isSeparate << isTiled;
        }
    }
}

TEST(TiffSamples, OfABlankFaxPageOfTwoKilobytes) {
    // Each row needs one bit: it is like the one above it, and the one above the first is white.
    constexpr int side = 10000;
    RawTiff tiff(side, side, 1, 1);
    tiff.photometric(0).set(259, {4});
    const QByteArray endOfPage("\x00\x10\x01", 3);
    const QByteArray file = tiff.fileOfStrip(QByteArray(side / 8, '\xff') + endOfPage);
    EXPECT_LT(file.size(), 2000);
    const QImage image = decodeImage(file);
    EXPECT_EQ(image.size(), QSize(side, side));
    EXPECT_EQ(pixelOf(image, side - 1, side - 1), (Rgba{255, 255, 255, 255}));
    // A page that claims more rows than it has bits is not believed.
    RawTiff absurd(side, side * 2, 1, 1);
    EXPECT_TRUE(isRefused(absurd.photometric(0).set(259, {4}).fileOfStrip(QByteArray(10, '\xff'))));
}

}  // namespace
