#pragma once

#include <QGroupBox>

class QVBoxLayout;

namespace quarlin {

/// A box around controls that belong together, with its title above if it has one.
class GroupBox : public QGroupBox {
    Q_OBJECT

public:
    /// Rows of the box are `spacing` apart.
    GroupBox(const QString& title, int spacing, QWidget* parent = nullptr);

    /// Where the rows go, top to bottom.
    QVBoxLayout* rows() const { return m_rows; }

private:
    QVBoxLayout* m_rows;
};

}  // namespace quarlin
