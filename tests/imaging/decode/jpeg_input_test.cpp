// JPEG files that are unusual, or that lack what their picture does not need.

#include "decoded_image.h"
#include "jpeg_files.h"

#include <random>

using namespace quarlin;
using namespace quarlin::fixtures;

namespace {

class JpegInput : public testing::TestWithParam<bool> {
protected:
    static QByteArray jpeg() {
        JpegForm form;
        form.progressive = GetParam();
        return colorJpeg(noisePicture(64, 48, 1), form);
    }
    const QByteArray whole = jpeg();
    const QImage picture = decodeImage(whole);
};

TEST_P(JpegInput, IsReadWithoutItsEndMarker) {
    ASSERT_TRUE(whole.endsWith("\xff\xd9"));
    EXPECT_EQ(decodeImage(whole.chopped(2)), picture);
    EXPECT_EQ(decodeImage(whole.chopped(1)), picture);
    // Zeros in its place belong to no code.
    EXPECT_EQ(decodeImage(whole.chopped(2) + QByteArray(40, '\0')), picture);
}

TEST_P(JpegInput, IsRefusedAsSoonAsACodeIsMissing) {
    for (qsizetype missing = 3; missing < 40; ++missing) {
        EXPECT_TRUE(isRefused(whole.chopped(missing))) << missing;
        EXPECT_TRUE(isRefused(whole.chopped(missing) + "\xff\xd9")) << missing;
    }
}

TEST_P(JpegInput, IsRefusedWithoutOneOfItsScans) {
    // A file that ends right before a scan has no damaged code.
    qsizetype scan = whole.indexOf("\xff\xda");
    for (; scan > 0; scan = whole.indexOf("\xff\xda", scan + 2)) {
        EXPECT_TRUE(isRefused(whole.first(scan))) << scan;
    }
    if (GetParam()) {
        EXPECT_GT(whole.count("\xff\xda"), 5);
    }
}

TEST_P(JpegInput, IsReadWhateverItsMetadataHold) {
    std::mt19937_64 random(3);
    for (int count = 0; count < 30; ++count) {
        QByteArray exif("Exif\0\0", 6);
        exif += count % 2 == 0 ? QByteArray("II*\0\x08\0\0\0", 8) : QByteArray();
        for (int byte = 0; byte < 90; ++byte) {
            exif.append(static_cast<char>(random()));
        }
        const auto size = static_cast<char>(exif.size() + 2);
        QByteArray file = whole;
        file.insert(2, QByteArray("\xff\xe1\0", 3) + size + exif);
        EXPECT_EQ(decodeImage(file), picture) << count;
    }
}

INSTANTIATE_TEST_SUITE_P(Scans, JpegInput, testing::Bool(),
                         [](const auto& instance) { return instance.param ? "Progressive" : "Baseline"; });

TEST(JpegScan, WithUnusualParametersIsRead) {
    const QByteArray whole = colorJpeg(noisePicture(64, 48, 1));
    const QImage picture = decodeImage(whole);
    // A scan that is not progressive has no use for the last three bytes of its header, which should be 0,
    // 63, 0.
    const qsizetype header = whole.indexOf("\xff\xda");
    const qsizetype parameters = header + 2 + whole[header + 3] - 3;
    ASSERT_EQ(whole.mid(parameters, 3), QByteArray("\0\x3f\0", 3));
    for (const QByteArray& unusual :
         {QByteArray("\0\0\0", 3), QByteArray("\1\x3f\0", 3), QByteArray("\0\x3f\x11", 3)}) {
        QByteArray file = whole;
        file.replace(parameters, 3, unusual);
        EXPECT_EQ(decodeImage(file), picture);
    }
}

}  // namespace
