#include "ui/panels/log_view.h"

#include "ui/style/colors.h"
#include "ui/style/typography.h"

#include <QEvent>
#include <QFocusFrame>
#include <QKeyEvent>
#include <QScrollBar>
#include <QTextBlock>

#include <algorithm>
#include <cmath>

namespace quarlin {

using namespace Qt::StringLiterals;

namespace {

constexpr int lineSpacing = 6;

/// How many lines have to be removed from the front of `before` so that `after` begins with the rest.
qsizetype outdated(const QStringList& before, const QStringList& after) {
    qsizetype count = 0;
    while (count < before.size() && (before.size() - count > after.size() ||
                                     !std::equal(before.begin() + count, before.end(), after.begin()))) {
        ++count;
    }
    return count;
}

}  // namespace

LogView::LogView(QWidget* parent) : QTextEdit(parent), m_ring(new QFocusFrame(this)) {
    setReadOnly(true);
    setAcceptRichText(false);
    setUndoRedoEnabled(false);
    setTabChangesFocus(true);
    setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
    setFrameShape(QFrame::NoFrame);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setWordWrapMode(QTextOption::WrapAtWordBoundaryOrAnywhere);
    viewport()->setAutoFillBackground(false);
    document()->setDocumentMargin(0);
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
    setAccessibleName(u"Log"_s);
    connect(this, &QTextEdit::cursorPositionChanged, this, [this] {
        if (hasFocus() && !m_isChanging) {
            Q_EMIT caretMoved(cursorRect());
        }
    });
    applyStyle();
}

QStringList LogView::lines() const { return m_lines; }

void LogView::setLines(const QStringList& lines) {
    m_isChanging = true;
    removeFirstLines(outdated(m_lines, lines));
    for (const QString& line : lines.mid(m_lines.size())) {
        append(line);
    }
    applyStyle();
    fitHeight();
    m_isChanging = false;
}

void LogView::append(const QString& line) {
    QTextCursor cursor(document());
    cursor.movePosition(QTextCursor::End);
    if (!m_lines.isEmpty()) {
        cursor.insertBlock();
    }
    cursor.insertText(line);
    m_lines.append(line);
}

void LogView::removeFirstLines(qsizetype count) {
    if (count == m_lines.size()) {
        clear();
    } else if (count > 0) {
        QTextCursor cursor(document());
        cursor.setPosition(document()->findBlockByNumber(static_cast<int>(count)).position(),
                           QTextCursor::KeepAnchor);
        cursor.removeSelectedText();
    }
    m_lines.remove(0, count);
}

void LogView::applyStyle() {
    setFont(quarlin::font(TextStyle::monospacedCaption));
    QPalette colors = palette();
    // Only when it changes: setting a palette announces a change of palette, which leads here.
    if (const QColor text = secondaryColor(colors); colors.color(QPalette::Text) != text) {
        colors.setColor(QPalette::Text, text);
        setPalette(colors);
    }
    const QTextBlock last = document()->lastBlock();
    for (QTextBlock block = document()->begin(); block.isValid(); block = block.next()) {
        QTextBlockFormat format = block.blockFormat();
        format.setBottomMargin(block == last ? 0 : lineSpacing);
        QTextCursor(block).setBlockFormat(format);
    }
}

void LogView::fitHeight() {
    document()->setTextWidth(viewport()->width());
    setFixedHeight(static_cast<int>(std::ceil(document()->size().height())));
    verticalScrollBar()->setValue(0);
}

bool LogView::event(QEvent* event) {
    const bool handled = QTextEdit::event(event);
    if (event->type() == QEvent::ApplicationFontChange || event->type() == QEvent::PaletteChange) {
        applyStyle();
        fitHeight();
    }
    return handled;
}

void LogView::resizeEvent(QResizeEvent* event) {
    QTextEdit::resizeEvent(event);
    fitHeight();
}

bool LogView::scrollsPanel(const QKeyEvent& key) const {
    if (key.modifiers().testFlag(Qt::ShiftModifier)) {
        return false;
    }
    const auto staysIn = [this](QTextCursor::MoveOperation move) {
        return !QTextCursor(textCursor()).movePosition(move);
    };
    switch (key.key()) {
        case Qt::Key_PageUp:
        case Qt::Key_PageDown:
            return true;
        case Qt::Key_Up:
            return staysIn(QTextCursor::Up);
        case Qt::Key_Down:
            return staysIn(QTextCursor::Down);
        default:
            return false;
    }
}

void LogView::keyPressEvent(QKeyEvent* event) {
    if (scrollsPanel(*event)) {
        event->ignore();
    } else {
        QTextEdit::keyPressEvent(event);
    }
}

void LogView::focusInEvent(QFocusEvent* event) {
    QTextEdit::focusInEvent(event);
    m_ring->setWidget(window()->testAttribute(Qt::WA_KeyboardFocusChange) ? this : nullptr);
}

void LogView::focusOutEvent(QFocusEvent* event) {
    QTextEdit::focusOutEvent(event);
    m_ring->setWidget(nullptr);
}

}  // namespace quarlin
