#include "view3d/maps/material_maps.h"

#include "engine/texture_processor.h"
#include "stores/material_store.h"
#include "stores/normal_generator_store.h"

namespace quarlin {

namespace {

/// The image of `kind`; null if there is none.
template <typename Kind>
QImage imageOf(const std::map<Kind, QImage>& previews, Kind kind) {
    const auto found = previews.find(kind);
    return found == previews.end() ? QImage() : found->second;
}

SceneMaps mapsOf(const OutputPreviews& previews) {
    return {imageOf(previews, MaterialImage::baseColor), imageOf(previews, MaterialImage::orm),
            imageOf(previews, MaterialImage::normal)};
}

SceneMaps mapsOf(const NormalPreviews& previews) {
    return {imageOf(previews, GeneratedMap::source), imageOf(previews, GeneratedMap::orm),
            imageOf(previews, GeneratedMap::normal)};
}

}  // namespace

ToolMaterial toolMaterial(const MaterialStore& store) {
    return {store, [&store] { return store.settings().safeMaterialName(); },
            [&store] { return mapsOf(store.previews()); },
            [&store]() -> SceneMapWork {
                return [textures = store.textures(), settings = store.settings()] {
                    return mapsOf(TextureProcessor().buildPreviews(textures, settings, detailSide));
                };
            }};
}

ToolMaterial toolMaterial(const NormalGeneratorStore& store) {
    return {store, [&store] { return store.settings().safeMaterialName(); },
            [&store] { return mapsOf(store.previews()); },
            [&store]() -> SceneMapWork {
                return [source = store.source(), settings = store.settings()] {
                    return mapsOf(TextureProcessor().buildNormalPreviews(source, settings, detailSide));
                };
            }};
}

}  // namespace quarlin
