// How materials look in light, with materials made for it.

#include "scene_fixture.h"
#include "view3d/environment/studio.h"

#include <numbers>

using namespace quarlin;
using namespace quarlin::fixtures;

namespace {

constexpr double pi = std::numbers::pi;
/// What a white matt surface that faces the lamp reflects of its light.
constexpr double lampBrightness = 0.75;

/// An ORM map with the same values everywhere.
QImage ormMap(int occlusion, int roughness, int metallic) {
    return plainMap({occlusion, roughness, metallic});
}

/// A normal map of a round bump in the middle, with green up; `up` is -1 for green down.
QImage bump(double up = 1) {
    return paintedMap(256, [up](double x, double y) {
        const double right = (x - 0.5) / 0.35;
        const double above = (0.5 - y) / 0.35;
        const double out = right * right + above * above;
        if (out >= 1) {
            return QColor(128, 128, 255);
        }
        const auto byte = [](double part) { return static_cast<int>(std::lround((part / 2 + 0.5) * 255)); };
        return QColor(byte(right * 0.8), byte(up * above * 0.8), byte(std::sqrt(1 - 0.64 * out)));
    });
}

/// The plane seen from the front. The bump is in its middle; `above` and `below` are places on it.
class SceneLight : public SceneFixture {
protected:
    SceneLight() {
        look.shape = SceneShape::plane;
        look.lampSide = 0;
        look.lampHeight = 0;
    }

    static constexpr double above = 0.38;
    static constexpr double below = 0.62;

    /// The lamp's light that a plane reflects which faces the lamp and the camera, by glTF's formulas with
    /// normal, view, light and half vector all the same: a cosine of 1 everywhere.
    static double facingLamp(double color, double roughness, double metallic) {
        const double normalIncidence = 0.04 + (color - 0.04) * metallic;
        const double matt = color * (1 - metallic);
        const double alpha = roughness * roughness;
        // D = a^2 / (pi * a^4), V = 0.5 / (1 + 1), F = the reflectance at normal incidence.
        const double shine = normalIncidence / (pi * alpha * alpha) * 0.25;
        return ((1 - normalIncidence) * matt / pi + shine) * lampBrightness * pi;
    }
};

TEST_F(SceneLight, FromAboveMakesABumpBrightAbove) {
    look.lampHeight = 60;
    const SceneMaps maps{plainMap(Qt::gray), ormMap(0, 255, 0), bump()};
    const QImage picture = pictureOf(maps);
    EXPECT_GT(brightnessAt(picture, 0.5, above), brightnessAt(picture, 0.5, below) + 40);
    look.lampHeight = -60;
    const QImage fromBelow = pictureOf(maps);
    EXPECT_LT(brightnessAt(fromBelow, 0.5, above), brightnessAt(fromBelow, 0.5, below) - 40);
}

TEST_F(SceneLight, OfTheStudioMakesABumpBrightAboveAsWell) {
    look.lampSide = 180;
    const QImage picture = pictureOf({plainMap(Qt::gray), ormMap(255, 255, 0), bump()});
    EXPECT_GT(brightnessAt(picture, 0.5, above), brightnessAt(picture, 0.5, below) + 20);
}

TEST_F(SceneLight, FromTheRightMakesABumpBrightAtTheRight) {
    look.lampSide = 60;
    const QImage picture = pictureOf({plainMap(Qt::gray), ormMap(0, 255, 0), bump()});
    EXPECT_GT(brightnessAt(picture, below, 0.5), brightnessAt(picture, above, 0.5) + 40);
}

TEST_F(SceneLight, AMapWithGreenDownLooksLikeADent) {
    look.lampHeight = 60;
    const QImage picture = pictureOf({plainMap(Qt::gray), ormMap(0, 255, 0), bump(-1)});
    EXPECT_LT(brightnessAt(picture, 0.5, above), brightnessAt(picture, 0.5, below) - 40);
}

TEST_F(SceneLight, ABumpIsBrightAboveOnEveryShape) {
    look.lampHeight = 60;
    for (const SceneShape shape : {SceneShape::cube, SceneShape::plane}) {
        look.shape = shape;
        const QImage picture = pictureOf({plainMap(Qt::gray), ormMap(0, 255, 0), bump()});
        EXPECT_GT(brightnessAt(picture, 0.5, 0.42), brightnessAt(picture, 0.5, 0.58) + 30)
            << rawValue(shape).toStdString();
    }
    // The picture goes around these twice: the camera looks at the middle of the right one.
    look.side = 90;
    look.lampSide = 90;
    for (const SceneShape shape : {SceneShape::sphere, SceneShape::cylinder}) {
        look.shape = shape;
        const QImage bumped = pictureOf({plainMap(Qt::gray), ormMap(0, 255, 0), bump()});
        const QImage even = pictureOf({plainMap(Qt::gray), ormMap(0, 255, 0), {}});
        EXPECT_GT(brightnessAt(bumped, 0.5, 0.42), brightnessAt(even, 0.5, 0.42) + 4)
            << rawValue(shape).toStdString();
        EXPECT_LT(brightnessAt(bumped, 0.5, 0.58), brightnessAt(even, 0.5, 0.58) - 4)
            << rawValue(shape).toStdString();
    }
}

TEST_F(SceneLight, OfTheLampIsReflectedAsGltfDefinesIt) {
    // Without occlusion the studio has no part in it.
    for (const auto& [roughness, metallic] : {std::pair(255, 0), std::pair(255, 255), std::pair(204, 128)}) {
        const QImage picture = pictureOf({plainMap({128, 64, 32}), ormMap(0, roughness, metallic), {}});
        std::array<double, 3> expected{};
        for (std::size_t channel = 0; channel < expected.size(); ++channel) {
            const std::array<double, 3> bytes{128, 64, 32};
            expected[channel] =
                screenByte(facingLamp(lightOfByte(bytes[channel]), roughness / 255.0, metallic / 255.0));
        }
        expectColor(meanAt(picture, 0.5, 0.5, 1), expected, 2);
    }
}

TEST_F(SceneLight, OcclusionTakesTheLightOfTheStudioOnly) {
    look.lampSide = 180;
    expectColor(meanAt(pictureOf({{}, ormMap(0, 255, 0), {}}), 0.5, 0.5), {0, 0, 0});
    EXPECT_GT(brightnessAt(pictureOf({{}, ormMap(255, 255, 0), {}}), 0.5, 0.5), 100);
    look.lampSide = 0;
    EXPECT_GT(brightnessAt(pictureOf({{}, ormMap(0, 255, 0), {}}), 0.5, 0.5), 100);
}

TEST_F(SceneLight, AStopOfExposureDoublesTheLight) {
    const SceneMaps maps{plainMap(QColor(60, 60, 60)), ormMap(0, 255, 0), {}};
    const double once = lightOfByte(brightnessAt(pictureOf(maps), 0.5, 0.5));
    look.exposure = 1;
    EXPECT_NEAR(lightOfByte(brightnessAt(pictureOf(maps), 0.5, 0.5)), 2 * once, 0.004);
    look.exposure = -1;
    EXPECT_NEAR(lightOfByte(brightnessAt(pictureOf(maps), 0.5, 0.5)), once / 2, 0.002);
}

TEST_F(SceneLight, ABareMetalMirrorsTheStudio) {
    // The camera looks down at the plane, which mirrors the studio below it and behind the camera.
    look.lampSide = 180;
    look.exposure = 0;
    for (const auto& [side, elevation] :
         {std::pair(0.0, 0.0), std::pair(30.0, 20.0), std::pair(-40.0, -35.0)}) {
        look.side = side;
        look.elevation = elevation;
        const QVector3D towardsCamera = cameraPosition(look).normalized();
        const QVector3D mirrored(-towardsCamera.x(), -towardsCamera.y(), towardsCamera.z());
        const QVector3D light = studioLight(mirrored);
        ASSERT_LT(light.x(), 0.8F) << "the screen does not show brighter light as it is";
        expectColor(meanAt(pictureOf({{}, ormMap(255, 0, 255), {}}), 0.5, 0.5, 1),
                    {screenByte(light.x()), screenByte(light.y()), screenByte(light.z())}, 4);
    }
}

TEST_F(SceneLight, ABareMetalShowsTheBrightPanelAndPlasticHardlyAnything) {
    look.lampSide = 180;
    look.shape = SceneShape::sphere;
    const auto brightPixels = [](const QImage& picture) {
        int count = 0;
        for (int y = 0; y < picture.height(); ++y) {
            for (int x = 0; x < picture.width(); ++x) {
                count += qGreen(picture.pixel(x, y)) > 230 ? 1 : 0;
            }
        }
        return count;
    };
    const int metal = brightPixels(pictureOf({{}, ormMap(255, 0, 255), {}}));
    const int plastic = brightPixels(pictureOf({plainMap(Qt::black), ormMap(255, 0, 0), {}}));
    EXPECT_GT(metal, edge * edge / 100);
    EXPECT_LT(plastic, metal / 10);
}

TEST_F(SceneLight, ASmoothSurfaceHasASmallHighlightAndARoughOneAWideOne) {
    look.shape = SceneShape::sphere;
    look.lampSide = 30;
    look.lampHeight = 30;
    // The area of the picture that is at least half as bright as its brightest pixel.
    const auto highlight = [&](int roughness) {
        const QImage picture = pictureOf({plainMap(Qt::black), ormMap(0, roughness, 0), {}});
        double most = 0;
        for (int y = 0; y < edge; ++y) {
            for (int x = 0; x < edge; ++x) {
                most = std::max(most, lightOfByte(qGreen(picture.pixel(x, y))));
            }
        }
        int count = 0;
        for (int y = 0; y < edge; ++y) {
            for (int x = 0; x < edge; ++x) {
                count += lightOfByte(qGreen(picture.pixel(x, y))) >= most / 2 ? 1 : 0;
            }
        }
        EXPECT_GT(most, 0.001) << roughness;
        return count;
    };
    const int smooth = highlight(0);
    const int middle = highlight(100);
    const int rough = highlight(200);
    EXPECT_GT(smooth, 0);
    EXPECT_LT(smooth, edge * edge / 500);
    EXPECT_GT(middle, 4 * smooth);
    EXPECT_GT(rough, 2 * middle);
}

}  // namespace
