#include "ui/controls/name_field.h"

#include <QDragEnterEvent>
#include <QKeyEvent>
#include <QMimeData>

namespace quarlin {

using namespace Qt::StringLiterals;

NameField::NameField(QWidget* parent) : QLineEdit(parent) {
    setPlaceholderText(u"Name"_s);
    setAccessibleName(u"Name"_s);
}

void NameField::showName(const QString& name) {
    if (text() != name) {
        setText(name);
        if (!hasFocus()) {
            // A long name is recognized by its beginning.
            setCursorPosition(0);
        }
    }
}

void NameField::dragEnterEvent(QDragEnterEvent* event) {
    if (event->mimeData()->hasUrls()) {
        // A file is not for the field, which would insert its path, but for the window.
        event->ignore();
    } else {
        QLineEdit::dragEnterEvent(event);
    }
}

bool NameField::event(QEvent* event) {
    if (event->type() == QEvent::ShortcutOverride) {
        auto* key = static_cast<QKeyEvent*>(event);
        // Deleting a word while typing must never reach a menu entry with the same keys.
        if (key->matches(QKeySequence::DeleteStartOfWord) || key->matches(QKeySequence::DeleteEndOfWord)) {
            key->accept();
            return true;
        }
        // Some desktops bind this to a cursor movement that the End key makes as well; here it is the
        // shortcut of a menu entry.
        if (key->keyCombination() == (Qt::CTRL | Qt::Key_E)) {
            key->ignore();
            return false;
        }
    }
    return QLineEdit::event(event);
}

}  // namespace quarlin
