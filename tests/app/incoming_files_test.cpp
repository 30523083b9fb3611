#include "app/vorek_quarlin_app.h"
#include "model/texture_asset.h"
#include "ui/controls/name_field.h"
#include "ui/panels/texture_card.h"
#include "ui/window/window_drop.h"
#include "window_fixture.h"

#include <QDir>

using namespace Qt::StringLiterals;

using namespace quarlin;
using namespace quarlin::fixtures;

namespace {

class IncomingFiles : public WindowFixture {
protected:
    QMimeData data;
    WindowDrop& frame = *window.findChild<WindowDrop*>();

    void drag(const QList<QUrl>& urls) { data.setUrls(urls); }
};

TEST_F(IncomingFiles, DroppedOutsideACardFillTheSlots) {
    drag({folder.texture(u"brick_basecolor.png"_s), folder.texture(u"brick_normal.png"_s)});
    EXPECT_TRUE(dragOver(window, data));
    EXPECT_TRUE(frame.isVisible());
    EXPECT_EQ(frame.geometry(), window.rect());
    EXPECT_TRUE(dropOn(window, data));
    EXPECT_FALSE(frame.isVisible());
    EXPECT_FALSE(materials.hasAnyTexture());
    settle();
    EXPECT_EQ(materials.textures().size(), 2U);
    EXPECT_FALSE(maps.canExport());
}

TEST_F(IncomingFiles, DroppedOnTheNameFillTheSlotsToo) {
    auto& name = *page().findChild<NameField*>();
    drag({folder.texture(u"brick_basecolor.png"_s), folder.texture(u"brick_normal.png"_s)});
    EXPECT_TRUE(dragOver(name, data));
    EXPECT_TRUE(frame.isVisible());
    EXPECT_TRUE(dropOn(name, data));
    settle();
    EXPECT_EQ(name.text(), u"brick"_s);
    EXPECT_EQ(materials.textures().size(), 2U);
}

TEST_F(IncomingFiles, TextCanStillBeDroppedOnTheName) {
    auto& name = *page().findChild<NameField*>();
    name.clear();
    data.setText(u"Brick"_s);
    EXPECT_TRUE(dragOver(name, data));
    EXPECT_TRUE(dropOn(name, data));
    settle();
    EXPECT_EQ(materials.settings().materialName, u"Brick"_s);
}

TEST_F(IncomingFiles, AreRefusedWithoutALocalFile) {
    drag({QUrl(u"https://example.com/a.png"_s)});
    EXPECT_FALSE(dragOver(window, data));
    EXPECT_FALSE(frame.isVisible());
    EXPECT_FALSE(dropOn(window, data));
}

TEST_F(IncomingFiles, DraggedAwayLeaveNoFrame) {
    drag({folder.texture(u"a.png"_s)});
    dragOver(window, data);
    dragAway(window);
    EXPECT_FALSE(frame.isVisible());
}

TEST_F(IncomingFiles, GoToTheToolThatIsShown) {
    showTool(StudioTool::normalGenerator);
    drag({folder.texture(u"brick.png"_s)});
    EXPECT_TRUE(dragOver(window, data));
    EXPECT_TRUE(dropOn(window, data));
    settle();
    EXPECT_TRUE(maps.canExport());
    EXPECT_FALSE(materials.hasAnyTexture());
}

TEST_F(IncomingFiles, OnACardStillFillThatCard) {
    drag({folder.texture(u"brick_normal.png"_s), folder.texture(u"brick_basecolor.png"_s)});
    auto& card = child<TextureCard>(page(), u"metallic"_s);
    EXPECT_TRUE(dragOver(card, data));
    EXPECT_TRUE(dropOn(card, data));
    settle();
    EXPECT_EQ(materials.textures().size(), 1U);
    EXPECT_TRUE(materials.textures().contains(TextureSlotKind::metallic));
}

TEST(StartedWithFiles, LoadsThemRelativeToTheWorkingFolder) {
    const TextureFolder folder;
    folder.texture(u"brick_basecolor.png"_s);
    folder.texture(u"brick_normal.png"_s);
    const QString before = QDir::currentPath();
    QDir::setCurrent(folder.url().toLocalFile());
    VorekQuarlinApp program;
    program.start();
    program.openFiles({u"brick_basecolor.png"_s, u"brick_normal.png"_s});
    QDir::setCurrent(before);
    settle();
    EXPECT_TRUE(shows(program.window(), u"brick_basecolor.png"_s));
    EXPECT_TRUE(shows(program.window(), u"brick_normal.png"_s));
}

}  // namespace
