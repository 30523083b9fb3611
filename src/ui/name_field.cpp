#include "name_field.h"

#include "metrics.h"

#include <QKeyEvent>

namespace quarlin {

NameField::NameField(QWidget* parent) : QLineEdit(parent) {
    setPlaceholderText(QStringLiteral("Name"));
    setAccessibleName(QStringLiteral("Name"));
    setMinimumHeight(metrics::controlHeight);
    setTextMargins(3, 0, 3, 0);
}

void NameField::showName(const QString& name) {
    if (text() != name) {
        setText(name);
    }
}

bool NameField::event(QEvent* event) {
    if (event->type() == QEvent::ShortcutOverride) {
        auto* key = static_cast<QKeyEvent*>(event);
        // Taking a word back while typing must never reach a menu entry of the same keys.
        if (key->matches(QKeySequence::DeleteStartOfWord) || key->matches(QKeySequence::DeleteEndOfWord)) {
            key->accept();
            return true;
        }
        // Some desktops bind this to a cursor movement that the End key makes as well; the menu has it here.
        if (key->keyCombination() == (Qt::CTRL | Qt::Key_E)) {
            key->ignore();
            return false;
        }
    }
    return QLineEdit::event(event);
}

}  // namespace quarlin
