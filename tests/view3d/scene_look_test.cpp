#include "view3d/scene/scene_look.h"

#include <gtest/gtest.h>

#include <ostream>

using namespace quarlin;

namespace {

void expectNear(const QVector3D& found, const QVector3D& expected) {
    EXPECT_LT((found - expected).length(), 1e-5F)
        << found.x() << ", " << found.y() << ", " << found.z() << " instead of " << expected.x() << ", "
        << expected.y() << ", " << expected.z();
}

TEST(SceneLook, StartsInFrontOfTheMaterialWithTheLampAtTheUpperRight) {
    const SceneLook look;
    EXPECT_GT(cameraPosition(look).z(), 4);
    const QVector3D lamp = directionToLamp(look);
    EXPECT_GT(lamp.x(), 0.1F);
    EXPECT_GT(lamp.y(), 0.1F);
    EXPECT_GT(lamp.z(), 0.1F);
}

TEST(SceneLook, AnglesCountFromTheFrontToTheRightAndUp) {
    expectNear(directionAt(0, 0), {0, 0, 1});
    expectNear(directionAt(90, 0), {1, 0, 0});
    expectNear(directionAt(-90, 0), {-1, 0, 0});
    expectNear(directionAt(180, 0), {0, 0, -1});
    expectNear(directionAt(0, 90), {0, 1, 0});
    expectNear(directionAt(123, -90), {0, -1, 0});
}

TEST(SceneLook, TheCameraKeepsItsDistance) {
    SceneLook look;
    look.side = 33;
    look.elevation = -40;
    look.distance = 7;
    EXPECT_NEAR(cameraPosition(look).length(), 7, 1e-5);
}

TEST(SceneLook, AnglesWrapAround) {
    EXPECT_DOUBLE_EQ(wrappedAngle(10), 10);
    EXPECT_DOUBLE_EQ(wrappedAngle(190), -170);
    EXPECT_DOUBLE_EQ(wrappedAngle(-190), 170);
    EXPECT_DOUBLE_EQ(wrappedAngle(725), 5);
}

}  // namespace
