// rewrite_png IN OUT [SAMPLES]: writes a picture with libpng and its default settings, with 1, 3 or 4 samples
// per pixel.

#include "engine/texture_processor.h"
#include "imaging/pixels/pixel_image.h"
#include "libpng_writer.h"
#include "model/texture_asset.h"

#include <QFile>

#include <cstdio>
#include <span>

using namespace quarlin;

int main(int argc, char** argv) {
    const std::span arguments(argv, static_cast<std::size_t>(argc));
    if (argc < 3) {
        std::fputs("usage: rewrite_png IN OUT [SAMPLES]\n", stderr);
        return 2;
    }
    const QUrl input = QUrl::fromLocalFile(QString::fromLocal8Bit(arguments[1]));
    const TextureProcessor processor{};
    const TextureAsset asset = processor.loadAsset(input);
    const PixelImage image = processor.renderImage(asset, asset.pixelWidth, asset.pixelHeight);
    const QByteArray written = bench::writtenByLibpng(image, argc > 3 ? QByteArray(arguments[3]).toInt() : 4);
    QFile file(QString::fromLocal8Bit(arguments[2]));
    return file.open(QIODevice::WriteOnly) && file.write(written) == written.size() ? 0 : 1;
}
