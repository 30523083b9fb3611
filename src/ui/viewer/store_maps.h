#pragma once

#include "model/conversion_settings.h"
#include "model/normal_generator_settings.h"
#include "model/previews.h"
#include "model/texture_asset.h"
#include "ui/viewer/map_source.h"

#include <optional>

namespace quarlin {

class MaterialStore;
class NormalGeneratorStore;

/// The maps of the PBR Material tool. A change of the settings shows when the previews are built again, as it
/// does on the tiles.
class MaterialMaps : public MapSource {
    Q_OBJECT

public:
    /// `store` must outlive the maps.
    explicit MaterialMaps(const MaterialStore& store, QObject* parent = nullptr);

    std::vector<ShownMap> maps() const override;
    ShownMapWork workFor(int image, bool isFlipped) const override;
    QString materialName() const override { return m_settings.materialName; }

private:
    void takeOver();

    const MaterialStore& m_store;
    TextureMap m_textures;
    ConversionSettings m_settings;
};

/// The maps of the Map Generator tool, likewise.
class GeneratorMaps : public MapSource {
    Q_OBJECT

public:
    /// `store` must outlive the maps.
    explicit GeneratorMaps(const NormalGeneratorStore& store, QObject* parent = nullptr);

    std::vector<ShownMap> maps() const override;
    ShownMapWork workFor(int image, bool isFlipped) const override;
    QString materialName() const override { return m_settings.materialName; }

private:
    void takeOver();

    const NormalGeneratorStore& m_store;
    std::optional<TextureAsset> m_source;
    NormalGeneratorSettings m_settings;
};

}  // namespace quarlin
