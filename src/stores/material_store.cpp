#include "material_store.h"

#include <utility>

namespace quarlin {

MaterialStore::MaterialStore(Chooser& chooser, Clock clock)
    : ToolStore(chooser, std::move(clock),
                QStringLiteral("Load Base Color first, then add Normal, AO, Roughness/Gloss and Metallic as "
                               "needed.")) {}

void MaterialStore::setSettings(const ConversionSettings& settings) { publish(m_settings, settings); }

void MaterialStore::chooseTexture(TextureSlotKind slot) {
    chooseImage(QStringLiteral("Choose ") + title(slot) + QStringLiteral(" Texture"),
                [this, slot](const QUrl& file) { importTexture(file, slot); });
}

void MaterialStore::importTexture(const QUrl& url, TextureSlotKind slot) {
    std::optional<TextureAsset> asset;
    if (!attempt(QStringLiteral("Load"), [&] { asset = processor().loadAsset(url); })) {
        return;
    }
    TextureMap textures = m_textures;
    textures.insert_or_assign(slot, *asset);
    publish(m_textures, std::move(textures));
    if (slot == TextureSlotKind::baseColor) {
        ConversionSettings settings = m_settings;
        settings.materialName =
            adoptedName(settings.materialName, ConversionSettings::defaultMaterialName(), url);
        if (settings != m_settings) {
            publish(m_settings, std::move(settings));
        }
    }
    appendLog(title(slot) + QStringLiteral(" loaded: ") + asset->fileName + QStringLiteral(", ") +
              asset->sizeLabel());
    buildPreview();
}

bool MaterialStore::acceptDrop(const QMimeData& data, TextureSlotKind slot) {
    return importLater(data, [this, slot](const QUrl& file) { importTexture(file, slot); });
}

void MaterialStore::removeTexture(TextureSlotKind slot) {
    TextureMap textures = m_textures;
    textures.erase(slot);
    publish(m_textures, std::move(textures));
    publish(m_previews, {});
    appendLog(title(slot) + QStringLiteral(" removed."));
    if (hasAnyTexture()) {
        buildPreview();
    }
}

void MaterialStore::reset() {
    publish(m_textures, {});
    publish(m_previews, {});
    publish(m_settings, {});
    resetShared();
}

void MaterialStore::buildPreview() {
    OutputPreviews previews;
    if (!attempt(QStringLiteral("Preview"),
                 [&] { previews = processor().buildPreviews(m_textures, m_settings); })) {
        return;
    }
    publish(m_previews, std::move(previews));
    if (!m_previews.empty()) {
        appendLog(QStringLiteral("Preview updated."));
    }
}

void MaterialStore::exportMaterialSet() {
    if (!canExport()) {
        appendLog(QStringLiteral("Export blocked: Base Color is required."));
        return;
    }
    exportWith([this](const QUrl& parentDirectory) {
        return processor().exportMaterialSet(m_textures, m_settings, parentDirectory);
    });
}

}  // namespace quarlin
