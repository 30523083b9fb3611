#include "texture_sidebar.h"

#include "button.h"
#include "material_store.h"
#include "texture_card.h"
#include "view_fixture.h"

using namespace quarlin;
using namespace quarlin::fixtures;

namespace {

constexpr auto baseColor = TextureSlotKind::baseColor;

class TextureSidebarTest : public StoreFixture<MaterialStore> {
protected:
    ViewWindow window{new TextureSidebar(store), QSize(320, 700)};
    QWidget& view = window.view();

    TextureCard& card(TextureSlotKind kind) const { return child<TextureCard>(view, rawValue(kind)); }
    Button& button(TextureSlotKind kind, const char* name) const {
        return child<Button>(card(kind), QString::fromLatin1(name));
    }
    Button& reset() const { return child<Button>(view, QStringLiteral("reset")); }

    void load(TextureSlotKind kind, const QString& name = QStringLiteral("a.png")) {
        store.importTexture(folder.texture(name, 8, 4), kind);
        settle();
    }
};

TEST_F(TextureSidebarTest, ShowsOneCardPerSlotInOrder) {
    int bottom = 0;
    for (const TextureSlotKind kind : allCases<TextureSlotKind>()) {
        const QRect area(card(kind).mapTo(&view, QPoint()), card(kind).size());
        EXPECT_GE(area.top(), bottom) << rawValue(kind).toStdString();
        EXPECT_TRUE(shows(card(kind), title(kind))) << rawValue(kind).toStdString();
        EXPECT_EQ(card(kind).toolTip(), help(kind));
        bottom = area.bottom();
    }
    EXPECT_TRUE(shows(view, QStringLiteral("Textures")));
}

TEST_F(TextureSidebarTest, OffersOnlyToChooseAtTheStart) {
    EXPECT_FALSE(reset().isEnabled());
    EXPECT_EQ(reset().toolTip(), QStringLiteral("Reset Inputs"));
    EXPECT_EQ(reset().symbol(), QStringLiteral("trash"));
    for (const TextureSlotKind kind : allCases<TextureSlotKind>()) {
        EXPECT_TRUE(button(kind, "choose").isVisible());
        EXPECT_FALSE(button(kind, "remove").isVisible());
        EXPECT_FALSE(button(kind, "replace").isVisible());
    }
}

TEST_F(TextureSidebarTest, StretchesTheChooseButtonOverTheCard) {
    const QRect area(button(baseColor, "choose").mapTo(&card(baseColor), QPoint()),
                     button(baseColor, "choose").size());
    EXPECT_EQ(area.left(), 10);
    EXPECT_EQ(area.right(), card(baseColor).width() - 11);
    EXPECT_EQ(card(baseColor).height() - 1 - area.bottom(), 10);
}

TEST_F(TextureSidebarTest, MarksOnlyBaseColorAsRequired) {
    for (int round = 0; round < 2; ++round) {
        for (const TextureSlotKind kind : allCases<TextureSlotKind>()) {
            EXPECT_EQ(shows(card(kind), QStringLiteral("Required")), kind == baseColor);
        }
        load(baseColor);
    }
}

TEST_F(TextureSidebarTest, ShowsTheLoadedTexture) {
    load(TextureSlotKind::occlusion, QStringLiteral("Ambient.png"));
    TextureCard& occlusion = card(TextureSlotKind::occlusion);
    EXPECT_TRUE(shows(occlusion, QStringLiteral("Ambient.png")));
    EXPECT_TRUE(shows(occlusion, QStringLiteral("8x4")));
    EXPECT_FALSE(button(TextureSlotKind::occlusion, "choose").isVisible());
    EXPECT_TRUE(button(TextureSlotKind::occlusion, "remove").isVisible());
    EXPECT_TRUE(button(TextureSlotKind::occlusion, "replace").isVisible());
    EXPECT_TRUE(button(baseColor, "choose").isVisible());
    EXPECT_TRUE(reset().isEnabled());
}

TEST_F(TextureSidebarTest, NamesTheSlotInItsTooltips) {
    for (const TextureSlotKind kind : allCases<TextureSlotKind>()) {
        EXPECT_EQ(button(kind, "remove").toolTip(), QStringLiteral("Remove ") + title(kind));
        EXPECT_EQ(button(kind, "replace").toolTip(), QStringLiteral("Replace ") + title(kind));
    }
}

TEST_F(TextureSidebarTest, AsksForTheSlotWhoseButtonIsPressed) {
    click(button(TextureSlotKind::metallic, "choose"));
    ASSERT_EQ(chooser.fileQuestions.size(), 1U);
    EXPECT_EQ(chooser.fileQuestions[0].title, QStringLiteral("Choose Metallic Texture"));
    EXPECT_FALSE(reset().isEnabled());
}

TEST_F(TextureSidebarTest, ReplacesTheTexture) {
    load(TextureSlotKind::normal);
    chooser.file = folder.texture(QStringLiteral("other.png"), 2, 2);
    click(button(TextureSlotKind::normal, "replace"));
    EXPECT_TRUE(shows(card(TextureSlotKind::normal), QStringLiteral("other.png")));
    EXPECT_TRUE(shows(card(TextureSlotKind::normal), QStringLiteral("2x2")));
}

TEST_F(TextureSidebarTest, RemovesTheTexture) {
    load(TextureSlotKind::normal);
    load(baseColor);
    click(button(TextureSlotKind::normal, "remove"));
    EXPECT_FALSE(store.textures().contains(TextureSlotKind::normal));
    EXPECT_TRUE(button(TextureSlotKind::normal, "choose").isVisible());
    EXPECT_TRUE(reset().isEnabled());
    click(button(baseColor, "remove"));
    EXPECT_FALSE(reset().isEnabled());
}

TEST_F(TextureSidebarTest, EmptiesEveryCardOnReset) {
    for (const TextureSlotKind kind : allCases<TextureSlotKind>()) {
        load(kind);
    }
    click(reset());
    EXPECT_FALSE(store.hasAnyTexture());
    EXPECT_FALSE(reset().isEnabled());
    for (const TextureSlotKind kind : allCases<TextureSlotKind>()) {
        EXPECT_TRUE(button(kind, "choose").isVisible());
        EXPECT_FALSE(button(kind, "remove").isVisible());
    }
}

TEST_F(TextureSidebarTest, KeepsTheCardWhenALoadFails) {
    load(baseColor);
    store.importTexture(folder.noTexture(QStringLiteral("b.png")), baseColor);
    settle();
    EXPECT_TRUE(shows(card(baseColor), QStringLiteral("a.png")));
}

TEST_F(TextureSidebarTest, LightsUpOnlyWhileFilesAreDraggedOverIt) {
    const auto files = dragged({folder.texture(QStringLiteral("a.png"))});
    EXPECT_FALSE(card(baseColor).isDropTarget());
    EXPECT_TRUE(dragOver(card(baseColor), *files));
    EXPECT_TRUE(card(baseColor).isDropTarget());
    EXPECT_FALSE(card(TextureSlotKind::normal).isDropTarget());
    dragAway(card(baseColor));
    EXPECT_FALSE(card(baseColor).isDropTarget());
}

TEST_F(TextureSidebarTest, TakesNoNoticeOfADragWithoutFiles) {
    QMimeData text;
    text.setText(QStringLiteral("/a/b.png"));
    EXPECT_FALSE(dragOver(card(baseColor), text));
    EXPECT_FALSE(card(baseColor).isDropTarget());
    const auto web = dragged({QUrl(QStringLiteral("https://example.org/a.png"))});
    EXPECT_FALSE(dragOver(card(baseColor), *web));
    EXPECT_FALSE(card(baseColor).isDropTarget());
}

TEST_F(TextureSidebarTest, LoadsTheFirstDroppedFile) {
    const auto files =
        dragged({folder.texture(QStringLiteral("a.png")), folder.texture(QStringLiteral("b.png"))});
    EXPECT_TRUE(dragOver(card(TextureSlotKind::roughness), *files));
    EXPECT_TRUE(dropOn(card(TextureSlotKind::roughness), *files));
    EXPECT_FALSE(card(TextureSlotKind::roughness).isDropTarget());
    EXPECT_FALSE(store.hasAnyTexture());
    settle();
    EXPECT_EQ(store.textures().size(), 1U);
    EXPECT_TRUE(shows(card(TextureSlotKind::roughness), QStringLiteral("a.png")));
}

TEST_F(TextureSidebarTest, LeavesADraggedFileWhereItIs) {
    const auto files = dragged({folder.texture(QStringLiteral("a.png"))});
    ASSERT_TRUE(dragOver(card(baseColor), *files));
    QDropEvent drop({5, 5}, Qt::CopyAction | Qt::MoveAction, files.get(), Qt::LeftButton, {});
    drop.setDropAction(Qt::MoveAction);
    QCoreApplication::sendEvent(&card(baseColor), &drop);
    EXPECT_EQ(drop.dropAction(), Qt::CopyAction);
}

TEST_F(TextureSidebarTest, IsFilledAndEmptiedByTheKeyboardWithoutLosingIt) {
    chooser.file = folder.texture(QStringLiteral("a.png"));
    button(baseColor, "choose").setFocus(Qt::TabFocusReason);
    press(button(baseColor, "choose"), Qt::Key_Space);
    EXPECT_TRUE(button(baseColor, "replace").hasFocus());
    press(button(baseColor, "remove"), Qt::Key_Space);
    EXPECT_FALSE(store.hasAnyTexture());
    EXPECT_TRUE(button(baseColor, "choose").hasFocus());
}

TEST_F(TextureSidebarTest, CutsALongNameInTheMiddleAndKeepsItsWidth) {
    const int width = card(baseColor).width();
    load(baseColor, QString(80, u'w') + QStringLiteral("_end.png"));
    EXPECT_EQ(card(baseColor).width(), width);
    EXPECT_LE(view.minimumSizeHint().width(), 290);
}

TEST_F(TextureSidebarTest, IsAnnouncedBySlot) {
    EXPECT_EQ(card(baseColor).accessibleName(), QStringLiteral("Base Color"));
    EXPECT_EQ(button(baseColor, "choose").accessibleName(), QStringLiteral("Choose Base Color"));
    EXPECT_EQ(button(baseColor, "remove").accessibleName(), QStringLiteral("Remove Base Color"));
    EXPECT_EQ(button(baseColor, "replace").accessibleName(), QStringLiteral("Replace Base Color"));
    EXPECT_EQ(reset().accessibleName(), QStringLiteral("Reset Inputs"));
}

}  // namespace
