// Draws the sample textures: a brick wall with iron anchor plates, seamless both ways.
//   draw_brick_wall FOLDER
// The pictures are the same on every run.

#include "anchor_plate.h"
#include "brickwork.h"
#include "relief.h"

#include <QDir>
#include <QImage>

#include <algorithm>
#include <cmath>
#include <cstdio>
#include <vector>

using namespace quarlin::samples;

namespace {

std::size_t indexOf(int x, int y) {
    return static_cast<std::size_t>(y) * textureSize + static_cast<std::size_t>(x);
}

int byteOf(double value) { return static_cast<int>(std::lround(std::clamp(value, 0.0, 255.0))); }

/// A color picture of which `colorAt(index)` gives each pixel.
template <typename ColorAt>
QImage colorPicture(ColorAt colorAt) {
    QImage image(textureSize, textureSize, QImage::Format_RGB32);
    for (int y = 0; y < textureSize; ++y) {
        for (int x = 0; x < textureSize; ++x) {
            const Color color = colorAt(x, y);
            image.setPixel(x, y, qRgb(byteOf(color.red), byteOf(color.green), byteOf(color.blue)));
        }
    }
    return image;
}

/// A gray picture of values in 0...1.
template <typename ValueAt>
QImage grayPicture(ValueAt valueAt) {
    QImage image(textureSize, textureSize, QImage::Format_Grayscale8);
    for (int y = 0; y < textureSize; ++y) {
        for (int x = 0; x < textureSize; ++x) {
            image.scanLine(y)[x] = static_cast<uchar>(byteOf(255 * valueAt(indexOf(x, y))));
        }
    }
    return image;
}

/// For PNG the quality is the packing: 0 packs hardest.
bool save(const QImage& image, const QDir& folder, const QString& name, int quality = 0) {
    if (image.save(folder.filePath(QStringLiteral("brick_wall_") + name), nullptr, quality)) {
        return true;
    }
    std::fprintf(stderr, "could not write %s\n", qPrintable(name));
    return false;
}

}  // namespace

int main(int argumentCount, char* arguments[]) {
    if (argumentCount != 2) {
        std::fputs("usage: draw_brick_wall FOLDER\n", stderr);
        return 2;
    }
    std::vector<SurfacePoint> wall;
    Relief relief;
    for (int y = 0; y < textureSize; ++y) {
        for (int x = 0; x < textureSize; ++x) {
            wall.push_back(withAnchorPlates(brickworkAt(x, y), x, y));
            relief.push_back(wall.back().height);
        }
    }
    const std::vector<double> sky = skyOver(relief);

    const QImage baseColor = colorPicture([&](int x, int y) { return wall[indexOf(x, y)].color; });
    const QImage normal = colorPicture([&](int x, int y) {
        const Direction direction = directionAt(relief, x, y);
        return Color{127.5 + 127.5 * direction.x, 127.5 + 127.5 * direction.y, 127.5 + 127.5 * direction.z};
    });
    const QImage occlusion = grayPicture([&](std::size_t index) { return sky[index]; });
    const QImage gloss = grayPicture([&](std::size_t index) { return wall[index].gloss; });
    const QImage metallic = grayPicture([&](std::size_t index) { return wall[index].metallic; });

    const QDir folder(QString::fromLocal8Bit(arguments[1]));
    const bool saved = save(baseColor, folder, QStringLiteral("basecolor.jpg"), 92) &&
                       save(normal, folder, QStringLiteral("normal.png")) &&
                       save(occlusion, folder, QStringLiteral("occlusion.png")) &&
                       save(gloss, folder, QStringLiteral("gloss.png")) &&
                       save(metallic, folder, QStringLiteral("metallic.png"));
    return saved ? 0 : 1;
}
