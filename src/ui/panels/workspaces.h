#pragma once

class QWidget;

namespace quarlin {

class MaterialStore;
class NormalGeneratorStore;

/// The screen of the PBR Material tool. `store` must outlive it.
QWidget* makeMaterialWorkspace(MaterialStore& store);

/// The screen of the Map Generator tool. `store` must outlive it.
QWidget* makeGeneratorWorkspace(NormalGeneratorStore& store);

}  // namespace quarlin
