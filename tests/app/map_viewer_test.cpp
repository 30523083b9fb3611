#include "ui/viewer/map_viewer.h"
#include "model/generated_set.h"
#include "model/material_set.h"
#include "ui/panels/preview_tile.h"
#include "ui/viewer/viewer_window.h"
#include "window_fixture.h"

using namespace Qt::StringLiterals;

using namespace quarlin;
using namespace quarlin::fixtures;

namespace {

class MapViewerTest : public WindowFixture {
protected:
    /// Opens the tile with this title of the shown tool.
    void openTile(const QString& title) {
        for (PreviewTile* tile : page().findChildren<PreviewTile*>()) {
            if (tile->title() == title) {
                QTest::mouseDClick(tile, Qt::LeftButton, {}, tile->rect().center());
                ASSERT_TRUE(QTest::qWaitFor([&] { return !viewer().isBusy(); }, 60000));
                return;
            }
        }
        FAIL() << "no tile " << title.toStdString();
    }

    ViewerWindow& viewer() const { return *window.viewer().window(); }
};

TEST_F(MapViewerTest, IsNotMadeBeforeATileIsOpened) {
    load(TextureSlotKind::baseColor);
    EXPECT_EQ(window.viewer().window(), nullptr);
}

TEST_F(MapViewerTest, OpensTheTilesOfBothToolsInOneWindow) {
    load(TextureSlotKind::baseColor, u"a.png"_s);
    loadSource(u"s.png"_s);
    openTile(u"ORM"_s);
    ViewerWindow& first = viewer();
    EXPECT_TRUE(first.isVisible());
    EXPECT_EQ(first.windowTitle(), u"ORM - a"_s);
    EXPECT_EQ(first.windowModality(), Qt::NonModal);
    showTool(StudioTool::normalGenerator);
    openTile(u"Gloss"_s);
    EXPECT_EQ(&viewer(), &first);
    EXPECT_EQ(first.windowTitle(), u"Gloss - s"_s);
}

TEST_F(MapViewerTest, FollowsOnlyTheToolThatItShows) {
    load(TextureSlotKind::baseColor, u"a.png"_s);
    loadSource(u"s.png"_s);
    openTile(u"ORM"_s);
    showTool(StudioTool::normalGenerator);
    openTile(u"AO"_s);
    materials.reset();
    settle();
    EXPECT_EQ(viewer().windowTitle(), u"AO - s"_s);
    maps.reset();
    settle();
    EXPECT_EQ(viewer().windowTitle(), u"Quarlin"_s);
}

TEST_F(MapViewerTest, DoesNotKeepTheProgramRunning) {
    load(TextureSlotKind::baseColor);
    openTile(u"Base"_s);
    EXPECT_FALSE(viewer().testAttribute(Qt::WA_QuitOnClose));
}

}  // namespace
