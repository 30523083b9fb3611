#pragma once

#include <QAccessible>
#include <QString>

class QWidget;

namespace quarlin {

/// Gives `widget`, which is not a control, a role and a name for assistive technology. Qt presents such
/// widgets without a role, which screen readers take for gaps in the layout.
void presentAs(QWidget& widget, QAccessible::Role role, const QString& name);

}  // namespace quarlin
