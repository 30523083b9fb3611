#include "engine_errors.h"
#include "picture.h"
#include "png_files.h"
#include "qstring_printing.h"
#include "rendering.h"
#include "temporary_folder.h"

#include <gtest/gtest.h>

#include <sys/stat.h>

#include <QFile>

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
    const QUrl file = folder.url(QStringLiteral("Brick Wall.final.png"));
    writePng(file, smoothPicture(21, 13));
    const TextureAsset asset = processor.loadAsset(file);
    EXPECT_EQ(asset.url, file);
    EXPECT_EQ(asset.fileName, QStringLiteral("Brick Wall.final.png"));
    EXPECT_EQ(asset.pixelWidth, 21);
    EXPECT_EQ(asset.pixelHeight, 13);
    EXPECT_EQ(asset.sizeLabel(), QStringLiteral("21x13"));
}

TEST_F(ImageInput, AnAssetsPreviewIsTheWholeImage) {
    const QUrl file = folder.url(QStringLiteral("a.png"));
    const Picture picture = noisePicture(37, 11, 1, true);
    writePng(file, picture);
    const TextureAsset asset = processor.loadAsset(file);
    EXPECT_EQ(asset.preview.size(), QSize(37, 11));
    EXPECT_TRUE(sameBytes(premultiplied(picture), bytesOf(asset.preview)));
}

TEST_F(ImageInput, TwoLoadsAreTwoAssets) {
    const QUrl file = folder.url(QStringLiteral("a.png"));
    writePng(file, smoothPicture(3, 3));
    EXPECT_NE(processor.loadAsset(file).id, processor.loadAsset(file).id);
}

TEST_F(ImageInput, AnOpaqueImageComesOutAsItsOwnBytes) {
    for (const auto& [width, height] : {std::pair{1, 1}, {1, 9}, {9, 1}, {64, 64}, {33, 57}, {301, 2}}) {
        const QUrl file = folder.url(QStringLiteral("a.png"));
        const Picture picture = noisePicture(width, height, 2);
        writePng(file, picture);
        EXPECT_TRUE(rendersAs(picture, file));
        writePng(file, picture, false);
        EXPECT_TRUE(rendersAs(picture, file));
    }
}

TEST_F(ImageInput, TheFirstRowIsTheTop) {
    const QUrl file = folder.url(QStringLiteral("a.png"));
    writePng(file, drawnPicture(2, 3, [](int x, int y) {
                 return Rgba{static_cast<std::uint8_t>(100 * y), static_cast<std::uint8_t>(100 * x), 0, 255};
             }));
    const PixelImage image = rendered(file);
    EXPECT_EQ(pixelAt(image, 0, 0), (Rgba{0, 0, 0, 255}));
    EXPECT_EQ(pixelAt(image, 1, 0), (Rgba{0, 100, 0, 255}));
    EXPECT_EQ(pixelAt(image, 0, 2), (Rgba{200, 0, 0, 255}));
}

TEST_F(ImageInput, AFullyTransparentImageIsAllZero) {
    const QUrl file = folder.url(QStringLiteral("a.png"));
    writePng(file, constantPicture(7, 5, {200, 100, 50, 0}));
    EXPECT_EQ(rendered(file).pixels, PixelBuffer(7 * 5 * 4, 0));
    EXPECT_EQ(processor.renderImage(file, 16, 3).pixels, PixelBuffer(16 * 3 * 4, 0));
}

TEST_F(ImageInput, AHalfTransparentRedIsPremultiplied) {
    const QUrl file = folder.url(QStringLiteral("a.png"));
    writePng(file, constantPicture(1, 1, {255, 0, 0, 128}));
    EXPECT_EQ(pixelAt(rendered(file), 0, 0), (Rgba{128, 0, 0, 128}));
}

TEST_F(ImageInput, PremultipliesEveryColourWithEveryAlphaByRounding) {
    const QUrl file = folder.url(QStringLiteral("a.png"));
    const auto byte = [](int value) { return static_cast<std::uint8_t>(value); };
    writePng(file, drawnPicture(256, 256, [&](int colour, int alpha) {
                 return Rgba{byte(colour), byte(255 - colour), byte(colour ^ 0x55), byte(alpha)};
             }));
    const PixelImage image = rendered(file);
    for (int alpha = 0; alpha < 256; ++alpha) {
        for (int colour = 0; colour < 256; ++colour) {
            // round(c * a / 255), written apart from the fixtures: c * a / 255 never ends in exactly one
            // half.
            const auto rounded = [&](int value) { return byte((value * alpha + 127) / 255); };
            ASSERT_EQ(pixelAt(image, colour, alpha),
                      (Rgba{rounded(colour), rounded(255 - colour), rounded(colour ^ 0x55), byte(alpha)}));
        }
    }
}

TEST_F(ImageInput, ATextIsNoImage) {
    const QUrl file = folder.url(QStringLiteral("notes.txt"));
    writeFile(file, "This is not an image.\n");
    expectUnreadable(file);
    EXPECT_EQ(errorOf([&] { return processor.loadAsset(file); })->errorDescription(),
              QStringLiteral("Could not read image: notes.txt"));
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
    const QUrl svg = folder.url(QStringLiteral("a.svg"));
    writeFile(svg,
              "<svg xmlns=\"http://www.w3.org/2000/svg\" width=\"4\" height=\"4\"><rect width=\"4\" "
              "height=\"4\"/></svg>");
    expectUnreadable(svg);
    const QUrl matrix = folder.url(QStringLiteral("a.mat"));
    writeFile(matrix, "2 2\n1 2\n3 4\n");
    expectUnreadable(matrix);
    const QUrl comma = folder.url(QStringLiteral("a.csv"));
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
    expectUnreadable(folder.url(QStringLiteral("nowhere.png")));
    expectUnreadable(folder.url(QStringLiteral("no/where.png")));
}

TEST_F(ImageInput, AFolderIsNoImage) {
    folder.makeFolder(QStringLiteral("folder.png"));
    expectUnreadable(folder.url(QStringLiteral("folder.png")));
    expectUnreadable(folder.url());
}

TEST_F(ImageInput, APipeIsNoImageAndIsNotWaitedFor) {
    const QString path = folder.path(QStringLiteral("pipe.png"));
    ASSERT_EQ(mkfifo(QFile::encodeName(path).constData(), 0600), 0);
    expectUnreadable(QUrl::fromLocalFile(path));
}

TEST_F(ImageInput, ADeviceIsNoImage) {
    expectUnreadable(QUrl::fromLocalFile(QStringLiteral("/dev/null")));
    expectUnreadable(QUrl::fromLocalFile(QStringLiteral("/dev/zero")));
}

TEST_F(ImageInput, AnUrlThatIsNoFileIsNoImage) {
    expectUnreadable(QUrl(QStringLiteral("http://localhost/a.png")));
    expectUnreadable(QUrl());
}

TEST_F(ImageInput, ALinkLeadsToItsImage) {
    writePng(folder.url(QStringLiteral("a.png")), smoothPicture(5, 5));
    ASSERT_TRUE(QFile::link(folder.path(QStringLiteral("a.png")), folder.path(QStringLiteral("link.png"))));
    EXPECT_TRUE(rendersAs(smoothPicture(5, 5), folder.url(QStringLiteral("link.png"))));
    EXPECT_EQ(processor.loadAsset(folder.url(QStringLiteral("link.png"))).fileName,
              QStringLiteral("link.png"));
}

TEST_F(ImageInput, ContentDecidesAndNotTheName) {
    const QUrl file = folder.url(QStringLiteral("really.jpg"));
    writePng(file, smoothPicture(6, 4));
    EXPECT_TRUE(rendersAs(smoothPicture(6, 4), file));
    const QUrl unnamed = folder.url(QStringLiteral("unnamed"));
    writePng(unnamed, smoothPicture(6, 4));
    EXPECT_TRUE(rendersAs(smoothPicture(6, 4), unnamed));
}

TEST_F(ImageInput, FileNamesAreTakenLiterally) {
    // Some decoders read options in brackets or numbers after a colon from a file's name.
    for (const QString& name :
         {QStringLiteral("a[page=1].png"), QStringLiteral("b:2.png"), QStringLiteral("100%.png"),
          QStringLiteral("d d\u00fc\u7816.png"), QStringLiteral("e#f?g.png"), QStringLiteral("-h.png"),
          QStringLiteral("i'j\"k.png"), QStringLiteral("l\\m.png")}) {
        SCOPED_TRACE(name.toStdString());
        const QUrl file = folder.url(name);
        writePng(file, smoothPicture(6, 4));
        EXPECT_TRUE(rendersAs(smoothPicture(6, 4), file));
        EXPECT_EQ(processor.loadAsset(file).fileName, name);
    }
}

TEST_F(ImageInput, AFileIsReadAgainOnceItHasChanged) {
    const QUrl file = folder.url(QStringLiteral("a.png"));
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
    const QUrl file = folder.url(QStringLiteral("a.png"));
    writePng(file, noisePicture(31, 17, 9, true));
    const TextureAsset asset = processor.loadAsset(file);
    for (const auto& [width, height] : {std::pair{31, 17}, {64, 64}, {7, 5}, {1, 1}}) {
        EXPECT_EQ(processor.renderImage(asset, width, height), processor.renderImage(file, width, height));
    }
}

TEST_F(ImageInput, AnAssetMadeByHandIsReadFromItsFile) {
    const QUrl file = folder.url(QStringLiteral("a.png"));
    writePng(file, constantPicture(4, 4, {10, 20, 30, 255}));
    QImage other(4, 4, QImage::Format_RGBA8888_Premultiplied);
    other.fill(Qt::white);
    const TextureAsset asset{file, QStringLiteral("a.png"), 4, 4, other};
    EXPECT_EQ(pixelAt(processor.renderImage(asset, 4, 4), 1, 1), (Rgba{10, 20, 30, 255}));
}

TEST_F(ImageInput, AnImpossibleSizeGivesNoBitmap) {
    const QUrl file = folder.url(QStringLiteral("a.png"));
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
    EXPECT_EQ(expected.errorDescription(), QStringLiteral("Could not create bitmap buffer."));
}

TEST_F(ImageInput, AnUnreadableFileIsReportedBeforeAnImpossibleSize) {
    const QUrl file = folder.url(QStringLiteral("nowhere.png"));
    EXPECT_EQ(errorOf([&] { return processor.renderImage(file, 0, 0); }),
              TextureProcessorError::cannotReadImage(file));
}

TEST(TextureProcessor, WorksInPremultipliedBigEndianSrgb) {
    const TextureProcessor processor{};
    EXPECT_EQ(processor.colorSpace, QColorSpace(QColorSpace::SRgb));
    EXPECT_EQ(TextureProcessor::bitmapInfo, 16385U);
}

}  // namespace
