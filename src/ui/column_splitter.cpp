#include "column_splitter.h"

#include "colors.h"

#include <QPainter>
#include <QSplitterHandle>

namespace quarlin {

namespace {

struct Column {
    int minimumWidth;
    int idealWidth;
    int maximumWidth;
    /// Share of the room that is left.
    int stretch;
};

constexpr Column inputColumn{290, 320, 380, 0};
constexpr Column settingsColumn{360, 440, QWIDGETSIZE_MAX, 1};
constexpr Column previewColumn{320, 380, QWIDGETSIZE_MAX, 2};

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
        setStretchFactor(count() - 1, column.stretch);
    };
    add(inputs, inputColumn);
    add(settings, settingsColumn);
    add(previews, previewColumn);
}

QSplitterHandle* ColumnSplitter::createHandle() { return new Handle(orientation(), this); }

void ColumnSplitter::resizeEvent(QResizeEvent* event) {
    if (!m_hasIdealWidths) {
        m_hasIdealWidths = true;
        const int spare = qMax(0, width() - 2 * handleWidth() - inputColumn.idealWidth -
                                      settingsColumn.idealWidth - previewColumn.idealWidth);
        const int forSettings =
            spare * settingsColumn.stretch / (settingsColumn.stretch + previewColumn.stretch);
        setSizes({inputColumn.idealWidth, settingsColumn.idealWidth + forSettings,
                  previewColumn.idealWidth + spare - forSettings});
    }
    QSplitter::resizeEvent(event);
}

}  // namespace quarlin
