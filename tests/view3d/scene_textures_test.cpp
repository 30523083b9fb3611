#include "view3d/scene/scene_textures.h"

#include <QtCore/qfloat16.h>
#include <QColor>

#include <gtest/gtest.h>

#include <cmath>
#include <cstring>

using namespace quarlin;

namespace {

QImage pixels(const QList<QColor>& colors, QImage::Format format = QImage::Format_RGBA8888) {
    QImage image(static_cast<int>(colors.size()), 1, format);
    for (int x = 0; x < image.width(); ++x) {
        image.setPixelColor(x, 0, colors[x]);
    }
    return image;
}

float half(const SceneTexture& texture, int index) {
    qfloat16 value;
    std::memcpy(&value, texture.pixels.constData() + index * static_cast<int>(sizeof(value)), sizeof(value));
    return value;
}

TEST(SceneTextures, ColorsAreLinearNumbers) {
    const SceneTexture color =
        texturesOf({pixels({QColor(0, 128, 255), QColor(10, 64, 200)}), {}, {}}).baseColor;
    EXPECT_EQ(color.size, QSize(2, 1));
    EXPECT_EQ(color.pixels.size(), 2 * 4 * 2);
    // A half-precision number has 11 significant bits.
    constexpr float tolerance = 1.0F / 2048;
    EXPECT_EQ(half(color, 0), 0);
    EXPECT_NEAR(half(color, 1), std::pow((128 / 255.0 + 0.055) / 1.055, 2.4), tolerance);
    EXPECT_EQ(half(color, 2), 1);
    EXPECT_NEAR(half(color, 4), 10 / 255.0 / 12.92, tolerance);
}

TEST(SceneTextures, OrmAndNormalKeepTheirBytes) {
    const QImage image = pixels({QColor(1, 2, 3, 4), QColor(250, 128, 0)});
    const SceneTextures textures = texturesOf({{}, image, image});
    const QByteArray bytes("\1\2\3\4\372\200\0\377", 8);
    EXPECT_EQ(textures.orm.pixels, bytes);
    EXPECT_EQ(textures.normal.pixels, bytes);
}

TEST(SceneTextures, TakeAnyFormat) {
    const QImage image = pixels({QColor(255, 0, 0), QColor(0, 0, 255)}, QImage::Format_RGB32);
    EXPECT_EQ(texturesOf({{}, {}, image}).normal.pixels, QByteArray("\377\0\0\377\0\0\377\377", 8));
}

TEST(SceneTextures, AMissingMapIsOnePixelWithoutEffect) {
    const SceneTextures textures = texturesOf({});
    for (int channel = 0; channel < 4; ++channel) {
        EXPECT_EQ(half(textures.baseColor, channel), 1);
    }
    EXPECT_EQ(textures.orm.size, QSize(1, 1));
    EXPECT_EQ(textures.orm.pixels, QByteArray("\377\377\0\377", 4));
    EXPECT_EQ(textures.normal.pixels, QByteArray("\200\200\377\377", 4));
    EXPECT_EQ(textures.bytes(), 16);
}

}  // namespace
