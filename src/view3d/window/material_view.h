#pragma once

#include "view3d/maps/map_builder.h"
#include "view3d/maps/material_maps.h"
#include "view3d/scene/scene_look.h"

#include <QAction>
#include <QObject>
#include <QPointer>
#include <QString>

#include <optional>

class QWidget;

namespace quarlin {

class MaterialWindow;

/// The 3D view as the main window knows it: the menu entry that opens it, and which material it shows.
/// Nothing is loaded before it is opened for the first time.
class MaterialView : public QObject {
    Q_OBJECT

public:
    /// Messages are shown in front of `mainWindow`, the parent. `moduleFile` is the plugin to load, by
    /// default the one of the program.
    explicit MaterialView(QWidget* mainWindow, QString moduleFile = {});
    ~MaterialView() override;

    /// "Material in 3D".
    QAction& action() { return m_action; }

    /// Shows this material from now on.
    void setMaterial(const ToolMaterial& material);

    /// Opens the window, or brings it to the front. If that is impossible, a message gives the reason.
    void open();

    /// The window while it is open.
    MaterialWindow* window() const;

private:
    QWidget* m_mainWindow;
    QString m_moduleFile;
    QAction m_action{this};
    /// Kept while the program runs, so that the window opens as it was closed.
    SceneLook m_look;
    std::optional<ToolMaterial> m_material;
    /// Outlives the windows: closing one must not wait for the work under way.
    MapBuilder m_details;
    QPointer<MaterialWindow> m_window;
};

}  // namespace quarlin
