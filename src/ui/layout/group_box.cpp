#include "ui/layout/group_box.h"

#include <QVBoxLayout>

namespace quarlin {

GroupBox::GroupBox(const QString& title, int spacing, QWidget* parent)
    : QGroupBox(title, parent), m_rows(new QVBoxLayout(this)) {
    // The style leaves room for the title and the frame.
    m_rows->setContentsMargins(0, 0, 0, 0);
    m_rows->setSpacing(spacing);
    setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Fixed);
}

}  // namespace quarlin
