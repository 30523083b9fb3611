#pragma once

#include "store_fixture.h"
#include "test_application.h"
#include "ui/display/text_label.h"

#include <QApplication>
#include <QDragEnterEvent>
#include <QDropEvent>
#include <QWidget>
#include <QtTest>

#include <memory>

namespace quarlin::fixtures {

/// Runs the event loop until nothing is pending.
inline void settle() {
    for (int round = 0; round < 5; ++round) {
        QCoreApplication::sendPostedEvents();
        QCoreApplication::processEvents();
    }
}

/// The descendant of `root` named `name`; there must be one.
template <typename Widget>
Widget& child(const QWidget& root, const QString& name) {
    auto* found = root.findChild<Widget*>(name);
    if (found == nullptr) {
        throw std::runtime_error("no control named " + name.toStdString());
    }
    return *found;
}

/// The first descendant of `root` of its type whose text is `text`; there must be one.
template <typename Widget>
Widget& withText(const QWidget& root, const QString& text) {
    for (Widget* candidate : root.findChildren<Widget*>()) {
        if (candidate->text() == text) {
            return *candidate;
        }
    }
    throw std::runtime_error("no control with the text " + text.toStdString());
}

/// Whether a label with `text` can be seen under `root`.
inline bool shows(const QWidget& root, const QString& text) {
    const auto labels = root.findChildren<TextLabel*>();
    return std::any_of(labels.begin(), labels.end(), [&](const TextLabel* label) {
        return label->text() == text && label->isVisibleTo(&root);
    });
}

inline void click(QWidget& widget) {
    QTest::mouseClick(&widget, Qt::LeftButton, {}, widget.rect().center());
    settle();
}

inline void click(QWidget& widget, const QPoint& position) {
    QTest::mouseClick(&widget, Qt::LeftButton, {}, position);
    settle();
}

inline void press(QWidget& widget, Qt::Key key, Qt::KeyboardModifiers modifiers = {}) {
    QTest::keyClick(&widget, key, modifiers);
    settle();
}

/// Drags `data` over `widget`; returns whether the widget would accept it.
inline bool dragOver(QWidget& widget, const QMimeData& data) {
    const QPoint middle = widget.rect().center();
    QDragEnterEvent enter(middle, Qt::CopyAction | Qt::MoveAction, &data, Qt::LeftButton, {});
    QCoreApplication::sendEvent(&widget, &enter);
    if (!enter.isAccepted()) {
        return false;
    }
    QDragMoveEvent move(middle, Qt::CopyAction | Qt::MoveAction, &data, Qt::LeftButton, {});
    QCoreApplication::sendEvent(&widget, &move);
    return move.isAccepted();
}

inline void dragAway(QWidget& widget) {
    QDragLeaveEvent leave;
    QCoreApplication::sendEvent(&widget, &leave);
}

/// Drops `data` on `widget`; returns whether it was accepted.
inline bool dropOn(QWidget& widget, const QMimeData& data) {
    QDropEvent drop(widget.rect().center(), Qt::CopyAction | Qt::MoveAction, &data, Qt::LeftButton, {});
    QCoreApplication::sendEvent(&widget, &drop);
    return drop.isAccepted();
}

/// A view in a window of its own.
class ViewWindow {
public:
    ViewWindow(QWidget* view, const QSize& size) : m_view(view) {
        view->resize(size);
        view->show();
        view->activateWindow();
        settle();
    }
    QWidget& view() const { return *m_view; }

private:
    std::unique_ptr<QWidget> m_view;
};

}  // namespace quarlin::fixtures
