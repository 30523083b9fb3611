#include "column_splitter.h"

#include "colors.h"

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

/// A line, one pixel thick; the toolkit lets it be grabbed a few pixels beside it.
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
    : QSplitter(Qt::Horizontal, parent) {
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
}

QSplitterHandle* ColumnSplitter::createHandle() { return new Handle(orientation(), this); }

void ColumnSplitter::resizeEvent(QResizeEvent* event) {
    const QList<int> before =
        m_hasWidths ? sizes()
                    : QList<int>{inputColumn.idealWidth, settingsColumn.idealWidth, previewColumn.idealWidth};
    m_hasWidths = true;
    const int room = width() - 2 * handleWidth();
    const int spare = room - std::accumulate(before.begin(), before.end(), 0);
    const int settings =
        qMax(widget(1)->minimumWidth(),
             before[1] + spare * settingsColumn.share / (settingsColumn.share + previewColumn.share));
    setSizes({before[0], settings, room - before[0] - settings});
    QSplitter::resizeEvent(event);
}

}  // namespace quarlin
