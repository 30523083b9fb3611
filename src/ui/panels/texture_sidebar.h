#pragma once

#include <QWidget>

namespace quarlin {

class MaterialStore;

/// The left column of the PBR Material tool: a card for every texture slot.
class TextureSidebar : public QWidget {
    Q_OBJECT

public:
    /// `store` must outlive the sidebar.
    explicit TextureSidebar(MaterialStore& store, QWidget* parent = nullptr);
};

}  // namespace quarlin
