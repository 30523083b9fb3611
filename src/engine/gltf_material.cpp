#include "gltf_material.h"

#include "json_text.h"

#include <QJsonArray>
#include <QJsonObject>

namespace quarlin {

namespace {

QJsonObject textureIndex(int index) { return {{QStringLiteral("index"), index}}; }

}  // namespace

QByteArray gltfMaterial(const GltfMaterial& material) {
    QStringList files{material.baseColor, material.orm};
    if (material.normal) {
        files += *material.normal;
    }
    QJsonArray images;
    QJsonArray textures;
    for (const QString& file : files) {
        textures += QJsonObject{{QStringLiteral("source"), images.size()}};
        images += QJsonObject{{QStringLiteral("uri"), file}};
    }

    // glTF reads occlusion from red, roughness from green and metallic from blue: one texture serves both.
    constexpr int baseColorTexture = 0;
    constexpr int ormTexture = 1;
    QJsonObject entry{
        {QStringLiteral("name"), material.materialName},
        {QStringLiteral("doubleSided"), true},
        {QStringLiteral("pbrMetallicRoughness"),
         QJsonObject{{QStringLiteral("baseColorTexture"), textureIndex(baseColorTexture)},
                     {QStringLiteral("metallicRoughnessTexture"), textureIndex(ormTexture)},
                     {QStringLiteral("metallicFactor"), 1.0},
                     {QStringLiteral("roughnessFactor"), 1.0}}},
        {QStringLiteral("occlusionTexture"), textureIndex(ormTexture)},
    };
    if (material.normal) {
        entry.insert(QStringLiteral("normalTexture"), textureIndex(static_cast<int>(textures.size()) - 1));
    }

    return jsonText(QJsonObject{
        {QStringLiteral("asset"),
         QJsonObject{{QStringLiteral("version"), QStringLiteral("2.0")},
                     {QStringLiteral("generator"), QStringLiteral("VOREK TECH Quarlin")}}},
        {QStringLiteral("images"), images},
        {QStringLiteral("textures"), textures},
        {QStringLiteral("materials"), QJsonArray{entry}},
    });
}

}  // namespace quarlin
