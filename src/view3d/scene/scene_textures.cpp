#include "view3d/scene/scene_textures.h"

#include <QtCore/qfloat16.h>
#include <QColor>

#include <algorithm>
#include <array>
#include <cmath>
#include <cstddef>

namespace quarlin {

namespace {

constexpr qsizetype channels = 4;

// What a material without these maps has: a white color; no occlusion, full roughness, no metal; an even
// surface.
constexpr QRgb noColor = qRgb(255, 255, 255);
constexpr QRgb noOrm = qRgb(255, 255, 0);
constexpr QRgb noNormal = qRgb(128, 128, 255);

double fromSrgb(double value) {
    return value <= 0.04045 ? value / 12.92 : std::pow((value + 0.055) / 1.055, 2.4);
}

/// The linear value of each byte.
std::array<qfloat16, 256> linearValues() {
    std::array<qfloat16, 256> values;
    for (std::size_t byte = 0; byte < values.size(); ++byte) {
        values[byte] = qfloat16(static_cast<float>(fromSrgb(static_cast<double>(byte) / 255)));
    }
    return values;
}

/// `map` with four bytes for each pixel; one pixel of `missing` if it is null.
QImage wholeMap(const QImage& map, QRgb missing) {
    if (!map.isNull()) {
        return map.convertToFormat(QImage::Format_RGBA8888);
    }
    QImage pixel(1, 1, QImage::Format_RGBA8888);
    pixel.fill(QColor(missing));
    return pixel;
}

SceneTexture textureOfBytes(const QImage& image) {
    const qsizetype bytesPerRow = channels * image.width();
    SceneTexture texture{image.size(), QByteArray(bytesPerRow * image.height(), Qt::Uninitialized)};
    char* row = texture.pixels.data();
    for (int y = 0; y < image.height(); ++y, row += bytesPerRow) {
        std::copy_n(image.constScanLine(y), bytesPerRow, row);
    }
    return texture;
}

SceneTexture textureOfColors(const QImage& image) {
    static const std::array<qfloat16, 256> linear = linearValues();
    const qsizetype valuesPerRow = channels * image.width();
    const qsizetype bytes = valuesPerRow * image.height() * static_cast<qsizetype>(sizeof(qfloat16));
    SceneTexture texture{image.size(), QByteArray(bytes, Qt::Uninitialized)};
    auto* value = reinterpret_cast<qfloat16*>(texture.pixels.data());
    for (int y = 0; y < image.height(); ++y) {
        const uchar* row = image.constScanLine(y);
        value = std::transform(row, row + valuesPerRow, value, [](uchar byte) { return linear[byte]; });
    }
    return texture;
}

}  // namespace

SceneTextures texturesOf(const SceneMaps& maps) {
    return {textureOfColors(wholeMap(maps.baseColor, noColor)), textureOfBytes(wholeMap(maps.orm, noOrm)),
            textureOfBytes(wholeMap(maps.normal, noNormal))};
}

}  // namespace quarlin
