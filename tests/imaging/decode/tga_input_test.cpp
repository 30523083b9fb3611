// Targa files, written byte by byte from the description of the format.

#include "engine/base/texture_processor_error.h"
#include "engine/texture_processor.h"
#include "engine_errors.h"
#include "picture.h"
#include "rendering.h"
#include "temporary_folder.h"

#include <gtest/gtest.h>

#include <QtEndian>

#include <random>

using namespace Qt::StringLiterals;

using namespace quarlin;
using namespace quarlin::fixtures;

namespace {

/// What is stored in a Targa file, before its pixels.
struct TgaForm {
    int imageType = 2;
    int bitsPerPixel = 24;
    int descriptor = 0;
    QByteArray identification = {};
    /// The palette, of `bitsPerColor`.
    int firstColor = 0;
    int colors = 0;
    int bitsPerColor = 0;
    QByteArray palette = {};
};

constexpr int fromRight = 0x10;
constexpr int fromTop = 0x20;
constexpr int eightAlphaBits = 8;

QByteArray tga(int width, int height, const TgaForm& form, const QByteArray& pixels) {
    const auto word = [](int value) {
        return QByteArray(1, static_cast<char>(value & 255)) + static_cast<char>(value >> 8);
    };
    QByteArray bytes(1, static_cast<char>(form.identification.size()));
    bytes += static_cast<char>(form.colors > 0 ? 1 : 0);
    bytes += static_cast<char>(form.imageType);
    bytes += word(form.firstColor) + word(form.colors) + static_cast<char>(form.bitsPerColor);
    bytes += word(0) + word(0) + word(width) + word(height);
    bytes += static_cast<char>(form.bitsPerPixel);
    bytes += static_cast<char>(form.descriptor);
    return bytes + form.identification + form.palette + pixels;
}

/// The pixels as blue, green, red and, with `hasAlpha`, alpha, in the order of the picture's rows.
QByteArray blueFirst(const Picture& picture, bool hasAlpha) {
    QByteArray pixels;
    for (std::size_t at = 0; at < picture.bytes.size(); at += 4) {
        for (const std::size_t channel : {2U, 1U, 0U, 3U}) {
            if (channel < 3 || hasAlpha) {
                pixels += static_cast<char>(picture.bytes[at + channel]);
            }
        }
    }
    return pixels;
}

class TgaInput : public testing::Test {
protected:
    QUrl fileOf(const QByteArray& bytes) const {
        writeFile(file, bytes);
        return file;
    }
    bool isRefused(const QByteArray& bytes) const {
        return errorOf([&] { return TextureProcessor().loadCGImage(fileOf(bytes)); }) ==
               TextureProcessorError::cannotReadImage(file);
    }

    const TemporaryFolder folder;
    const QUrl file = folder.url(u"texture"_s);
    const Picture picture = noisePicture(13, 7, 1);
    const Picture transparent = noisePicture(13, 7, 2, true);
};

TEST_F(TgaInput, TrueColorIsReadFromEveryCorner) {
    const auto isRead = [&](const Picture& stored, int corner) {
        return rendersAs(picture, fileOf(tga(13, 7, {.descriptor = corner}, blueFirst(stored, false))));
    };
    EXPECT_TRUE(isRead(picture, fromTop));
    EXPECT_TRUE(isRead(flipped(picture), 0));
    EXPECT_TRUE(isRead(mirrored(picture), fromTop | fromRight));
    EXPECT_TRUE(isRead(mirrored(flipped(picture)), fromRight));
}

TEST_F(TgaInput, AlphaCountsIfTheHeaderDeclaresIt) {
    const QByteArray pixels = blueFirst(transparent, true);
    EXPECT_TRUE(
        rendersAs(transparent,
                  fileOf(tga(13, 7, {.bitsPerPixel = 32, .descriptor = fromTop | eightAlphaBits}, pixels))));
    Picture opaque = transparent;
    for (std::size_t at = 3; at < opaque.bytes.size(); at += 4) {
        opaque.bytes[at] = 255;
    }
    EXPECT_TRUE(rendersAs(opaque, fileOf(tga(13, 7, {.bitsPerPixel = 32, .descriptor = fromTop}, pixels))));
}

TEST_F(TgaInput, FiveBitsBecomeEight) {
    // Red 31, green 16, blue 1, and the bit of alpha.
    const QByteArray pixel("\x01\xFE", 2);
    for (const int bits : {15, 16}) {
        EXPECT_TRUE(rendersAs(constantPicture(1, 1, {255, 132, 8, 255}),
                              fileOf(tga(1, 1, {.bitsPerPixel = bits}, pixel))));
    }
    const QByteArray without("\x01\x7E", 2);
    EXPECT_TRUE(rendersAs(constantPicture(1, 1, {0, 0, 0, 0}),
                          fileOf(tga(1, 1, {.bitsPerPixel = 16, .descriptor = 1}, without))));
}

TEST_F(TgaInput, GrayIsRead) {
    EXPECT_TRUE(rendersAs(constantPicture(2, 1, {99, 99, 99, 255}),
                          fileOf(tga(2, 1, {.imageType = 3, .bitsPerPixel = 8}, "\x63\x63"))));
    EXPECT_TRUE(rendersAs(
        constantPicture(1, 1, {99, 99, 99, 128}),
        fileOf(tga(1, 1, {.imageType = 3, .bitsPerPixel = 16, .descriptor = eightAlphaBits}, "\x63\x80"))));
}

TEST_F(TgaInput, APaletteIsRead) {
    const TgaForm form{.imageType = 1,
                       .bitsPerPixel = 8,
                       .identification = "named",
                       .firstColor = 5,
                       .colors = 2,
                       .bitsPerColor = 24,
                       .palette = "\x01\x02\x03\x11\x12\x13"};
    const QUrl image = fileOf(tga(2, 1, form, "\x06\x05"));
    const Picture wanted = drawnPicture(2, 1, [](int x, int) {
        return x == 0 ? Rgba{19, 18, 17, 255} : Rgba{3, 2, 1, 255};
    });
    EXPECT_TRUE(rendersAs(wanted, image));
    EXPECT_TRUE(isRefused(tga(2, 1, form, "\x07\x05"))) << "an index after the palette";
    EXPECT_TRUE(isRefused(tga(2, 1, form, "\x04\x05"))) << "an index before the palette";
}

TEST_F(TgaInput, RunsMayGoOnInTheNextRow) {
    // Five pixels repeated, one stored: of 3 x 2 pixels.
    const QByteArray codes("\x84\x09\x00\x07", 4);
    const Picture wanted = drawnPicture(3, 2, [](int x, int y) {
        return x == 2 && y == 1 ? Rgba{7, 7, 7, 255} : Rgba{9, 9, 9, 255};
    });
    const TgaForm form{.imageType = 11, .bitsPerPixel = 8, .descriptor = fromTop};
    EXPECT_TRUE(rendersAs(wanted, fileOf(tga(3, 2, form, codes))));
    EXPECT_TRUE(isRefused(tga(3, 2, form, codes.left(3)))) << "a pixel is missing";
    EXPECT_TRUE(isRefused(tga(3, 2, form, QByteArray("\x84\x09\x01\x07\x07", 5)))) << "a pixel too many";
    EXPECT_TRUE(isRefused(tga(3, 2, form, QByteArray("\x84\x09", 2)))) << "a packet is missing";
}

TEST_F(TgaInput, RunLengthCodedColorsAndPalettesAreRead) {
    EXPECT_TRUE(rendersAs(constantPicture(3, 1, {3, 2, 1, 255}),
                          fileOf(tga(3, 1, {.imageType = 10}, QByteArray("\x82\x01\x02\x03", 4)))));
    const TgaForm form{.imageType = 9,
                       .bitsPerPixel = 8,
                       .colors = 1,
                       .bitsPerColor = 32,
                       .palette = QByteArray("\x01\x02\x03\x04", 4)};
    EXPECT_TRUE(
        rendersAs(constantPicture(2, 1, {3, 2, 1, 255}), fileOf(tga(2, 1, form, QByteArray("\x81\x00", 2)))));
}

TEST_F(TgaInput, EveryTruncationIsRefused) {
    const QByteArray whole = tga(13, 7, {}, blueFirst(picture, false));
    for (qsizetype size = 0; size < whole.size(); ++size) {
        ASSERT_TRUE(isRefused(whole.left(size))) << size;
    }
}

TEST_F(TgaInput, ImpossibleHeadersAreRefused) {
    const QByteArray pixels = blueFirst(picture, false);
    EXPECT_TRUE(isRefused(tga(13, 7, {.imageType = 0}, pixels)));
    EXPECT_TRUE(isRefused(tga(13, 7, {.imageType = 32}, pixels)));
    EXPECT_TRUE(isRefused(tga(13, 7, {.bitsPerPixel = 12}, pixels)));
    EXPECT_TRUE(isRefused(tga(0, 7, {}, pixels)));
    EXPECT_TRUE(isRefused(tga(13, 7, {.descriptor = 0x40}, pixels))) << "interleaved rows";
    EXPECT_TRUE(isRefused(tga(13, 7, {.imageType = 1, .bitsPerPixel = 8}, pixels))) << "no palette";
    EXPECT_TRUE(isRefused(tga(60000, 60000, {.imageType = 10}, pixels))) << "far too large";
}

TEST_F(TgaInput, DamageNeverDoesMoreThanThrow) {
    std::mt19937 random(7);
    const QByteArray codes("\x84\x01\x02\x03\x04\x01\x05\x06\x07\x08\x09\x0A\x0B\x0C\x81\x01\x02\x03\x04",
                           19);
    const QByteArray whole =
        tga(3, 3, {.imageType = 10, .bitsPerPixel = 32, .descriptor = eightAlphaBits}, codes);
    int read = 0;
    for (int round = 0; round < 3000; ++round) {
        QByteArray damaged = whole.left(static_cast<qsizetype>(random() % 40 + 10));
        for (unsigned change = 0; change <= random() % 3; ++change) {
            damaged[static_cast<qsizetype>(random() % static_cast<unsigned>(damaged.size()))] =
                static_cast<char>(random());
        }
        read += isRefused(damaged) ? 0 : 1;
    }
    EXPECT_GT(read, 0);
    EXPECT_LT(read, 3000);
}

}  // namespace
