#include "check/image_header.h"

#include "png_files.h"
#include "temporary_folder.h"

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

using namespace quarlin;

namespace {

class ImageHeader : public testing::Test {
protected:
    const fixtures::TemporaryFolder folder;

    QByteArray pngOf(int colorType, int bitDepth, std::size_t samplesPerPixel) const {
        fixtures::PngForm form;
        form.colorType = colorType;
        form.bitDepth = bitDepth;
        const QUrl file = folder.url(u"image.png"_s);
        fixtures::writePngSamples(file, 3, 2, std::vector<std::uint16_t>(3 * 2 * samplesPerPixel), form);
        return fixtures::readFile(file);
    }
};

TEST_F(ImageHeader, GivesSizeDepthAndColorOfAPng) {
    const auto header = readPngHeader(pngOf(2, 16, 3));
    ASSERT_TRUE(header);
    EXPECT_EQ(header->width, 3);
    EXPECT_EQ(header->height, 2);
    EXPECT_EQ(header->bitDepth, 16);
    EXPECT_EQ(header->color, PngColor::rgb);
    EXPECT_EQ(readPngHeader(pngOf(0, 4, 1))->color, PngColor::gray);
}

TEST_F(ImageHeader, IsMissingWithoutAPng) {
    const QByteArray png = pngOf(6, 8, 4);
    for (qsizetype size = 0; size < 26; ++size) {
        EXPECT_FALSE(readPngHeader(png.left(size))) << size;
    }
    EXPECT_TRUE(readPngHeader(png.left(26)));
    EXPECT_FALSE(readPngHeader(QByteArray(100, 'x')));
}

TEST_F(ImageHeader, FormatIsDeterminedByTheFirstBytes) {
    EXPECT_EQ(imageFormat(pngOf(6, 8, 4)), ImageFormat::png);
    EXPECT_EQ(imageFormat(QByteArray("\xFF\xD8\xFF\xE0", 4)), ImageFormat::jpeg);
    EXPECT_EQ(imageFormat("GIF89a"), ImageFormat::other);
    EXPECT_EQ(imageFormat({}), ImageFormat::other);
}

}  // namespace
