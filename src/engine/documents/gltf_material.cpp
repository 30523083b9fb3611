#include "engine/documents/gltf_material.h"

#include "engine/documents/json_text.h"

#include <QJsonArray>
#include <QJsonObject>

namespace quarlin {

using namespace Qt::StringLiterals;

namespace {

QJsonObject textureIndex(int index) { return {{u"index"_s, index}}; }

}  // namespace

QByteArray gltfMaterial(const GltfMaterial& material) {
    QStringList files{material.baseColor, material.orm};
    if (material.normal) {
        files += *material.normal;
    }
    QJsonArray images;
    QJsonArray textures;
    for (const QString& file : files) {
        textures += QJsonObject{{u"source"_s, images.size()}};
        images += QJsonObject{{u"uri"_s, file}};
    }

    // glTF reads occlusion from red, roughness from green and metallic from blue: one texture serves both.
    constexpr int baseColorTexture = 0;
    constexpr int ormTexture = 1;
    QJsonObject entry{
        {u"name"_s, material.materialName},
        {u"doubleSided"_s, true},
        {u"pbrMetallicRoughness"_s, QJsonObject{{u"baseColorTexture"_s, textureIndex(baseColorTexture)},
                                                {u"metallicRoughnessTexture"_s, textureIndex(ormTexture)},
                                                {u"metallicFactor"_s, 1.0},
                                                {u"roughnessFactor"_s, 1.0}}},
        {u"occlusionTexture"_s, textureIndex(ormTexture)},
    };
    if (material.normal) {
        entry.insert(u"normalTexture"_s, textureIndex(static_cast<int>(textures.size()) - 1));
    }

    return jsonText(QJsonObject{
        {u"asset"_s, QJsonObject{{u"version"_s, u"2.0"_s}, {u"generator"_s, u"VOREK TECH Quarlin"_s}}},
        {u"images"_s, images},
        {u"textures"_s, textures},
        {u"materials"_s, QJsonArray{entry}},
    });
}

}  // namespace quarlin
