#include "generator_input_panel.h"

#include "button.h"
#include "normal_generator_store.h"
#include "texture_card.h"
#include "view_fixture.h"

using namespace quarlin;
using namespace quarlin::fixtures;

namespace {

class GeneratorInputPanelTest : public StoreFixture<NormalGeneratorStore> {
protected:
    ViewWindow window{new GeneratorInputPanel(store), QSize(320, 500)};
    QWidget& view = window.view();
    TextureCard& card = child<TextureCard>(view, QStringLiteral("source"));

    Button& button(const char* name) const { return child<Button>(view, QString::fromLatin1(name)); }

    void load() {
        store.importSourceTexture(folder.texture(QStringLiteral("Stone.png"), 8, 4));
        settle();
    }
};

TEST_F(GeneratorInputPanelTest, OffersOnlyToChooseAtTheStart) {
    EXPECT_TRUE(shows(view, QStringLiteral("Map Source")));
    EXPECT_TRUE(shows(card, QStringLiteral("Texture")));
    EXPECT_TRUE(shows(card, QStringLiteral("Required")));
    EXPECT_FALSE(button("reset").isEnabled());
    EXPECT_TRUE(button("choose").isVisible());
    EXPECT_FALSE(button("remove").isVisible());
    EXPECT_EQ(card.toolTip(),
              QStringLiteral("The app estimates height, roughness, gloss, metallic and AO from "
                             "one source texture."));
}

TEST_F(GeneratorInputPanelTest, HasFixedTooltips) {
    EXPECT_EQ(button("reset").toolTip(), QStringLiteral("Reset Input"));
    EXPECT_EQ(button("remove").toolTip(), QStringLiteral("Remove Source"));
    EXPECT_EQ(button("replace").toolTip(), QStringLiteral("Replace Source"));
}

TEST_F(GeneratorInputPanelTest, ShowsTheLoadedSource) {
    load();
    EXPECT_TRUE(shows(card, QStringLiteral("Stone.png")));
    EXPECT_TRUE(shows(card, QStringLiteral("8x4")));
    EXPECT_TRUE(shows(card, QStringLiteral("Required")));
    EXPECT_FALSE(button("choose").isVisible());
    EXPECT_TRUE(button("remove").isVisible());
    EXPECT_TRUE(button("reset").isEnabled());
}

TEST_F(GeneratorInputPanelTest, ReplacesTheSourceByADrop) {
    load();
    const auto files = dragged({folder.texture(QStringLiteral("Wood.png"))});
    EXPECT_TRUE(dragOver(card, *files));
    EXPECT_TRUE(card.isDropTarget());
    EXPECT_TRUE(dropOn(card, *files));
    EXPECT_FALSE(card.isDropTarget());
    settle();
    EXPECT_TRUE(shows(card, QStringLiteral("Wood.png")));
}

TEST_F(GeneratorInputPanelTest, TakesNoNoticeOfADragWithoutFiles) {
    QMimeData text;
    text.setText(QStringLiteral("Stone"));
    EXPECT_FALSE(dragOver(card, text));
    EXPECT_FALSE(card.isDropTarget());
}

TEST_F(GeneratorInputPanelTest, ChoosesRemovesAndResets) {
    chooser.file = folder.texture(QStringLiteral("Stone.png"));
    click(button("choose"));
    EXPECT_TRUE(store.canExport());
    click(button("remove"));
    EXPECT_FALSE(store.canExport());
    EXPECT_TRUE(button("choose").isVisible());
    click(button("choose"));
    click(button("replace"));
    EXPECT_EQ(chooser.fileQuestions.size(), 3U);
    click(button("reset"));
    EXPECT_EQ(store.logLines(), QStringList{QStringLiteral("Inputs cleared.")});
    EXPECT_FALSE(button("reset").isEnabled());
}

TEST_F(GeneratorInputPanelTest, KeepsTheCardAtTheTop) {
    EXPECT_EQ(card.mapTo(&view, QPoint()), QPoint(16, 16 + 24 + 8));
    EXPECT_LT(card.height(), 120);
}

}  // namespace
