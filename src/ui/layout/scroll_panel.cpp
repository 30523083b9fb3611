#include "ui/layout/scroll_panel.h"

#include "ui/style/metrics.h"

#include <QScrollBar>
#include <QStyle>
#include <QVBoxLayout>

namespace quarlin {

ScrollPanel::ScrollPanel(int spacing, const QMargins& margins, QWidget* parent)
    : QScrollArea(parent), m_overlayBar(makeOverlayBar()) {
    auto* content = new QWidget;
    m_rows = new QVBoxLayout(content);
    m_rows->setContentsMargins(margins);
    m_rows->setSpacing(spacing);
    setWidget(content);
    setWidgetResizable(true);
    setFrameShape(QFrame::NoFrame);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    // What is reached with Tab is scrolled into view; the area itself is no stop on the way.
    setFocusPolicy(Qt::NoFocus);
    viewport()->setAutoFillBackground(false);
    content->setAutoFillBackground(false);
}

// Qt's scroll area would make the content narrower to make room for a bar of its own. So that bar stays
// hidden, and this one moves it and moves with it.
QScrollBar* ScrollPanel::makeOverlayBar() {
    auto* bar = new QScrollBar(Qt::Vertical, this);
    QScrollBar* hidden = verticalScrollBar();
    connect(hidden, &QScrollBar::rangeChanged, bar, [this, bar, hidden](int minimum, int maximum) {
        bar->setRange(minimum, maximum);
        bar->setPageStep(viewport()->height());
        bar->setSingleStep(hidden->singleStep());
        bar->setVisible(maximum > minimum);
    });
    connect(hidden, &QScrollBar::valueChanged, bar, &QScrollBar::setValue);
    connect(bar, &QScrollBar::valueChanged, hidden, &QScrollBar::setValue);
    bar->hide();
    return bar;
}

QSize ScrollPanel::minimumSizeHint() const { return {widget()->minimumSizeHint().width(), 60}; }

void ScrollPanel::resizeEvent(QResizeEvent* event) {
    QScrollArea::resizeEvent(event);
    constexpr int thickness = metrics::scrollBarThickness;
    const QRect end(width() - thickness, 0, thickness, height());
    m_overlayBar->setGeometry(QStyle::visualRect(layoutDirection(), rect(), end));
    m_overlayBar->raise();
}

}  // namespace quarlin
