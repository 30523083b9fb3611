// Bitmaps that only some writers make: run-length codes that skip pixels, short palettes of OS/2, no file
// header.

#include "bmp_files.h"
#include "decoded_image.h"

#include <QtEndian>

using namespace quarlin;
using namespace quarlin::fixtures;

namespace {

constexpr qsizetype fileHeaderSize = 14;

/// A bitmap of 4 x 2 pixels with a palette of grays and these run-length codes of 8 bits.
QByteArray withCodes(const QByteArray& codes) {
    constexpr qsizetype headersAndPalette = 14 + 40 + 1024;
    return bmp8GrayRunLength(constantPicture(4, 2, {9, 9, 9, 255})).first(headersAndPalette) + codes;
}

/// The grays of the pixels from the top, -1 for a transparent one.
std::vector<int> graysOf(const QByteArray& file) {
    const QImage image = decodeImage(file);
    std::vector<int> grays;
    for (int index = 0; index < image.width() * image.height(); ++index) {
        const Rgba pixel = pixelOf(image, index % image.width(), index / image.width());
        EXPECT_TRUE(pixel[3] == 255 || pixel == Rgba{}) << index;
        grays.push_back(pixel[3] == 255 ? pixel[0] : -1);
    }
    return grays;
}

TEST(BmpRuns, LeaveSkippedPixelsTransparent) {
    // The first row of the codes is the lowest one. A row may end early,
    EXPECT_EQ(graysOf(withCodes(QByteArray("\3\x11\0\0\4\x22\0\1", 8))),
              (std::vector{0x22, 0x22, 0x22, 0x22, 0x11, 0x11, 0x11, -1}));
    EXPECT_EQ(graysOf(withCodes(QByteArray("\0\0\4\x22\0\1", 6))),
              (std::vector{0x22, 0x22, 0x22, 0x22, -1, -1, -1, -1}));
    // the bitmap may,
    EXPECT_EQ(graysOf(withCodes(QByteArray("\4\x11\0\1", 4))),
              (std::vector{-1, -1, -1, -1, 0x11, 0x11, 0x11, 0x11}));
    EXPECT_EQ(graysOf(withCodes(QByteArray("\0\1", 2))), (std::vector{-1, -1, -1, -1, -1, -1, -1, -1}));
    // and codes may jump to the right and up.
    EXPECT_EQ(graysOf(withCodes(QByteArray("\1\x11\0\2\1\0\2\x33\0\0\0\2\2\0\2\x22\0\1", 18))),
              (std::vector{-1, -1, 0x22, 0x22, 0x11, -1, 0x33, 0x33}));
    EXPECT_EQ(graysOf(withCodes(QByteArray("\1\x11\0\2\1\1\2\x33\0\1", 10))),
              (std::vector{-1, -1, 0x33, 0x33, 0x11, -1, -1, -1}));
}

TEST(BmpRuns, OfFourBitsAlternateBetweenTwoPixels) {
    // The same file with 4 bits per pixel, whose palette has 16 of the grays.
    QByteArray file = withCodes(QByteArray("\3\x12\0\0\0\4\x34\x56\0\1", 10));
    qToLittleEndian<quint16>(4, file.data() + 28);
    qToLittleEndian<quint32>(2, file.data() + 30);
    EXPECT_EQ(graysOf(file), (std::vector{3, 4, 5, 6, 1, 2, 1, -1}));
}

/// An OS/2 bitmap of 3 x 1 pixels of 8 bits with these indices, whose palette has `colors` grays that count
/// down from 255.
QByteArray os2Bitmap(int colors, const QByteArray& indices) {
    QByteArray file("BM", 2);
    const auto add = [&]<typename Number>(Number number) {
        const Number ordered = qToLittleEndian(number);
        file.append(reinterpret_cast<const char*>(&ordered), sizeof(ordered));
    };
    const auto pixels = static_cast<quint32>(26 + 3 * colors);
    for (const quint32 number : {pixels + 4, quint32{0}, pixels, quint32{12}}) {
        add(number);
    }
    for (const int number : {3, 1, 1, 8}) {
        add(static_cast<quint16>(number));
    }
    for (int color = 0; color < colors; ++color) {
        file.append(3, static_cast<char>(255 - color));
    }
    return file + indices + QByteArray(1, '\0');
}

TEST(Os2Bmp, MayHaveAShortPalette) {
    EXPECT_EQ(graysOf(os2Bitmap(256, QByteArray("\0\x10\xff", 3))), (std::vector{255, 239, 0}));
    // Whatever has no color is black.
    EXPECT_EQ(graysOf(os2Bitmap(17, QByteArray("\0\x10\x11", 3))), (std::vector{255, 239, 0}));
    EXPECT_EQ(graysOf(os2Bitmap(2, QByteArray("\1\0\xff", 3))), (std::vector{254, 255, 0}));
}

TEST(Os2Bmp, IsRefusedWhenItIsCutOff) {
    for (const int colors : {256, 17}) {
        const QByteArray file = os2Bitmap(colors, QByteArray("\0\1\2", 3));
        for (qsizetype size = 0; size < file.size(); ++size) {
            EXPECT_TRUE(isRefused(file.first(size))) << size;
        }
    }
}

TEST(BareBmp, IsTheSamePictureAsItsFile) {
    const Picture picture = noisePicture(9, 7, 1);
    for (const QByteArray& file :
         {bmp24(picture), bmp24(picture, true), bmp32(picture), bmp32WithAlpha(picture), bmp8Gray(picture),
          bmp8GrayRunLength(picture), bmp1(picture, {0, 0, 0, 255}, {9, 9, 9, 255}),
          os2Bitmap(256, QByteArray("\0\x10\xff", 3))}) {
        const QByteArray bare = file.sliced(fileHeaderSize);
        EXPECT_EQ(decodeImage(bare), decodeImage(file)) << file.size();
        for (const qsizetype missing : {qsizetype{3}, bare.size() / 2, bare.size() - 3}) {
            EXPECT_TRUE(isRefused(bare.chopped(missing))) << file.size() << ' ' << missing;
        }
    }
}

}  // namespace
