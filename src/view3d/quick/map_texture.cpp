#include "view3d/quick/map_texture.h"

#include <QtCore/qfloat16.h>
#include <QByteArray>
#include <QColor>

#include <algorithm>
#include <array>
#include <cmath>
#include <cstddef>

namespace quarlin {

namespace {

constexpr qsizetype channels = 4;

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

/// The pixels of `image`, which has four bytes each, without the padding of its rows.
QByteArray packedBytes(const QImage& image) {
    const qsizetype bytesPerRow = channels * image.width();
    QByteArray bytes(bytesPerRow * image.height(), Qt::Uninitialized);
    for (int y = 0; y < image.height(); ++y) {
        std::copy_n(image.constScanLine(y), bytesPerRow, bytes.data() + y * bytesPerRow);
    }
    return bytes;
}

QByteArray decoded(const QImage& image) {
    static const std::array<qfloat16, 256> linear = linearValues();
    QByteArray bytes(channels * image.width() * image.height() * static_cast<qsizetype>(sizeof(qfloat16)),
                     Qt::Uninitialized);
    auto* value = reinterpret_cast<qfloat16*>(bytes.data());
    for (int y = 0; y < image.height(); ++y) {
        const uchar* row = image.constScanLine(y);
        for (qsizetype offset = 0; offset < channels * image.width(); ++offset) {
            *value++ = linear[row[offset]];
        }
    }
    return bytes;
}

}  // namespace

MapTexture::MapTexture(MapValues values, const QColor& missing) : m_values(values), m_missing(missing) {
    setMap({});
}

void MapTexture::setMap(const QImage& map) {
    QImage image = map.convertToFormat(QImage::Format_RGBA8888);
    if (image.isNull()) {
        image = QImage(1, 1, QImage::Format_RGBA8888);
        image.fill(m_missing);
    }
    const bool isColor = m_values == MapValues::srgb;
    setSize(image.size());
    setFormat(isColor ? RGBA16F : RGBA8);
    setTextureData(isColor ? decoded(image) : packedBytes(image));
    update();
}

}  // namespace quarlin
