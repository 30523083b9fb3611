#pragma once

#include "model/normal_generator_settings.h"
#include "model/previews.h"
#include "model/texture_asset.h"
#include "stores/tool_store.h"

#include <QList>
#include <QUuid>

namespace quarlin {

/// The state of the Map Generator tool, and the user's actions on it.
class NormalGeneratorStore : public ToolStore {
    Q_OBJECT

public:
    /// `chooser` must outlive the store.
    explicit NormalGeneratorStore(Chooser& chooser, Clock clock = &QTime::currentTime);

    // ---- Published state
    // --------------------------------------------------------------------------------------

    /// The texture that every map is generated from.
    const std::optional<TextureAsset>& source() const { return m_source; }
    const NormalGeneratorSettings& settings() const { return m_settings; }
    /// The pictures of the last preview; empty until the first one is built.
    const NormalPreviews& previews() const { return m_previews; }

    /// Whether there are previews, and another source or other settings would give other ones.
    bool hasOutdatedPreviews() const;

    /// Whether a source is loaded.
    bool canExport() const { return m_source.has_value(); }

    // ---- Actions
    // ----------------------------------------------------------------------------------------------

    /// Replaces the settings. The previews stay as they are until `buildPreview`.
    void setSettings(const NormalGeneratorSettings& settings);

    /// Lets the user choose the source.
    void chooseSourceTexture();

    /// Loads the source and rebuilds the previews. Its file name becomes that of a material that still has
    /// the default name.
    void importSourceTexture(const QUrl& url);

    /// Loads the first of the files and folders that can be a source, as `importSourceTexture` does.
    void importFiles(const QList<QUrl>& locations);

    /// Imports the first file of the dragged `data` after this call has returned. Returns whether there is a
    /// file.
    bool acceptDrop(const QMimeData& data);

    void removeSourceTexture();

    /// Returns to the initial state, with its own line in the log.
    void reset();

    void buildPreview();

    /// Asks for a folder and writes the generated set into it. Without a source nothing is
    /// exported, and the log says why.
    void exportSet();

private:
    std::optional<TextureAsset> m_source;
    NormalGeneratorSettings m_settings;
    NormalPreviews m_previews;
    /// What the previews show.
    QUuid m_previewedSource;
    NormalGeneratorSettings m_previewedSettings;
};

}  // namespace quarlin
