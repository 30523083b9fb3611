#include "ui/viewer/map_canvas.h"

#include "ui/style/colors.h"
#include "ui/viewer/map_painting.h"
#include "ui/viewer/map_zoom.h"

#include <QPainter>
#include <QScrollBar>
#include <QWheelEvent>

#include <algorithm>
#include <cmath>
#include <utility>

namespace quarlin {

using namespace Qt::StringLiterals;

namespace {

/// Around the whole map.
constexpr int margin = 12;
/// How far a key moves the map, in pixels of the viewport.
constexpr int keyDistance = 64;
/// The number of copies across and down.
constexpr int copies = 3;

}  // namespace

MapCanvas::MapCanvas(QWidget* parent) : QAbstractScrollArea(parent) {
    setFrameShape(QFrame::NoFrame);
    setFocusPolicy(Qt::StrongFocus);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAsNeeded);
    setVerticalScrollBarPolicy(Qt::ScrollBarAsNeeded);
    viewport()->setMouseTracking(true);
    viewport()->setCursor(Qt::OpenHandCursor);
}

void MapCanvas::setMap(std::shared_ptr<const MapPyramid> map) {
    const QSize before = mapSize();
    m_map = std::move(map);
    if (mapSize() != before) {
        m_scale.reset();
        updateScrollBars();
        Q_EMIT scaleChanged();
    }
    viewport()->update();
    Q_EMIT probeChanged();
}

void MapCanvas::setChannel(std::optional<TextureChannel> channel) {
    m_channel = channel;
    viewport()->update();
}

void MapCanvas::setTiled(bool isTiled) {
    if (isTiled == m_isTiled) {
        return;
    }
    // The map stays where it is: it is the middle one of the copies.
    const QPointF shift = QPointF(mapSize().width(), mapSize().height()) * (isTiled ? 1 : -1);
    const QPointF shown = contentPosition(middle()) + shift;
    m_isTiled = isTiled;
    updateScrollBars();
    if (m_scale) {
        const QPointF corner = shown * viewScale() - middle();
        horizontalScrollBar()->setValue(qRound(corner.x()));
        verticalScrollBar()->setValue(qRound(corner.y()));
    }
    viewport()->update();
    Q_EMIT scaleChanged();
    Q_EMIT probeChanged();
}

QSize MapCanvas::mapSize() const { return m_map ? m_map->size() : QSize(); }

QSize MapCanvas::contentSize() const { return mapSize() * (m_isTiled ? copies : 1); }

double MapCanvas::fitting() const {
    const QSize room = (maximumViewportSize() - QSize(2 * margin, 2 * margin)).expandedTo({1, 1});
    return fittingScale(contentSize(), room * devicePixelRatioF());
}

double MapCanvas::scale() const { return m_scale.value_or(fitting()); }

QPointF MapCanvas::middle() const { return QRectF(viewport()->rect()).center(); }

QRectF MapCanvas::contentRect() const {
    const QSizeF size = QSizeF(contentSize()) * viewScale();
    // Content that fits is in the middle, on whole pixels, which keeps its edges sharp.
    const auto place = [](double content, int room, const QScrollBar* bar) {
        return content <= room ? std::floor((room - content) / 2) : -bar->value();
    };
    return {{place(size.width(), viewport()->width(), horizontalScrollBar()),
             place(size.height(), viewport()->height(), verticalScrollBar())},
            size};
}

QPointF MapCanvas::contentPosition(const QPointF& position) const {
    return (position - contentRect().topLeft()) / viewScale();
}

QPoint MapCanvas::viewportPosition(const QPoint& pixel) const {
    const QPointF shift = m_isTiled ? QPointF(mapSize().width(), mapSize().height()) : QPointF();
    const QPointF place =
        contentRect().topLeft() + (QPointF(pixel) + QPointF(0.5, 0.5) + shift) * viewScale();
    return {static_cast<int>(std::floor(place.x())), static_cast<int>(std::floor(place.y()))};
}

void MapCanvas::setScale(std::optional<double> scale, const QPointF& anchor) {
    const QPointF kept = contentPosition(anchor);
    m_scale = scale;
    updateScrollBars();
    const QPointF corner = kept * viewScale() - anchor;
    horizontalScrollBar()->setValue(qRound(corner.x()));
    verticalScrollBar()->setValue(qRound(corner.y()));
    viewport()->update();
    Q_EMIT scaleChanged();
    Q_EMIT probeChanged();
}

void MapCanvas::zoomIn() {
    setScale(nextScale(scale(), fitting()), m_probe == Probe::pointer ? m_pointer : middle());
}

void MapCanvas::zoomOut() {
    const double fitted = fitting();
    const double scale = previousScale(this->scale(), fitted);
    // Where the whole map can be seen, it stays so when the window changes its size.
    setScale(scale <= fitted && fitted <= 1 ? std::nullopt : std::optional(scale),
             m_probe == Probe::pointer ? m_pointer : middle());
}

void MapCanvas::fit() { setScale(std::nullopt, middle()); }

void MapCanvas::showPixels() { setScale(1, m_probe == Probe::pointer ? m_pointer : middle()); }

void MapCanvas::updateScrollBars() {
    const QSizeF size = QSizeF(contentSize()) * viewScale();
    const auto update = [this](QScrollBar* bar, double content, int room) {
        bar->setRange(0, isFitted() ? 0 : std::max(0, static_cast<int>(std::ceil(content)) - room));
        bar->setPageStep(room);
        bar->setSingleStep(keyDistance);
    };
    // The first bar that shows takes room from the other one's range.
    for (int round = 0; round < 2; ++round) {
        update(horizontalScrollBar(), size.width(), viewport()->width());
        update(verticalScrollBar(), size.height(), viewport()->height());
    }
}

std::optional<ProbedPixel> MapCanvas::probedPixel() const {
    if (m_probe == Probe::none || !m_map || !m_map->isWhole()) {
        return std::nullopt;
    }
    const QPointF place = contentPosition(m_probe == Probe::pointer ? m_pointer : middle());
    const QPoint pixel(static_cast<int>(std::floor(place.x())), static_cast<int>(std::floor(place.y())));
    if (!QRect(QPoint(), contentSize()).contains(pixel)) {
        return std::nullopt;
    }
    const QPoint inMap(pixel.x() % mapSize().width(), pixel.y() % mapSize().height());
    return ProbedPixel{inMap, m_map->valueAt(inMap)};
}

void MapCanvas::setProbe(Probe probe) {
    m_probe = probe;
    viewport()->update();
    Q_EMIT probeChanged();
}

void MapCanvas::pan(const QPoint& distance) {
    horizontalScrollBar()->setValue(horizontalScrollBar()->value() + distance.x());
    verticalScrollBar()->setValue(verticalScrollBar()->value() + distance.y());
}

bool MapCanvas::panWithKey(int key) {
    // Far into the map, a key moves by one of its pixels, so that each can be read.
    const int distance = scale() >= keyDistance / 4.0 ? std::max(1, qRound(viewScale())) : keyDistance;
    switch (key) {
        case Qt::Key_Left:
            pan({-distance, 0});
            break;
        case Qt::Key_Right:
            pan({distance, 0});
            break;
        case Qt::Key_Up:
            pan({0, -distance});
            break;
        case Qt::Key_Down:
            pan({0, distance});
            break;
        default:
            return false;
    }
    setProbe(Probe::middle);
    return true;
}

void MapCanvas::keyPressEvent(QKeyEvent* event) {
    if (event->modifiers().testFlag(Qt::ShiftModifier)) {
        event->setAccepted(panWithKey(event->key()));
        return;
    }
    const int towardsEnd = layoutDirection() == Qt::LeftToRight ? 1 : -1;
    switch (event->key()) {
        case Qt::Key_Left:
            return Q_EMIT stepRequested(-towardsEnd);
        case Qt::Key_Right:
            return Q_EMIT stepRequested(towardsEnd);
        case Qt::Key_Up:
            return Q_EMIT stepRequested(-1);
        case Qt::Key_Down:
            return Q_EMIT stepRequested(1);
        default:
            event->ignore();
    }
}

void MapCanvas::wheelEvent(QWheelEvent* event) {
    m_pointer = event->position();
    m_probe = Probe::pointer;
    // A touch pad reports parts of a turn.
    constexpr int turn = 120;
    m_wheelTurn += event->angleDelta().y();
    for (; m_wheelTurn >= turn; m_wheelTurn -= turn) {
        zoomIn();
    }
    for (; m_wheelTurn <= -turn; m_wheelTurn += turn) {
        zoomOut();
    }
    event->accept();
}

void MapCanvas::mousePressEvent(QMouseEvent* event) {
    if (event->button() == Qt::LeftButton || event->button() == Qt::MiddleButton) {
        m_dragged = event->position().toPoint();
        viewport()->setCursor(Qt::ClosedHandCursor);
    }
}

void MapCanvas::mouseMoveEvent(QMouseEvent* event) {
    m_pointer = event->position();
    if (m_dragged) {
        const QPoint before = *std::exchange(m_dragged, event->position().toPoint());
        pan(before - *m_dragged);
    }
    setProbe(Probe::pointer);
}

void MapCanvas::mouseReleaseEvent(QMouseEvent*) {
    m_dragged.reset();
    viewport()->setCursor(Qt::OpenHandCursor);
}

void MapCanvas::mouseDoubleClickEvent(QMouseEvent* event) {
    if (event->button() != Qt::LeftButton) {
        return;
    }
    m_pointer = event->position();
    m_probe = Probe::pointer;
    if (isFitted()) {
        showPixels();
    } else {
        fit();
    }
}

bool MapCanvas::viewportEvent(QEvent* event) {
    if (event->type() == QEvent::Leave && m_probe == Probe::pointer) {
        setProbe(Probe::none);
    }
    return QAbstractScrollArea::viewportEvent(event);
}

void MapCanvas::resizeEvent(QResizeEvent*) {
    updateScrollBars();
    if (isFitted()) {
        Q_EMIT scaleChanged();
    }
}

void MapCanvas::scrollContentsBy(int, int) {
    viewport()->update();
    Q_EMIT probeChanged();
}

void MapCanvas::paintEvent(QPaintEvent* event) {
    QPainter painter(viewport());
    painter.fillRect(event->rect(), withOpacity(secondaryColor(palette()), 0.2));
    if (!m_map || mapSize().isEmpty()) {
        return;
    }
    const QRectF content = contentRect();
    const QRect seen = content.toAlignedRect().intersected(event->rect());
    if (seen.isEmpty()) {
        return;
    }
    paintMap(painter, palette(), *m_map, {content, viewScale(), m_isTiled, m_channel}, seen);
    if (m_probe == Probe::middle) {
        paintMark(painter, middle().toPoint());
    }
}

}  // namespace quarlin
