#pragma once

#include "ui/viewer/store_maps.h"

#include <QObject>

#include <memory>

namespace quarlin {

class PreviewPanel;
class ViewerWindow;

/// Opens the tiles of both tools in the one viewer window, which is made when it is first needed.
class MapViewer : public QObject {
    Q_OBJECT

public:
    /// The stores must outlive the viewer.
    MapViewer(const MaterialStore& materials, const NormalGeneratorStore& maps, QObject* parent = nullptr);
    ~MapViewer() override;

    /// Opens the tiles of `panel`, which shows the previews of the tool.
    void openTilesOf(PreviewPanel& panel, const MapSource& source);

    const MapSource& materialMaps() const { return m_materialMaps; }
    const MapSource& generatorMaps() const { return m_generatorMaps; }

    /// A null pointer before the first tile is opened.
    ViewerWindow* window() const { return m_window.get(); }

private:
    MaterialMaps m_materialMaps;
    GeneratorMaps m_generatorMaps;
    std::unique_ptr<ViewerWindow> m_window;
};

}  // namespace quarlin
