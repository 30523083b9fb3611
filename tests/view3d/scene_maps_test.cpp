// Which value of which map is seen where.

#include "scene_fixture.h"

#include <QQuickWidget>
#include <QQuickWindow>

using namespace quarlin;
using namespace quarlin::fixtures;

namespace {

/// The maps upright on the plane, without light. The plane covers the middle of the picture, about three
/// quarters of its width.
class SceneMapsOnThePlane : public SceneFixture {
protected:
    SceneMapsOnThePlane() { look.shape = SceneShape::plane; }

    /// The places of the middles of the four quarters of the map on the screen.
    static constexpr double near = 0.33;
    static constexpr double far = 0.67;

    static QImage quarters(const QColor& upperLeft, const QColor& upperRight, const QColor& lowerLeft,
                           const QColor& lowerRight) {
        return paintedMap(64, [=](double x, double y) {
            return y < 0.5 ? (x < 0.5 ? upperLeft : upperRight) : (x < 0.5 ? lowerLeft : lowerRight);
        });
    }
    QImage corners = quarters({200, 10, 20}, {30, 210, 40}, {50, 60, 220}, {128, 129, 130});
};

TEST_F(SceneMapsOnThePlane, TheColorIsUprightAndUnchanged) {
    look.content = SceneContent::baseColor;
    const QImage picture = pictureOf({corners, {}, {}});
    expectColor(meanAt(picture, near, near), {200, 10, 20});
    expectColor(meanAt(picture, far, near), {30, 210, 40});
    expectColor(meanAt(picture, near, far), {50, 60, 220});
    expectColor(meanAt(picture, far, far), {128, 129, 130});
}

TEST_F(SceneMapsOnThePlane, TheNormalMapIsUprightAndUnchanged) {
    look.content = SceneContent::normal;
    const QImage picture = pictureOf({{}, {}, corners});
    expectColor(meanAt(picture, near, near), {200, 10, 20});
    expectColor(meanAt(picture, far, far), {128, 129, 130});
}

TEST_F(SceneMapsOnThePlane, OcclusionIsRedRoughnessGreenAndMetallicBlue) {
    const SceneMaps maps{{}, corners, {}};
    look.content = SceneContent::occlusion;
    expectColor(meanAt(pictureOf(maps), near, near), {200, 200, 200});
    look.content = SceneContent::roughness;
    expectColor(meanAt(pictureOf(maps), far, near), {210, 210, 210});
    look.content = SceneContent::metallic;
    expectColor(meanAt(pictureOf(maps), near, far), {220, 220, 220});
}

TEST_F(SceneMapsOnThePlane, AlphaHasNoEffect) {
    look.content = SceneContent::baseColor;
    expectColor(meanAt(pictureOf({plainMap({90, 120, 150, 128}), {}, {}}), 0.5, 0.5), {90, 120, 150});
}

TEST_F(SceneMapsOnThePlane, MissingMapsAreWhiteMattBareAndEven) {
    const std::array<std::pair<SceneContent, std::array<double, 3>>, 5> expected{{
        {SceneContent::baseColor, {255, 255, 255}},
        {SceneContent::occlusion, {255, 255, 255}},
        {SceneContent::roughness, {255, 255, 255}},
        {SceneContent::metallic, {0, 0, 0}},
        {SceneContent::normal, {128, 128, 255}},
    }};
    for (const auto& [content, color] : expected) {
        look.content = content;
        expectColor(meanAt(pictureOf({}), 0.5, 0.5), color);
    }
}

TEST_F(SceneMapsOnThePlane, TilingRepeatsTheMap) {
    look.content = SceneContent::baseColor;
    look.tiling = 2;
    const QImage picture = pictureOf({quarters(Qt::red, Qt::green, Qt::blue, Qt::white), {}, {}});
    // The upper left quarter of the plane now has the whole map.
    const double quarter = 0.085;
    expectColor(meanAt(picture, near - quarter, near - quarter), {255, 0, 0});
    expectColor(meanAt(picture, near + quarter, near - quarter), {0, 255, 0});
    expectColor(meanAt(picture, near - quarter, near + quarter), {0, 0, 255});
    expectColor(meanAt(picture, far - quarter, far - quarter), {255, 0, 0});
}

TEST_F(SceneMapsOnThePlane, ColorsAreMixedInLinearLight) {
    // Far away, black and white pixels become one gray: half of the light, not half of the byte.
    look.content = SceneContent::baseColor;
    look.tiling = tilingRange.highest;
    look.distance = distanceRange.highest;
    const QImage checks = paintedMap(512, [](double x, double y) {
        return (static_cast<int>(x * 512) + static_cast<int>(y * 512)) % 2 == 0 ? Qt::black : Qt::white;
    });
    expectColor(meanAt(pictureOf({checks, {}, {}}), 0.5, 0.5),
                {screenByte(0.5), screenByte(0.5), screenByte(0.5)}, 3);
}

TEST_F(SceneMapsOnThePlane, TheBackgroundIsWhatIsChosen) {
    look.windowColor = QColor(10, 20, 30);
    const std::array<std::pair<SceneBackdrop, std::array<double, 3>>, 3> expected{{
        {SceneBackdrop::window, {10, 20, 30}},
        {SceneBackdrop::black, {0, 0, 0}},
        {SceneBackdrop::white, {255, 255, 255}},
    }};
    for (const auto& [backdrop, color] : expected) {
        look.backdrop = backdrop;
        expectColor(meanAt(pictureOf({}), 0.03, 0.03), color);
    }
}

TEST_F(SceneMapsOnThePlane, EveryShapeShowsTheMap) {
    look.content = SceneContent::baseColor;
    for (const SceneShape shape : allCases<SceneShape>()) {
        look.shape = shape;
        const QImage picture = pictureOf({plainMap({10, 200, 90}), {}, {}});
        expectColor(meanAt(picture, 0.5, 0.5), {10, 200, 90});
        expectColor(meanAt(picture, 0.02, 0.02), {0, 0, 0});
    }
}

TEST_F(SceneMapsOnThePlane, LargeMapsAreUploadedOneForEachPicture) {
    const auto* widget = qobject_cast<QQuickWidget*>(scene->widget());
    ASSERT_NE(widget, nullptr);
    int pictures = 0;
    const QObject counting;
    QObject::connect(widget->quickWindow(), &QQuickWindow::afterRendering, &counting,
                     [&pictures] { ++pictures; });
    const QImage large = plainMap({10, 20, 30}).scaled(2048, 2048);
    scene->setMaps(texturesOf({large, large, large}));
    constexpr int longest = 30'000;
    EXPECT_TRUE(QTest::qWaitFor([&pictures] { return pictures == 3; }, longest)) << pictures;
}

TEST_F(SceneMapsOnThePlane, NewMapsReplaceThoseThatWait) {
    look.content = SceneContent::normal;
    const QImage large = plainMap({10, 20, 30}).scaled(2048, 2048);
    scene->setMaps(texturesOf({large, large, large}));
    expectColor(meanAt(pictureOf({{}, {}, plainMap({40, 50, 60})}), 0.5, 0.5), {40, 50, 60});
    settle();
    expectColor(meanAt(scene->picture(), 0.5, 0.5), {40, 50, 60});
}

}  // namespace
