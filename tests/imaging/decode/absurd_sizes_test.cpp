// A header may claim any size; it is believed only as far as the file can hold that many pixels.

#include "bmp_files.h"
#include "engine/base/texture_processor_error.h"
#include "engine/texture_processor.h"
#include "engine_errors.h"
#include "imaging/pixels/image_view.h"
#include "jpeg_files.h"
#include "picture.h"
#include "png_files.h"
#include "temporary_folder.h"
#include "tiff_files.h"
#include "vips_files.h"

#include <QFile>
#include <QImage>
#include <QtEndian>

#include <gtest/gtest.h>
#include <zlib.h>

#include <array>

using namespace Qt::StringLiterals;

using namespace quarlin;
using namespace quarlin::fixtures;

namespace {

/// A picture's file with the size in its header replaced.
class Claim {
public:
    explicit Claim(const QByteArray& file) : m_file(file) {}

    /// Writes a number over the bytes at `offset`.
    template <typename Number>
    Claim& bigEndian(qsizetype offset, Number value) {
        qToBigEndian(value, m_file.data() + offset);
        return *this;
    }
    template <typename Number>
    Claim& littleEndian(qsizetype offset, Number value) {
        qToLittleEndian(value, m_file.data() + offset);
        return *this;
    }
    /// Where `bytes` begin.
    qsizetype placeOf(const QByteArray& bytes) const {
        const qsizetype place = m_file.indexOf(bytes);
        EXPECT_GE(place, 0);
        return place;
    }
    const QByteArray& file() const { return m_file; }

private:
    QByteArray m_file;
};

/// The most memory that the process has had mapped so far.
qint64 mostMappedKibibytes() {
    QFile status(u"/proc/self/status"_s);
    EXPECT_TRUE(status.open(QIODevice::ReadOnly));
    const QByteArray text = status.readAll();
    const qsizetype place = text.indexOf("VmPeak:") + 7;
    return text.mid(place, text.indexOf("kB", place) - place).trimmed().toLongLong();
}

class AbsurdSize : public testing::Test {
protected:
    void expectRefusedAtOnce(const QByteArray& honest, const QByteArray& absurd) {
        writeFile(file, honest);
        // Also brings up what the decoders keep for good.
        ASSERT_FALSE(errorOf([&] { return processor.loadCGImage(file); }));
        writeFile(file, absurd);
        const qint64 before = mostMappedKibibytes();
        EXPECT_EQ(errorOf([&] { return processor.loadCGImage(file); }),
                  TextureProcessorError::cannotReadImage(file));
        // The smallest claim below stands for a gibibyte of pixels.
        constexpr qint64 margin = qint64{512} * 1024;
        EXPECT_LT(mostMappedKibibytes() - before, margin);
    }

    const TextureProcessor processor{};
    const TemporaryFolder folder;
    const QUrl file = folder.url(u"a"_s);
    const Picture picture = noisePicture(16, 16, 1);
};

TEST_F(AbsurdSize, OfAPng) {
    for (const int bitDepth : {8, 16}) {
        PngForm form;
        form.colorType = 0;
        form.bitDepth = bitDepth;
        writePngSamples(file, 16, 16, std::vector<std::uint16_t>(256, 7), form);
        const QByteArray honest = readFile(file);
        for (const quint32 side : {quint32{20'000}, quint32{32'768}, quint32{0x7fffffff}}) {
            Claim claim(honest);
            claim.bigEndian<quint32>(16, side).bigEndian<quint32>(20, side);
            const auto* header = reinterpret_cast<const Bytef*>(claim.file().constData() + 12);
            claim.bigEndian<quint32>(29, static_cast<quint32>(crc32(0, header, 17)));
            expectRefusedAtOnce(honest, claim.file());
        }
    }
}

TEST_F(AbsurdSize, OfAChunkOfAPng) {
    PngForm form;
    form.bitDepth = 16;
    writePngSamples(file, 16, 16, std::vector<std::uint16_t>(1024, 7), form);
    const QByteArray honest = withPngChunk(readFile(file), "teSt", "data");
    for (const quint32 length : {quint32{0x7300'001a}, quint32{0x7fff'ffff}, quint32{0xffff'ffff}}) {
        Claim claim(honest);
        claim.bigEndian<quint32>(claim.placeOf("teSt") - 4, length);
        expectRefusedAtOnce(honest, claim.file());
    }
}

TEST_F(AbsurdSize, OfAJpeg) {
    for (const bool progressive : {false, true}) {
        JpegForm form;
        form.progressive = progressive;
        const QByteArray honest = colorJpeg(picture, form);
        for (const quint16 side : {quint16{20'000}, quint16{32'768}, quint16{65'500}}) {
            Claim claim(honest);
            const qsizetype frame = claim.placeOf(progressive ? "\xff\xc2" : "\xff\xc0");
            claim.bigEndian<quint16>(frame + 5, side).bigEndian<quint16>(frame + 7, side);
            expectRefusedAtOnce(honest, claim.file());
        }
    }
}

TEST_F(AbsurdSize, OfATiff) {
    for (const int tile : {0, 16}) {
        TiffForm form;
        form.tile = tile;
        writeTiff(file, {tiffPage(picture, 3)}, form);
        const QByteArray honest = readFile(file);
        for (const quint32 side : {quint32{20'000}, quint32{32'768}, quint32{0x7fffffff}}) {
            Claim claim(honest);
            for (const quint16 tag : {quint16{256}, quint16{257}}) {
                // The entry: tag, type SHORT, one value, 16.
                QByteArray entry("\0\0\3\0\1\0\0\0\x10\0\0\0", 12);
                qToLittleEndian(tag, entry.data());
                const qsizetype place = claim.placeOf(entry);
                claim.littleEndian<quint16>(place + 2, 4).littleEndian<quint32>(place + 8, side);
            }
            expectRefusedAtOnce(honest, claim.file());
        }
    }
}

TEST_F(AbsurdSize, OfAGif) {
    const QByteArray honest = encoded(Encoder::gif, picture);
    for (const quint16 side : {quint16{20'000}, quint16{32'768}, quint16{65'535}}) {
        // That of the frame: that of the canvas is not believed by the decoder anyway.
        Claim frame(honest);
        const qsizetype place = frame.placeOf(QByteArray("\x2c\0\0\0\0\x10\0\x10\0", 9));
        frame.littleEndian<quint16>(place + 5, side).littleEndian<quint16>(place + 7, side);
        expectRefusedAtOnce(honest, frame.file());
    }
}

TEST_F(AbsurdSize, OfAWebp) {
    const QByteArray honest = encoded(Encoder::webp, picture);
    Claim claim(honest);
    // Behind the signature byte: width and height less one, 14 bits each, as large as the format can tell.
    claim.littleEndian<quint32>(claim.placeOf("VP8L") + 9, 0x0fffffff);
    expectRefusedAtOnce(honest, claim.file());
}

TEST_F(AbsurdSize, OfAHeicAndAnAvif) {
    for (const Encoder encoder : {Encoder::heic, Encoder::avif}) {
        const QByteArray honest = encoded(encoder, picture);
        for (const quint32 side : {quint32{20'000}, quint32{32'768}, quint32{0x7fffffff}}) {
            Claim claim(honest);
            const qsizetype place = claim.placeOf("ispe");
            claim.bigEndian<quint32>(place + 8, side).bigEndian<quint32>(place + 12, side);
            expectRefusedAtOnce(honest, claim.file());
        }
    }
}

TEST_F(AbsurdSize, OfABmp) {
    for (const QByteArray& honest : {bmp24(picture), bmp8Gray(picture), bmp8GrayRunLength(picture)}) {
        for (const quint32 side : {quint32{20'000}, quint32{32'768}, quint32{0x7fffffff}}) {
            Claim claim(honest);
            claim.littleEndian<quint32>(18, side).littleEndian<quint32>(22, side);
            expectRefusedAtOnce(honest, claim.file());
        }
    }
}

TEST_F(AbsurdSize, IsOneThatTheFileCannotHold) {
    EXPECT_TRUE(isPlausibleSize(8192, 8192, 1));
    EXPECT_FALSE(isPlausibleSize(8192, 8193, 1));
    EXPECT_TRUE(isPlausibleSize(16384, 16384, 16384));
    EXPECT_FALSE(isPlausibleSize(16384, 16384, 16383));
    EXPECT_FALSE(isPlausibleSize(0, 16, 1000));
    EXPECT_FALSE(isPlausibleSize(maximumSide + 1, 1, 1000));
    EXPECT_FALSE(isPlausibleSize(maximumSide, maximumSide, std::int64_t{1} << 40));
}

TEST_F(AbsurdSize, IsNotThatOfALargeEmptyPicture) {
    // As dense as a file gets: one bit a pixel, all alike.
    constexpr int side = 9000;
    PngForm form;
    form.colorType = 0;
    form.bitDepth = 1;
    writePngSamples(file, side, side, std::vector<std::uint16_t>(std::size_t{side} * side, 0), form);
    EXPECT_LT(QFile(file.toLocalFile()).size(), 20'000);
    const QImage image = processor.loadCGImage(file);
    EXPECT_EQ(image.size(), QSize(side, side));
    EXPECT_EQ(image.pixel(side - 1, side - 1), qRgb(0, 0, 0));
}

}  // namespace
