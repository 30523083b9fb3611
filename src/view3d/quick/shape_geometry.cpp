#include "view3d/quick/shape_geometry.h"

#include "view3d/scene/shape_mesh.h"

#include <QByteArray>

#include <cstddef>
#include <limits>

namespace quarlin {

namespace {

template <typename Value>
QByteArray bytesOf(const std::vector<Value>& values) {
    return {reinterpret_cast<const char*>(values.data()),
            static_cast<qsizetype>(values.size() * sizeof(Value))};
}

}  // namespace

void ShapeGeometry::setShape(SceneShape shape) {
    const ShapeMesh mesh = shapeMesh(shape);
    clear();
    setPrimitiveType(PrimitiveType::Triangles);
    setStride(sizeof(MeshVertex));
    addAttribute(Attribute::PositionSemantic, offsetof(MeshVertex, position), Attribute::F32Type);
    addAttribute(Attribute::NormalSemantic, offsetof(MeshVertex, normal), Attribute::F32Type);
    addAttribute(Attribute::TexCoord0Semantic, offsetof(MeshVertex, uv), Attribute::F32Type);
    addAttribute(Attribute::TangentSemantic, offsetof(MeshVertex, tangent), Attribute::F32Type);
    addAttribute(Attribute::BinormalSemantic, offsetof(MeshVertex, bitangent), Attribute::F32Type);
    addAttribute(Attribute::IndexSemantic, 0, Attribute::U32Type);
    setVertexData(bytesOf(mesh.vertices));
    setIndexData(bytesOf(mesh.indices));
    constexpr float extent = 1.5F;
    setBounds({-extent, -extent, -extent}, {extent, extent, extent});
    update();
}

}  // namespace quarlin
