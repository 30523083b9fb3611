#pragma once

#include <QWidget>

namespace quarlin {

class NormalGeneratorStore;
class ToolActions;

/// The left column of the Map Generator tool: the card of its one source.
class GeneratorInputPanel : public QWidget {
    Q_OBJECT

public:
    /// `store` and `actions` must outlive the panel.
    GeneratorInputPanel(NormalGeneratorStore& store, ToolActions& actions, QWidget* parent = nullptr);
};

}  // namespace quarlin
