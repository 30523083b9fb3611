#include "ui/layout/scroll_panel.h"

#include "ui/style/metrics.h"

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
    // The scroll area would make the rows narrower where it shows its bar. It is told not to, and the bar
    // moves out of its care, over the rows.
    setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    QScrollBar* bar = verticalScrollBar();
    bar->setParent(this);
    bar->hide();
    connect(bar, &QScrollBar::rangeChanged, bar,
            [bar](int minimum, int maximum) { bar->setVisible(maximum > minimum); });
    // What Tab reaches is scrolled into view; Tab does not stop at the area itself.
    setFocusPolicy(Qt::NoFocus);
    viewport()->setAutoFillBackground(false);
    content->setAutoFillBackground(false);
}

QSize ScrollPanel::minimumSizeHint() const { return {widget()->minimumSizeHint().width(), 60}; }

void ScrollPanel::resizeEvent(QResizeEvent* event) {
    QScrollArea::resizeEvent(event);
    constexpr int thickness = metrics::scrollBarThickness;
    const QRect end(width() - thickness, 0, thickness, height());
    verticalScrollBar()->setGeometry(QStyle::visualRect(layoutDirection(), rect(), end));
    verticalScrollBar()->raise();
}

}  // namespace quarlin
