// Which of the samples beyond the colors of a TIFF file is its alpha.

#include "raw_tiff_test.h"

using namespace quarlin;
using namespace quarlin::fixtures;

namespace {

constexpr int undeclared = 0;
constexpr int premultipliedAlpha = 1;
constexpr int straightAlpha = 2;

Rgba onlyPixel(const std::vector<std::uint64_t>& samples, const std::vector<int>& kinds) {
    RawTiff tiff(1, 1, static_cast<int>(samples.size()), 8);
    if (!kinds.empty()) {
        tiff.extraSamples(kinds);
    }
    return pixelOf(decodeImage(tiff.file(samples)), 0, 0);
}

TEST(TiffExtraSamples, ASingleOneIsAlphaEvenIfUndeclared) {
    EXPECT_EQ(onlyPixel({200, 100, 50, 128}, {}), (Rgba{100, 50, 25, 128}));
    EXPECT_EQ(onlyPixel({200, 100, 50, 128}, {undeclared}), (Rgba{100, 50, 25, 128}));
    EXPECT_EQ(onlyPixel({200, 100, 50, 128}, {straightAlpha}), (Rgba{100, 50, 25, 128}));
    EXPECT_EQ(onlyPixel({100, 50, 25, 128}, {premultipliedAlpha}), (Rgba{100, 50, 25, 128}));
    EXPECT_EQ(onlyPixel({200, 128}, {straightAlpha}), (Rgba{100, 100, 100, 128}));
}

TEST(TiffExtraSamples, OfSeveralTheFirstThatIsDeclaredAlphaCounts) {
    EXPECT_EQ(onlyPixel({200, 100, 50, 7, 128}, {undeclared, straightAlpha}), (Rgba{100, 50, 25, 128}));
    EXPECT_EQ(onlyPixel({200, 100, 50, 128, 7}, {straightAlpha, undeclared}), (Rgba{100, 50, 25, 128}));
    EXPECT_EQ(onlyPixel({200, 100, 50, 128, 7}, {straightAlpha, premultipliedAlpha}),
              (Rgba{100, 50, 25, 128}));
    EXPECT_EQ(onlyPixel({100, 50, 25, 9, 128, 7}, {undeclared, premultipliedAlpha, straightAlpha}),
              (Rgba{100, 50, 25, 128}));
}

TEST(TiffExtraSamples, OfSeveralWithoutADeclarationNoneCounts) {
    EXPECT_EQ(onlyPixel({200, 100, 50, 128, 7}, {undeclared, undeclared}), (Rgba{200, 100, 50, 255}));
    EXPECT_EQ(onlyPixel({200, 100, 50, 128, 7}, {}), (Rgba{200, 100, 50, 255}));
}

TEST(TiffExtraSamples, OfGrayFilesCountInTheSameWay) {
    // Three samples of a gray page: the photometric interpretation decides, not their number.
    RawTiff tiff(1, 1, 3, 8);
    tiff.photometric(1).extraSamples({undeclared, straightAlpha});
    EXPECT_EQ(pixelOf(decodeImage(tiff.file({200, 9, 128})), 0, 0), (Rgba{100, 100, 100, 128}));
}

TEST(TiffExtraSamples, OfSeparatePlanesCountInTheSameWay) {
    RawTiff tiff(2, 1, 5, 16);
    tiff.separatePlanes().extraSamples({undeclared, straightAlpha});
    const QImage image = decodeImage(tiff.file({65535, 0, 257, 5, 65535, 51400, 25700, 12850, 5, 128 * 257}));
    EXPECT_EQ(pixelOf(image, 0, 0), (Rgba{255, 0, 1, 255}));
    EXPECT_EQ(pixelOf(image, 1, 0), (Rgba{100, 50, 25, 128}));
}

TEST(TiffExtraSamples, ColorsThatAreMissingMakeTheFileRefused) {
    EXPECT_TRUE(isRefused(RawTiff(1, 1, 2, 8).photometric(2).file({1, 2})));
    EXPECT_TRUE(isRefused(RawTiff(1, 1, 3, 8).photometric(5).file({1, 2, 3})));
}

}  // namespace
