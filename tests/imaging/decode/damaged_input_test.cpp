// A file is a whole, intact image or an error, never half an image.

#include "engine/base/texture_processor_error.h"
#include "engine/texture_processor.h"
#include "engine_errors.h"
#include "imaging/pixels/pixel_image.h"
#include "jpeg_files.h"
#include "picture.h"
#include "png_files.h"
#include "rendering.h"
#include "temporary_folder.h"
#include "tiff_files.h"
#include "vips_files.h"

#include <gtest/gtest.h>
#include <QImage>
#include <QtEndian>

#include <zlib.h>

#include <random>

using namespace Qt::StringLiterals;

using namespace quarlin;
using namespace quarlin::fixtures;

namespace {

class DamagedInput : public testing::Test {
protected:
    testing::AssertionResult isRefused(const QByteArray& bytes) const {
        writeFile(file, bytes);
        const auto error = errorOf([&] { return processor.loadCGImage(file); });
        if (!error) {
            return testing::AssertionFailure() << "it was decoded";
        }
        if (*error != TextureProcessorError::cannotReadImage(file)) {
            return testing::AssertionFailure()
                   << "another error: " << error->errorDescription().toStdString();
        }
        return testing::AssertionSuccess();
    }

    /// Cuts `whole` off at lengths from nothing up to `margin` bytes before its end.
    void expectRefusedWhenCutOff(const QByteArray& whole, qsizetype margin, int steps = 60) const {
        ASSERT_FALSE(isRefused(whole));
        const qsizetype last = whole.size() - margin;
        for (int step = 0; step <= steps; ++step) {
            const qsizetype length = last * step / steps;
            EXPECT_TRUE(isRefused(whole.first(length))) << length << " of " << whole.size();
        }
    }

    const TextureProcessor processor{};
    const TemporaryFolder folder;
    const QUrl file = folder.url(u"a.png"_s);
};

TEST_F(DamagedInput, CutOffPng) {
    writePng(file, noisePicture(64, 64, 1));
    // The image is whole before its end chunk of 12 bytes.
    expectRefusedWhenCutOff(readFile(file), 13);
}

TEST_F(DamagedInput, CutOffPngWithLittleData) {
    writePng(file, constantPicture(500, 500, {1, 2, 3, 255}));
    expectRefusedWhenCutOff(readFile(file), 13);
}

TEST_F(DamagedInput, CutOffInterlacedPng) {
    const Picture picture = noisePicture(40, 40, 2);
    PngForm form;
    form.interlaced = true;
    writePngSamples(file, 40, 40, {picture.bytes.begin(), picture.bytes.end()}, form);
    expectRefusedWhenCutOff(readFile(file), 13);
}

TEST_F(DamagedInput, CutOffJpeg) { expectRefusedWhenCutOff(colorJpeg(noisePicture(64, 64, 3)), 3); }

TEST_F(DamagedInput, CutOffProgressiveJpeg) {
    JpegForm form;
    form.progressive = true;
    expectRefusedWhenCutOff(colorJpeg(noisePicture(64, 64, 4), form), 3);
}

TEST_F(DamagedInput, CutOffTiff) {
    const QUrl tiff = folder.url(u"a.tif"_s);
    for (const int compression : {1, 5}) {
        TiffForm form;
        form.compression = compression;
        writeTiff(tiff, {tiffPage(noisePicture(64, 64, 5), 3)}, form);
        expectRefusedWhenCutOff(readFile(tiff), 20);
    }
}

TEST_F(DamagedInput, CutOffGif) {
    ASSERT_TRUE(canEncode(Encoder::gif));
    const Picture picture = drawnPicture(64, 64, [](int x, int y) {
        return Rgba{static_cast<std::uint8_t>(x * 4), static_cast<std::uint8_t>(y * 4 / 32 * 32), 0, 255};
    });
    // The image data end a few bytes before the file does.
    expectRefusedWhenCutOff(encoded(Encoder::gif, picture), 8);
}

TEST_F(DamagedInput, CutOffWebp) {
    ASSERT_TRUE(canEncode(Encoder::webp));
    expectRefusedWhenCutOff(encoded(Encoder::webp, noisePicture(64, 64, 6)), 8);
}

TEST_F(DamagedInput, CutOffHeic) {
    ASSERT_TRUE(canEncode(Encoder::heic));
    expectRefusedWhenCutOff(encoded(Encoder::heic, noisePicture(64, 64, 7)), 8, 30);
}

TEST_F(DamagedInput, CutOffAvif) {
    ASSERT_TRUE(canEncode(Encoder::avif));
    expectRefusedWhenCutOff(encoded(Encoder::avif, noisePicture(64, 64, 8)), 8, 30);
}

TEST_F(DamagedInput, PngWithAChangedByteInItsImageData) {
    writePng(file, noisePicture(64, 64, 9));
    const QByteArray whole = readFile(file);
    std::mt19937_64 random(9);
    for (int count = 0; count < 40; ++count) {
        QByteArray broken = whole;
        const qsizetype at =
            60 + static_cast<qsizetype>(random() % static_cast<std::uint64_t>(whole.size() - 80));
        broken[at] = static_cast<char>(broken[at] ^ 0x10);
        EXPECT_TRUE(isRefused(broken)) << at;
    }
}

TEST_F(DamagedInput, PngWhosePixelsHaveAWrongChecksumInAnIntactChunk) {
    for (const bool isInterlaced : {false, true}) {
        for (const int bitDepth : {8, 16}) {
            PngForm form;
            form.interlaced = isInterlaced;
            form.bitDepth = bitDepth;
            writePngSamples(file, 30, 20, std::vector<std::uint16_t>(std::size_t{30} * 20 * 4, 200), form);
            QByteArray broken = readFile(file);
            ASSERT_FALSE(isRefused(broken));
            // The checksum of the pixels is the end of the last chunk before the one for the end, and that of
            // the chunk follows it.
            const qsizetype chunk = broken.indexOf("IDAT");
            const qsizetype end = broken.indexOf("IEND") - 8;
            ASSERT_EQ(broken.count("IDAT"), 1);
            broken[end - 1] = static_cast<char>(broken[end - 1] ^ 1);
            const auto* checked = reinterpret_cast<const Bytef*>(broken.constData() + chunk);
            qToBigEndian(static_cast<quint32>(crc32(0, checked, static_cast<uInt>(end - chunk))),
                         broken.data() + end);
            EXPECT_TRUE(isRefused(broken)) << isInterlaced << bitDepth;
        }
    }
}

TEST_F(DamagedInput, JpegWhoseScanEndsInItsMiddle) {
    for (const bool progressive : {false, true}) {
        JpegForm form;
        form.progressive = progressive;
        QByteArray broken = colorJpeg(noisePicture(64, 64, 10), form);
        broken.replace(broken.size() / 2, 2, "\xff\xd9");
        EXPECT_TRUE(isRefused(broken)) << progressive;
    }
}

TEST_F(DamagedInput, JpegWhoseScanIsOverwritten) {
    const QByteArray whole = colorJpeg(noisePicture(64, 64, 10));
    QByteArray broken = whole;
    broken.replace(whole.size() / 2, 200, QByteArray(200, '\xff'));
    EXPECT_TRUE(isRefused(broken));
}

TEST_F(DamagedInput, AbsurdlyLargePng) {
    writePng(file, smoothPicture(4, 4));
    QByteArray header = readFile(file);
    // Width and height of 2^31 - 1; the checksum no longer fits either.
    header.replace(16, 8, QByteArray("\x7f\xff\xff\xff\x7f\xff\xff\xff", 8));
    EXPECT_TRUE(isRefused(header));
}

TEST_F(DamagedInput, RandomBytesAfterASignature) {
    std::mt19937_64 random(11);
    for (const QByteArray& signature : {QByteArray("\x89PNG\r\n\x1a\n", 8), QByteArray("\xff\xd8\xff\xe0", 4),
                                        QByteArray("GIF89a"), QByteArray("BM"), QByteArray("II*\0", 4),
                                        QByteArray("MM\0*", 4), QByteArray("RIFF\x40\0\0\0WEBPVP8L", 16),
                                        QByteArray("\0\0\0\x18"
                                                   "ftypheic",
                                                   12),
                                        QByteArray("\0\0\0\x18"
                                                   "ftypavif",
                                                   12)}) {
        for (int count = 0; count < 20; ++count) {
            QByteArray bytes = signature;
            for (int byte = 0; byte < 200; ++byte) {
                bytes.append(static_cast<char>(random()));
            }
            EXPECT_TRUE(isRefused(bytes)) << signature.toPercentEncoding().toStdString();
        }
    }
}

TEST_F(DamagedInput, ARefusedFileLeavesNoTraceInTheNextOne) {
    writePng(file, noisePicture(64, 64, 12));
    const QByteArray whole = readFile(file);
    for (int count = 0; count < 3; ++count) {
        EXPECT_TRUE(isRefused(whole.first(whole.size() / 2)));
        writeFile(file, whole);
        EXPECT_TRUE(rendersAs(noisePicture(64, 64, 12), file));
    }
}

TEST_F(DamagedInput, IsRefusedEveryTime) {
    // A decoder that works ahead on another thread may lose an error now and then.
    const Picture picture = noisePicture(8, 8, 14);
    writePng(file, picture);
    const QUrl tiff = folder.url(u"a.tif"_s);
    writeTiff(tiff, {tiffPage(picture, 3)});
    for (const QByteArray& whole :
         {readFile(file), colorJpeg(picture), readFile(tiff), encoded(Encoder::gif, picture)}) {
        for (int count = 0; count < 200; ++count) {
            ASSERT_TRUE(isRefused(whole.first(whole.size() / 2))) << "time " << count;
        }
    }
}

TEST_F(DamagedInput, IsRefusedEveryTimeBehindAnIntactHeader) {
    // These are decoded as a whole before the first row is there, and that by threads that may lose an error.
    const Picture picture = noisePicture(16, 16, 15);
    for (const Encoder encoder : {Encoder::webp, Encoder::gif}) {
        QByteArray broken = encoded(encoder, picture);
        const qsizetype middle = broken.size() / 2;
        broken.replace(middle, broken.size() - middle, QByteArray(broken.size() - middle, '\0'));
        for (int count = 0; count < 300; ++count) {
            ASSERT_TRUE(isRefused(broken)) << static_cast<int>(encoder) << ", time " << count;
        }
    }
}

TEST_F(DamagedInput, BytesAfterAJpegDoNoHarm) {
    // Cameras append previews and tables behind the image.
    const QByteArray jpeg = colorJpeg(smoothPicture(40, 30));
    writeFile(file, jpeg);
    const PixelImage plain = rendered(file);
    writeFile(file, jpeg + QByteArray(100, 'x'));
    EXPECT_EQ(rendered(file), plain);
    writeFile(file, jpeg + jpeg);
    EXPECT_EQ(rendered(file), plain);
}

TEST_F(DamagedInput, BytesAfterTheImageDoNoHarm) {
    writePng(file, noisePicture(20, 20, 13));
    writeFile(file, readFile(file) + QByteArray(100, 'x'));
    EXPECT_TRUE(rendersAs(noisePicture(20, 20, 13), file));
}

}  // namespace
