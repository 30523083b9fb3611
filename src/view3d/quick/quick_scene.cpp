#include "view3d/quick/quick_scene.h"

#include "view3d/environment/light_atlas.h"

#include <QFile>
#include <QQmlContext>
#include <QQmlError>
#include <QQuickWindow>
#include <QRegularExpression>
#include <QResource>

#include <cmath>
#include <limits>

namespace quarlin {

using namespace Qt::StringLiterals;

namespace {

/// What a white matt surface that faces the lamp reflects of its light.
constexpr double lampBrightness = 0.75;

/// How much goes to the graphics card with one picture. The window waits for it: 100 ms for a color map of
/// 2048 x 2048, where OpenGL draws in software. Previews fit in together.
constexpr qsizetype bytesPerPicture = qsizetype{8} << 20U;

/// The sentence for a scene.qml that can't be used.
QString startingProblem(const QList<QQmlError>& errors) {
    const QString reason = errors.isEmpty() ? QString() : errors.constFirst().description();
    // A library of Qt may know of a module whose plugin is not there.
    static const QRegularExpression missingModule(
        u"module \"([^\"]+)\" (is not installed|plugin \"[^\"]+\" not found)"_s);
    if (const auto match = missingModule.match(reason); match.hasMatch()) {
        return u"The 3D view needs the QML module %1, which is not installed."_s.arg(match.captured(1));
    }
    return u"The 3D view could not be started: %1"_s.arg(reason);
}

}  // namespace

QuickScene::QuickScene() : m_widget(new QQuickWidget) {
    setMaps(texturesOf({}));
    m_lightAtlas.setSize({atlasWidth, atlasHeight});
    m_lightAtlas.setFormat(QQuick3DTextureData::RGBA16F);
    m_lightAtlas.setTextureData(QResource(u":/view3d/studio.light"_s).uncompressedData());

    m_widget->setResizeMode(QQuickWidget::SizeRootObjectToView);
    m_widget->rootContext()->setContextProperty(u"quickScene"_s, this);
    m_widget->setSource(QUrl(u"qrc:/view3d/scene.qml"_s));
    connect(
        m_widget->quickWindow(), &QQuickWindow::afterRendering, this,
        [this] { showWaitingMaps(bytesPerPicture); }, Qt::QueuedConnection);
    if (m_widget->status() != QQuickWidget::Ready) {
        m_problem = startingProblem(m_widget->errors());
    }
}

QuickScene::~QuickScene() {
    // The picture reads the properties of this object.
    delete m_widget;
}

void QuickScene::setMaps(const SceneTextures& maps) {
    m_waiting = {{&m_baseColor, maps.baseColor}, {&m_orm, maps.orm}, {&m_normal, maps.normal}};
    showWaitingMaps(bytesPerPicture);
}

void QuickScene::showWaitingMaps(qsizetype most) {
    for (qsizetype shown = 0; !m_waiting.empty(); m_waiting.pop_front()) {
        const auto& [texture, map] = m_waiting.front();
        if (shown > 0 && shown + map.pixels.size() > most) {
            break;
        }
        shown += map.pixels.size();
        texture->setMap(map);
    }
}

QImage QuickScene::picture() {
    showWaitingMaps(std::numeric_limits<qsizetype>::max());
    return m_widget->grabFramebuffer();
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
