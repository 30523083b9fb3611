#include "ui/layout/scroll_panel.h"

#include "ui/accessibility/accessible_role.h"
#include "ui/style/metrics.h"

#include <QScrollBar>
#include <QStyle>
#include <QTimer>
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
    // Qt would present the parent of the bar, which is this panel, as a child of the panel, and so without
    // end.
    presentAs(*this, QAccessible::Client, {});
    bar->hide();
    connect(bar, &QScrollBar::rangeChanged, bar,
            [bar](int minimum, int maximum) { bar->setVisible(maximum > minimum); });
    connect(bar, &QScrollBar::valueChanged, this,
            [this, bar](int value) { m_isAtEnd = bar->maximum() > 0 && value == bar->maximum(); });
    connect(bar, &QScrollBar::rangeChanged, this, &ScrollPanel::keepEnd);
    // What Tab reaches is scrolled into view; Tab does not stop at the area itself.
    setFocusPolicy(Qt::NoFocus);
    viewport()->setAutoFillBackground(false);
    content->setAutoFillBackground(false);
}

void ScrollPanel::keepEnd() {
    QScrollBar* bar = verticalScrollBar();
    if (m_isAtEnd) {
        bar->setValue(bar->maximum());
    }
    m_isAtEnd = bar->maximum() > 0 && bar->value() == bar->maximum();
}

void ScrollPanel::showEnd() {
    QScrollBar* bar = verticalScrollBar();
    // A timer fires after all posted events, so after the layouts have been done.
    QTimer::singleShot(0, bar, [bar] { bar->setValue(bar->maximum()); });
}

void ScrollPanel::showArea(const QWidget& row, const QRect& area) {
    constexpr int margin = 8;
    const QRect shown(row.mapTo(widget(), area.topLeft()), area.size());
    QScrollBar* bar = verticalScrollBar();
    const int lowest = shown.bottom() + 1 + margin - viewport()->height();
    const int highest = shown.top() - margin;
    bar->setValue(qMin(qMax(bar->value(), lowest), highest));
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
