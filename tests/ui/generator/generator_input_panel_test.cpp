#include "ui/generator/generator_input_panel.h"

#include "stores/normal_generator_store.h"
#include "ui/controls/button.h"
#include "ui/panels/texture_card.h"
#include "ui/panels/tool_actions.h"
#include "view_fixture.h"

using namespace Qt::StringLiterals;

using namespace quarlin;
using namespace quarlin::fixtures;

namespace {

class GeneratorInputPanelTest : public StoreFixture<NormalGeneratorStore> {
protected:
    ToolActions actions{store};
    ViewWindow window{new GeneratorInputPanel(store, actions), QSize(320, 500)};
    QWidget& view = window.view();
    TextureCard& card = child<TextureCard>(view, u"source"_s);

    Button& button(const char* name) const { return child<Button>(view, QString::fromLatin1(name)); }

    void load() {
        store.importSourceTexture(folder.texture(u"Stone.png"_s, 8, 4));
        settle();
    }
};

TEST_F(GeneratorInputPanelTest, OffersOnlyToChooseAtTheStart) {
    EXPECT_TRUE(shows(view, u"Map Source"_s));
    EXPECT_TRUE(shows(card, u"Texture"_s));
    EXPECT_TRUE(shows(card, u"Required"_s));
    EXPECT_FALSE(button("reset").isEnabled());
    EXPECT_TRUE(button("choose").isVisible());
    EXPECT_FALSE(button("remove").isVisible());
    EXPECT_EQ(card.toolTip(),
              u"The app estimates height, roughness, gloss, metallic and AO from "
              "one source texture."_s);
}

TEST_F(GeneratorInputPanelTest, HasFixedTooltips) {
    EXPECT_EQ(button("reset").toolTip(), u"Reset Input"_s);
    EXPECT_EQ(button("remove").toolTip(), u"Remove Source"_s);
    EXPECT_EQ(button("replace").toolTip(), u"Replace Source"_s);
}

TEST_F(GeneratorInputPanelTest, ShowsTheLoadedSource) {
    load();
    EXPECT_TRUE(shows(card, u"Stone.png"_s));
    EXPECT_TRUE(shows(card, u"8x4"_s));
    EXPECT_TRUE(shows(card, u"Required"_s));
    EXPECT_FALSE(button("choose").isVisible());
    EXPECT_TRUE(button("remove").isVisible());
    EXPECT_TRUE(button("reset").isEnabled());
}

TEST_F(GeneratorInputPanelTest, ReplacesTheSourceByADrop) {
    load();
    const auto files = dragged({folder.texture(u"Wood.png"_s)});
    EXPECT_TRUE(dragOver(card, *files));
    EXPECT_TRUE(card.isDropTarget());
    EXPECT_TRUE(dropOn(card, *files));
    EXPECT_FALSE(card.isDropTarget());
    settle();
    EXPECT_TRUE(shows(card, u"Wood.png"_s));
}

TEST_F(GeneratorInputPanelTest, TakesNoNoticeOfADragWithoutFiles) {
    QMimeData text;
    text.setText(u"Stone"_s);
    EXPECT_FALSE(dragOver(card, text));
    EXPECT_FALSE(card.isDropTarget());
}

TEST_F(GeneratorInputPanelTest, ChoosesRemovesAndResets) {
    chooser.file = folder.texture(u"Stone.png"_s);
    click(button("choose"));
    EXPECT_TRUE(store.canExport());
    click(button("remove"));
    EXPECT_FALSE(store.canExport());
    EXPECT_TRUE(button("choose").isVisible());
    click(button("choose"));
    click(button("replace"));
    EXPECT_EQ(chooser.fileQuestions.size(), 3U);
    click(button("reset"));
    EXPECT_EQ(store.logLines(), QStringList{u"Inputs cleared."_s});
    EXPECT_FALSE(button("reset").isEnabled());
}

TEST_F(GeneratorInputPanelTest, KeepsTheCardAtTheTop) {
    EXPECT_EQ(card.mapTo(&view, QPoint()), QPoint(16, 16 + 24 + 8));
    EXPECT_LT(card.height(), 120);
}

}  // namespace
