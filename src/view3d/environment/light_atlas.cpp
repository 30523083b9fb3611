#include "view3d/environment/light_atlas.h"

#include "view3d/environment/light_filter.h"
#include "view3d/environment/octahedron.h"
#include "view3d/environment/studio.h"

#include <QtCore/qfloat16.h>
#include <QVector2D>
#include <QVector3D>

#include <algorithm>
#include <cstddef>
#include <functional>
#include <vector>

namespace quarlin {

namespace {

constexpr std::size_t valuesPerTexel = 4;

/// The half-precision numbers of the atlas.
using Texels = std::vector<qfloat16>;

/// Fills a tile and its border; `at` gives the value at a place of the tile.
void fillTile(Texels& texels, int index, const std::function<QVector3D(QVector2D)>& at) {
    const LightTile tile = lightTile(index);
    const int size = tile.edge + 2 * tileBorder;
    for (int y = 0; y < size; ++y) {
        for (int x = 0; x < size; ++x) {
            const QVector2D texel(static_cast<float>(x - tileBorder), static_cast<float>(y - tileBorder));
            const QVector3D value = at((texel + QVector2D(0.5F, 0.5F)) / static_cast<float>(tile.edge));
            const auto offset = static_cast<std::size_t>((tile.top + y) * atlasWidth + x) * valuesPerTexel;
            texels[offset] = qfloat16(value.x());
            texels[offset + 1] = qfloat16(value.y());
            texels[offset + 2] = qfloat16(value.z());
            texels[offset + 3] = qfloat16(1.0F);
        }
    }
}

}  // namespace

QByteArray makeLightAtlas() {
    Texels texels(static_cast<std::size_t>(atlasWidth * atlasHeight) * valuesPerTexel);
    for (int level = 0; level < roughnessTiles; ++level) {
        const double roughness = static_cast<double>(level) / (roughnessTiles - 1);
        fillTile(texels, level, [roughness](QVector2D place) {
            return reflectedLight(studioLight, directionInTile(place), roughness);
        });
    }
    fillTile(texels, mattTile,
             [](QVector2D place) { return mattLight(studioLight, directionInTile(place)); });
    fillTile(texels, reflectanceTile, [](QVector2D place) {
        const QVector2D factors =
            reflectance(std::clamp(place.x(), 0.0F, 1.0F), std::clamp(place.y(), 0.0F, 1.0F));
        return QVector3D(factors, 0);
    });
    return {reinterpret_cast<const char*>(texels.data()),
            static_cast<qsizetype>(texels.size() * sizeof(qfloat16))};
}

}  // namespace quarlin
