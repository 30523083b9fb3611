#include "ui/panels/preview_tile.h"

#include "model/generated_set.h"
#include "model/material_set.h"
#include "view_fixture.h"

#include <QAccessible>
#include <QAction>
#include <QContextMenuEvent>
#include <QMenu>
#include <QSignalSpy>
#include <QTimer>
#include <QToolTip>

using namespace Qt::StringLiterals;

using namespace quarlin;
using namespace quarlin::fixtures;

namespace {

class PreviewTileTest : public testing::Test {
protected:
    PreviewTileTest() : window(new PreviewTile({u"ORM"_s, u"R AO"_s, {}}), QSize(160, 220)) {}

    ViewWindow window;
    PreviewTile& tile = static_cast<PreviewTile&>(window.view());
    QSignalSpy opened{&tile, &PreviewTile::opened};
};

TEST_F(PreviewTileTest, OpensWithADoubleClickOfTheLeftButton) {
    QTest::mouseDClick(&tile, Qt::RightButton, {}, {80, 80});
    EXPECT_EQ(opened.size(), 0);
    QTest::mouseDClick(&tile, Qt::LeftButton, {}, {80, 80});
    EXPECT_EQ(opened.size(), 1);
}

TEST_F(PreviewTileTest, OpensWithItsKeys) {
    tile.setFocus(Qt::TabFocusReason);
    for (const Qt::Key key : {Qt::Key_Return, Qt::Key_Enter, Qt::Key_Space}) {
        press(tile, key);
    }
    EXPECT_EQ(opened.size(), 3);
}

TEST_F(PreviewTileTest, OpensFromItsContextMenu) {
    QStringList entries;
    // The menu has an event loop of its own.
    QTimer::singleShot(0, &tile, [&entries] {
        auto* menu = qobject_cast<QMenu*>(QApplication::activePopupWidget());
        for (const QAction* action : menu->actions()) {
            entries << action->text();
        }
        press(*menu, Qt::Key_Down);
        press(*menu, Qt::Key_Return);
    });
    QContextMenuEvent event(QContextMenuEvent::Mouse, {80, 80}, tile.mapToGlobal(QPoint(80, 80)));
    QCoreApplication::sendEvent(&tile, &event);
    EXPECT_EQ(entries, QStringList{u"Open in Viewer"_s});
    EXPECT_EQ(opened.size(), 1);
}

TEST_F(PreviewTileTest, OpensForAssistiveTechnology) {
    QAccessibleInterface* accessible = QAccessible::queryAccessibleInterface(&tile);
    ASSERT_NE(accessible, nullptr);
    EXPECT_EQ(accessible->role(), QAccessible::Button);
    EXPECT_EQ(accessible->text(QAccessible::Name), u"ORM"_s);
    EXPECT_EQ(accessible->text(QAccessible::Description), u"R AO"_s);
    ASSERT_TRUE(
        accessible->actionInterface()->actionNames().contains(QAccessibleActionInterface::pressAction()));
    accessible->actionInterface()->doAction(QAccessibleActionInterface::pressAction());
    EXPECT_EQ(opened.size(), 1);
}

/// The least width of a column of tiles.
constexpr int narrowest = 140;

template <typename Image>
class TileTexts : public testing::Test {};
using Images = testing::Types<MaterialImage, GeneratedMap>;
TYPED_TEST_SUITE(TileTexts, Images);

TYPED_TEST(TileTexts, FitIntoTheNarrowestTile) {
    for (const TypeParam image : allCases<TypeParam>()) {
        const ViewWindow window(new PreviewTile({title(image), subtitle(image), {}}), QSize(narrowest, 220));
        for (TextLabel* label : window.view().findChildren<TextLabel*>()) {
            // A tooltip would show what is left out.
            QHelpEvent help(QEvent::ToolTip, {5, 5}, label->mapToGlobal(QPoint(5, 5)));
            QCoreApplication::sendEvent(label, &help);
            EXPECT_FALSE(QToolTip::isVisible()) << label->text().toStdString();
        }
    }
}

}  // namespace
