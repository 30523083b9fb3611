#include "ui/layout/column_splitter.h"

#include "ui/style/colors.h"

#include <QPainter>
#include <QSplitterHandle>

#include <numeric>

namespace quarlin {

namespace {

struct Column {
    int minimumWidth;
    int idealWidth;
    int maximumWidth;
    /// Share of the room beyond the ideal widths, in quarters.
    int share;
};

constexpr Column inputColumn{290, 320, 380, 0};
constexpr Column settingsColumn{360, 440, QWIDGETSIZE_MAX, 1};
constexpr Column previewColumn{320, 380, QWIDGETSIZE_MAX, 3};

/// A line, one pixel thick; Qt lets it be grabbed a few pixels to either side.
class Handle : public QSplitterHandle {
public:
    using QSplitterHandle::QSplitterHandle;

protected:
    void paintEvent(QPaintEvent*) override {
        QPainter painter(this);
        painter.fillRect(contentsRect(), separatorColor(palette()));
    }
};

}  // namespace

ColumnSplitter::ColumnSplitter(QWidget* inputs, QWidget* settings, QWidget* previews, QWidget* parent)
    : QSplitter(Qt::Horizontal, parent),
      m_widths{inputColumn.idealWidth, settingsColumn.idealWidth, previewColumn.idealWidth} {
    setChildrenCollapsible(false);
    setHandleWidth(1);
    const auto add = [this](QWidget* widget, const Column& column) {
        widget->setMinimumWidth(qMax(column.minimumWidth, widget->minimumSizeHint().width()));
        widget->setMaximumWidth(column.maximumWidth);
        addWidget(widget);
    };
    add(inputs, inputColumn);
    add(settings, settingsColumn);
    add(previews, previewColumn);
    // Qt puts each column before the others, also for assistive technology, which reads them in that order.
    for (int column = 0; column < count(); ++column) {
        widget(column)->raise();
    }
    for (int column = 0; column < count(); ++column) {
        handle(column)->raise();
    }
    connect(this, &QSplitter::splitterMoved, this, [this] { m_widths = sizes(); });
}

QSplitterHandle* ColumnSplitter::createHandle() { return new Handle(orientation(), this); }

void ColumnSplitter::resizeEvent(QResizeEvent* event) {
    const int room = width() - 2 * handleWidth();
    const int spare = room - std::accumulate(m_widths.begin(), m_widths.end(), 0);
    const int settings =
        qMax(widget(1)->minimumWidth(),
             m_widths[1] + spare * settingsColumn.share / (settingsColumn.share + previewColumn.share));
    setSizes({m_widths[0], settings, room - m_widths[0] - settings});
    QSplitter::resizeEvent(event);
}

}  // namespace quarlin
