#include "engine/base/texture_processor_error.h"
#include "engine/texture_processor.h"
#include "engine_errors.h"
#include "imaging/pixels/pixel_image.h"
#include "limited_writing.h"
#include "picture.h"
#include "png_files.h"
#include "png_inspection.h"
#include "qstring_printing.h"
#include "rendering.h"
#include "temporary_folder.h"

#include <gmock/gmock.h>

#include <QFile>

#include <sys/stat.h>

using namespace Qt::StringLiterals;

using namespace quarlin;
using namespace quarlin::fixtures;
using testing::ElementsAre;

namespace {

class ImageOutput : public testing::Test {
protected:
    const TextureProcessor processor{};
    const TemporaryFolder folder;
    const QUrl file = folder.url(u"out.png"_s);
};

TEST_F(ImageOutput, IsAnEightBitRgbaPngTaggedSrgb) {
    processor.writePNG(pixelImage(noisePicture(37, 21, 1, true)), file);
    const PngStructure png = inspectPng(readFile(file));
    EXPECT_EQ(png.width, 37U);
    EXPECT_EQ(png.height, 21U);
    EXPECT_EQ(png.bitDepth, 8);
    EXPECT_EQ(png.colorType, 6);
    EXPECT_EQ(png.compression, 0);
    EXPECT_EQ(png.filter, 0);
    EXPECT_EQ(png.interlace, 0);
    EXPECT_EQ(png.chunks.count("sRGB"), 1);
    EXPECT_EQ(png.renderingIntent, QByteArray(1, '\0'));
}

TEST_F(ImageOutput, HoldsNothingButTheImageAndItsColorSpace) {
    for (const auto& [width, height] : {std::pair{1, 1}, {64, 64}, {700, 900}}) {
        processor.writePNG(pixelImage(noisePicture(width, height, 2)), file);
        QByteArrayList chunks = inspectPng(readFile(file)).chunks;
        EXPECT_EQ(chunks.front(), "IHDR");
        EXPECT_EQ(chunks.back(), "IEND");
        const qsizetype firstData = chunks.indexOf("IDAT");
        EXPECT_LT(chunks.indexOf("sRGB"), firstData);
        // The data chunks follow each other without other chunks between them.
        const qsizetype dataChunks = chunks.count("IDAT");
        EXPECT_EQ(chunks.lastIndexOf("IDAT"), firstData + dataChunks - 1);
        chunks.removeAll("IDAT");
        EXPECT_THAT(chunks, ElementsAre("IHDR", "sRGB", "IEND"));
    }
}

TEST_F(ImageOutput, EveryRowHasAKnownFilter) {
    processor.writePNG(pixelImage(smoothPicture(130, 90)), file);
    const PngStructure png = inspectPng(readFile(file));
    for (qsizetype at = 0; at < png.filteredRows.size(); at += 1 + 130 * 4) {
        EXPECT_LE(static_cast<unsigned char>(png.filteredRows[at]), 4);
    }
}

TEST_F(ImageOutput, AnotherDecoderReadsItBackAtEverySize) {
    for (int width = 1; width <= 70; ++width) {
        const int height = 1 + width * 37 % 70;
        const auto seed = static_cast<std::uint64_t>(width);
        for (const Picture& picture : {noisePicture(width, height, seed), smoothPicture(width, height),
                                       constantPicture(width, height, {9, 200, 77, 255})}) {
            processor.writePNG(pixelImage(picture), file);
            ASSERT_NO_THROW(inspectPng(readFile(file)));
            ASSERT_EQ(readPng(file), picture) << width << 'x' << height;
        }
    }
}

TEST_F(ImageOutput, AnotherDecoderReadsBackOnePixelRowsAndColumns) {
    for (const auto& [width, height] : {std::pair{1, 1}, {1, 5000}, {5000, 1}, {1, 2}, {2, 1}, {70000, 1}}) {
        const Picture picture = noisePicture(width, height, 3);
        processor.writePNG(pixelImage(picture), file);
        ASSERT_NO_THROW(inspectPng(readFile(file)));
        EXPECT_EQ(readPng(file), picture) << width << 'x' << height;
    }
}

TEST_F(ImageOutput, AnotherDecoderReadsBackLargeImages) {
    const Picture striped = drawnPicture(1500, 1100, [](int x, int y) {
        const auto low = static_cast<std::uint8_t>(x * y / 64);
        return y / 100 % 2 == 0 ? Rgba{low, low, low, 255} : Rgba{7, static_cast<std::uint8_t>(x), 7, 255};
    });
    for (const Picture& picture : {noisePicture(1500, 1100, 4), smoothPicture(2048, 1000), striped,
                                   constantPicture(3000, 1000, {0, 0, 0, 255})}) {
        processor.writePNG(pixelImage(picture), file);
        ASSERT_NO_THROW(inspectPng(readFile(file)));
        EXPECT_EQ(readPng(file), picture);
    }
}

TEST_F(ImageOutput, SmoothContentIsCompressed) {
    processor.writePNG(pixelImage(smoothPicture(512, 512)), file);
    EXPECT_LT(readFile(file).size(), 512 * 512 * 4 / 4);
    processor.writePNG(pixelImage(constantPicture(512, 512, {1, 2, 3, 255})), file);
    EXPECT_LT(readFile(file).size(), 20000);
}

TEST_F(ImageOutput, NoiseGrowsByLittle) {
    processor.writePNG(pixelImage(noisePicture(512, 512, 5, true)), file);
    EXPECT_LT(readFile(file).size(), 512 * 512 * 4 * 102 / 100);
}

TEST_F(ImageOutput, EveryPremultipliedColorComesBack) {
    // All pairs of an alpha and a color that is not larger.
    const Picture premultipliedPairs = drawnPicture(256, 256, [](int color, int alpha) {
        const auto byte = static_cast<std::uint8_t>(std::min(color, alpha));
        return Rgba{byte, static_cast<std::uint8_t>(alpha - byte), byte, static_cast<std::uint8_t>(alpha)};
    });
    const PixelImage image{256, 256, {premultipliedPairs.bytes.begin(), premultipliedPairs.bytes.end()}};
    processor.writePNG(image, file);
    const Picture straight = readPng(file);
    EXPECT_TRUE(sameBytes(premultipliedPairs.bytes, premultiplied(straight)));
    EXPECT_EQ(rendered(file), image);
}

TEST_F(ImageOutput, AlphaIsStraightAndRounded) {
    processor.writePNG(PixelImage{3, 1, PixelBuffer{128, 0, 64, 128, 1, 2, 3, 3, 0, 10, 200, 255}}, file);
    const Picture picture = readPng(file);
    // 64 * 255 / 128 is 127.5.
    EXPECT_EQ(picture.at(0, 0)[0], 255);
    EXPECT_EQ(picture.at(0, 0)[1], 0);
    EXPECT_NEAR(picture.at(0, 0)[2], 127.5, 0.5);
    EXPECT_EQ(picture.at(0, 0)[3], 128);
    EXPECT_EQ(picture.at(1, 0), (Rgba{85, 170, 255, 3}));
    EXPECT_EQ(picture.at(2, 0), (Rgba{0, 10, 200, 255}));
}

TEST_F(ImageOutput, TransparentPixelsHoldNoColor) {
    processor.writePNG(PixelImage{2, 1, PixelBuffer{0, 0, 0, 0, 0, 0, 0, 255}}, file);
    EXPECT_EQ(readPng(file), (Picture{2, 1, {0, 0, 0, 0, 0, 0, 0, 255}}));
}

TEST_F(ImageOutput, RandomAlphaComesBackThroughTheEngine) {
    for (const auto& [width, height] : {std::pair{33, 17}, {640, 480}}) {
        const PixelImage image = pixelImage(noisePicture(width, height, 6, true));
        processor.writePNG(image, file);
        EXPECT_EQ(rendered(file), image);
    }
}

TEST_F(ImageOutput, TheSameImageGivesTheSameFile) {
    const PixelImage image = pixelImage(noisePicture(800, 600, 7));
    processor.writePNG(image, file);
    const QByteArray first = readFile(file);
    for (int repeat = 0; repeat < 3; ++repeat) {
        processor.writePNG(image, file);
        EXPECT_EQ(readFile(file), first);
    }
}

TEST_F(ImageOutput, ReplacesAnOlderFile) {
    processor.writePNG(pixelImage(noisePicture(64, 64, 8)), file);
    processor.writePNG(pixelImage(smoothPicture(5, 5)), file);
    EXPECT_EQ(readPng(file), smoothPicture(5, 5));
    EXPECT_EQ(folder.names(), QStringList{u"out.png"_s});
}

TEST_F(ImageOutput, ANewFileHasOrdinaryPermissions) {
    const mode_t before = umask(022);
    processor.writePNG(pixelImage(smoothPicture(5, 5)), file);
    umask(before);
    struct stat status {};
    ASSERT_EQ(stat(QFile::encodeName(file.toLocalFile()).constData(), &status), 0);
    EXPECT_EQ(status.st_mode & 0777U, 0644U);
}

TEST_F(ImageOutput, FileNamesAreTakenLiterally) {
    for (const QString& name : {u"a[strip].png"_s, u"b:2.png"_s, u"100%.png"_s, u"d \u00fc\u7816.png"_s,
                                u"e#f?g.png"_s, u"no extension"_s}) {
        processor.writePNG(pixelImage(smoothPicture(5, 5)), folder.url(name));
        EXPECT_EQ(readPng(folder.url(name)), smoothPicture(5, 5)) << name.toStdString();
    }
}

TEST_F(ImageOutput, WhatIsNoImageCanNotBecomeAPng) {
    writeFile(file, "older");
    for (const PixelImage& none : {PixelImage{}, PixelImage{0, 5, {}}, PixelImage{5, 0, {}},
                                   PixelImage{-2, -2, PixelBuffer(16)}, PixelImage{2, 2, PixelBuffer(15)},
                                   PixelImage{2, 2, PixelBuffer(17)}, PixelImage{2, 3, PixelBuffer(16)}}) {
        EXPECT_EQ(errorOf([&] {
                      processor.writePNG(none, file);
                      return 0;
                  }),
                  TextureProcessorError::cannotCreatePNG(file));
    }
    EXPECT_EQ(readFile(file), "older");
    EXPECT_EQ(folder.names(), QStringList{u"out.png"_s});
}

class FailedImageOutput : public ImageOutput {
protected:
    std::optional<TextureProcessorError> errorOfWriting(const QUrl& target) const {
        return errorOf([&] {
            processor.writePNG(pixelImage(noisePicture(64, 64, 9)), target);
            return 0;
        });
    }
};

TEST_F(FailedImageOutput, AMissingFolderCanNotBeWrittenInto) {
    const QUrl target = folder.url(u"no/where.png"_s);
    EXPECT_EQ(errorOfWriting(target), TextureProcessorError::cannotCreatePNG(target));
    EXPECT_EQ(errorOfWriting(target)->errorDescription(), u"Could not create PNG image: where.png"_s);
}

TEST_F(FailedImageOutput, AFileInThePlaceOfTheFolderCanNotBeWrittenInto) {
    writeFile(folder.url(u"file"_s), "x");
    const QUrl target = folder.url(u"file/out.png"_s);
    EXPECT_EQ(errorOfWriting(target), TextureProcessorError::cannotCreatePNG(target));
}

TEST_F(FailedImageOutput, AFolderInThePlaceOfTheFileCanNotBeOpenedForWriting) {
    folder.makeFolder(u"out.png/inside"_s);
    EXPECT_EQ(errorOfWriting(file), TextureProcessorError::cannotCreatePNG(file));
    EXPECT_EQ(folder.names(), QStringList{u"out.png"_s});
    EXPECT_EQ(folder.names(u"out.png"_s), QStringList{u"inside"_s});
}

TEST_F(FailedImageOutput, AnEmptyFolderInThePlaceOfTheFileStays) {
    folder.makeFolder(u"out.png"_s);
    EXPECT_EQ(errorOfWriting(file), TextureProcessorError::cannotCreatePNG(file));
    EXPECT_TRUE(QFileInfo(file.toLocalFile()).isDir());
}

TEST_F(FailedImageOutput, AFullDiskCanNotCompleteTheFile) {
    const FullDisk limit(4096);
    EXPECT_EQ(errorOfWriting(file), TextureProcessorError::cannotWritePNG(file));
    EXPECT_EQ(errorOfWriting(file)->errorDescription(), u"Could not write PNG: out.png"_s);
    EXPECT_EQ(folder.names(), QStringList());
}

TEST_F(FailedImageOutput, KeepsTheOlderFile) {
    processor.writePNG(pixelImage(smoothPicture(5, 5)), file);
    const QByteArray before = readFile(file);
    {
        const FullDisk limit(4096);
        EXPECT_EQ(errorOfWriting(file), TextureProcessorError::cannotWritePNG(file));
    }
    EXPECT_EQ(readFile(file), before);
    EXPECT_EQ(folder.names(), QStringList{u"out.png"_s});
}

TEST_F(FailedImageOutput, AReadOnlyFolderCanNotBeWrittenInto) {
    processor.writePNG(pixelImage(smoothPicture(5, 5)), file);
    const QByteArray before = readFile(file);
    const QByteArray path = QFile::encodeName(folder.path());
    ASSERT_EQ(chmod(path.constData(), 0555), 0);
    {
        const OrdinaryUser user;
        ASSERT_TRUE(user.works());
        const QUrl other = folder.url(u"other.png"_s);
        EXPECT_EQ(errorOfWriting(other), TextureProcessorError::cannotCreatePNG(other));
    }
    ASSERT_EQ(chmod(path.constData(), 0755), 0);
    EXPECT_EQ(readFile(file), before);
    EXPECT_EQ(folder.names(), QStringList{u"out.png"_s});
}

}  // namespace
