#include "ui/material/texture_sidebar.h"

#include "model/texture_slot_kind.h"
#include "stores/material_store.h"
#include "ui/controls/button.h"
#include "ui/panels/texture_card.h"
#include "ui/panels/tool_actions.h"
#include "view_fixture.h"

#include <QColorSpace>
#include <QImage>

using namespace Qt::StringLiterals;

using namespace quarlin;
using namespace quarlin::fixtures;

namespace {

constexpr auto baseColor = TextureSlotKind::baseColor;

class TextureSidebarTest : public StoreFixture<MaterialStore> {
protected:
    ToolActions actions{store};
    ViewWindow window{new TextureSidebar(store, actions), QSize(320, 700)};
    QWidget& view = window.view();

    TextureCard& card(TextureSlotKind kind) const { return child<TextureCard>(view, rawValue(kind)); }
    Button& button(TextureSlotKind kind, const char* name) const {
        return child<Button>(card(kind), QString::fromLatin1(name));
    }
    Button& reset() const { return child<Button>(view, u"reset"_s); }

    void load(TextureSlotKind kind, const QString& name = u"a.png"_s) {
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
    EXPECT_TRUE(shows(view, u"Textures"_s));
}

TEST_F(TextureSidebarTest, OffersOnlyToChooseAtTheStart) {
    EXPECT_FALSE(reset().isEnabled());
    EXPECT_EQ(reset().toolTip(), u"Reset Inputs"_s);
    EXPECT_EQ(reset().symbol(), u"trash"_s);
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
            EXPECT_EQ(shows(card(kind), u"Required"_s), kind == baseColor);
        }
        load(baseColor);
    }
}

TEST_F(TextureSidebarTest, ShowsTheLoadedTexture) {
    load(TextureSlotKind::occlusion, u"Ambient.png"_s);
    TextureCard& occlusion = card(TextureSlotKind::occlusion);
    EXPECT_TRUE(shows(occlusion, u"Ambient.png"_s));
    EXPECT_TRUE(shows(occlusion, u"8x4"_s));
    EXPECT_FALSE(button(TextureSlotKind::occlusion, "choose").isVisible());
    EXPECT_TRUE(button(TextureSlotKind::occlusion, "remove").isVisible());
    EXPECT_TRUE(button(TextureSlotKind::occlusion, "replace").isVisible());
    EXPECT_TRUE(button(baseColor, "choose").isVisible());
    EXPECT_TRUE(reset().isEnabled());
}

TEST_F(TextureSidebarTest, NamesTheProfileThatAMapWasConvertedFrom) {
    QImage linear(4, 4, QImage::Format_RGB32);
    linear.fill(Qt::gray);
    QColorSpace profile(QColorSpace::SRgbLinear);
    profile.setDescription(u"Linear light"_s);
    linear.setColorSpace(profile);
    store.importTexture(folder.save(u"linear.png"_s, linear), TextureSlotKind::roughness);
    settle();
    auto& size = child<TextLabel>(card(TextureSlotKind::roughness), u"sizeLabel"_s);
    EXPECT_EQ(size.toolTip().toStdString(), "The values were converted from \"Linear light\" to sRGB.");
    // The next texture needs no conversion.
    load(TextureSlotKind::roughness, u"plain.png"_s);
    EXPECT_EQ(size.toolTip(), QString());
}

TEST_F(TextureSidebarTest, NamesTheSlotInItsTooltips) {
    for (const TextureSlotKind kind : allCases<TextureSlotKind>()) {
        EXPECT_EQ(button(kind, "remove").toolTip(), u"Remove "_s + title(kind));
        EXPECT_EQ(button(kind, "replace").toolTip(), u"Replace "_s + title(kind));
    }
}

TEST_F(TextureSidebarTest, AsksForTheSlotWhoseButtonIsPressed) {
    click(button(TextureSlotKind::metallic, "choose"));
    ASSERT_EQ(chooser.fileQuestions.size(), 1U);
    EXPECT_EQ(chooser.fileQuestions[0].title, u"Choose Metallic Texture"_s);
    EXPECT_FALSE(reset().isEnabled());
}

TEST_F(TextureSidebarTest, ReplacesTheTexture) {
    load(TextureSlotKind::normal);
    chooser.file = folder.texture(u"other.png"_s, 2, 2);
    click(button(TextureSlotKind::normal, "replace"));
    EXPECT_TRUE(shows(card(TextureSlotKind::normal), u"other.png"_s));
    EXPECT_TRUE(shows(card(TextureSlotKind::normal), u"2x2"_s));
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
    store.importTexture(folder.noTexture(u"b.png"_s), baseColor);
    settle();
    EXPECT_TRUE(shows(card(baseColor), u"a.png"_s));
}

TEST_F(TextureSidebarTest, LightsUpOnlyWhileFilesAreDraggedOverIt) {
    const auto files = dragged({folder.texture(u"a.png"_s)});
    EXPECT_FALSE(card(baseColor).isDropTarget());
    EXPECT_TRUE(dragOver(card(baseColor), *files));
    EXPECT_TRUE(card(baseColor).isDropTarget());
    EXPECT_FALSE(card(TextureSlotKind::normal).isDropTarget());
    dragAway(card(baseColor));
    EXPECT_FALSE(card(baseColor).isDropTarget());
}

TEST_F(TextureSidebarTest, TakesNoNoticeOfADragWithoutFiles) {
    QMimeData text;
    text.setText(u"/a/b.png"_s);
    EXPECT_FALSE(dragOver(card(baseColor), text));
    EXPECT_FALSE(card(baseColor).isDropTarget());
    const auto web = dragged({QUrl(u"https://example.org/a.png"_s)});
    EXPECT_FALSE(dragOver(card(baseColor), *web));
    EXPECT_FALSE(card(baseColor).isDropTarget());
}

TEST_F(TextureSidebarTest, LoadsTheFirstDroppedFile) {
    const auto files = dragged({folder.texture(u"a.png"_s), folder.texture(u"b.png"_s)});
    EXPECT_TRUE(dragOver(card(TextureSlotKind::roughness), *files));
    EXPECT_TRUE(dropOn(card(TextureSlotKind::roughness), *files));
    EXPECT_FALSE(card(TextureSlotKind::roughness).isDropTarget());
    EXPECT_FALSE(store.hasAnyTexture());
    settle();
    EXPECT_EQ(store.textures().size(), 1U);
    EXPECT_TRUE(shows(card(TextureSlotKind::roughness), u"a.png"_s));
}

TEST_F(TextureSidebarTest, LeavesADraggedFileWhereItIs) {
    const auto files = dragged({folder.texture(u"a.png"_s)});
    ASSERT_TRUE(dragOver(card(baseColor), *files));
    QDropEvent drop({5, 5}, Qt::CopyAction | Qt::MoveAction, files.get(), Qt::LeftButton, {});
    drop.setDropAction(Qt::MoveAction);
    QCoreApplication::sendEvent(&card(baseColor), &drop);
    EXPECT_EQ(drop.dropAction(), Qt::CopyAction);
}

TEST_F(TextureSidebarTest, IsFilledAndEmptiedByTheKeyboardWithoutLosingIt) {
    chooser.file = folder.texture(u"a.png"_s);
    button(baseColor, "choose").setFocus(Qt::TabFocusReason);
    press(button(baseColor, "choose"), Qt::Key_Space);
    EXPECT_TRUE(button(baseColor, "replace").hasFocus());
    press(button(baseColor, "remove"), Qt::Key_Space);
    EXPECT_FALSE(store.hasAnyTexture());
    EXPECT_TRUE(button(baseColor, "choose").hasFocus());
}

TEST_F(TextureSidebarTest, CutsALongNameInTheMiddleAndKeepsItsWidth) {
    const int width = card(baseColor).width();
    load(baseColor, QString(80, u'w') + u"_end.png"_s);
    EXPECT_EQ(card(baseColor).width(), width);
    EXPECT_LE(view.minimumSizeHint().width(), 290);
}

TEST_F(TextureSidebarTest, IsAnnouncedBySlot) {
    EXPECT_EQ(card(baseColor).accessibleName(), u"Base Color"_s);
    EXPECT_EQ(button(baseColor, "choose").accessibleName(), u"Choose Base Color"_s);
    EXPECT_EQ(button(baseColor, "remove").accessibleName(), u"Remove Base Color"_s);
    EXPECT_EQ(button(baseColor, "replace").accessibleName(), u"Replace Base Color"_s);
    EXPECT_EQ(reset().accessibleName(), u"Reset Inputs"_s);
}

}  // namespace
