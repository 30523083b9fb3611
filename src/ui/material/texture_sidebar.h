#pragma once

#include <QWidget>

namespace quarlin {

class MaterialStore;
class ToolActions;

/// The left column of the PBR Material tool: a card for every texture slot.
class TextureSidebar : public QWidget {
    Q_OBJECT

public:
    /// `store` and `actions` must outlive the sidebar.
    TextureSidebar(MaterialStore& store, ToolActions& actions, QWidget* parent = nullptr);
};

}  // namespace quarlin
