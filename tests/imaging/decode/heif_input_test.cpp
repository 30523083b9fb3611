// HEIC and AVIF files: samples of every depth, alpha, and boxes about orientation, cropping and colors.

#include "imaging/decode/formats/heif/orientation.h"

#include "color_profiles.h"
#include "heif_files.h"
#include "picture.h"
#include "rendering.h"
#include "temporary_folder.h"

#include <gtest/gtest.h>

#include <cmath>

using namespace Qt::StringLiterals;

using namespace quarlin;
using namespace quarlin::fixtures;

namespace {

class HeifInput : public testing::Test {
protected:
    QUrl fileOf(const QByteArray& bytes) const {
        const QUrl file = folder.url(u"texture"_s);
        writeFile(file, bytes);
        return file;
    }

    const TemporaryFolder folder;
};

TEST_F(HeifInput, WithoutLossComesOutAsItsOwnBytes) {
    for (const bool isAvif : {false, true}) {
        HeifForm form;
        form.isAvif = isAvif;
        const Picture picture = noisePicture(64, 48, 1);
        EXPECT_TRUE(rendersAs(picture, fileOf(heifFile(picture, form)))) << isAvif;
    }
}

TEST_F(HeifInput, EveryLevelOfTenAndTwelveBitsIsRoundedToTheNearestByte) {
    for (const int bitDepth : {10, 12}) {
        const int levels = 1 << bitDepth;
        const int width = 64;
        const int height = levels / width;
        HeifForm form;
        form.bitDepth = bitDepth;
        form.isAvif = bitDepth == 12;
        std::vector<std::uint16_t> samples;
        for (int level = 0; level < levels; ++level) {
            for (const int sample : {level, levels - 1 - level, level ^ 5}) {
                samples.push_back(static_cast<std::uint16_t>(sample));
            }
        }
        const auto byteOf = [&](int level) {
            return static_cast<std::uint8_t>(std::lround(level * 255.0 / (levels - 1)));
        };
        const Picture expected = drawnPicture(width, height, [&](int x, int y) {
            const int level = y * width + x;
            return Rgba{byteOf(level), byteOf(levels - 1 - level), byteOf(level ^ 5), 255};
        });
        EXPECT_TRUE(rendersAs(expected, fileOf(heifFile(width, height, samples, form)))) << bitDepth;
    }
}

TEST_F(HeifInput, StraightAlphaIsPremultiplied) {
    const Picture picture = noisePicture(64, 64, 2, true);
    HeifForm form;
    form.hasAlpha = true;
    EXPECT_TRUE(rendersAs(picture, fileOf(heifFile(picture, form))));
}

TEST_F(HeifInput, PremultipliedSamplesStayTheirOwnBytes) {
    const Picture picture = noisePicture(64, 64, 3, true);
    const Picture stored{64, 64, premultiplied(picture)};
    HeifForm form;
    form.hasAlpha = true;
    form.isPremultiplied = true;
    EXPECT_TRUE(sameBytes(stored.bytes, rendered(fileOf(heifFile(stored, form))).pixels));
}

TEST_F(HeifInput, RotationAndMirroringAreIgnored) {
    for (const bool isAvif : {false, true}) {
        HeifForm form;
        form.isAvif = isAvif;
        const Picture picture = noisePicture(64, 32, 4);
        for (int orientation = 1; orientation <= 8; ++orientation) {
            form.orientation = orientation;
            const QByteArray bytes = heifFile(picture, form);
            EXPECT_EQ(orientation > 1, bytes.contains("irot") || bytes.contains("imir"));
            EXPECT_TRUE(rendersAs(picture, fileOf(bytes))) << orientation;
        }
    }
}

TEST_F(HeifInput, CroppingIsNotIgnored) {
    HeifForm form;
    form.isAvif = false;
    form.orientation = 6;
    // An odd size is coded as the next even one and cropped.
    const Picture picture = noisePicture(65, 33, 5);
    const QByteArray bytes = heifFile(picture, form);
    ASSERT_TRUE(bytes.contains("clap"));
    EXPECT_TRUE(rendersAs(picture, fileOf(bytes)));
}

TEST_F(HeifInput, AProfileTakesPrecedenceOverCodedColors) {
    HeifForm form;
    form.profile = srgbProfile();
    form.primaries = 12;
    const Picture picture = noisePicture(64, 64, 6);
    EXPECT_TRUE(rendersAs(picture, fileOf(heifFile(picture, form))));
}

class HeifBoxes : public testing::Test {
protected:
    static QByteArray file() {
        HeifForm form;
        form.orientation = 5;
        return heifFile(noisePicture(16, 16, 1), form);
    }
};

TEST_F(HeifBoxes, OfOrientationAreReset) {
    const QByteArray bytes = file();
    ASSERT_TRUE(bytes.contains("irot") && bytes.contains("imir"));
    const std::optional<QByteArray> reset = withoutOrientation(bytes);
    ASSERT_TRUE(reset);
    EXPECT_FALSE(reset->contains("imir"));
    const qsizetype rotation = reset->indexOf("irot");
    EXPECT_EQ(reset->at(rotation + 4), '\0');
    EXPECT_EQ(reset->size(), bytes.size());
}

TEST_F(HeifBoxes, ThatAreLargerThanWhatHoldsThemAreRefused) {
    const QByteArray bytes = file();
    for (const char* type : {"meta", "iprp", "ipco", "irot"}) {
        for (const char size : {'\x7f', '\xff'}) {
            QByteArray broken = bytes;
            broken[bytes.indexOf(type) - 4] = size;
            EXPECT_FALSE(withoutOrientation(broken)) << type;
        }
    }
}

TEST_F(HeifBoxes, ThatAreSmallerThanTheirHeadAreRefused) {
    const QByteArray bytes = file();
    for (const char* type : {"ftyp", "meta", "iprp", "ipco", "irot"}) {
        QByteArray broken = bytes;
        broken.replace(bytes.indexOf(type) - 4, 4, QByteArray("\0\0\0\7", 4));
        EXPECT_FALSE(withoutOrientation(broken)) << type;
    }
}

TEST_F(HeifBoxes, CutOffAnywhereBeforeTheEndOfTheMetaBoxAreRefused) {
    const QByteArray bytes = file();
    const qsizetype end = bytes.indexOf("mdat") - 4;
    for (qsizetype length = 0; length < end; ++length) {
        EXPECT_FALSE(withoutOrientation(bytes.first(length))) << length;
    }
    EXPECT_TRUE(withoutOrientation(bytes.first(end)));
}

TEST_F(HeifBoxes, WithACropThatDividesByZeroAreRefused) {
    HeifForm form;
    form.isAvif = false;
    QByteArray bytes = heifFile(noisePicture(65, 33, 5), form);
    ASSERT_TRUE(withoutOrientation(bytes));
    bytes.replace(bytes.indexOf("clap") + 8, 4, QByteArray(4, '\0'));
    EXPECT_FALSE(withoutOrientation(bytes));
}

}  // namespace
