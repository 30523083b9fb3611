#pragma once

#include "view3d/scene/scene_textures.h"

#include <QString>

#include <functional>

namespace quarlin {

class MaterialStore;
class NormalGeneratorStore;
class ToolStore;

/// Computes maps, on any thread. Throws what the engine throws.
using SceneMapWork = std::function<SceneMaps()>;

/// The material of a tool, for the 3D view.
struct ToolMaterial {
    const ToolStore& store;
    /// The name of the material.
    std::function<QString()> name;
    /// The maps of the tool's preview tiles; none before the first preview.
    std::function<SceneMaps()> previews;
    /// The work that computes the same maps in detail, with the textures and settings of now: at the size of
    /// the export, but at most `detailSide` pixels wide and high.
    std::function<SceneMapWork()> details;
};

inline constexpr int detailSide = 2048;

/// The stores must outlive the result.
ToolMaterial toolMaterial(const MaterialStore& store);
ToolMaterial toolMaterial(const NormalGeneratorStore& store);

}  // namespace quarlin
