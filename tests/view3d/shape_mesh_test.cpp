#include "view3d/scene/shape_mesh.h"

#include <gtest/gtest.h>

#include <array>
#include <cmath>
#include <cstddef>

using namespace quarlin;

namespace {

class ShapeMeshes : public testing::TestWithParam<SceneShape> {
protected:
    const ShapeMesh mesh = shapeMesh(GetParam());

    /// Calls `see` with the three corners of each triangle that has an area.
    template <typename See>
    void forEachTriangle(See see) const {
        for (std::size_t index = 0; index < mesh.indices.size(); index += 3) {
            const std::array corners{&mesh.vertices[mesh.indices[index]],
                                     &mesh.vertices[mesh.indices[index + 1]],
                                     &mesh.vertices[mesh.indices[index + 2]]};
            const QVector3D across = QVector3D::crossProduct(corners[1]->position - corners[0]->position,
                                                             corners[2]->position - corners[0]->position);
            if (across.length() > 1e-6F) {
                see(corners, across.normalized());
            }
        }
    }
};

TEST_P(ShapeMeshes, TrianglesFaceOutwards) {
    forEachTriangle([](const auto& corners, const QVector3D& face) {
        ASSERT_GT(QVector3D::dotProduct(face, corners[0]->normal), 0.9F);
    });
}

TEST_P(ShapeMeshes, FitBetweenTheNearestCameraAndTheMiddle) {
    for (const MeshVertex& vertex : mesh.vertices) {
        ASSERT_LT(vertex.position.length(), 1.7F);
        ASSERT_LT(vertex.position.length(), distanceRange.lowest);
    }
}

TEST_P(ShapeMeshes, NormalTangentAndBitangentAreARightHandedFrame) {
    for (const MeshVertex& vertex : mesh.vertices) {
        ASSERT_NEAR(vertex.normal.length(), 1, 1e-5);
        ASSERT_NEAR(vertex.tangent.length(), 1, 1e-5);
        ASSERT_LT((QVector3D::crossProduct(vertex.normal, vertex.tangent) - vertex.bitangent).length(),
                  1e-4F);
    }
}

TEST_P(ShapeMeshes, ThePictureGoesRightAlongTheTangentAndUpAlongTheBitangent) {
    forEachTriangle([](const auto& corners, const QVector3D&) {
        for (std::size_t corner = 1; corner < 3; ++corner) {
            const QVector3D way = corners[corner]->position - corners[0]->position;
            const QVector2D uv = corners[corner]->uv - corners[0]->uv;
            const float right = QVector3D::dotProduct(way, corners[0]->tangent);
            const float up = QVector3D::dotProduct(way, corners[0]->bitangent);
            // The sphere is bent, and its triangles at the poles are not shaped like their part of the
            // picture.
            if (std::abs(uv.x()) > 1e-3F && std::abs(uv.y()) < 1e-6F && std::abs(right) > 1e-3F) {
                ASSERT_GT(right * uv.x(), 0);
            }
            if (std::abs(uv.y()) > 1e-3F && std::abs(uv.x()) < 1e-6F) {
                ASSERT_LT(up * uv.y(), 0);
            }
        }
    });
}

INSTANTIATE_TEST_SUITE_P(Shapes, ShapeMeshes, testing::ValuesIn(allCases<SceneShape>()),
                         [](const auto& tested) { return rawValue(tested.param).toStdString(); });

TEST(ShapeMesh, TheMiddleOfThePictureFacesTheCamera) {
    // The sphere and the cylinder show the picture twice, so that the seam between both is in front.
    for (const SceneShape shape : {SceneShape::sphere, SceneShape::cylinder}) {
        for (const MeshVertex& vertex : shapeMesh(shape).vertices) {
            if (vertex.normal.z() > 0.9999F) {
                EXPECT_NEAR(vertex.uv.x(), 1, 1e-4);
            }
        }
    }
}

}  // namespace
