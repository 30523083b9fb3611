#pragma once

#include "ui/viewer/map_cache.h"
#include "ui/viewer/map_loader.h"
#include "ui/viewer/map_source.h"
#include "ui/viewer/viewer_actions.h"

#include <QPointer>
#include <QWidget>

#include <memory>
#include <vector>

class QStackedWidget;

namespace quarlin {

class MapCanvas;
class TextLabel;
class ViewerBar;

/// The window that shows one map of a tool at full resolution. It follows the tool's previews; where a map is
/// not made yet, its preview stands in for it.
class ViewerWindow : public QWidget {
    Q_OBJECT

public:
    explicit ViewerWindow(QWidget* parent = nullptr);

    /// Brings the window to the front with one of the source's maps, given by its `ShownMap::image`.
    void open(const MapSource& source, int image);

    MapCanvas& canvas() const { return *m_canvas; }
    ViewerActions& actions() { return m_actions; }
    /// Whether the map is still being made.
    bool isBusy() const { return m_loader.isBusy(); }

protected:
    void hideEvent(QHideEvent* event) override;

private:
    void connectActions();
    const ShownMap* shown() const;
    bool isFlipped() const;

    /// Shows the maps of the source as they are now, and of them the one that is shown already, if it is
    /// still there.
    void showSource();
    void step(int distance);
    void showImage(int image);
    void loadMap();
    void showMap(const std::shared_ptr<const MapPyramid>& map);
    void showFailure(const QString& reason);
    void showState(const QString& text);
    void showProbe();
    /// Gives `news` to screen readers, which read a description of the focused map that changes.
    void announce(const QString& news);

    ViewerActions m_actions;
    MapLoader m_loader;
    MapCache m_cache;
    QPointer<const MapSource> m_source;
    std::vector<ShownMap> m_maps;
    int m_image = 0;
    ViewerBar* m_bar;
    MapCanvas* m_canvas;
    QStackedWidget* m_pages;
    QWidget* m_empty;
    TextLabel* m_state;
    TextLabel* m_probe;
};

}  // namespace quarlin
