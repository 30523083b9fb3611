#include "engine/base/texture_processor_error.h"
#include "engine/texture_processor.h"
#include "engine_errors.h"
#include "imaging/pixels/pixel_image.h"
#include "model/texture_asset.h"
#include "picture.h"
#include "png_files.h"
#include "qstring_printing.h"
#include "rendering.h"
#include "temporary_folder.h"

#include <gtest/gtest.h>
#include <QImage>

#include <sys/stat.h>

#include <QFile>

using namespace Qt::StringLiterals;

using namespace quarlin;
using namespace quarlin::fixtures;

namespace {

class ImageInput : public testing::Test {
protected:
    /// Expects loading, decoding and rendering alike to fail on `file` with the error and the text for it.
    void expectUnreadable(const QUrl& file) const {
        SCOPED_TRACE(file.toLocalFile().toStdString());
        const TextureProcessorError expected = TextureProcessorError::cannotReadImage(file);
        EXPECT_EQ(errorOf([&] { return processor.loadAsset(file); }), expected);
        EXPECT_EQ(errorOf([&] { return processor.loadCGImage(file); }), expected);
        EXPECT_EQ(errorOf([&] { return processor.renderImage(file, 4, 4); }), expected);
    }

    const TextureProcessor processor{};
    const TemporaryFolder folder;
};

TEST_F(ImageInput, AnAssetKnowsItsFileAndItsSize) {
    const QUrl file = folder.url(u"Brick Wall.final.png"_s);
    writePng(file, smoothPicture(21, 13));
    const TextureAsset asset = processor.loadAsset(file);
    EXPECT_EQ(asset.url, file);
    EXPECT_EQ(asset.fileName, u"Brick Wall.final.png"_s);
    EXPECT_EQ(asset.pixelWidth, 21);
    EXPECT_EQ(asset.pixelHeight, 13);
    EXPECT_EQ(asset.sizeLabel(), u"21x13"_s);
}

TEST_F(ImageInput, AnAssetsPreviewIsTheWholeImage) {
    const QUrl file = folder.url(u"a.png"_s);
    const Picture picture = noisePicture(37, 11, 1, true);
    writePng(file, picture);
    const TextureAsset asset = processor.loadAsset(file);
    EXPECT_EQ(asset.preview.size(), QSize(37, 11));
    EXPECT_TRUE(sameBytes(premultiplied(picture), bytesOf(asset.preview)));
}

TEST_F(ImageInput, TwoLoadsAreTwoAssets) {
    const QUrl file = folder.url(u"a.png"_s);
    writePng(file, smoothPicture(3, 3));
    EXPECT_NE(processor.loadAsset(file).id, processor.loadAsset(file).id);
}

TEST_F(ImageInput, AnOpaqueImageComesOutAsItsOwnBytes) {
    for (const auto& [width, height] : {std::pair{1, 1}, {1, 9}, {9, 1}, {64, 64}, {33, 57}, {301, 2}}) {
        const QUrl file = folder.url(u"a.png"_s);
        const Picture picture = noisePicture(width, height, 2);
        writePng(file, picture);
        EXPECT_TRUE(rendersAs(picture, file));
        writePng(file, picture, false);
        EXPECT_TRUE(rendersAs(picture, file));
    }
}

TEST_F(ImageInput, TheFirstRowIsTheTop) {
    const QUrl file = folder.url(u"a.png"_s);
    writePng(file, drawnPicture(2, 3, [](int x, int y) {
                 return Rgba{static_cast<std::uint8_t>(100 * y), static_cast<std::uint8_t>(100 * x), 0, 255};
             }));
    const PixelImage image = rendered(file);
    EXPECT_EQ(pixelAt(image, 0, 0), (Rgba{0, 0, 0, 255}));
    EXPECT_EQ(pixelAt(image, 1, 0), (Rgba{0, 100, 0, 255}));
    EXPECT_EQ(pixelAt(image, 0, 2), (Rgba{200, 0, 0, 255}));
}

TEST_F(ImageInput, AFullyTransparentImageIsAllZero) {
    const QUrl file = folder.url(u"a.png"_s);
    writePng(file, constantPicture(7, 5, {200, 100, 50, 0}));
    EXPECT_EQ(rendered(file).pixels, PixelBuffer(7 * 5 * 4, 0));
    EXPECT_EQ(processor.renderImage(file, 16, 3).pixels, PixelBuffer(16 * 3 * 4, 0));
}

TEST_F(ImageInput, AHalfTransparentRedIsPremultiplied) {
    const QUrl file = folder.url(u"a.png"_s);
    writePng(file, constantPicture(1, 1, {255, 0, 0, 128}));
    EXPECT_EQ(pixelAt(rendered(file), 0, 0), (Rgba{128, 0, 0, 128}));
}

TEST_F(ImageInput, PremultipliesEveryColorWithEveryAlphaByRounding) {
    const QUrl file = folder.url(u"a.png"_s);
    const auto byte = [](int value) { return static_cast<std::uint8_t>(value); };
    writePng(file, drawnPicture(256, 256, [&](int color, int alpha) {
                 return Rgba{byte(color), byte(255 - color), byte(color ^ 0x55), byte(alpha)};
             }));
    const PixelImage image = rendered(file);
    for (int alpha = 0; alpha < 256; ++alpha) {
        for (int color = 0; color < 256; ++color) {
            // round(c * a / 255), written apart from the fixtures: c * a / 255 never ends in exactly one
            // half.
            const auto rounded = [&](int value) { return byte((value * alpha + 127) / 255); };
            ASSERT_EQ(pixelAt(image, color, alpha),
                      (Rgba{rounded(color), rounded(255 - color), rounded(color ^ 0x55), byte(alpha)}));
        }
    }
}

TEST_F(ImageInput, ATextIsNoImage) {
    const QUrl file = folder.url(u"notes.txt"_s);
    writeFile(file, "This is not an image.\n");
    expectUnreadable(file);
    EXPECT_EQ(errorOf([&] { return processor.loadAsset(file); })->errorDescription(),
              u"Could not read image: notes.txt"_s);
}

TEST_F(ImageInput, ATextUnderAnImagesNameIsNoImage) {
    for (const char* name : {"a.png", "a.jpg", "a.jpeg", "a.tif", "a.tiff", "a.bmp", "a.gif", "a.heic",
                             "a.webp", "a.avif", "a.svg", "a.pdf", "a.csv", "a.mat", "a.v", "a.ppm", "a"}) {
        const QUrl file = folder.url(QString::fromLatin1(name));
        writeFile(file, "1,2,3\n4,5,6\n");
        expectUnreadable(file);
    }
}

TEST_F(ImageInput, FormatsThatAreNoTexturesAreRefused) {
    const QUrl svg = folder.url(u"a.svg"_s);
    writeFile(svg,
              "<svg xmlns=\"http://www.w3.org/2000/svg\" width=\"4\" height=\"4\"><rect width=\"4\" "
              "height=\"4\"/></svg>");
    expectUnreadable(svg);
    const QUrl matrix = folder.url(u"a.mat"_s);
    writeFile(matrix, "2 2\n1 2\n3 4\n");
    expectUnreadable(matrix);
    const QUrl comma = folder.url(u"a.csv"_s);
    writeFile(comma, "1,2\n3,4\n");
    expectUnreadable(comma);
}

TEST_F(ImageInput, AnEmptyFileIsNoImage) {
    for (const char* name : {"a.png", "a.jpg", "a.bmp", "a"}) {
        const QUrl file = folder.url(QString::fromLatin1(name));
        writeFile(file, {});
        expectUnreadable(file);
    }
}

TEST_F(ImageInput, AMissingFileIsNoImage) {
    expectUnreadable(folder.url(u"nowhere.png"_s));
    expectUnreadable(folder.url(u"no/where.png"_s));
}

TEST_F(ImageInput, AFolderIsNoImage) {
    folder.makeFolder(u"folder.png"_s);
    expectUnreadable(folder.url(u"folder.png"_s));
    expectUnreadable(folder.url());
}

TEST_F(ImageInput, APipeIsNoImageAndIsNotWaitedFor) {
    const QString path = folder.path(u"pipe.png"_s);
    ASSERT_EQ(mkfifo(QFile::encodeName(path).constData(), 0600), 0);
    expectUnreadable(QUrl::fromLocalFile(path));
}

TEST_F(ImageInput, ADeviceIsNoImage) {
    expectUnreadable(QUrl::fromLocalFile(u"/dev/null"_s));
    expectUnreadable(QUrl::fromLocalFile(u"/dev/zero"_s));
}

TEST_F(ImageInput, AnUrlThatIsNoFileIsNoImage) {
    expectUnreadable(QUrl(u"http://localhost/a.png"_s));
    expectUnreadable(QUrl());
}

TEST_F(ImageInput, ALinkLeadsToItsImage) {
    writePng(folder.url(u"a.png"_s), smoothPicture(5, 5));
    ASSERT_TRUE(QFile::link(folder.path(u"a.png"_s), folder.path(u"link.png"_s)));
    EXPECT_TRUE(rendersAs(smoothPicture(5, 5), folder.url(u"link.png"_s)));
    EXPECT_EQ(processor.loadAsset(folder.url(u"link.png"_s)).fileName, u"link.png"_s);
}

TEST_F(ImageInput, ContentDecidesAndNotTheName) {
    const QUrl file = folder.url(u"really.jpg"_s);
    writePng(file, smoothPicture(6, 4));
    EXPECT_TRUE(rendersAs(smoothPicture(6, 4), file));
    const QUrl unnamed = folder.url(u"unnamed"_s);
    writePng(unnamed, smoothPicture(6, 4));
    EXPECT_TRUE(rendersAs(smoothPicture(6, 4), unnamed));
}

TEST_F(ImageInput, FileNamesAreTakenLiterally) {
    // Some decoders read options in brackets or numbers after a colon from a file's name.
    for (const QString& name : {u"a[page=1].png"_s, u"b:2.png"_s, u"100%.png"_s, u"d d\u00fc\u7816.png"_s,
                                u"e#f?g.png"_s, u"-h.png"_s, u"i'j\"k.png"_s, u"l\\m.png"_s}) {
        SCOPED_TRACE(name.toStdString());
        const QUrl file = folder.url(name);
        writePng(file, smoothPicture(6, 4));
        EXPECT_TRUE(rendersAs(smoothPicture(6, 4), file));
        EXPECT_EQ(processor.loadAsset(file).fileName, name);
    }
}

TEST_F(ImageInput, AFileIsReadAgainOnceItHasChanged) {
    const QUrl file = folder.url(u"a.png"_s);
    writePng(file, constantPicture(4, 4, {10, 20, 30, 255}));
    const TextureAsset asset = processor.loadAsset(file);
    EXPECT_EQ(pixelAt(processor.renderImage(asset, 4, 4), 1, 1), (Rgba{10, 20, 30, 255}));
    writePng(file, constantPicture(4, 4, {90, 80, 70, 255}));
    EXPECT_EQ(pixelAt(processor.renderImage(asset, 4, 4), 1, 1), (Rgba{90, 80, 70, 255}));
    QFile::remove(file.toLocalFile());
    EXPECT_EQ(errorOf([&] { return processor.renderImage(asset, 4, 4); }),
              TextureProcessorError::cannotReadImage(file));
}

TEST_F(ImageInput, ALoadedTextureRendersAsItsFileDoes) {
    const QUrl file = folder.url(u"a.png"_s);
    writePng(file, noisePicture(31, 17, 9, true));
    const TextureAsset asset = processor.loadAsset(file);
    for (const auto& [width, height] : {std::pair{31, 17}, {64, 64}, {7, 5}, {1, 1}}) {
        EXPECT_EQ(processor.renderImage(asset, width, height), processor.renderImage(file, width, height));
    }
}

TEST_F(ImageInput, AnAssetMadeByHandIsReadFromItsFile) {
    const QUrl file = folder.url(u"a.png"_s);
    writePng(file, constantPicture(4, 4, {10, 20, 30, 255}));
    QImage other(4, 4, QImage::Format_RGBA8888_Premultiplied);
    other.fill(Qt::white);
    const TextureAsset asset{file, u"a.png"_s, 4, 4, other};
    EXPECT_EQ(pixelAt(processor.renderImage(asset, 4, 4), 1, 1), (Rgba{10, 20, 30, 255}));
}

TEST_F(ImageInput, AnImpossibleSizeGivesNoBitmap) {
    const QUrl file = folder.url(u"a.png"_s);
    writePng(file, smoothPicture(4, 4));
    const TextureProcessorError expected = TextureProcessorError::cannotCreateBitmap();
    for (const auto& [width, height] : {std::pair<std::int64_t, std::int64_t>{0, 4},
                                        {4, 0},
                                        {0, 0},
                                        {-1, 4},
                                        {4, -1},
                                        {-4, -4},
                                        {std::int64_t{1} << 40, std::int64_t{1} << 10},
                                        {std::int64_t{1} << 20, std::int64_t{1} << 40}}) {
        SCOPED_TRACE(testing::Message() << width << 'x' << height);
        EXPECT_EQ(errorOf([&, w = width, h = height] { return processor.renderImage(file, w, h); }),
                  expected);
    }
    EXPECT_EQ(expected.errorDescription(), u"Could not create bitmap buffer."_s);
}

TEST_F(ImageInput, AnUnreadableFileIsReportedBeforeAnImpossibleSize) {
    const QUrl file = folder.url(u"nowhere.png"_s);
    EXPECT_EQ(errorOf([&] { return processor.renderImage(file, 0, 0); }),
              TextureProcessorError::cannotReadImage(file));
}

TEST(TextureProcessor, WorksInPremultipliedBigEndianSrgb) {
    const TextureProcessor processor{};
    EXPECT_EQ(processor.colorSpace, QColorSpace(QColorSpace::SRgb));
    EXPECT_EQ(TextureProcessor::bitmapInfo, 16385U);
}

}  // namespace
