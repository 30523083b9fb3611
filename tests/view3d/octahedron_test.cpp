#include "view3d/environment/octahedron.h"

#include <gtest/gtest.h>

using namespace quarlin;

namespace {

constexpr int steps = 40;

TEST(Octahedron, EveryPlaceComesBackFromItsDirection) {
    for (int y = 0; y < steps; ++y) {
        for (int x = 0; x < steps; ++x) {
            const QVector2D place((static_cast<float>(x) + 0.5F) / steps,
                                  (static_cast<float>(y) + 0.5F) / steps);
            ASSERT_LT((placeInTile(directionInTile(place)) - place).length(), 1e-5F) << x << ", " << y;
        }
    }
}

TEST(Octahedron, TheMiddleLooksUpAndTheCornersLookDown) {
    EXPECT_LT((directionInTile({0.5F, 0.5F}) - QVector3D(0, 1, 0)).length(), 1e-6F);
    EXPECT_LT((directionInTile({0, 1}) - QVector3D(0, -1, 0)).length(), 1e-6F);
}

TEST(Octahedron, APlaceOutsideContinuesOnTheNeighboringFace) {
    constexpr float out = 0.01F;
    for (int step = 1; step < steps; ++step) {
        const float along = static_cast<float>(step) / steps;
        for (const auto& [inside, outside] :
             {std::pair(QVector2D(along, out), QVector2D(along, -out)),
              std::pair(QVector2D(along, 1 - out), QVector2D(along, 1 + out)),
              std::pair(QVector2D(out, along), QVector2D(-out, along)),
              std::pair(QVector2D(1 - out, along), QVector2D(1 + out, along))}) {
            ASSERT_LT((directionInTile(inside) - directionInTile(outside)).length(), 0.15F) << along;
        }
    }
}

}  // namespace
