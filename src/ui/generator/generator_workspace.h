#pragma once

class QWidget;

namespace quarlin {

class NormalGeneratorStore;
class ToolActions;

/// The screen of the Map Generator tool. `store` and `actions` must outlive it.
QWidget* makeGeneratorWorkspace(NormalGeneratorStore& store, ToolActions& actions);

}  // namespace quarlin
