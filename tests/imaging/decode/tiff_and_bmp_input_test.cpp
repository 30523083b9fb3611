#include "bmp_files.h"
#include "engine/base/texture_processor_error.h"
#include "engine/texture_processor.h"
#include "engine_errors.h"
#include "picture.h"
#include "rendering.h"
#include "temporary_folder.h"
#include "tiff_files.h"

#include <gtest/gtest.h>
#include <QImage>

#include <cmath>

using namespace Qt::StringLiterals;

using namespace quarlin;
using namespace quarlin::fixtures;

namespace {

class TiffInput : public testing::Test {
protected:
    const TemporaryFolder folder;
    const QUrl file = folder.url(u"a.tif"_s);
};

Picture gray(const Picture& picture) {
    return drawnPicture(picture.width, picture.height, [&](int x, int y) {
        const std::uint8_t value = picture.at(x, y)[0];
        return Rgba{value, value, value, 255};
    });
}

TEST_F(TiffInput, StripsOfEveryCompression) {
    const Picture picture = noisePicture(37, 23, 1);
    for (const int compression : {1, 5, 8, 32773}) {
        TiffForm form;
        form.compression = compression;
        writeTiff(file, {tiffPage(picture, 3)}, form);
        EXPECT_TRUE(rendersAs(picture, file)) << compression;
    }
}

TEST_F(TiffInput, Tiles) {
    const Picture picture = noisePicture(75, 41, 2);
    for (const int tile : {16, 32, 128}) {
        TiffForm form;
        form.tile = tile;
        writeTiff(file, {tiffPage(picture, 3)}, form);
        EXPECT_TRUE(rendersAs(picture, file)) << tile;
    }
}

TEST_F(TiffInput, OnlyTheFirstPageCounts) {
    const Picture first = noisePicture(20, 10, 3);
    writeTiff(file, {tiffPage(first, 3), tiffPage(noisePicture(40, 30, 4), 3),
                     tiffPage(noisePicture(20, 10, 5), 3)});
    EXPECT_TRUE(rendersAs(first, file));
}

TEST_F(TiffInput, SixteenBitIsRoundedToTheNearestByte) {
    TiffForm form;
    form.bitsPerSample = 16;
    TiffPage page{64, 4, {}};
    for (unsigned index = 0; index < 64 * 4 * 3; ++index) {
        page.samples.push_back(static_cast<std::uint16_t>(index * 85 + index % 7));
    }
    writeTiff(file, {page}, form);
    EXPECT_TRUE(rendersAs(drawnPicture(64, 4,
                                       [&](int x, int y) {
                                           const auto at = static_cast<std::size_t>(y * 64 + x) * 3;
                                           const auto byte = [&](std::size_t index) {
                                               return static_cast<std::uint8_t>(
                                                   std::lround(page.samples[index] * 255.0 / 65535));
                                           };
                                           return Rgba{byte(at), byte(at + 1), byte(at + 2), 255};
                                       }),
                          file));
}

TEST_F(TiffInput, Gray) {
    TiffForm form;
    form.colors = 1;
    const Picture picture = noisePicture(19, 11, 6);
    writeTiff(file, {tiffPage(picture, 1)}, form);
    EXPECT_TRUE(rendersAs(gray(picture), file));
}

TEST_F(TiffInput, SixteenBitGray) {
    TiffForm form;
    form.colors = 1;
    form.bitsPerSample = 16;
    const Picture picture = noisePicture(19, 11, 7);
    writeTiff(file, {tiffPage(picture, 1, 257)}, form);
    EXPECT_TRUE(rendersAs(gray(picture), file));
}

TEST_F(TiffInput, GrayOfEveryDepthIsSpreadOverTheByte) {
    for (const int bits : {1, 2, 4}) {
        for (const bool minimumIsWhite : {false, true}) {
            const int largest = (1 << bits) - 1;
            TiffForm form;
            form.colors = 1;
            form.bitsPerSample = bits;
            form.minimumIsWhite = minimumIsWhite;
            TiffPage page{21, 5, {}};
            for (int index = 0; index < 21 * 5; ++index) {
                page.samples.push_back(static_cast<std::uint16_t>(index * 7 / 3 % (largest + 1)));
            }
            writeTiff(file, {page}, form);
            EXPECT_TRUE(rendersAs(
                drawnPicture(21, 5,
                             [&](int x, int y) {
                                 const int level = page.samples[static_cast<std::size_t>(y * 21 + x)];
                                 const auto value = static_cast<std::uint8_t>(
                                     (minimumIsWhite ? largest - level : level) * 255 / largest);
                                 return Rgba{value, value, value, 255};
                             }),
                file))
                << bits << " bits, white is " << (minimumIsWhite ? "0" : "the largest");
        }
    }
}

TEST_F(TiffInput, BigEndianAndLargeFiles) {
    const Picture picture = noisePicture(21, 9, 12);
    for (const bool bigEndian : {false, true}) {
        for (const int bits : {8, 16}) {
            TiffForm form;
            form.bigEndian = bigEndian;
            form.large = true;
            form.bitsPerSample = bits;
            writeTiff(file, {tiffPage(picture, 3, bits == 16 ? 257 : 1)}, form);
            EXPECT_TRUE(rendersAs(picture, file)) << bits << bigEndian;
        }
    }
}

TEST_F(TiffInput, GrayWhoseZeroIsWhite) {
    TiffForm form;
    form.colors = 1;
    form.minimumIsWhite = true;
    const Picture picture = noisePicture(19, 11, 8);
    TiffPage page = tiffPage(picture, 1);
    for (std::uint16_t& sample : page.samples) {
        sample = static_cast<std::uint16_t>(255 - sample);
    }
    writeTiff(file, {page}, form);
    EXPECT_TRUE(rendersAs(gray(picture), file));
}

TEST_F(TiffInput, StraightAlphaIsPremultiplied) {
    TiffForm form;
    form.alpha = TiffForm::Alpha::unassociated;
    const Picture picture = noisePicture(21, 9, 9, true);
    writeTiff(file, {tiffPage(picture, 4)}, form);
    EXPECT_TRUE(rendersAs(picture, file));
}

TEST_F(TiffInput, TheOrientationIsIgnored) {
    const Picture picture = noisePicture(12, 5, 11);
    for (int orientation = 1; orientation <= 8; ++orientation) {
        TiffForm form;
        form.orientation = orientation;
        writeTiff(file, {tiffPage(picture, 3)}, form);
        EXPECT_TRUE(rendersAs(picture, file)) << orientation;
    }
}

class BmpInput : public testing::Test {
protected:
    QUrl fileOf(const QByteArray& bytes) const {
        const QUrl file = folder.url(u"a.bmp"_s);
        writeFile(file, bytes);
        return file;
    }

    const TemporaryFolder folder;
};

TEST_F(BmpInput, TwentyFourBitsOfEveryRowPadding) {
    for (int width = 1; width <= 8; ++width) {
        const Picture picture = noisePicture(width, 5, 1);
        EXPECT_TRUE(rendersAs(picture, fileOf(bmp24(picture)))) << width;
        EXPECT_TRUE(rendersAs(picture, fileOf(bmp24(picture, true)))) << width;
    }
}

TEST_F(BmpInput, ThirtyTwoBitsWithoutAlphaAreOpaque) {
    const Picture picture = noisePicture(9, 7, 2);
    EXPECT_TRUE(rendersAs(picture, fileOf(bmp32(picture))));
}

TEST_F(BmpInput, ThirtyTwoBitsWithAlphaMaskAreTransparent) {
    const Picture picture = noisePicture(9, 7, 3, true);
    EXPECT_TRUE(rendersAs(picture, fileOf(bmp32WithAlpha(picture))));
}

TEST_F(BmpInput, EightBitPalette) {
    const Picture picture = noisePicture(11, 6, 4);
    EXPECT_TRUE(rendersAs(gray(picture), fileOf(bmp8Gray(picture))));
}

TEST_F(BmpInput, RunLengths) {
    const Picture picture = drawnPicture(40, 9, [](int x, int y) {
        const auto value = static_cast<std::uint8_t>((x / 7 + y) * 31);
        return Rgba{value, value, value, 255};
    });
    EXPECT_TRUE(rendersAs(picture, fileOf(bmp8GrayRunLength(picture))));
}

TEST_F(BmpInput, RunLengthsThatEndEarlyAreAnError) {
    const QByteArray whole = bmp8GrayRunLength(gray(noisePicture(12, 9, 7)));
    const qsizetype header = 14 + 40 + 1024;
    for (qsizetype length = header; length < whole.size() - 4; length += 3) {
        const QUrl file = fileOf(whole.first(length));
        EXPECT_EQ(errorOf([&] { return TextureProcessor().loadCGImage(file); }),
                  TextureProcessorError::cannotReadImage(file))
            << length << " of " << whole.size();
    }
}

TEST_F(BmpInput, OneBitPalette) {
    for (const int width : {1, 7, 8, 9, 33}) {
        const Picture noise = noisePicture(width, 6, 8);
        const Rgba clear{10, 200, 30, 255};
        const Rgba set{250, 5, 90, 255};
        const Picture expected =
            drawnPicture(width, 6, [&](int x, int y) { return noise.at(x, y)[0] > 127 ? set : clear; });
        EXPECT_TRUE(rendersAs(expected, fileOf(bmp1(noise, clear, set)))) << width;
    }
}

TEST_F(BmpInput, IsRecognizedWithoutItsExtension) {
    const QUrl file = folder.url(u"texture"_s);
    writeFile(file, bmp24(smoothPicture(9, 7)));
    EXPECT_TRUE(rendersAs(smoothPicture(9, 7), file));
}

TEST_F(BmpInput, CutOffAnywhereIsAnError) {
    const Picture picture = noisePicture(9, 7, 5);
    for (const QByteArray& whole :
         {bmp24(picture), bmp32(picture), bmp32WithAlpha(picture), bmp8Gray(picture)}) {
        ASSERT_TRUE(rendered(fileOf(whole)).width == 9);
        // Anywhere in the headers, and at steps that meet every place in a row of pixels.
        for (qsizetype length = 0; length < whole.size(); length += length < 60 ? 1 : 7) {
            const QUrl file = fileOf(whole.first(length));
            ASSERT_EQ(errorOf([&] { return TextureProcessor().loadCGImage(file); }),
                      TextureProcessorError::cannotReadImage(file))
                << length << " of " << whole.size();
        }
    }
}

TEST_F(BmpInput, AbsurdSizesAreErrors) {
    QByteArray wide = bmp24(noisePicture(9, 7, 6));
    for (const auto& [offset, value] :
         {std::pair{18, '\x7f'}, {21, '\x7f'}, {25, '\x7f'}, {21, '\x80'}, {25, '\x80'}}) {
        QByteArray broken = wide;
        broken[offset] = value;
        const QUrl file = fileOf(broken);
        EXPECT_EQ(errorOf([&] { return TextureProcessor().loadCGImage(file); }),
                  TextureProcessorError::cannotReadImage(file))
            << offset;
    }
    for (const int dimension : {18, 22}) {
        QByteArray none = wide;
        none.replace(dimension, 4, QByteArray(4, '\0'));
        const QUrl file = fileOf(none);
        EXPECT_EQ(errorOf([&] { return TextureProcessor().loadCGImage(file); }),
                  TextureProcessorError::cannotReadImage(file));
    }
}

}  // namespace
