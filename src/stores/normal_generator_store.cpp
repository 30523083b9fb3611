#include "normal_generator_store.h"

#include <utility>

namespace quarlin {

NormalGeneratorStore::NormalGeneratorStore(Chooser& chooser, Clock clock)
    : ToolStore(
          chooser, std::move(clock),
          QStringLiteral("Load one source texture to generate Normal, Roughness, Gloss, Metallic, AO and "
                         "ORM maps.")) {}

void NormalGeneratorStore::setSettings(const NormalGeneratorSettings& settings) {
    publish(m_settings, settings);
}

void NormalGeneratorStore::chooseSourceTexture() {
    chooseImage(QStringLiteral("Choose Source Texture"),
                [this](const QUrl& file) { importSourceTexture(file); });
}

void NormalGeneratorStore::importSourceTexture(const QUrl& url) {
    std::optional<TextureAsset> asset;
    if (!attempt(QStringLiteral("Load"), [&] { asset = processor().loadAsset(url); })) {
        return;
    }
    publish(m_source, asset);
    NormalGeneratorSettings settings = m_settings;
    settings.materialName =
        adoptedName(settings.materialName, NormalGeneratorSettings::defaultMaterialName(), url);
    if (settings != m_settings) {
        publish(m_settings, std::move(settings));
    }
    appendLog(QStringLiteral("Source loaded: ") + asset->fileName + QStringLiteral(", ") +
              asset->sizeLabel());
    buildPreview();
}

bool NormalGeneratorStore::acceptDrop(const QMimeData& data) {
    return importLater(data, [this](const QUrl& file) { importSourceTexture(file); });
}

void NormalGeneratorStore::removeSourceTexture() {
    publish(m_source, {});
    publish(m_previews, {});
    appendLog(QStringLiteral("Source removed."));
}

void NormalGeneratorStore::reset() {
    publish(m_source, {});
    publish(m_previews, {});
    publish(m_settings, {});
    resetShared();
}

void NormalGeneratorStore::buildPreview() {
    NormalPreviews previews;
    if (!attempt(QStringLiteral("Preview"),
                 [&] { previews = processor().buildNormalPreviews(m_source, m_settings); })) {
        return;
    }
    publish(m_previews, std::move(previews));
    if (!m_previews.empty()) {
        appendLog(QStringLiteral("Generated map preview updated."));
    }
}

void NormalGeneratorStore::exportSet() {
    if (!canExport()) {
        appendLog(QStringLiteral("Export blocked: source texture is required."));
        return;
    }
    exportWith([this](const QUrl& parentDirectory) {
        return processor().exportGeneratedNormalSet(m_source, m_settings, parentDirectory);
    });
}

}  // namespace quarlin
