#pragma once

#include "view3d/scene/scene.h"
#include "view3d/window/scene_module.h"
#include "view_fixture.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <functional>

namespace quarlin::fixtures {

/// An image of `edge` x `edge` pixels; `at` gives the color at a place of it, 0...1 from the upper left
/// corner.
inline QImage paintedMap(int edge, const std::function<QColor(double x, double y)>& at) {
    QImage image(edge, edge, QImage::Format_RGBA8888);
    for (int y = 0; y < edge; ++y) {
        for (int x = 0; x < edge; ++x) {
            image.setPixelColor(x, y, at((x + 0.5) / edge, (y + 0.5) / edge));
        }
    }
    return image;
}

inline QImage plainMap(const QColor& color) {
    return paintedMap(1, [&](double, double) { return color; });
}

/// The picture of a scene, 400 x 400 pixels, drawn by OpenGL. The tests are skipped where there is none.
class SceneFixture : public testing::Test {
protected:
    static constexpr int edge = 400;

    SceneFixture() {
        SceneOrProblem made = loadScene(QStringLiteral(QUARLIN_SCENE_MODULE));
        scene = std::move(made.scene);
        problem = made.problem;
        look.backdrop = SceneBackdrop::black;
        look.elevation = 0;
    }

    void SetUp() override {
        if (!scene && problem.contains(u"OpenGL"_s)) {
            GTEST_SKIP() << problem.toStdString();
        }
        ASSERT_TRUE(scene) << problem.toStdString();
        scene->widget()->resize(edge, edge);
        scene->widget()->show();
        settle();
    }

    /// What the scene looks like with these maps.
    QImage pictureOf(const SceneMaps& maps) {
        scene->setMaps(texturesOf(maps));
        scene->setLook(look);
        // The first picture uploads what has changed.
        scene->picture();
        return scene->picture().convertToFormat(QImage::Format_RGB32);
    }

    /// The mean of the middle 8 x 8 pixels around a place of the picture, 0...1 from the upper left corner.
    static std::array<double, 3> meanAt(const QImage& picture, double x, double y, int reach = 4) {
        std::array<double, 3> sum{};
        const int left = static_cast<int>(x * picture.width());
        const int top = static_cast<int>(y * picture.height());
        for (int row = top - reach; row < top + reach; ++row) {
            for (int column = left - reach; column < left + reach; ++column) {
                const QRgb pixel = picture.pixel(column, row);
                sum[0] += qRed(pixel);
                sum[1] += qGreen(pixel);
                sum[2] += qBlue(pixel);
            }
        }
        for (double& channel : sum) {
            channel /= 4.0 * reach * reach;
        }
        return sum;
    }

    static double brightnessAt(const QImage& picture, double x, double y, int reach = 4) {
        const auto mean = meanAt(picture, x, y, reach);
        return (mean[0] + mean[1] + mean[2]) / 3;
    }

    static void expectColor(const std::array<double, 3>& found, const std::array<double, 3>& expected,
                            double tolerance = 1.5) {
        for (std::size_t channel = 0; channel < found.size(); ++channel) {
            EXPECT_NEAR(found[channel], expected[channel], tolerance) << "channel " << channel;
        }
    }

    /// A number of linear light as a byte of the screen.
    static double screenByte(double light) {
        return 255 * (light <= 0.0031308 ? 12.92 * light : 1.055 * std::pow(light, 1 / 2.4) - 0.055);
    }
    static double lightOfByte(double byte) {
        const double value = byte / 255;
        return value <= 0.04045 ? value / 12.92 : std::pow((value + 0.055) / 1.055, 2.4);
    }

    std::unique_ptr<Scene> scene;
    QString problem;
    SceneLook look;
};

}  // namespace quarlin::fixtures
