#pragma once

class QWidget;

namespace quarlin {

class MaterialStore;
class ToolActions;

/// The screen of the PBR Material tool. `store` and `actions` must outlive it.
QWidget* makeMaterialWorkspace(MaterialStore& store, ToolActions& actions);

}  // namespace quarlin
