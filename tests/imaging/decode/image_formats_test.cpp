#include "imaging/pixels/pixel_image.h"
#include "jpeg_files.h"
#include "picture.h"
#include "rendering.h"
#include "temporary_folder.h"
#include "vips_files.h"

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

using namespace quarlin;
using namespace quarlin::fixtures;

namespace {

/// What the encoders that call themselves lossless lose on a smooth picture, in the conversion to their own
/// color form: 9, measured by other decoders.
constexpr int encoderLoss = 10;

class ImageFormats : public testing::Test {
protected:
    /// Writes the bytes under a name without extension, so that the content has to speak for itself.
    QUrl fileOf(const QByteArray& bytes) const {
        const QUrl file = folder.url(u"texture"_s);
        writeFile(file, bytes);
        return file;
    }

    const TemporaryFolder folder;
};

TEST_F(ImageFormats, ColorJpeg) {
    const QByteArray jpeg = colorJpeg(smoothPicture(53, 37));
    EXPECT_TRUE(rendersAs(readColorJpeg(jpeg), fileOf(jpeg), 1));
    EXPECT_TRUE(rendersAs(smoothPicture(53, 37), fileOf(jpeg), 6));
}

TEST_F(ImageFormats, AProgressiveJpegIsTheSamePicture) {
    JpegForm form;
    form.progressive = true;
    const PixelImage baseline = rendered(fileOf(colorJpeg(smoothPicture(53, 37))));
    EXPECT_EQ(rendered(fileOf(colorJpeg(smoothPicture(53, 37), form))), baseline);
}

TEST_F(ImageFormats, AGrayJpegHasEqualChannels) {
    const Picture picture = smoothPicture(40, 24);
    const PixelImage image = rendered(fileOf(grayJpeg(picture)));
    for (std::size_t at = 0; at < image.pixels.size(); at += 4) {
        ASSERT_EQ(image.pixels[at], image.pixels[at + 1]);
        ASSERT_EQ(image.pixels[at], image.pixels[at + 2]);
        ASSERT_EQ(image.pixels[at + 3], 255);
        ASSERT_NEAR(image.pixels[at], picture.bytes[at], 3);
    }
}

TEST_F(ImageFormats, AConstantGrayJpegKeepsItsValue) {
    for (const std::uint8_t gray :
         {std::uint8_t{0}, std::uint8_t{77}, std::uint8_t{128}, std::uint8_t{255}}) {
        EXPECT_TRUE(rendersAs(constantPicture(16, 16, {gray, gray, gray, 255}),
                              fileOf(grayJpeg(constantPicture(16, 16, {gray, gray, gray, 255})))));
    }
}

TEST_F(ImageFormats, AnInkJpegLooksLikeItsInks) {
    const auto colorOf = [&](Rgba inks) {
        return pixelAt(rendered(fileOf(inkJpeg(constantPicture(16, 16, inks)))), 8, 8);
    };
    const Rgba paper = colorOf({0, 0, 0, 0});
    EXPECT_GE(std::min({paper[0], paper[1], paper[2]}), 250);
    EXPECT_EQ(paper[3], 255);
    const Rgba black = colorOf({0, 0, 0, 255});
    EXPECT_LE(std::max({black[0], black[1], black[2]}), 60);
    const Rgba cyan = colorOf({255, 0, 0, 0});
    EXPECT_LT(cyan[0] + 80, cyan[1]);
    EXPECT_LT(cyan[0] + 80, cyan[2]);
    const Rgba magenta = colorOf({0, 255, 0, 0});
    EXPECT_LT(magenta[1] + 80, magenta[0]);
    EXPECT_LT(magenta[1] + 80, magenta[2]);
    const Rgba yellow = colorOf({0, 0, 255, 0});
    EXPECT_LT(yellow[2] + 80, yellow[0]);
    EXPECT_LT(yellow[2] + 80, yellow[1]);
    const Rgba lightGray = colorOf({0, 0, 0, 64});
    EXPECT_GT(lightGray[1], black[1]);
    EXPECT_LT(lightGray[1], paper[1]);
}

TEST_F(ImageFormats, TheOrientationOfAJpegIsIgnored) {
    const PixelImage plain = rendered(fileOf(colorJpeg(smoothPicture(24, 8))));
    for (int orientation = 1; orientation <= 8; ++orientation) {
        JpegForm form;
        form.orientation = orientation;
        EXPECT_EQ(rendered(fileOf(colorJpeg(smoothPicture(24, 8), form))), plain) << orientation;
    }
}

TEST_F(ImageFormats, OnlyTheFirstFrameOfAGifCounts) {
    ASSERT_TRUE(canEncode(Encoder::gif));
    const Picture first = constantPicture(20, 12, {255, 0, 0, 255});
    const Picture second = constantPicture(20, 12, {0, 0, 255, 255});
    EXPECT_TRUE(rendersAs(first, fileOf(animatedGif({first, second, second}))));
}

TEST_F(ImageFormats, AGifShowsItsPalette) {
    ASSERT_TRUE(canEncode(Encoder::gif));
    const Picture picture = drawnPicture(17, 9, [](int x, int y) {
        return (x + y) % 2 == 0 ? Rgba{255, 255, 255, 255}
                                : (x < 8 ? Rgba{0, 0, 0, 255} : Rgba{255, 0, 0, 255});
    });
    EXPECT_TRUE(rendersAs(picture, fileOf(encoded(Encoder::gif, picture))));
}

TEST_F(ImageFormats, AGifMayBeTransparent) {
    ASSERT_TRUE(canEncode(Encoder::gif));
    const Picture picture = drawnPicture(8, 8, [](int x, int) {
        return x < 4 ? Rgba{0, 255, 0, 255} : Rgba{0, 0, 0, 0};
    });
    EXPECT_TRUE(rendersAs(picture, fileOf(encoded(Encoder::gif, picture))));
}

TEST_F(ImageFormats, ALosslessWebpComesOutAsItsOwnBytes) {
    ASSERT_TRUE(canEncode(Encoder::webp));
    EXPECT_TRUE(rendersAs(noisePicture(33, 21, 1), fileOf(encoded(Encoder::webp, noisePicture(33, 21, 1)))));
}

TEST_F(ImageFormats, AWebpMayBeTransparent) {
    ASSERT_TRUE(canEncode(Encoder::webp));
    const Picture picture = drawnPicture(16, 16, [](int x, int y) {
        return Rgba{static_cast<std::uint8_t>(x * 16), 200, 90, static_cast<std::uint8_t>(y * 17)};
    });
    EXPECT_TRUE(rendersAs(picture, fileOf(encoded(Encoder::webp, picture))));
}

TEST_F(ImageFormats, OnlyTheFirstFrameOfAWebpCounts) {
    ASSERT_TRUE(canEncode(Encoder::webp));
    const Picture first = constantPicture(20, 12, {255, 0, 0, 255});
    EXPECT_TRUE(rendersAs(first, fileOf(animatedWebp({first, constantPicture(20, 12, {0, 0, 255, 255})}))));
}

TEST_F(ImageFormats, TheOrientationOfAWebpIsIgnored) {
    ASSERT_TRUE(canEncode(Encoder::webp));
    EXPECT_TRUE(rendersAs(noisePicture(12, 5, 3), fileOf(webpWithOrientation(noisePicture(12, 5, 3), 6))));
}

TEST_F(ImageFormats, Heic) {
    ASSERT_TRUE(canEncode(Encoder::heic)) << "this machine's HEIF library can't encode HEVC";
    EXPECT_TRUE(
        rendersAs(smoothPicture(64, 48), fileOf(encoded(Encoder::heic, smoothPicture(64, 48))), encoderLoss));
}

TEST_F(ImageFormats, AHeicOfOddSizeKeepsIt) {
    ASSERT_TRUE(canEncode(Encoder::heic)) << "this machine's HEIF library can't encode HEVC";
    EXPECT_TRUE(
        rendersAs(smoothPicture(67, 45), fileOf(encoded(Encoder::heic, smoothPicture(67, 45))), encoderLoss));
}

TEST_F(ImageFormats, AHeicMayBeTransparent) {
    ASSERT_TRUE(canEncode(Encoder::heic)) << "this machine's HEIF library can't encode HEVC";
    const Picture picture = drawnPicture(64, 64, [](int x, int) {
        return Rgba{200, 60, 60, static_cast<std::uint8_t>(x < 32 ? 255 : 0)};
    });
    const PixelImage image = rendered(fileOf(encoded(Encoder::heic, picture)));
    EXPECT_EQ(pixelAt(image, 50, 20), (Rgba{0, 0, 0, 0}));
    EXPECT_EQ(pixelAt(image, 10, 20)[3], 255);
    EXPECT_NEAR(pixelAt(image, 10, 20)[0], 200, 4);
}

TEST_F(ImageFormats, Avif) {
    ASSERT_TRUE(canEncode(Encoder::avif)) << "this machine's HEIF library can't encode AV1";
    EXPECT_TRUE(
        rendersAs(smoothPicture(64, 48), fileOf(encoded(Encoder::avif, smoothPicture(64, 48))), encoderLoss));
}

}  // namespace
