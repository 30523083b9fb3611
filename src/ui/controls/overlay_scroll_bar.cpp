#include "ui/controls/overlay_scroll_bar.h"

#include "ui/style/colors.h"
#include "ui/style/painting.h"

#include <QMouseEvent>
#include <QPainter>
#include <QScrollBar>

#include <algorithm>

namespace quarlin {

namespace {

constexpr double leastHandleLength = 28;
constexpr double margin = 2;
constexpr double restingThickness = 6;

}  // namespace

OverlayScrollBar::OverlayScrollBar(QScrollBar& scrollBar, QWidget* parent) : QAbstractSlider(parent) {
    setOrientation(Qt::Vertical);
    // Painted anew when the pointer comes and goes.
    setAttribute(Qt::WA_Hover);
    setFocusPolicy(Qt::NoFocus);
    const auto follow = [this, &scrollBar] {
        setRange(scrollBar.minimum(), scrollBar.maximum());
        setPageStep(scrollBar.pageStep());
        setSingleStep(scrollBar.singleStep());
        setVisible(maximum() > minimum());
    };
    connect(&scrollBar, &QScrollBar::rangeChanged, this, follow);
    connect(&scrollBar, &QScrollBar::valueChanged, this, &OverlayScrollBar::setValue);
    connect(this, &OverlayScrollBar::valueChanged, &scrollBar, &QScrollBar::setValue);
    follow();
}

QRectF OverlayScrollBar::handle() const {
    const double track = height() - 2 * margin;
    const double span = std::max(1, maximum() - minimum());
    const double length = std::clamp(track * pageStep() / (span + pageStep()), leastHandleLength,
                                     std::max(leastHandleLength, track));
    const double top = margin + (track - length) * (value() - minimum()) / span;
    const double breadth = isSliderDown() || underMouse() ? width() - 2 * margin : restingThickness;
    return {width() - margin - breadth, top, breadth, length};
}

void OverlayScrollBar::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    const QRectF area = handle();
    const double strength = isSliderDown() ? 0.7 : underMouse() ? 0.55 : 0.35;
    paintSurface(painter, area, area.width() / 2, withOpacity(secondaryColor(palette()), strength),
                 Qt::transparent);
}

void OverlayScrollBar::mousePressEvent(QMouseEvent* event) {
    const QRectF area = handle();
    const double y = event->position().y();
    if (event->button() != Qt::LeftButton) {
        return event->ignore();
    }
    if (y < area.top()) {
        triggerAction(SliderPageStepSub);
    } else if (y > area.bottom()) {
        triggerAction(SliderPageStepAdd);
    } else {
        m_grip = y - area.top();
        setSliderDown(true);
    }
    update();
}

void OverlayScrollBar::mouseMoveEvent(QMouseEvent* event) {
    if (isSliderDown()) {
        const double room = height() - 2 * margin - handle().height();
        const double part = (event->position().y() - m_grip - margin) / std::max(1.0, room);
        setValue(minimum() + qRound(part * (maximum() - minimum())));
    }
}

void OverlayScrollBar::mouseReleaseEvent(QMouseEvent*) {
    setSliderDown(false);
    update();
}

}  // namespace quarlin
