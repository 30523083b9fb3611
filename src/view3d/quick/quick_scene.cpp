#include "view3d/quick/quick_scene.h"

#include "view3d/environment/light_atlas.h"

#include <QFile>
#include <QQmlContext>
#include <QQmlError>
#include <QRegularExpression>
#include <QResource>

#include <cmath>

namespace quarlin {

using namespace Qt::StringLiterals;

namespace {

/// What a white matt surface that faces the lamp reflects of its light.
constexpr double lampBrightness = 0.75;

// What a material without these maps has: a white color; no occlusion, full roughness, no metal; an even
// surface.
constexpr QRgb noColor = qRgb(255, 255, 255);
constexpr QRgb noOrm = qRgb(255, 255, 0);
constexpr QRgb noNormal = qRgb(128, 128, 255);

/// The sentence for a scene.qml that can't be used.
QString startingProblem(const QList<QQmlError>& errors) {
    const QString reason = errors.isEmpty() ? QString() : errors.constFirst().description();
    static const QRegularExpression missingModule(u"module \"([^\"]+)\" is not installed"_s);
    if (const auto match = missingModule.match(reason); match.hasMatch()) {
        return u"The 3D view needs the QML module %1, which is not installed."_s.arg(match.captured(1));
    }
    return u"The 3D view could not be started: %1"_s.arg(reason);
}

}  // namespace

QuickScene::QuickScene()
    : m_baseColor(MapValues::srgb, QColor(noColor)),
      m_orm(MapValues::linear, QColor(noOrm)),
      m_normal(MapValues::linear, QColor(noNormal)),
      m_widget(new QQuickWidget) {
    m_lightAtlas.setSize({atlasWidth, atlasHeight});
    m_lightAtlas.setFormat(QQuick3DTextureData::RGBA16F);
    m_lightAtlas.setTextureData(QResource(u":/view3d/studio.light"_s).uncompressedData());

    m_widget->setResizeMode(QQuickWidget::SizeRootObjectToView);
    m_widget->rootContext()->setContextProperty(u"quickScene"_s, this);
    m_widget->setSource(QUrl(u"qrc:/view3d/scene.qml"_s));
    if (m_widget->status() != QQuickWidget::Ready) {
        m_problem = startingProblem(m_widget->errors());
    }
}

QuickScene::~QuickScene() {
    // The picture reads the properties of this object.
    delete m_widget;
}

void QuickScene::setMaps(const SceneMaps& maps) {
    const auto show = [](MapTexture& texture, QImage& shown, const QImage& map) {
        if (shown.cacheKey() != map.cacheKey()) {
            shown = map;
            texture.setMap(map);
        }
    };
    show(m_baseColor, m_maps.baseColor, maps.baseColor);
    show(m_orm, m_maps.orm, maps.orm);
    show(m_normal, m_maps.normal, maps.normal);
}

void QuickScene::setLook(const SceneLook& look) {
    if (look.shape != m_look.shape) {
        m_geometry.setShape(look.shape);
    }
    m_look = look;
    Q_EMIT lookChanged();
}

double QuickScene::exposureFactor() const { return std::exp2(m_look.exposure); }

double QuickScene::lampLight() const { return lampBrightness; }

QColor QuickScene::backdropColor() const {
    switch (m_look.backdrop) {
        case SceneBackdrop::black:
        case SceneBackdrop::studio:
            return Qt::black;
        case SceneBackdrop::white:
            return Qt::white;
        case SceneBackdrop::window:
            break;
    }
    return m_look.windowColor;
}

}  // namespace quarlin
