#include "ui/viewer/map_viewer.h"

#include "ui/panels/preview_panel.h"
#include "ui/viewer/viewer_window.h"

namespace quarlin {

MapViewer::MapViewer(const MaterialStore& materials, const NormalGeneratorStore& maps, QObject* parent)
    : QObject(parent), m_materialMaps(materials), m_generatorMaps(maps) {}

MapViewer::~MapViewer() = default;

void MapViewer::openTilesOf(PreviewPanel& panel, const MapSource& source) {
    connect(&panel, &PreviewPanel::tileOpened, this, [this, &source](int index) {
        const std::vector<ShownMap> maps = source.maps();
        // The tiles are redrawn later than the store changes.
        if (index >= static_cast<int>(maps.size())) {
            return;
        }
        if (!m_window) {
            m_window = std::make_unique<ViewerWindow>();
            // The program ends with its main window.
            m_window->setAttribute(Qt::WA_QuitOnClose, false);
        }
        m_window->open(source, maps[static_cast<std::size_t>(index)].image);
    });
}

}  // namespace quarlin
