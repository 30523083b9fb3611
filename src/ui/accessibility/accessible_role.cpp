#include "ui/accessibility/accessible_role.h"

#include <QAccessibleWidget>
#include <QVariant>
#include <QWidget>

namespace quarlin {

namespace {

constexpr const char* roleProperty = "accessibleRole";

QAccessibleInterface* makeAccessible(const QString&, QObject* object) {
    const QVariant role = object->property(roleProperty);
    auto* widget = role.isValid() ? qobject_cast<QWidget*>(object) : nullptr;
    return widget == nullptr ? nullptr
                             : new QAccessibleWidget(widget, static_cast<QAccessible::Role>(role.toInt()));
}

}  // namespace

void presentAs(QWidget& widget, QAccessible::Role role, const QString& name) {
    // Qt keeps a list of the factories and takes each of them once.
    QAccessible::installFactory(&makeAccessible);
    widget.setProperty(roleProperty, static_cast<int>(role));
    widget.setAccessibleName(name);
}

}  // namespace quarlin
