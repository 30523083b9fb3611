#pragma once

#include <QWidget>

namespace quarlin {

class NormalGeneratorStore;

/// The left column of the Map Generator tool: the card of its one source.
class GeneratorInputPanel : public QWidget {
    Q_OBJECT

public:
    /// `store` must outlive the panel.
    explicit GeneratorInputPanel(NormalGeneratorStore& store, QWidget* parent = nullptr);
};

}  // namespace quarlin
