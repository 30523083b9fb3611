// The windows in a Wayland session.

#include "painted_textures.h"
#include "ui/help/help_window.h"
#include "ui/panels/preview_panel.h"
#include "ui/viewer/viewer_window.h"
#include "view3d/window/material_view.h"
#include "view3d/window/material_window.h"
#include "window_fixture.h"

#include <QDir>
#include <QWindow>

using namespace quarlin;
using namespace quarlin::fixtures;

namespace {

class WaylandSession : public WindowFixture {
protected:
    static constexpr int longest = 60'000;

    static bool appears(const QWidget& opened) {
        return QTest::qWaitFor([&opened] { return opened.windowHandle()->isExposed(); }, longest);
    }

    void loadTiles() {
        materials.importTexture(folder.save(u"Tiles.png"_s, paintedTiles(64, 64)),
                                TextureSlotKind::baseColor);
        settle();
    }
};

TEST_F(WaylandSession, ShowsTheWindow) {
    EXPECT_EQ(QGuiApplication::platformName(), u"wayland"_s);
    EXPECT_TRUE(appears(window));
}

TEST_F(WaylandSession, Exports) {
    loadTiles();
    chooser.folder = folder.url();
    materialEntry(u"Export PBR Set..."_s).trigger();
    settle();
    EXPECT_EQ(QDir(folder.path(u"Tiles"_s)).entryList(QDir::Files).size(), 4);
}

TEST_F(WaylandSession, OpensTheViewer) {
    loadTiles();
    Q_EMIT window.content()->previewPanel(StudioTool::pbr).tileOpened(0);
    const ViewerWindow& viewer = *window.viewer().window();
    EXPECT_TRUE(appears(viewer));
    EXPECT_TRUE(QTest::qWaitFor([&viewer] { return !viewer.isBusy(); }, longest));
}

TEST_F(WaylandSession, OpensTheHelp) {
    entry(u"Help"_s, u"Quarlin Help"_s).trigger();
    EXPECT_TRUE(appears(*window.help()));
}

TEST_F(WaylandSession, ShowsTheMaterialIn3D) {
    loadTiles();
    MaterialView view(&window, QStringLiteral(QUARLIN_SCENE_MODULE));
    view.setMaterial(toolMaterial(materials));
    view.open();
    ASSERT_NE(view.window(), nullptr);
    EXPECT_TRUE(appears(*view.window()));
    QImage picture = view.window()->scene().picture();
    const QColor ground = picture.pixelColor(2, 2);
    EXPECT_EQ(ground, view.window()->palette().color(QPalette::Window));
    EXPECT_NE(picture.pixelColor(picture.rect().center()), ground);
}

}  // namespace
