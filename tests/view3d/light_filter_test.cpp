#include "view3d/environment/light_filter.h"

#include "view3d/environment/light_atlas.h"
#include "view3d/environment/studio.h"

#include <gtest/gtest.h>

#include <algorithm>

using namespace quarlin;

namespace {

const QVector3D up(0, 1, 0);

QVector3D even(const QVector3D&) { return {1, 2, 3}; }
/// White above, black below.
QVector3D sky(const QVector3D& direction) { return direction.y() > 0 ? QVector3D(1, 1, 1) : QVector3D(); }

TEST(LightFilter, EvenLightStaysAsItIs) {
    for (const double roughness : {0.0, 0.3, 1.0}) {
        EXPECT_LT((reflectedLight(even, up, roughness) - QVector3D(1, 2, 3)).length(), 1e-4F) << roughness;
    }
    EXPECT_LT((mattLight(even, up) - QVector3D(1, 2, 3)).length(), 1e-4F);
}

TEST(LightFilter, AMirrorShowsOneDirection) {
    EXPECT_EQ(reflectedLight(sky, {0.8F, 0.6F, 0}, 0).x(), 1);
    EXPECT_EQ(reflectedLight(sky, {0.8F, -0.6F, 0}, 0).x(), 0);
}

TEST(LightFilter, RoughSurfacesMixMoreDirections) {
    const QVector3D slightlyDown = QVector3D(1, -0.1F, 0).normalized();
    const float smooth = reflectedLight(sky, slightlyDown, 0.1).x();
    const float rough = reflectedLight(sky, slightlyDown, 0.8).x();
    EXPECT_LT(smooth, 0.05F);
    EXPECT_GT(rough, 0.25F);
    EXPECT_LT(rough, 0.5F);
}

TEST(LightFilter, AWallUnderTheSkyGetsHalfOfItsLight) {
    EXPECT_NEAR(mattLight(sky, up).x(), 1, 1e-5);
    EXPECT_NEAR(mattLight(sky, {1, 0, 0}).x(), 0.5, 0.01);
    EXPECT_NEAR(mattLight(sky, -up).x(), 0, 1e-5);
}

TEST(LightFilter, AMirrorReflectsAllThatItsFresnelTermAllows) {
    // Seen from straight above, nothing is added; the closer to the horizon, the more.
    const QVector2D above = reflectance(1, 0);
    EXPECT_NEAR(above.x(), 1, 0.01);
    EXPECT_NEAR(above.y(), 0, 0.01);
    // Schlick's term for a cosine of 0.5: (1 - 0.5)^5.
    const QVector2D aslant = reflectance(0.5, 0);
    EXPECT_NEAR(aslant.y(), 0.03125, 0.002);
    EXPECT_NEAR(aslant.x() + aslant.y(), 1, 0.01);
}

TEST(LightFilter, NoSurfaceReflectsMoreThanItGets) {
    for (double cosine = 0; cosine <= 1; cosine += 0.1) {
        for (double roughness = 0; roughness <= 1; roughness += 0.1) {
            const QVector2D factors = reflectance(cosine, roughness);
            EXPECT_GE(factors.y(), 0);
            EXPECT_LE(factors.x() + factors.y(), 1.03F) << cosine << ", " << roughness;
        }
    }
}

TEST(Studio, ItsBrightestLightIsAtTheUpperLeft) {
    EXPECT_GT(studioLight(QVector3D(-0.75F, 0.6F, 0.65F).normalized()).x(), 3);
    EXPECT_LT(studioLight(QVector3D(0.75F, -0.6F, 0.65F).normalized()).x(), 0.3F);
}

TEST(LightAtlas, TilesAreBelowOneAnother) {
    for (int tile = 0; tile < reflectanceTile; ++tile) {
        EXPECT_EQ(lightTile(tile + 1).top, lightTile(tile).top + lightTile(tile).edge + 2 * tileBorder);
    }
    EXPECT_EQ(lightTile(reflectanceTile).top + lightTile(reflectanceTile).edge + 2 * tileBorder, atlasHeight);
}

}  // namespace
