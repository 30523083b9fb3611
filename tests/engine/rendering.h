#pragma once

#include "byte_comparison.h"
#include "texture_processor.h"

#include <QByteArray>
#include <QUrl>

namespace quarlin {

/// The file as the engine renders it at its own size, which it must also show as the decoded image.
inline PixelImage rendered(const QUrl& file) {
    const TextureProcessor processor{};
    const QImage decoded = processor.loadCGImage(file);
    PixelImage image = processor.renderImage(file, decoded.width(), decoded.height());
    EXPECT_TRUE(sameBytes(bytesOf(decoded), image.pixels)) << "decoded and rendered differ";
    return image;
}

/// Whether the file renders at its own size to the picture, premultiplied, to the byte.
inline testing::AssertionResult rendersAs(const fixtures::Picture& expected, const QUrl& file,
                                          int tolerance = 0) {
    const PixelImage image = rendered(file);
    if (image.width != expected.width || image.height != expected.height) {
        return testing::AssertionFailure() << "size " << image.width << 'x' << image.height;
    }
    return nearlySameBytes(fixtures::premultiplied(expected), image.pixels, tolerance);
}

}  // namespace quarlin
