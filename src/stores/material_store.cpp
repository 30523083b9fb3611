#include "stores/material_store.h"

#include "imaging/files/file_names.h"
#include "imaging/pixels/pixel_image.h"
#include "stores/incoming_files.h"

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

bool MaterialStore::load(const std::function<TextureAsset()>& read, TextureSlotKind slot,
                         const QString& materialName) {
    std::optional<TextureAsset> asset;
    if (!attempt(u"Load"_s, [&] { asset = read(); })) {
        return false;
    }
    TextureMap textures = m_textures;
    textures.insert_or_assign(slot, *asset);
    publish(StoreProperty::inputs, m_textures, std::move(textures));
    if (slot == TextureSlotKind::baseColor &&
        m_settings.materialName == ConversionSettings::defaultMaterialName()) {
        ConversionSettings settings = m_settings;
        settings.materialName = materialName;
        if (settings != m_settings) {
            publish(StoreProperty::settings, m_settings, std::move(settings));
        }
    }
    appendLog(title(slot) + u" loaded: "_s + asset->fileName + u", "_s + asset->sizeLabel());
    return true;
}

void MaterialStore::importTexture(const QUrl& url, TextureSlotKind slot) {
    if (load([&] { return processor().loadAsset(url); }, slot, fileStem(url))) {
        buildPreview();
    }
}

TextureAsset MaterialStore::readInput(const MaterialInput& input) const {
    const QUrl file = QUrl::fromLocalFile(input.path);
    if (!input.channel) {
        return processor().loadAsset(file);
    }
    TextureAsset asset = processor().openAsset(file, *input.channel);
    // The card shows a small picture of the channel; previews and exports read the file.
    const PixelSize size = TextureProcessor::previewSize({asset.pixelWidth, asset.pixelHeight});
    asset.preview = processor().makeNSImage(processor().renderImage(asset, size.width, size.height));
    return asset;
}

void MaterialStore::importFiles(const QList<QUrl>& locations) {
    const IncomingMaterial incoming = incomingMaterial(locations);
    for (const QString& note : incoming.notes) {
        appendLog(note);
    }
    if (incoming.failure) {
        reportFailure(u"Load failed: "_s + *incoming.failure);
        return;
    }
    const TextureSet& set = incoming.set;
    bool isLoaded = false;
    for (const auto& [slot, input] : set.files) {
        isLoaded |= load([&, &file = input] { return readInput(file); }, slot, set.material);
    }
    ConversionSettings settings = m_settings;
    settings.roughnessInputIsGloss |= set.roughnessIsGloss;
    settings.flipNormalGreen |= set.normalIsDirectX;
    if (settings.roughnessInputIsGloss != m_settings.roughnessInputIsGloss) {
        appendLog(u"The roughness texture is a gloss map by its name."_s);
    }
    if (settings.flipNormalGreen != m_settings.flipNormalGreen) {
        appendLog(u"The normal map is for DirectX by its name."_s);
    }
    if (settings != m_settings) {
        publish(StoreProperty::settings, m_settings, std::move(settings));
    }
    if (isLoaded) {
        buildPreview();
    }
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
