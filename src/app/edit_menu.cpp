#include "app/edit_menu.h"

#include <QAction>
#include <QApplication>
#include <QClipboard>
#include <QLineEdit>
#include <QTextEdit>

namespace quarlin {

using namespace Qt::StringLiterals;

EditMenu::EditMenu(QWidget* parent) : QMenu(u"&Edit"_s, parent) {
    addEntry(u"&Undo"_s, QKeySequence::Undo, Operation::undo);
    addEntry(u"&Redo"_s, QKeySequence::Redo, Operation::redo);
    addSeparator();
    addEntry(u"Cu&t"_s, QKeySequence::Cut, Operation::cut);
    addEntry(u"&Copy"_s, QKeySequence::Copy, Operation::copy);
    addEntry(u"&Paste"_s, QKeySequence::Paste, Operation::paste);
    addSeparator();
    addEntry(u"Select &All"_s, QKeySequence::SelectAll, Operation::selectAll);
    // The entries have to be right only while they are shown: the keys go to the text directly.
    connect(this, &QMenu::aboutToShow, this, &EditMenu::updateEntries);
    updateEntries();
}

void EditMenu::addEntry(const QString& text, QKeySequence::StandardKey key, Operation operation) {
    QAction* action = addAction(text);
    action->setShortcut(key);
    // The text handles these keys by itself. As shortcuts of the window they would also act where the text
    // ignores them.
    action->setShortcutContext(Qt::WidgetShortcut);
    action->setData(static_cast<int>(operation));
    connect(action, &QAction::triggered, this, [operation] { perform(operation); });
}

void EditMenu::updateEntries() {
    for (QAction* action : actions()) {
        if (!action->isSeparator()) {
            action->setEnabled(canPerform(static_cast<Operation>(action->data().toInt())));
        }
    }
}

bool EditMenu::canPerform(Operation operation) {
    QWidget* focused = QApplication::focusWidget();
    if (const auto* field = qobject_cast<QLineEdit*>(focused)) {
        switch (operation) {
            case Operation::undo:
                return field->isUndoAvailable();
            case Operation::redo:
                return field->isRedoAvailable();
            case Operation::cut:
            case Operation::copy:
                return field->hasSelectedText();
            case Operation::paste:
                return !QApplication::clipboard()->text().isEmpty();
            case Operation::selectAll:
                return !field->text().isEmpty();
        }
    }
    if (const auto* text = qobject_cast<QTextEdit*>(focused)) {
        // Every text edit of the window is read-only.
        return operation == Operation::selectAll ||
               (operation == Operation::copy && text->textCursor().hasSelection());
    }
    return false;
}

void EditMenu::perform(Operation operation) {
    const auto performOn = [operation](auto* text) {
        switch (operation) {
            case Operation::undo:
                return text->undo();
            case Operation::redo:
                return text->redo();
            case Operation::cut:
                return text->cut();
            case Operation::copy:
                return text->copy();
            case Operation::paste:
                return text->paste();
            case Operation::selectAll:
                return text->selectAll();
        }
    };
    QWidget* focused = QApplication::focusWidget();
    if (auto* field = qobject_cast<QLineEdit*>(focused)) {
        performOn(field);
    } else if (auto* text = qobject_cast<QTextEdit*>(focused)) {
        performOn(text);
    }
}

}  // namespace quarlin
