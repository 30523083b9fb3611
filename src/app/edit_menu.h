#pragma once

#include <QKeySequence>
#include <QMenu>

namespace quarlin {

/// The "Edit" menu. Its entries act on the text field or text that has the keyboard focus, and are enabled
/// as far as that text allows.
class EditMenu : public QMenu {
    Q_OBJECT

public:
    explicit EditMenu(QWidget* parent = nullptr);

private:
    enum class Operation { undo, redo, cut, copy, paste, selectAll };

    void addEntry(const QString& text, QKeySequence::StandardKey key, Operation operation);
    void updateEntries();

    static bool canPerform(Operation operation);
    static void perform(Operation operation);
};

}  // namespace quarlin
