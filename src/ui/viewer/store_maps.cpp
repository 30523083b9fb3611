#include "ui/viewer/store_maps.h"

#include "engine/base/output_size.h"
#include "engine/texture_processor.h"
#include "model/generated_set.h"
#include "model/material_set.h"
#include "stores/material_store.h"
#include "stores/normal_generator_store.h"

#include <QMetaObject>

namespace quarlin {

namespace {

/// Calls `takeOver` while the store is what its new previews show, and announces them once they can be read.
template <typename Maps, typename TakeOver>
void followPreviews(Maps* maps, const ToolStore& store, TakeOver takeOver) {
    QObject::connect(&store, &ToolStore::willChange, maps, [maps, takeOver](StoreProperty property) {
        if (property == StoreProperty::previews) {
            takeOver();
            QMetaObject::invokeMethod(maps, &MapSource::changed, Qt::QueuedConnection);
        }
    });
}

template <typename Image>
std::vector<ShownMap> shownMaps(const std::map<Image, QImage>& previews, PixelSize size, Image normals,
                                bool isFlipped) {
    std::vector<ShownMap> maps;
    maps.reserve(previews.size());
    for (const auto& [image, preview] : previews) {
        maps.push_back({.image = static_cast<int>(image),
                        .title = title(image),
                        .subtitle = subtitle(image),
                        .preview = preview,
                        .size = {static_cast<int>(size.width), static_cast<int>(size.height)},
                        .hasNormals = image == normals,
                        .isFlipped = image == normals && isFlipped});
    }
    return maps;
}

}  // namespace

MaterialMaps::MaterialMaps(const MaterialStore& store, QObject* parent) : MapSource(parent), m_store(store) {
    takeOver();
    followPreviews(this, store, [this] { takeOver(); });
}

void MaterialMaps::takeOver() {
    m_textures = m_store.textures();
    m_settings = m_store.settings();
}

std::vector<ShownMap> MaterialMaps::maps() const {
    return m_textures.empty() ? std::vector<ShownMap>()
                              : shownMaps(m_store.previews(), resolvedOutputSize(m_textures, m_settings),
                                          MaterialImage::normal, m_settings.flipNormalGreen);
}

ShownMapWork MaterialMaps::workFor(int image, bool isFlipped) const {
    ConversionSettings settings = m_settings;
    settings.flipNormalGreen = isFlipped;
    return [image, settings, textures = m_textures](const RowProgress& progress) {
        return TextureProcessor().makeMaterialImage(static_cast<MaterialImage>(image), textures, settings,
                                                    progress);
    };
}

GeneratorMaps::GeneratorMaps(const NormalGeneratorStore& store, QObject* parent)
    : MapSource(parent), m_store(store) {
    takeOver();
    followPreviews(this, store, [this] { takeOver(); });
}

void GeneratorMaps::takeOver() {
    m_source = m_store.source();
    m_settings = m_store.settings();
}

std::vector<ShownMap> GeneratorMaps::maps() const {
    if (!m_source) {
        return {};
    }
    const PixelSize size =
        resolvedOutputSize(m_source->pixelWidth, m_source->pixelHeight, m_settings.outputResolution);
    return shownMaps(m_store.previews(), size, GeneratedMap::normal, m_settings.flipGreen);
}

ShownMapWork GeneratorMaps::workFor(int image, bool isFlipped) const {
    NormalGeneratorSettings settings = m_settings;
    settings.flipGreen = isFlipped;
    return [image, settings, source = m_source](const RowProgress& progress) {
        return source ? TextureProcessor().makeGeneratedMap(static_cast<GeneratedMap>(image), *source,
                                                            settings, progress)
                      : QImage();
    };
}

}  // namespace quarlin
