#include "view3d/window/material_window.h"

#include "ui/accessibility/accessible_role.h"
#include "ui/controls/close_action.h"
#include "ui/display/text_label.h"
#include "ui/layout/separator.h"
#include "ui/panels/observe.h"
#include "ui/style/metrics.h"
#include "ui/style/typography.h"
#include "view3d/window/look_panel.h"
#include "view3d/window/orbit.h"
#include "view3d/window/picture_frame.h"

#include <QAction>
#include <QEvent>
#include <QHBoxLayout>
#include <QVBoxLayout>

namespace quarlin {

using namespace Qt::StringLiterals;

namespace {

constexpr QSize firstSize(980, 640);
constexpr int panelWidth = 340;
constexpr int leastPictureWidth = 320;
constexpr int captionPadding = 8;

}  // namespace

MaterialWindow::MaterialWindow(std::unique_ptr<Scene> scene, SceneLook& look, MapBuilder& details)
    : m_scene(std::move(scene)), m_look(look), m_details(details), m_panel(new LookPanel(look)) {
    setWindowTitle(u"Material in 3D"_s);
    // The program ends with its main window.
    setAttribute(Qt::WA_QuitOnClose, false);
    auto* columns = new QHBoxLayout(this);
    columns->setContentsMargins(0, 0, 0, 0);
    columns->setSpacing(0);
    columns->addWidget(makePicture(), 1);
    columns->addWidget(new Separator(Qt::Vertical));
    m_panel->setFixedWidth(textFrame(panelWidth));
    columns->addWidget(m_panel);
    resize(firstSize);
    makeCloseAction(*new QAction(this), *this);

    connect(m_panel, &LookPanel::edited, this, &MaterialWindow::showLook);
    connect(&m_details, &MapBuilder::built, this, [this](const SceneTextures& maps) {
        m_scene->setMaps(maps);
        Q_EMIT detailsShown();
    });
    showLook();
}

MaterialWindow::~MaterialWindow() { m_details.cancel(); }

void MaterialWindow::setMaterial(const ToolMaterial& material) {
    m_material.emplace(material);
    m_previews = {};
    m_scene->setMaps(texturesOf({}));
    m_following = std::make_unique<QObject>();
    observe(m_following.get(), material.store, [this] { showMaps(); });
}

void MaterialWindow::changeEvent(QEvent* event) {
    QWidget::changeEvent(event);
    if (event->type() == QEvent::PaletteChange) {
        showLook();
    }
}

QWidget* MaterialWindow::makePicture() {
    QWidget* picture = m_scene->widget();
    picture->setFocusPolicy(Qt::StrongFocus);
    picture->setMinimumWidth(leastPictureWidth);
    presentAs(*picture, QAccessible::Graphic, u"Material in 3D"_s);
    picture->setAccessibleDescription(
        u"The arrow keys turn the material, with Shift they move the light. Plus and minus zoom."_s);
    auto* orbit = new Orbit(picture, m_look);
    connect(orbit, &Orbit::moved, this, [this] {
        m_panel->showLook();
        showLook();
    });

    m_caption = new TextLabel({}, TextStyle::caption, TextWeight::secondary);
    m_caption->setElided(true);
    auto* hint = new TextLabel(u"Drag to turn, with Shift to move the light; wheel to zoom"_s,
                               TextStyle::caption, TextWeight::secondary);
    hint->setElided(true);
    auto* captions = new QHBoxLayout;
    captions->setContentsMargins(metrics::standardPadding, captionPadding, metrics::standardPadding,
                                 captionPadding);
    captions->setSpacing(metrics::standardPadding);
    captions->addWidget(m_caption);
    captions->addStretch();
    captions->addWidget(hint);

    auto* column = new QWidget;
    auto* rows = new QVBoxLayout(column);
    rows->setContentsMargins(0, 0, 0, 0);
    rows->setSpacing(0);
    rows->addWidget(new PictureFrame(picture), 1);
    rows->addWidget(new Separator(Qt::Horizontal));
    rows->addLayout(captions);
    return column;
}

void MaterialWindow::showMaps() {
    const SceneMaps previews = m_material->previews();
    m_caption->setText(previews.isEmpty() ? u"No previews yet: load a texture first."_s : m_material->name());
    // Only the settings or the log have changed.
    if (previews.isSameAs(m_previews)) {
        return;
    }
    m_previews = previews;
    m_scene->setMaps(texturesOf(previews));
    if (previews.isEmpty()) {
        m_details.cancel();
    } else {
        m_details.build(m_material->details());
    }
}

void MaterialWindow::showLook() {
    m_look.windowColor = palette().color(QPalette::Window);
    m_scene->setLook(m_look);
}

}  // namespace quarlin
