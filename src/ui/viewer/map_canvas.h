#pragma once

#include "model/texture_slot_kind.h"
#include "ui/viewer/map_pyramid.h"

#include <QAbstractScrollArea>
#include <QPoint>
#include <QPointF>
#include <QRectF>

#include <memory>
#include <optional>

namespace quarlin {

/// A pixel of the map that the user looks at.
struct ProbedPixel {
    QPoint place;
    /// With straight alpha, as in the exported file.
    QColor value;
};

/// Draws a map at any scale. Only what can be seen is drawn, so that the size of the map does not matter.
///
/// The wheel zooms at the pointer, and dragging moves the map. A double click changes between the whole map
/// and its pixels. Shift with an arrow key moves the map, too.
class MapCanvas : public QAbstractScrollArea {
    Q_OBJECT

public:
    explicit MapCanvas(QWidget* parent = nullptr);

    /// Shows `map`, or nothing for a null pointer. A map of the size of the one before is shown at the same
    /// place.
    void setMap(std::shared_ptr<const MapPyramid> map);

    /// The channel to show in gray; nothing for the colors.
    void setChannel(std::optional<TextureChannel> channel);

    /// Whether the map is shown three times across and three times down, as a tiled surface shows it.
    void setTiled(bool isTiled);

    /// Pixels of the screen for each pixel of the map.
    double scale() const;
    bool isFitted() const { return !m_scale.has_value(); }

    void zoomIn();
    void zoomOut();
    /// Shows the whole map, also when the view changes its size.
    void fit();
    /// Shows each pixel of the map as one pixel of the screen.
    void showPixels();

    /// The pixel under the pointer, or the one in the middle once the keyboard has moved the map.
    std::optional<ProbedPixel> probedPixel() const;

    /// The place in the viewport of the middle of a pixel of the (middle) map.
    QPoint viewportPosition(const QPoint& pixel) const;

Q_SIGNALS:
    void scaleChanged();
    void probeChanged();
    /// The user wants to see the map before (-1) or after (1) this one.
    void stepRequested(int step);

protected:
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void scrollContentsBy(int dx, int dy) override;
    void keyPressEvent(QKeyEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;
    bool viewportEvent(QEvent* event) override;

private:
    /// Which pixel is probed.
    enum class Probe { none, pointer, middle };

    QSize mapSize() const;
    /// The size of everything that is shown, in pixels of the map.
    QSize contentSize() const;
    double fitting() const;
    /// Pixels of the viewport for each pixel of the map.
    double viewScale() const { return scale() / devicePixelRatioF(); }
    /// Where the content is in the viewport.
    QRectF contentRect() const;
    /// The place in the content, in pixels of the map.
    QPointF contentPosition(const QPointF& position) const;
    void setScale(std::optional<double> scale, const QPointF& anchor);
    void updateScrollBars();
    void pan(const QPoint& distance);
    bool panWithKey(int key);
    void setProbe(Probe probe);
    QPointF middle() const;

    std::shared_ptr<const MapPyramid> m_map;
    std::optional<TextureChannel> m_channel;
    bool m_isTiled = false;
    /// Nothing while the whole map is shown.
    std::optional<double> m_scale;
    Probe m_probe = Probe::none;
    QPointF m_pointer;
    std::optional<QPoint> m_dragged;
    int m_wheelTurn = 0;
};

}  // namespace quarlin
