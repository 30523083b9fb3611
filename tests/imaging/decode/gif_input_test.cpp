// GIF files, written code by code: frames on their canvas, interlacing, palettes, and codes that are not all
// there.

#include "decoded_image.h"

#include <QtEndian>

#include <array>
#include <vector>

using namespace quarlin;
using namespace quarlin::fixtures;

namespace {

/// A GIF file of one frame, whose codes stand for one pixel each.
struct Gif {
    int canvasWidth = 4;
    int canvasHeight = 4;
    int left = 0;
    int top = 0;
    int width = 4;
    int height = 4;
    bool isInterlaced = false;
    int transparentIndex = -1;
    bool hasPalette = true;
    bool hasEndCode = true;
    QByteArray trailer = ";";
    std::vector<int> indices;

    static constexpr std::array<Rgba, 4> colors{
        {{255, 0, 0, 255}, {0, 255, 0, 255}, {0, 0, 255, 255}, {255, 255, 0, 255}}};

    static QByteArray number(int value) {
        QByteArray bytes(2, '\0');
        qToLittleEndian(static_cast<quint16>(value), bytes.data());
        return bytes;
    }

    /// Codes of three bits: clear codes keep the table so small that they never get longer.
    QByteArray codes() const {
        std::vector<int> all;
        for (std::size_t index = 0; index < indices.size(); ++index) {
            if (index % 2 == 0) {
                all.push_back(4);
            }
            all.push_back(indices[index]);
        }
        if (hasEndCode) {
            all.push_back(5);
        }
        QByteArray bytes;
        int bit = 0;
        for (const int code : all) {
            for (int place = 0; place < 3; ++place, ++bit) {
                if (bit % 8 == 0) {
                    bytes.append('\0');
                }
                bytes.back() = static_cast<char>(bytes.back() | (code >> place & 1) << bit % 8);
            }
        }
        return bytes;
    }

    /// The file up to its codes.
    QByteArray head() const {
        QByteArray bytes = "GIF89a" + number(canvasWidth) + number(canvasHeight);
        bytes += hasPalette ? QByteArray("\x81\0\0", 3) : QByteArray(3, '\0');
        for (const Rgba& color : colors) {
            if (hasPalette) {
                bytes.append(reinterpret_cast<const char*>(color.data()), 3);
            }
        }
        if (transparentIndex >= 0) {
            bytes += QByteArray("\x21\xf9\4\1\0\0", 6);
            bytes.append(static_cast<char>(transparentIndex)).append('\0');
        }
        bytes += "," + number(left) + number(top) + number(width) + number(height);
        return bytes.append(isInterlaced ? '\x40' : '\0').append('\2');
    }

    QByteArray file() const {
        QByteArray bytes = head();
        const QByteArray all = codes();
        for (qsizetype at = 0; at < all.size(); at += 255) {
            const QByteArray block = all.mid(at, 255);
            bytes.append(static_cast<char>(block.size())).append(block);
        }
        return bytes.append('\0') + trailer;
    }
};

std::vector<int> numbered(int count) {
    std::vector<int> indices;
    for (int index = 0; index < count; ++index) {
        indices.push_back(index * index / 3 % 4);
    }
    return indices;
}

TEST(GifInput, IsTransparentOutsideOfItsFrame) {
    Gif gif;
    gif.canvasWidth = 8;
    gif.canvasHeight = 5;
    gif.left = 3;
    gif.top = 1;
    gif.width = 4;
    gif.height = 2;
    gif.indices = numbered(8);
    const QImage image = decodeImage(gif.file());
    ASSERT_EQ(image.size(), QSize(8, 5));
    for (int y = 0; y < 5; ++y) {
        for (int x = 0; x < 8; ++x) {
            const bool isInside = x >= 3 && x < 7 && y >= 1 && y < 3;
            const auto index = static_cast<std::size_t>((y - 1) * 4 + x - 3);
            EXPECT_EQ(pixelOf(image, x, y),
                      isInside ? Gif::colors[static_cast<std::size_t>(gif.indices[index])] : Rgba{})
                << x << ' ' << y;
        }
    }
}

TEST(GifInput, HasACanvasThatHoldsItsFrame) {
    Gif gif;
    gif.left = 2;
    gif.top = 3;
    gif.indices = numbered(16);
    EXPECT_EQ(decodeImage(gif.file()).size(), QSize(6, 7));
    gif.left = 0;
    gif.top = 0;
    gif.canvasWidth = 0;
    gif.canvasHeight = 0;
    EXPECT_EQ(decodeImage(gif.file()).size(), QSize(4, 4));
}

TEST(GifInput, MayBeInterlaced) {
    for (const int height : {1, 2, 3, 4, 5, 8, 9, 17, 30}) {
        Gif gif;
        gif.height = height;
        gif.canvasHeight = height;
        gif.indices = numbered(4 * height);
        const QImage plain = decodeImage(gif.file());
        // The rows of the four passes.
        Gif interlaced = gif;
        interlaced.isInterlaced = true;
        interlaced.indices.clear();
        for (const auto& [first, step] : {std::pair{0, 8}, {4, 8}, {2, 4}, {1, 2}}) {
            for (int row = first; row < height; row += step) {
                interlaced.indices.insert(interlaced.indices.end(), gif.indices.begin() + row * 4,
                                          gif.indices.begin() + row * 4 + 4);
            }
        }
        EXPECT_EQ(decodeImage(interlaced.file()), plain) << height;
    }
}

TEST(GifInput, MayHaveATransparentColor) {
    Gif gif;
    gif.indices = numbered(16);
    gif.transparentIndex = 1;
    const QImage image = decodeImage(gif.file());
    for (int index = 0; index < 16; ++index) {
        const int color = gif.indices[static_cast<std::size_t>(index)];
        EXPECT_EQ(pixelOf(image, index % 4, index / 4),
                  color == 1 ? Rgba{} : Gif::colors[static_cast<std::size_t>(color)]);
    }
}

TEST(GifInput, WithoutAPaletteIsBlackAndWhite) {
    Gif gif;
    gif.hasPalette = false;
    gif.indices = {0, 1, 2, 3, 0, 1, 2, 3, 0, 1, 2, 3, 0, 1, 2, 3};
    const QImage image = decodeImage(gif.file());
    EXPECT_EQ(pixelOf(image, 0, 0), (Rgba{0, 0, 0, 255}));
    EXPECT_EQ(pixelOf(image, 1, 0), (Rgba{255, 255, 255, 255}));
    EXPECT_EQ(pixelOf(image, 3, 0), (Rgba{0, 0, 0, 255}));
}

TEST(GifInput, IsRefusedWhereAPixelIsMissing) {
    Gif gif;
    gif.indices = numbered(15);
    EXPECT_TRUE(isRefused(gif.file()));
    gif.indices = numbered(16);
    EXPECT_FALSE(isRefused(gif.file()));
    const QByteArray whole = gif.file();
    // The codes of 16 pixels take 10 bytes, the last of which has only the code for the end.
    const qsizetype pixelsEnd = gif.head().size() + 1 + 9;
    for (qsizetype size = 0; size < pixelsEnd; ++size) {
        EXPECT_TRUE(isRefused(whole.first(size))) << size;
        EXPECT_TRUE(isRefused(whole.first(size) + QByteArray(whole.size() - size, '\0'))) << size;
    }
}

TEST(GifInput, IsReadWithoutItsEndCodeAndTrailer) {
    Gif gif;
    gif.indices = numbered(16);
    gif.trailer.clear();
    EXPECT_FALSE(isRefused(gif.file()));
    gif.hasEndCode = false;
    EXPECT_FALSE(isRefused(gif.file()));
    // Neither of them, but zeros: this part of the file was never written.
    gif.trailer = QByteArray(20, '\0');
    EXPECT_TRUE(isRefused(gif.file()));
    gif.hasEndCode = true;
    EXPECT_FALSE(isRefused(gif.file()));
}

TEST(GifInput, IsRefusedForACodeWithoutAMeaning) {
    Gif gif;
    gif.indices = numbered(16);
    // A code that would come only after the next one, right after the first clear code.
    for (const int code : {6, 7}) {
        gif.indices[0] = code;
        EXPECT_TRUE(isRefused(gif.file())) << code;
    }
}

TEST(GifInput, IsRefusedWithoutAFrame) {
    Gif gif;
    gif.indices = numbered(16);
    const QByteArray head = gif.head();
    EXPECT_TRUE(isRefused(head.first(head.size() - 11) + ";"));
    gif.width = 0;
    EXPECT_TRUE(isRefused(gif.file()));
}

}  // namespace
