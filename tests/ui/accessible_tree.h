#pragma once

#include <QAccessible>
#include <QString>
#include <QWidget>

namespace quarlin::fixtures {

/// Calls `visit` for what assistive technology finds at `object` and below it, in its order.
template <typename Visit>
void forEachAccessible(QAccessibleInterface& object, const Visit& visit) {
    visit(object);
    for (int index = 0; index < object.childCount(); ++index) {
        if (QAccessibleInterface* child = object.child(index)) {
            forEachAccessible(*child, visit);
        }
    }
}

template <typename Visit>
void forEachAccessible(QWidget& widget, const Visit& visit) {
    forEachAccessible(*QAccessible::queryAccessibleInterface(&widget), visit);
}

/// Compares what a screen reader finds at `widget` and below it with the text named `name` in
/// tests/app/accessible_trees; see CONTRIBUTING.md for how these texts are updated.
void expectAccessibleTree(const QWidget& widget, const QString& name);

}  // namespace quarlin::fixtures
