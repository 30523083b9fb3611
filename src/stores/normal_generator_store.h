#pragma once

#include "model/normal_generator_settings.h"
#include "model/previews.h"
#include "model/texture_asset.h"
#include "stores/tool_store.h"

namespace quarlin {

/// The state of the Map Generator tool, and the user's actions on it.
class NormalGeneratorStore : public ToolStore {
    Q_OBJECT

public:
    /// `chooser` must outlive the store.
    explicit NormalGeneratorStore(Chooser& chooser, Clock clock = &QTime::currentTime);

    // ---- Published state
    // --------------------------------------------------------------------------------------

    /// The texture that every map is estimated from.
    const std::optional<TextureAsset>& source() const { return m_source; }
    const NormalGeneratorSettings& settings() const { return m_settings; }
    /// The pictures of the last preview; empty until one was built.
    const NormalPreviews& previews() const { return m_previews; }

    /// Whether a source is loaded.
    bool canExport() const { return m_source.has_value(); }

    // ---- Actions
    // ----------------------------------------------------------------------------------------------

    /// Replaces the settings. The previews stay as they are until they are asked for.
    void setSettings(const NormalGeneratorSettings& settings);

    /// Lets the user choose the source.
    void chooseSourceTexture();

    /// Loads the source, which gives its name to a material that has not been named yet, and rebuilds the
    /// previews.
    void importSourceTexture(const QUrl& url);

    /// Imports the first file in dragged `data`, after this call. Returns whether there is a file.
    bool acceptDrop(const QMimeData& data);

    void removeSourceTexture();

    /// Back to a fresh state.
    void reset();

    void buildPreview();

    /// Asks for a folder and writes the generated set into it. Without a source it only logs why not.
    void exportSet();

private:
    std::optional<TextureAsset> m_source;
    NormalGeneratorSettings m_settings;
    NormalPreviews m_previews;
};

}  // namespace quarlin
