// draw_photograph SIZE RAW PNG [quick]: writes the test picture as raw RGBA bytes and as an RGBA PNG, by
// libpng or, with `quick`, by the engine.

#include "engine/texture_processor.h"
#include "imaging/pixels/pixel_image.h"
#include "libpng_writer.h"
#include "photograph.h"

#include <QFile>
#include <QUrl>

#include <cstdio>
#include <span>
#include <string_view>

using namespace quarlin;

namespace {

void write(const QByteArray& bytes, const QString& path) {
    QFile file(path);
    if (!file.open(QIODevice::WriteOnly) || file.write(bytes) != bytes.size()) {
        qFatal("cannot write %s", qPrintable(path));
    }
}

}  // namespace

int main(int argc, char** argv) {
    const std::span arguments(argv, static_cast<std::size_t>(argc));
    if (argc < 4) {
        std::fputs("usage: draw_photograph SIZE RAW PNG [quick]\n", stderr);
        return 2;
    }
    const PixelImage image = bench::photograph(QByteArray(arguments[1]).toLongLong());
    write(QByteArray(reinterpret_cast<const char*>(image.pixels.data()),
                     static_cast<qsizetype>(image.pixels.size())),
          QString::fromLocal8Bit(arguments[2]));
    const QString png = QString::fromLocal8Bit(arguments[3]);
    if (argc > 4 && std::string_view(arguments[4]) == "quick") {
        TextureProcessor().writePNG(image, QUrl::fromLocalFile(png));
    } else {
        write(bench::writtenByLibpng(image, bytesPerPixel), png);
    }
    return 0;
}
