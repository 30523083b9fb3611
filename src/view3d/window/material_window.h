#pragma once

#include "view3d/maps/map_builder.h"
#include "view3d/maps/material_maps.h"
#include "view3d/scene/scene.h"

#include <QWidget>

#include <memory>
#include <optional>

namespace quarlin {

class LookPanel;
class TextLabel;

/// The window with the 3D view of a material and its controls. It shows the maps of the tool's previews as
/// soon as they are there, and the same maps in detail once they are computed.
class MaterialWindow : public QWidget {
    Q_OBJECT

public:
    /// `look` is how the material is shown, and `details` computes its maps. Both must outlive the window.
    MaterialWindow(std::unique_ptr<Scene> scene, SceneLook& look, MapBuilder& details);
    ~MaterialWindow() override;

    /// Shows the material of a tool, and follows it.
    void setMaterial(const ToolMaterial& material);

    Scene& scene() const { return *m_scene; }
    /// Whether the maps in detail are not there yet.
    bool isBuilding() const { return m_details.isBuilding(); }

Q_SIGNALS:
    /// The picture has received the maps in detail.
    void detailsShown();

protected:
    void changeEvent(QEvent* event) override;

private:
    QWidget* makePicture();
    void showMaps();
    void showLook();

    std::unique_ptr<Scene> m_scene;
    SceneLook& m_look;
    MapBuilder& m_details;
    std::optional<ToolMaterial> m_material;
    /// Ends when another material is followed.
    std::unique_ptr<QObject> m_following;
    SceneMaps m_previews;
    LookPanel* m_panel;
    TextLabel* m_caption;
};

}  // namespace quarlin
