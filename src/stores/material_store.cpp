#include "stores/material_store.h"

#include <utility>

namespace quarlin {

using namespace Qt::StringLiterals;

namespace {

std::map<TextureSlotKind, QUuid> idsOf(const TextureMap& textures) {
    std::map<TextureSlotKind, QUuid> ids;
    for (const auto& [slot, asset] : textures) {
        ids.emplace(slot, asset.id);
    }
    return ids;
}

}  // namespace

MaterialStore::MaterialStore(Chooser& chooser, Clock clock)
    : ToolStore(chooser, std::move(clock),
                u"Load Base Color first, then add Normal, AO, Roughness/Gloss and Metallic as "
                "needed."_s) {}

void MaterialStore::setSettings(const ConversionSettings& settings) {
    publish(StoreProperty::settings, m_settings, settings);
}

void MaterialStore::chooseTexture(TextureSlotKind slot) {
    chooseImage(u"Choose "_s + title(slot) + u" Texture"_s,
                [this, slot](const QUrl& file) { importTexture(file, slot); });
}

void MaterialStore::importTexture(const QUrl& url, TextureSlotKind slot) {
    std::optional<TextureAsset> asset;
    if (!attempt(u"Load"_s, [&] { asset = processor().loadAsset(url); })) {
        return;
    }
    TextureMap textures = m_textures;
    textures.insert_or_assign(slot, *asset);
    publish(StoreProperty::inputs, m_textures, std::move(textures));
    if (slot == TextureSlotKind::baseColor) {
        ConversionSettings settings = m_settings;
        settings.materialName =
            adoptedName(settings.materialName, ConversionSettings::defaultMaterialName(), url);
        if (settings != m_settings) {
            publish(StoreProperty::settings, m_settings, std::move(settings));
        }
    }
    appendLog(title(slot) + u" loaded: "_s + asset->fileName + u", "_s + asset->sizeLabel());
    buildPreview();
}

bool MaterialStore::acceptDrop(const QMimeData& data, TextureSlotKind slot) {
    return importLater(data, [this, slot](const QUrl& file) { importTexture(file, slot); });
}

void MaterialStore::removeTexture(TextureSlotKind slot) {
    TextureMap textures = m_textures;
    textures.erase(slot);
    publish(StoreProperty::inputs, m_textures, std::move(textures));
    publish(StoreProperty::previews, m_previews, {});
    appendLog(title(slot) + u" removed."_s);
    if (hasAnyTexture()) {
        buildPreview();
    }
}

void MaterialStore::reset() {
    publish(StoreProperty::inputs, m_textures, {});
    publish(StoreProperty::previews, m_previews, {});
    publish(StoreProperty::settings, m_settings, {});
    resetShared();
}

void MaterialStore::buildPreview() {
    OutputPreviews previews;
    if (!attempt(u"Preview"_s, [&] { previews = processor().buildPreviews(m_textures, m_settings); })) {
        return;
    }
    publish(StoreProperty::previews, m_previews, std::move(previews));
    m_previewedTextures = idsOf(m_textures);
    m_previewedSettings = m_settings;
    if (!m_previews.empty()) {
        appendLog(u"Preview updated."_s);
    }
}

bool MaterialStore::hasOutdatedPreviews() const {
    return !m_previews.empty() &&
           (m_previewedTextures != idsOf(m_textures) || !haveSameImages(m_previewedSettings, m_settings));
}

void MaterialStore::exportMaterialSet() {
    if (!canExport()) {
        reportFailure(u"Export blocked: Base Color is required."_s);
        return;
    }
    exportWith([this](const QUrl& parentDirectory) {
        return processor().exportMaterialSet(m_textures, m_settings, parentDirectory);
    });
}

}  // namespace quarlin
