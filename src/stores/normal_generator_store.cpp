#include "stores/normal_generator_store.h"

#include "stores/incoming_files.h"

#include <utility>

namespace quarlin {

using namespace Qt::StringLiterals;

NormalGeneratorStore::NormalGeneratorStore(Chooser& chooser, Clock clock)
    : ToolStore(chooser, std::move(clock),
                u"Load one source texture to generate Normal, Roughness, Gloss, Metallic, AO and "
                "ORM maps."_s) {}

void NormalGeneratorStore::setSettings(const NormalGeneratorSettings& settings) {
    publish(StoreProperty::settings, m_settings, settings);
}

void NormalGeneratorStore::chooseSourceTexture() {
    chooseImage(u"Choose Source Texture"_s, [this](const QUrl& file) { importSourceTexture(file); });
}

void NormalGeneratorStore::importSourceTexture(const QUrl& url) {
    std::optional<TextureAsset> asset;
    if (!attempt(u"Load"_s, [&] { asset = processor().loadAsset(url); })) {
        return;
    }
    publish(StoreProperty::inputs, m_source, asset);
    NormalGeneratorSettings settings = m_settings;
    settings.materialName =
        adoptedName(settings.materialName, NormalGeneratorSettings::defaultMaterialName(), url);
    if (settings != m_settings) {
        publish(StoreProperty::settings, m_settings, std::move(settings));
    }
    appendLog(u"Source loaded: "_s + asset->fileName + u", "_s + asset->sizeLabel());
    buildPreview();
}

void NormalGeneratorStore::importFiles(const QList<QUrl>& locations) {
    const IncomingSource incoming = incomingSource(locations);
    for (const QString& note : incoming.notes) {
        appendLog(note);
    }
    if (incoming.failure) {
        reportFailure(u"Load failed: "_s + *incoming.failure);
    } else {
        importSourceTexture(incoming.file);
    }
}

bool NormalGeneratorStore::acceptDrop(const QMimeData& data) {
    return importLater(data, [this](const QUrl& file) { importSourceTexture(file); });
}

void NormalGeneratorStore::removeSourceTexture() {
    publish(StoreProperty::inputs, m_source, {});
    publish(StoreProperty::previews, m_previews, {});
    appendLog(u"Source removed."_s);
}

void NormalGeneratorStore::reset() {
    publish(StoreProperty::inputs, m_source, {});
    publish(StoreProperty::previews, m_previews, {});
    publish(StoreProperty::settings, m_settings, {});
    resetShared();
}

void NormalGeneratorStore::buildPreview() {
    NormalPreviews previews;
    if (!attempt(u"Preview"_s, [&] { previews = processor().buildNormalPreviews(m_source, m_settings); })) {
        return;
    }
    publish(StoreProperty::previews, m_previews, std::move(previews));
    m_previewedSource = m_source ? m_source->id : QUuid();
    m_previewedSettings = m_settings;
    if (!m_previews.empty()) {
        appendLog(u"Generated map preview updated."_s);
    }
}

bool NormalGeneratorStore::hasOutdatedPreviews() const {
    return !m_previews.empty() && (!m_source || m_previewedSource != m_source->id ||
                                   !haveSameImages(m_previewedSettings, m_settings));
}

void NormalGeneratorStore::exportSet() {
    if (!canExport()) {
        reportFailure(u"Export blocked: source texture is required."_s);
        return;
    }
    exportWith([this](const QUrl& parentDirectory) {
        return processor().exportGeneratedNormalSet(m_source, m_settings, parentDirectory);
    });
}

}  // namespace quarlin
