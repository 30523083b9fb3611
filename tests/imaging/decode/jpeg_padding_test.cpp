// Bytes of a JPEG that belong to no part of its picture, and damage that looks like them.

#include "imaging/decode/formats/jpeg_padding.h"

#include "engine/base/texture_processor_error.h"
#include "engine/texture_processor.h"
#include "engine_errors.h"
#include "imaging/pixels/pixel_image.h"
#include "jpeg_files.h"
#include "rendering.h"
#include "temporary_folder.h"

#include <gtest/gtest.h>
#include <QImage>

using namespace Qt::StringLiterals;

using namespace quarlin;
using namespace quarlin::fixtures;

namespace {

/// A file without the bytes that may not belong to it.
struct CutFile {
    QByteArray clean;
    QByteArray withoutZeros;
};

CutFile cutFile(const QByteArray& bytes) {
    const std::shared_ptr<ByteSource> source = bytesInMemory(bytes);
    const auto joined = [&](const std::vector<ByteRange>& ranges) {
        QByteArray all;
        for (const ByteRange& range : ranges) {
            all += source->part(range.offset, range.count);
        }
        return all;
    };
    const JpegParts parts = jpegParts(*source);
    return {joined(parts.clean), joined(parts.withoutZeros)};
}

class JpegPadding : public testing::TestWithParam<bool> {
protected:
    static QByteArray jpeg() {
        JpegForm form;
        form.progressive = GetParam();
        return colorJpeg(noisePicture(64, 64, 1), form);
    }
    void expectSamePicture(const QByteArray& padded) const {
        writeFile(file, whole);
        const PixelImage image = rendered(file);
        writeFile(file, padded);
        EXPECT_EQ(rendered(file), image);
    }
    void expectRefused(const QByteArray& bytes) const {
        writeFile(file, bytes);
        EXPECT_EQ(errorOf([&] { return TextureProcessor().loadCGImage(file); }),
                  TextureProcessorError::cannotReadImage(file));
    }

    const TemporaryFolder folder;
    const QUrl file = folder.url(u"a.jpg"_s);
    const QByteArray whole = jpeg();
    /// Where the scan ends and the end marker stands.
    const qsizetype end = whole.size() - 2;
    /// Where the first quantization table begins.
    const qsizetype firstTable = whole.indexOf("\xff\xdb");
};

TEST_P(JpegPadding, BetweenTheSegmentsOfTheHeaderDoesNoHarm) {
    for (const QByteArray& padding : {QByteArray("padding"), QByteArray(3, '\0'), QByteArray("\xff\0x", 3)}) {
        QByteArray padded = whole;
        padded.insert(firstTable, padding);
        expectSamePicture(padded);
    }
}

TEST_P(JpegPadding, OfZerosBehindTheScanDoesNoHarm) {
    for (const int length : {1, 2, 7, 500}) {
        QByteArray padded = whole;
        padded.insert(end, QByteArray(length, '\0'));
        expectSamePicture(padded);
    }
}

TEST_P(JpegPadding, InBothPlacesDoesNoHarm) {
    QByteArray padded = whole;
    padded.insert(end, QByteArray(10, '\0'));
    padded.insert(firstTable, "padding");
    expectSamePicture(padded + "and behind it all");
}

TEST_P(JpegPadding, IsNotWhatIsLeftOfAScanThatWasNeverWritten) {
    // The end of the file is there, and so is its size, but the last blocks hold zeros.
    for (const qsizetype length : {qsizetype{400}, whole.size() / 2}) {
        QByteArray broken = whole;
        broken.replace(end - length, length, QByteArray(length, '\0'));
        expectRefused(broken);
        broken.replace(end, 2, QByteArray(2, '\0'));
        expectRefused(broken);
    }
}

TEST_P(JpegPadding, IsNoReasonToMissAFlawInTheLastRows) {
    // The decoder fills what is missing, says so in a warning, and finds the end where it should be.
    for (const qsizetype length : {3, 10, 30, 100, 400, 1000}) {
        expectRefused(whole.first(end - length) + "\xff\xd9");
    }
}

TEST_P(JpegPadding, BehindAnAbsurdSizeIsNotLookedAt) {
    QByteArray absurd = whole;
    absurd.insert(end, QByteArray(10, '\0'));
    const qsizetype frame = absurd.indexOf(GetParam() ? "\xff\xc2" : "\xff\xc0");
    ASSERT_GT(frame, 0);
    // Height and width, behind the marker, the length and the sample depth.
    absurd.replace(frame + 5, 4, "\xff\xdc\xff\xdc");
    expectRefused(absurd);
}

TEST_P(JpegPadding, DoesNotRescueACutOffScan) {
    for (const qsizetype length : {whole.size() / 2, whole.size() - 400, whole.size() - 30}) {
        QByteArray padded = whole.first(length) + QByteArray(50, '\0');
        expectRefused(padded);
        expectRefused(padded + "\xff\xd9");
        padded.insert(firstTable, "padding");
        expectRefused(padded);
    }
}

TEST_P(JpegPadding, IsToldFromTheZerosThatAFlatPictureNeeds) {
    // White has codes of nothing but zeros where the one before was white.
    JpegForm form;
    form.progressive = GetParam();
    const Picture flat = drawnPicture(496, 320, [](int, int y) {
        return y < 8 ? Rgba{0, 90, 0, 255} : Rgba{255, 255, 255, 255};
    });
    const QByteArray bytes = colorJpeg(flat, form);
    writeFile(file, bytes);
    EXPECT_TRUE(rendersAs(readColorJpeg(bytes), file));
}

TEST_P(JpegPadding, IsFoundOnlyWhereThereIsSome) {
    const auto isClean = [](const QByteArray& bytes) {
        const CutFile cut = cutFile(bytes);
        return cut.clean == bytes && cut.withoutZeros == bytes;
    };
    EXPECT_TRUE(isClean(whole));
    EXPECT_TRUE(isClean(whole + QByteArray(100, '\0')));
    EXPECT_TRUE(isClean("no picture"));
    QByteArray padded = whole;
    padded.insert(end, QByteArray(10, '\0'));
    const QByteArray zeros = padded;
    EXPECT_EQ(cutFile(padded).clean, zeros);
    EXPECT_EQ(cutFile(padded).withoutZeros, whole);
    padded.insert(firstTable, "padding");
    EXPECT_EQ(cutFile(padded).clean, zeros);
    EXPECT_EQ(cutFile(padded).withoutZeros, whole);
}

TEST_P(JpegPadding, IsLookedForWithinTheBytes) {
    for (qsizetype length = 0; length < whole.size(); length += length < 700 ? 1 : 97) {
        const CutFile cut = cutFile(whole.first(length));
        EXPECT_LE(cut.clean.size(), length);
        EXPECT_LE(cut.withoutZeros.size(), cut.clean.size());
    }
}

INSTANTIATE_TEST_SUITE_P(Jpeg, JpegPadding, testing::Bool(),
                         [](const auto& instance) { return instance.param ? "Progressive" : "Baseline"; });

}  // namespace
