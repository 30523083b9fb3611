// Every format as a row reader: rows read in any portions are those of the whole image, and damage in the
// last rows is noticed.

#include "imaging/decode/decode_error.h"
#include "imaging/decode/image_decoder.h"
#include "imaging/decode/image_file.h"
#include "imaging/files/file_error.h"
#include "imaging/pixels/image_view.h"

#include "bmp_files.h"
#include "byte_comparison.h"
#include "color_profiles.h"
#include "heif_files.h"
#include "jpeg_files.h"
#include "picture.h"
#include "png_files.h"
#include "temporary_folder.h"
#include "tiff_files.h"
#include "vips_files.h"

#include <QFile>
#include <QtEndian>

#include <gtest/gtest.h>

#include <algorithm>

using namespace Qt::StringLiterals;

using namespace quarlin;
using namespace quarlin::fixtures;

namespace {

constexpr int width = 61;
constexpr int height = 83;

Picture opaque() { return noisePicture(width, height, 1); }
Picture translucent() { return noisePicture(width, height, 2, true); }

QByteArray pngFile(const PngForm& form, int channels) {
    const TemporaryFolder folder;
    const QUrl file = folder.url(u"a.png"_s);
    std::vector<std::uint16_t> samples;
    const Picture picture = translucent();
    for (std::size_t index = 0; index < picture.bytes.size(); ++index) {
        if (static_cast<int>(index % 4) < channels) {
            samples.push_back(picture.bytes[index]);
        }
    }
    writePngSamples(file, width, height, samples, form);
    return fixtures::readFile(file);
}

QByteArray tiffFile(const TiffForm& form) {
    const TemporaryFolder folder;
    const QUrl file = folder.url(u"a.tif"_s);
    writeTiff(file, {tiffPage(opaque(), 3)}, form);
    return fixtures::readFile(file);
}

struct Format {
    const char* name;
    QByteArray (*file)();
};

void PrintTo(const Format& format, std::ostream* out) { *out << format.name; }

const std::vector<Format>& formats() {
    static const std::vector<Format> all{
        {"Png", [] { return pngFile({}, 4); }},
        {"PngWithProfile",
         [] {
             PngForm form;
             form.colorType = 2;
             form.profile = displayP3Profile();
             return pngFile(form, 3);
         }},
        {"InterlacedPng",
         [] {
             PngForm form;
             form.interlaced = true;
             return pngFile(form, 4);
         }},
        {"SixteenBitPng",
         [] {
             PngForm form;
             form.bitDepth = 16;
             return pngFile(form, 4);
         }},
        {"Jpeg", [] { return colorJpeg(opaque()); }},
        {"ProgressiveJpeg",
         [] {
             JpegForm form;
             form.progressive = true;
             return colorJpeg(opaque(), form);
         }},
        {"GrayJpeg", [] { return grayJpeg(opaque()); }},
        {"CmykJpeg", [] { return inkJpeg(translucent()); }},
        {"JpegWithProfile",
         [] {
             JpegForm form;
             form.profile = adobeRgbProfile();
             return colorJpeg(opaque(), form);
         }},
        {"PaddedJpeg",
         [] {
             QByteArray jpeg = colorJpeg(opaque());
             return jpeg.insert(jpeg.size() - 2, QByteArray(7, '\0'));
         }},
        {"Tiff", [] { return tiffFile({}); }},
        {"TiledTiff",
         [] {
             TiffForm form;
             form.tile = 32;
             return tiffFile(form);
         }},
        {"BottomUpBmp", [] { return bmp24(opaque()); }},
        {"TopDownBmp", [] { return bmp24(opaque(), true); }},
        {"Gif", [] { return encoded(Encoder::gif, smoothPicture(width, height)); }},
        {"Webp", [] { return encoded(Encoder::webp, translucent()); }},
        {"Heic",
         [] {
             HeifForm form;
             form.isAvif = false;
             return heifFile(opaque(), form);
         }},
        {"Avif",
         [] {
             HeifForm form;
             form.hasAlpha = true;
             return heifFile(translucent(), form);
         }},
    };
    return all;
}

std::vector<std::uint8_t> rowsReadBy(RowReader& reader, const std::vector<std::int64_t>& counts) {
    std::vector<std::uint8_t> rows(static_cast<std::size_t>(reader.height() * reader.bytesPerRow()));
    for (std::size_t index = 0; reader.position() < reader.height(); ++index) {
        const std::int64_t count =
            std::min(counts[index % counts.size()], reader.height() - reader.position());
        const std::int64_t before = reader.position();
        reader.read(count, rows.data() + before * reader.bytesPerRow());
        EXPECT_EQ(reader.position(), before + count);
    }
    return rows;
}

class RowReaders : public testing::TestWithParam<Format> {};

TEST_P(RowReaders, KnowTheSizeBeforeTheFirstRow) {
    const std::unique_ptr<RowReader> reader = openImage(GetParam().file());
    EXPECT_EQ(reader->width(), width);
    EXPECT_EQ(reader->height(), height);
    EXPECT_EQ(reader->layout(), RowLayout::rgba);
    EXPECT_EQ(reader->bytesPerRow(), width * 4);
    EXPECT_EQ(reader->position(), 0);
}

TEST_P(RowReaders, GiveTheRowsOfTheWholeImageInAnyPortions) {
    const QByteArray file = GetParam().file();
    const std::vector<std::uint8_t> whole = bytesOf(decodeImage(file));
    for (const std::vector<std::int64_t>& counts :
         {std::vector<std::int64_t>{1}, {height}, {1, 2, 0, 3, 5, 7, 11}, {13, 17}, {40, 1}}) {
        EXPECT_TRUE(sameBytes(whole, rowsReadBy(*openImage(file), counts))) << counts.front();
    }
}

TEST_P(RowReaders, GiveTheSameRowsFromAnOpenFile) {
    const TemporaryFolder folder;
    const QUrl url = folder.url(u"a"_s);
    writeFile(url, GetParam().file());
    const std::shared_ptr<InputFile> file = InputFile::open(url);
    for (int times = 0; times < 2; ++times) {
        const OpenedImage image = openImageFile(file, ColorHandling::convert);
        EXPECT_TRUE(sameBytes(bytesOf(decodeImage(GetParam().file())), rowsReadBy(*image.rows, {7})));
    }
}

TEST_P(RowReaders, ThrowWhenTheirFileIsWrittenToMeanwhile) {
    const TemporaryFolder folder;
    const QUrl url = folder.url(u"a"_s);
    writeFile(url, GetParam().file());
    const OpenedImage image = openImageFile(InputFile::open(url), ColorHandling::convert);
    QFile file(url.toLocalFile());
    ASSERT_TRUE(file.open(QIODevice::Append));
    file.write("more");
    file.close();
    try {
        rowsReadBy(*image.rows, {7});
        ADD_FAILURE() << "all rows were read";
    } catch (const FileError& error) {
        EXPECT_EQ(error.problem(), FileProblem::changed);
        EXPECT_EQ(error.file(), url);
    }
}

TEST_P(RowReaders, MayBeGivenUpHalfway) {
    const QByteArray file = GetParam().file();
    std::vector<std::uint8_t> rows(std::size_t{width} * 4 * 20);
    for (int count = 0; count < 5; ++count) {
        openImage(file)->read(20, rows.data());
    }
    EXPECT_TRUE(sameBytes({bytesOf(decodeImage(file)).data(), rows.size()}, rows));
}

INSTANTIATE_TEST_SUITE_P(Format, RowReaders, testing::ValuesIn(formats()),
                         [](const auto& instance) { return instance.param.name; });

/// Whether the first rows of a file can be read, and the others then throw.
testing::AssertionResult failsInItsLastRows(const QByteArray& file) {
    const std::unique_ptr<RowReader> reader = openImage(file);
    std::vector<std::uint8_t> rows(static_cast<std::size_t>(reader->height() * reader->bytesPerRow()));
    const std::int64_t first = reader->height() / 4;
    reader->read(first, rows.data());
    try {
        while (reader->position() < reader->height()) {
            reader->read(1, rows.data());
        }
    } catch (const DecodeError& error) {
        return error.problem() == DecodeProblem::damaged ? testing::AssertionSuccess()
                                                         : testing::AssertionFailure() << "another error";
    }
    return testing::AssertionFailure() << "all rows were read";
}

/// `file` without the `count` bytes that precede the last `kept` ones.
QByteArray withoutPart(const QByteArray& file, qsizetype count, qsizetype kept) {
    return file.first(file.size() - kept - count) + file.last(kept);
}

TEST(RowReaderDamage, InTheLastRowsOfAPngThrows) {
    const TemporaryFolder folder;
    const QUrl file = folder.url(u"a.png"_s);
    writePng(file, noisePicture(300, 300, 5));
    const QByteArray png = fixtures::readFile(file);
    // All data in one chunk, which ends too soon and has the right checksum.
    constexpr qsizetype headerEnd = 33;
    QByteArray data;
    qsizetype chunk = headerEnd;
    while (png.mid(chunk + 4, 4) == "IDAT") {
        const auto length = static_cast<qsizetype>(qFromBigEndian<quint32>(png.constData() + chunk));
        data += png.mid(chunk + 8, length);
        chunk += 12 + length;
    }
    const QByteArray frame = png.first(headerEnd) + png.last(12);
    ASSERT_NO_THROW(decodeImage(withPngChunk(frame, "IDAT", data)));
    for (const qsizetype missing : {1, 4, 20'000}) {
        EXPECT_TRUE(failsInItsLastRows(withPngChunk(frame, "IDAT", data.chopped(missing)))) << missing;
    }
}

TEST(RowReaderDamage, InTheLastRowsOfAJpegThrows) {
    const QByteArray jpeg = colorJpeg(noisePicture(200, 200, 6));
    EXPECT_TRUE(failsInItsLastRows(withoutPart(jpeg, 300, 2)));
    EXPECT_TRUE(failsInItsLastRows(withoutPart(jpeg, 10, 2)));
}

TEST(RowReaderDamage, InTheLastRowsOfATiffThrows) {
    const TemporaryFolder folder;
    const QUrl file = folder.url(u"a.tif"_s);
    TiffForm form;
    form.compression = 5;
    writeTiff(file, {tiffPage(noisePicture(400, 400, 7), 3)}, form);
    QByteArray tiff = fixtures::readFile(file);
    // The strips fill the middle of the file; the codes of the last one are overwritten.
    tiff.replace(tiff.size() * 9 / 10, 64, QByteArray(64, '\xff'));
    EXPECT_THROW(decodeImage(tiff), DecodeError);
}

TEST(RowReaderDamage, InACodecThatDecodesTheWholeImageThrows) {
    for (const bool isAvif : {false, true}) {
        HeifForm form;
        form.isAvif = isAvif;
        const QByteArray file = heifFile(noisePicture(64, 64, 8), form);
        EXPECT_THROW(decodeImage(file.first(file.size() - 200)), DecodeError) << isAvif;
    }
}

TEST(OpenImage, GivesTheReasonIfThereIsNoImage) {
    for (const QByteArray& bytes : {QByteArray(), QByteArray("a text"), QByteArray(100, '\0')}) {
        try {
            openImage(bytes);
            ADD_FAILURE() << "opened";
        } catch (const DecodeError& error) {
            EXPECT_EQ(error.problem(), DecodeProblem::notAnImage);
        }
    }
}

TEST(OpenImage, NeedsTheBytesNoLonger) {
    for (const Format& format : formats()) {
        QByteArray bytes = format.file();
        const std::vector<std::uint8_t> whole = bytesOf(decodeImage(bytes));
        const std::unique_ptr<RowReader> reader = openImage(bytes);
        bytes.fill('\0');
        EXPECT_TRUE(sameBytes(whole, bytesOf(readImage(*reader)))) << format.name;
    }
}

}  // namespace
