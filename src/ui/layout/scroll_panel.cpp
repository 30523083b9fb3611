#include "ui/layout/scroll_panel.h"

#include "ui/controls/overlay_scroll_bar.h"

#include <QScrollBar>
#include <QStyle>
#include <QVBoxLayout>

namespace quarlin {

ScrollPanel::ScrollPanel(int spacing, const QMargins& margins, QWidget* parent) : QScrollArea(parent) {
    auto* content = new QWidget;
    m_rows = new QVBoxLayout(content);
    m_rows->setContentsMargins(margins);
    m_rows->setSpacing(spacing);
    setWidget(content);
    setWidgetResizable(true);
    setFrameShape(QFrame::NoFrame);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    m_bar = new OverlayScrollBar(*verticalScrollBar(), this);
    // What is reached with Tab is scrolled into view; the area itself is no stop on the way.
    setFocusPolicy(Qt::NoFocus);
    viewport()->setAutoFillBackground(false);
    content->setAutoFillBackground(false);
}

QSize ScrollPanel::minimumSizeHint() const { return {widget()->minimumSizeHint().width(), 60}; }

void ScrollPanel::resizeEvent(QResizeEvent* event) {
    QScrollArea::resizeEvent(event);
    const QRect place(width() - OverlayScrollBar::thickness, 0, OverlayScrollBar::thickness, height());
    m_bar->setGeometry(QStyle::visualRect(layoutDirection(), rect(), place));
    m_bar->raise();
}

}  // namespace quarlin
