#include "scroll_panel.h"

#include <QScrollBar>
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
    // What is reached with Tab is scrolled into view; the area itself is no stop on the way.
    setFocusPolicy(Qt::NoFocus);
    viewport()->setAutoFillBackground(false);
    content->setAutoFillBackground(false);
}

QSize ScrollPanel::minimumSizeHint() const {
    return {widget()->minimumSizeHint().width() + verticalScrollBar()->sizeHint().width(), 60};
}

}  // namespace quarlin
