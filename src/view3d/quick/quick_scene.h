#pragma once

#include "view3d/quick/map_texture.h"
#include "view3d/quick/shape_geometry.h"
#include "view3d/scene/scene.h"

#include <QObject>
#include <QPointer>
#include <QQuickWidget>

#include <deque>
#include <utility>

namespace quarlin {

/// The scene in Qt Quick 3D. scene.qml reads its properties as those of `quickScene`.
class QuickScene : public QObject, public Scene {
    Q_OBJECT
    Q_PROPERTY(QQuick3DTextureData* baseColor READ baseColor CONSTANT)
    Q_PROPERTY(QQuick3DTextureData* orm READ orm CONSTANT)
    Q_PROPERTY(QQuick3DTextureData* normal READ normal CONSTANT)
    Q_PROPERTY(QQuick3DTextureData* lightAtlas READ lightAtlas CONSTANT)
    Q_PROPERTY(QQuick3DGeometry* geometry READ geometry CONSTANT)
    Q_PROPERTY(int content READ content NOTIFY lookChanged)
    Q_PROPERTY(double tiling READ tiling NOTIFY lookChanged)
    Q_PROPERTY(double exposureFactor READ exposureFactor NOTIFY lookChanged)
    Q_PROPERTY(QVector3D lampDirection READ lampDirection NOTIFY lookChanged)
    Q_PROPERTY(double lampLight READ lampLight CONSTANT)
    Q_PROPERTY(QVector3D cameraPosition READ cameraPosition NOTIFY lookChanged)
    Q_PROPERTY(double side READ side NOTIFY lookChanged)
    Q_PROPERTY(double elevation READ elevation NOTIFY lookChanged)
    Q_PROPERTY(QColor backdropColor READ backdropColor NOTIFY lookChanged)
    Q_PROPERTY(bool showsStudio READ showsStudio NOTIFY lookChanged)

public:
    QuickScene();
    ~QuickScene() override;

    /// Why the scene can't be shown, in one sentence; empty if it can.
    const QString& problem() const { return m_problem; }

    QWidget* widget() override { return m_widget; }
    void setMaps(const SceneTextures& maps) override;
    void setLook(const SceneLook& look) override;
    QImage picture() override;

    QQuick3DTextureData* baseColor() { return &m_baseColor; }
    QQuick3DTextureData* orm() { return &m_orm; }
    QQuick3DTextureData* normal() { return &m_normal; }
    QQuick3DTextureData* lightAtlas() { return &m_lightAtlas; }
    QQuick3DGeometry* geometry() { return &m_geometry; }
    int content() const { return static_cast<int>(m_look.content); }
    double tiling() const { return m_look.tiling; }
    double exposureFactor() const;
    QVector3D lampDirection() const { return directionToLamp(m_look); }
    double lampLight() const;
    QVector3D cameraPosition() const { return quarlin::cameraPosition(m_look); }
    double side() const { return m_look.side; }
    double elevation() const { return m_look.elevation; }
    QColor backdropColor() const;
    bool showsStudio() const { return m_look.backdrop == SceneBackdrop::studio; }

Q_SIGNALS:
    void lookChanged();

private:
    /// Gives the waiting maps to the graphics card, up to `most` bytes of them but at least one.
    void showWaitingMaps(qsizetype most);

    SceneLook m_look;
    MapTexture m_baseColor{QQuick3DTextureData::RGBA16F};
    MapTexture m_orm{QQuick3DTextureData::RGBA8};
    MapTexture m_normal{QQuick3DTextureData::RGBA8};
    /// Maps that are not shown yet, and where they belong.
    std::deque<std::pair<MapTexture*, SceneTexture>> m_waiting;
    QQuick3DTextureData m_lightAtlas;
    ShapeGeometry m_geometry;
    QPointer<QQuickWidget> m_widget;
    QString m_problem;
};

}  // namespace quarlin
