// The decoder for plain PNG files against the general one.

#include "byte_comparison.h"
#include "color_profiles.h"
#include "imaging/decode/decode_error.h"
#include "imaging/decode/formats/plain_png_reader.h"
#include "imaging/decode/formats/png_reader.h"
#include "imaging/decode/image_decoder.h"
#include "png_files.h"
#include "temporary_folder.h"

#include <QImage>

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

using namespace quarlin;
using namespace quarlin::fixtures;

namespace {

class PlainPngDecoder : public testing::Test {
protected:
    QByteArray written(const Picture& picture, bool withAlpha) {
        const QUrl url = folder.url(u"picture.png"_s);
        writePng(url, picture, withAlpha);
        return fixtures::readFile(url);
    }

    TemporaryFolder folder;
};

/// The image of a plain PNG file; a null image if the file is of another kind or damaged.
QImage decodePlainPng(const QByteArray& png) {
    try {
        const std::unique_ptr<RowReader> reader = openPlainPng(bytesInMemory(png));
        return reader ? readImage(*reader) : QImage();
    } catch (const DecodeError&) {
        return {};
    }
}

void expectBothAgree(const QByteArray& png) {
    const QImage plain = decodePlainPng(png);
    ASSERT_FALSE(plain.isNull());
    const QImage general = readImage(*openAnyPng(png).rows);
    ASSERT_EQ(plain.size(), general.size());
    ASSERT_EQ(plain.format(), general.format());
    ASSERT_TRUE(sameBytes(bytesOf(general), bytesOf(plain)));
}

TEST_F(PlainPngDecoder, EverySizeDecodesAsByTheGeneralDecoder) {
    for (int size = 1; size <= 70; ++size) {
        SCOPED_TRACE(size);
        const auto seed = static_cast<std::uint64_t>(size);
        expectBothAgree(written(noisePicture(size, 1 + size % 7, seed), false));
        expectBothAgree(written(noisePicture(1 + size % 7, size, seed, true), true));
        expectBothAgree(written(smoothPicture(size, size), true));
        ASSERT_FALSE(HasFatalFailure());
    }
}

TEST_F(PlainPngDecoder, GrayAndGrayWithAlphaDecodeAsByTheGeneralDecoder) {
    const QUrl url = folder.url(u"gray.png"_s);
    for (const int colorType : {0, 4}) {
        const int samplesPerPixel = colorType == 0 ? 1 : 2;
        std::vector<std::uint16_t> samples;
        for (int index = 0; index < 33 * 17 * samplesPerPixel; ++index) {
            samples.push_back(static_cast<std::uint16_t>(index * 37 % 256));
        }
        PngForm form;
        form.colorType = colorType;
        writePngSamples(url, 33, 17, samples, form);
        expectBothAgree(fixtures::readFile(url));
    }
}

TEST_F(PlainPngDecoder, LeavesEveryOtherKindToTheGeneralDecoder) {
    const QUrl url = folder.url(u"other.png"_s);
    const std::vector<std::uint16_t> colors(8 * 8 * 3, 100);
    const auto expectLeft = [&](const std::vector<std::uint16_t>& samples, auto change) {
        PngForm form;
        form.colorType = 2;
        change(form);
        writePngSamples(url, 8, 8, samples, form);
        EXPECT_TRUE(decodePlainPng(fixtures::readFile(url)).isNull());
    };
    expectLeft(colors, [](PngForm& form) { form.bitDepth = 16; });
    expectLeft(colors, [](PngForm& form) { form.interlaced = true; });
    expectLeft(colors, [](PngForm& form) { form.transparent = {100, 100, 100}; });
    expectLeft(colors, [](PngForm& form) { form.profile = displayP3Profile(); });
    expectLeft(std::vector<std::uint16_t>(64, 0), [](PngForm& form) {
        form.colorType = 3;
        form.palette = {{1, 2, 3}};
    });
    EXPECT_TRUE(decodePlainPng({}).isNull());
    EXPECT_TRUE(decodePlainPng("not a picture").isNull());
}

TEST_F(PlainPngDecoder, AnyChangedByteIsNoticed) {
    const QByteArray whole = written(smoothPicture(9, 5), true);
    ASSERT_FALSE(decodePlainPng(whole).isNull());
    for (qsizetype index = 0; index < whole.size(); ++index) {
        QByteArray damaged = whole;
        damaged[index] = static_cast<char>(damaged[index] ^ 0x41);
        EXPECT_TRUE(decodePlainPng(damaged).isNull()) << index;
    }
}

TEST_F(PlainPngDecoder, AnyMissingEndIsNoticed) {
    const QByteArray whole = written(smoothPicture(9, 5), true);
    for (qsizetype size = 0; size < whole.size(); ++size) {
        EXPECT_TRUE(decodePlainPng(whole.first(size)).isNull()) << size;
    }
}

}  // namespace
