#include "engine/base/texture_processor_error.h"
#include "engine/texture_processor.h"
#include "engine_errors.h"
#include "imaging/pixels/pixel_image.h"
#include "picture.h"
#include "qstring_printing.h"
#include "rendering.h"

#include <gtest/gtest.h>
#include <QImage>

using namespace Qt::StringLiterals;

using namespace quarlin;
using namespace quarlin::fixtures;

namespace {

const QUrl anywhere = QUrl::fromLocalFile(u"/out/Brick_ORM.png"_s);

TEST(OnScreenImage, ShowsThePixels) {
    const TextureProcessor processor{};
    for (const auto& [width, height] : {std::pair{1, 1}, {3, 2}, {17, 31}, {64, 64}}) {
        const PixelImage image = pixelImage(noisePicture(width, height, 1, true));
        const QImage onScreen = processor.makeNSImage(image);
        EXPECT_EQ(onScreen.size(), QSize(width, height));
        EXPECT_TRUE(sameBytes(image.pixels, bytesOf(onScreen)));
        EXPECT_TRUE(sameBytes(image.pixels, bytesOf(processor.makeCGImage(image, anywhere))));
    }
}

TEST(OnScreenImage, OutlivesThePixelsItWasMadeFrom) {
    const TextureProcessor processor{};
    PixelImage image = pixelImage(noisePicture(40, 40, 2));
    const PixelImage before = image;
    const QImage onScreen = processor.makeNSImage(image);
    image.pixels.assign(image.pixels.size(), 0);
    image = {};
    EXPECT_TRUE(sameBytes(before.pixels, bytesOf(onScreen)));
}

TEST(OnScreenImage, AFailedPreviewIsNamedPreview) {
    const TextureProcessor processor{};
    for (const PixelImage& none : {PixelImage{}, PixelImage{2, 2, PixelBuffer(15)},
                                   PixelImage{-1, 2, PixelBuffer()}, PixelImage{0, 7, PixelBuffer()}}) {
        const auto error = errorOf([&] { return processor.makeNSImage(none); });
        ASSERT_TRUE(error);
        EXPECT_EQ(error->kind(), TextureProcessorError::Case::cannotCreatePNG);
        EXPECT_EQ(error->errorDescription(), u"Could not create PNG image: Preview.png"_s);
    }
}

TEST(OnScreenImage, AFailureNamesTheFileItIsFor) {
    const TextureProcessor processor{};
    EXPECT_EQ(errorOf([&] {
                  return processor.makeCGImage(PixelImage{2, 2, PixelBuffer(3)}, anywhere);
              }),
              TextureProcessorError::cannotCreatePNG(anywhere));
}

}  // namespace
