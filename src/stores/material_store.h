#pragma once

#include "model/conversion_settings.h"
#include "model/previews.h"
#include "model/texture_asset.h"
#include "model/texture_slot_kind.h"
#include "stores/tool_store.h"

#include <QList>
#include <QUuid>

#include <functional>
#include <map>

namespace quarlin {

struct MaterialInput;

/// The state of the PBR Material tool, and the user's actions on it.
class MaterialStore : public ToolStore {
    Q_OBJECT

public:
    /// `chooser` must outlive the store.
    explicit MaterialStore(Chooser& chooser, Clock clock = &QTime::currentTime);

    // ---- Published state
    // --------------------------------------------------------------------------------------

    /// The loaded inputs.
    const TextureMap& textures() const { return m_textures; }
    const ConversionSettings& settings() const { return m_settings; }
    /// The pictures of the last preview; empty until the first one is built.
    const OutputPreviews& previews() const { return m_previews; }

    /// Whether there are previews, and other inputs or settings would give other ones.
    bool hasOutdatedPreviews() const;

    /// Whether the one required input is loaded.
    bool canExport() const { return m_textures.contains(TextureSlotKind::baseColor); }
    bool hasAnyTexture() const { return !m_textures.empty(); }

    // ---- Actions
    // ----------------------------------------------------------------------------------------------

    /// Replaces the settings. The previews stay as they are until `buildPreview`.
    void setSettings(const ConversionSettings& settings);

    /// Lets the user choose the texture of `slot`.
    void chooseTexture(TextureSlotKind slot);

    /// Loads the texture of `slot` and rebuilds the previews. The name of a base
    /// color file becomes that of a material that still has the default name.
    void importTexture(const QUrl& url, TextureSlotKind slot);

    /// Loads the textures of a material from files and folders, matched to slots by their names, each as
    /// `importTexture` does, and then rebuilds the previews. Of several materials the first is loaded. Gloss
    /// and normals for DirectX, as far as the names tell, switch their settings on.
    void importFiles(const QList<QUrl>& locations);

    /// Imports the first file of the dragged `data` into `slot` after this call has returned. Returns whether
    /// there is a file.
    bool acceptDrop(const QMimeData& data, TextureSlotKind slot);

    /// Empties `slot`.
    void removeTexture(TextureSlotKind slot);

    /// Returns to the initial state, with its own line in the log.
    void reset();

    void buildPreview();

    /// Asks for a folder and writes the material set into it. Without a base color nothing is
    /// exported, and the log says why.
    void exportMaterialSet();

private:
    /// Fills `slot`; a material that still has the default name takes `materialName`. Returns whether it
    /// could be loaded.
    bool load(const std::function<TextureAsset()>& read, TextureSlotKind slot, const QString& materialName);
    TextureAsset readInput(const MaterialInput& input) const;

    TextureMap m_textures;
    ConversionSettings m_settings;
    OutputPreviews m_previews;
    /// What the previews show.
    std::map<TextureSlotKind, QUuid> m_previewedTextures;
    ConversionSettings m_previewedSettings;
};

}  // namespace quarlin
