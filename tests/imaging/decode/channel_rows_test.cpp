#include "imaging/decode/channel_rows.h"

#include "bmp_files.h"
#include "imaging/decode/decode_error.h"
#include "imaging/decode/image_decoder.h"
#include "picture.h"
#include "png_files.h"
#include "temporary_folder.h"

#include <gtest/gtest.h>

using namespace quarlin;
using namespace quarlin::fixtures;

namespace {

/// The samples of a channel of a file, and whether every pixel is opaque gray.
std::vector<std::uint8_t> samplesOf(const QByteArray& file, int channel) {
    const QImage image = readImage(*channelRows(openImage(file), channel));
    std::vector<std::uint8_t> samples;
    const std::uint8_t* pixel = image.constBits();
    for (qsizetype index = 0; index < image.sizeInBytes() / 4; ++index, pixel += 4) {
        EXPECT_EQ(pixel[0], pixel[1]);
        EXPECT_EQ(pixel[0], pixel[2]);
        EXPECT_EQ(pixel[3], 255);
        samples.push_back(pixel[0]);
    }
    return samples;
}

std::vector<std::uint8_t> samplesOf(const Picture& picture, int channel) {
    std::vector<std::uint8_t> samples;
    for (std::size_t at = static_cast<std::size_t>(channel); at < picture.bytes.size(); at += 4) {
        samples.push_back(picture.bytes[at]);
    }
    return samples;
}

QByteArray pngOf(const Picture& picture) {
    const TemporaryFolder folder;
    writePng(folder.url(QStringLiteral("a.png")), picture);
    return readFile(folder.url(QStringLiteral("a.png")));
}

TEST(ChannelRows, AreTheSamplesOfAPngEvenWhereItIsTransparent) {
    const Picture picture = noisePicture(31, 17, 3, true);
    for (int channel = 0; channel < 4; ++channel) {
        EXPECT_EQ(samplesOf(pngOf(picture), channel), samplesOf(picture, channel)) << channel;
    }
}

TEST(ChannelRows, AreTheSamplesOfAnyOpaqueImage) {
    const Picture picture = noisePicture(31, 17, 4);
    for (int channel = 0; channel < 4; ++channel) {
        EXPECT_EQ(samplesOf(bmp24(picture), channel), samplesOf(picture, channel)) << channel;
    }
}

TEST(ChannelRows, RefuseColorsThatAreMultipliedByTheirAlpha) {
    const QByteArray file = bmp32WithAlpha(noisePicture(8, 8, 5, true));
    EXPECT_THROW(samplesOf(file, 0), DecodeError);
    EXPECT_EQ(samplesOf(file, 3), samplesOf(noisePicture(8, 8, 5, true), 3));
}

}  // namespace
