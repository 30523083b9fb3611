// A bitmap is all there, or it is refused.

#include "bmp_files.h"
#include "engine/base/texture_processor_error.h"
#include "engine/texture_processor.h"
#include "engine_errors.h"
#include "picture.h"
#include "temporary_folder.h"

#include <gtest/gtest.h>
#include <QImage>

using namespace Qt::StringLiterals;

using namespace quarlin;
using namespace quarlin::fixtures;

namespace {

class DamagedBmp : public testing::Test {
protected:
    bool isRefused(const QByteArray& bytes) const {
        writeFile(file, bytes);
        return errorOf([&] { return TextureProcessor().loadCGImage(file); }) ==
               TextureProcessorError::cannotReadImage(file);
    }

    /// A bitmap of 4 x 2 pixels, palette of grays, with these run-length codes.
    static QByteArray withCodes(const QByteArray& codes) {
        constexpr qsizetype headersAndPalette = 14 + 40 + 1024;
        return bmp8GrayRunLength(constantPicture(4, 2, {9, 9, 9, 255})).first(headersAndPalette) + codes;
    }

    const TemporaryFolder folder;
    const QUrl file = folder.url(u"a.bmp"_s);
};

TEST_F(DamagedBmp, RunsFillEveryRow) {
    // Count and value; 0 0 ends a row, 0 1 the bitmap; 0 and a count above 2 begin single pixels.
    EXPECT_FALSE(isRefused(withCodes(QByteArray("\4\x11\0\0\4\x22\0\1", 8))));
    EXPECT_FALSE(isRefused(withCodes(QByteArray("\4\x11\0\0\0\4\1\2\3\4\0\1", 12))));
    EXPECT_FALSE(isRefused(withCodes(QByteArray("\1\x11\0\3\1\2\3\0\0\0\2\x22\2\x33\0\1", 16))));
}

TEST_F(DamagedBmp, RunsThatStopBeforeTheLastPixelAreAnError) {
    EXPECT_TRUE(isRefused(withCodes(QByteArray("\4\x11\0\0\3\x22", 6))));
    EXPECT_TRUE(isRefused(withCodes(QByteArray("\4\x11\0\0", 4))));
    EXPECT_TRUE(isRefused(withCodes(QByteArray("\4\x11\0\0\0\4\1\2\3", 9))));
    // Zeros end rows, but not the bitmap.
    EXPECT_TRUE(isRefused(withCodes(QByteArray(40, '\0'))));
}

TEST_F(DamagedBmp, RunsBeyondTheirRowAreAnError) {
    EXPECT_TRUE(isRefused(withCodes(QByteArray("\5\x11\0\0\4\x22\0\1", 8))));
    EXPECT_TRUE(isRefused(withCodes(QByteArray("\4\x11\0\0\0\5\1\2\3\4\5\0\0\1", 14))));
    EXPECT_TRUE(isRefused(withCodes(QByteArray("\4\x11\4\x22\0\1", 6))));
}

TEST_F(DamagedBmp, RunsThatJumpOutOfThePictureAreAnError) {
    EXPECT_TRUE(isRefused(withCodes(QByteArray("\1\x11\0\2\4\0\0\1", 8))));
    EXPECT_TRUE(isRefused(withCodes(QByteArray("\1\x11\0\2\0\3\0\1", 8))));
}

TEST_F(DamagedBmp, PixelsThatBeginInsideTheHeadersAreAnError) {
    const Picture picture = noisePicture(9, 7, 1);
    for (const QByteArray& whole :
         {bmp24(picture), bmp32WithAlpha(picture), bmp8Gray(picture), bmp8GrayRunLength(picture),
          bmp1(picture, {0, 0, 0, 255}, {9, 9, 9, 255})}) {
        ASSERT_FALSE(isRefused(whole));
        const auto offset = static_cast<std::uint8_t>(whole[10]);
        for (const int nearer : {1, 4}) {
            QByteArray broken = whole;
            broken[10] = static_cast<char>(offset - nearer);
            EXPECT_TRUE(isRefused(broken)) << whole.size() << ' ' << nearer;
        }
        QByteArray atStart = whole;
        atStart.replace(10, 4, QByteArray(4, '\0'));
        EXPECT_TRUE(isRefused(atStart)) << whole.size();
    }
}

}  // namespace
