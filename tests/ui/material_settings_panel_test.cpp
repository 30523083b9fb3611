#include "material_settings_panel.h"

#include "button.h"
#include "segment.h"
#include "slider.h"
#include "view_fixture.h"

using namespace quarlin;
using namespace quarlin::fixtures;

namespace {

class MaterialSettingsPanelTest : public StoreFixture<MaterialStore> {
protected:
    ViewWindow window{new MaterialSettingsPanel(store), QSize(440, 700)};
    QWidget& view = window.view();

    Toggle& toggle(const char* title) const { return withText<Toggle>(view, QString::fromLatin1(title)); }
    NameField& name() const { return *view.findChild<NameField*>(); }
    Button& previewButton() const { return child<Button>(view, QStringLiteral("preview")); }
    Button& exportButton() const { return child<Button>(view, QStringLiteral("export")); }
    SliderRow& row(const char* title) const {
        for (SliderRow* candidate : view.findChildren<SliderRow*>()) {
            if (candidate->slider()->accessibleName() == QString::fromLatin1(title)) {
                return *candidate;
            }
        }
        throw std::runtime_error(title);
    }
    QStringList segmentTitles() const {
        QStringList titles;
        for (const Segment* segment : view.findChildren<Segment*>()) {
            titles << segment->text();
        }
        return titles;
    }
    void load(TextureSlotKind kind) {
        store.importTexture(folder.texture(QStringLiteral("a.png")), kind);
        settle();
    }
};

TEST_F(MaterialSettingsPanelTest, ShowsTheDefaultsAtTheStart) {
    EXPECT_EQ(name().text(), QStringLiteral("VOREK_PBR_Material"));
    EXPECT_EQ(name().placeholderText(), QStringLiteral("Name"));
    EXPECT_EQ(view.findChild<SegmentedPicker*>()->currentIndex(), 3);
    EXPECT_FALSE(toggle("Roughness input is gloss/smoothness").isChecked());
    EXPECT_FALSE(toggle("Flip normal green channel").isChecked());
    EXPECT_EQ(row("AO").valueLabel(), QStringLiteral("100%"));
    EXPECT_EQ(row("Roughness").valueLabel(), QStringLiteral("65%"));
    EXPECT_EQ(row("Metallic").valueLabel(), QStringLiteral("0%"));
    EXPECT_TRUE(toggle("Write .gltf material").isChecked());
    EXPECT_TRUE(toggle("Write notes").isChecked());
}

TEST_F(MaterialSettingsPanelTest, GroupsItsControlsInOrder) {
    QStringList titles;
    for (const GroupBox* group : view.findChildren<GroupBox*>()) {
        titles << group->title();
    }
    EXPECT_EQ(titles, QStringList({QString(), QStringLiteral("Map Conversion"),
                                   QStringLiteral("Missing Map Defaults"), QStringLiteral("Export")}));
    EXPECT_TRUE(shows(view, QStringLiteral("Material")));
    EXPECT_TRUE(shows(view, QStringLiteral("Output Size")));
}

TEST_F(MaterialSettingsPanelTest, OffersFiveSizesBaseSizeFirst) {
    EXPECT_EQ(segmentTitles(),
              QStringList({QStringLiteral("Base Size"), QStringLiteral("512"), QStringLiteral("1024"),
                           QStringLiteral("2048"), QStringLiteral("4096")}));
}

TEST_F(MaterialSettingsPanelTest, WritesEachKeystrokeOfTheName) {
    name().setFocus();
    name().selectAll();
    QTest::keyClick(&name(), Qt::Key_B);
    EXPECT_EQ(store.settings().materialName, QStringLiteral("b"));
    QTest::keyClicks(&name(), QStringLiteral("rick"));
    EXPECT_EQ(store.settings().materialName, QStringLiteral("brick"));
    settle();
    EXPECT_EQ(name().text(), QStringLiteral("brick"));
}

TEST_F(MaterialSettingsPanelTest, KeepsTheCursorWhileTyping) {
    name().setText(QStringLiteral("abcd"));
    name().setCursorPosition(2);
    QTest::keyClicks(&name(), QStringLiteral("x"));
    settle();
    QTest::keyClicks(&name(), QStringLiteral("y"));
    settle();
    EXPECT_EQ(name().text(), QStringLiteral("abxycd"));
    EXPECT_EQ(name().cursorPosition(), 4);
    EXPECT_EQ(store.settings().materialName, QStringLiteral("abxycd"));
}

TEST_F(MaterialSettingsPanelTest, TakesAnEmptyName) {
    name().selectAll();
    QTest::keyClick(&name(), Qt::Key_Delete);
    settle();
    EXPECT_EQ(store.settings().materialName, QString());
    EXPECT_EQ(name().text(), QString());
}

TEST_F(MaterialSettingsPanelTest, ShowsAnAdoptedName) {
    store.importTexture(folder.texture(QStringLiteral("Brick.png")), TextureSlotKind::baseColor);
    settle();
    EXPECT_EQ(name().text(), QStringLiteral("Brick"));
}

TEST_F(MaterialSettingsPanelTest, WritesTheChosenSize) {
    click(withText<Segment>(view, QStringLiteral("512")));
    EXPECT_EQ(store.settings().outputResolution, OutputResolution::px512);
    click(withText<Segment>(view, QStringLiteral("Base Size")));
    EXPECT_EQ(store.settings().outputResolution, OutputResolution::matchBase);
}

TEST_F(MaterialSettingsPanelTest, MovesTheSizeWithTheArrowKeys) {
    Segment& chosen = withText<Segment>(view, QStringLiteral("2048"));
    chosen.setFocus(Qt::TabFocusReason);
    press(chosen, Qt::Key_Right);
    EXPECT_EQ(store.settings().outputResolution, OutputResolution::px4096);
    press(*QApplication::focusWidget(), Qt::Key_Left);
    press(*QApplication::focusWidget(), Qt::Key_Left);
    EXPECT_EQ(store.settings().outputResolution, OutputResolution::px1024);
}

TEST_F(MaterialSettingsPanelTest, WritesEachToggle) {
    click(toggle("Roughness input is gloss/smoothness"));
    EXPECT_TRUE(store.settings().roughnessInputIsGloss);
    click(toggle("Flip normal green channel"));
    EXPECT_TRUE(store.settings().flipNormalGreen);
    click(toggle("Write .gltf material"));
    EXPECT_FALSE(store.settings().exportGLTF);
    press(toggle("Write notes"), Qt::Key_Space);
    EXPECT_FALSE(store.settings().exportNotes);
    click(toggle("Write notes"));
    EXPECT_TRUE(store.settings().exportNotes);
}

TEST_F(MaterialSettingsPanelTest, WritesEachSlider) {
    press(*row("AO").slider(), Qt::Key_Home);
    press(*row("Roughness").slider(), Qt::Key_End);
    press(*row("Metallic").slider(), Qt::Key_PageUp);
    EXPECT_EQ(store.settings().defaultOcclusion, 0.0);
    EXPECT_EQ(store.settings().defaultRoughness, 1.0);
    EXPECT_DOUBLE_EQ(store.settings().defaultMetallic, 0.1);
    EXPECT_EQ(row("AO").valueLabel(), QStringLiteral("0%"));
    EXPECT_EQ(row("Roughness").valueLabel(), QStringLiteral("100%"));
    EXPECT_EQ(row("Metallic").valueLabel(), QStringLiteral("10%"));
}

TEST_F(MaterialSettingsPanelTest, LinesTheSlidersUp) {
    const int left = row("AO").slider()->mapTo(&view, QPoint()).x();
    for (const char* title : {"Roughness", "Metallic"}) {
        EXPECT_EQ(row(title).slider()->mapTo(&view, QPoint()).x(), left);
        EXPECT_EQ(row(title).slider()->width(), row("AO").slider()->width());
    }
    EXPECT_EQ(row("AO").slider()->x(), 76 + 10);
    EXPECT_EQ(row("AO").width() - row("AO").slider()->geometry().right() - 1, 10 + 44);
}

TEST_F(MaterialSettingsPanelTest, EnablesPreviewForAnyTextureAndExportForBaseColor) {
    EXPECT_FALSE(previewButton().isEnabled());
    EXPECT_FALSE(exportButton().isEnabled());
    load(TextureSlotKind::normal);
    EXPECT_TRUE(previewButton().isEnabled());
    EXPECT_FALSE(exportButton().isEnabled());
    load(TextureSlotKind::baseColor);
    EXPECT_TRUE(exportButton().isEnabled());
    store.removeTexture(TextureSlotKind::normal);
    store.removeTexture(TextureSlotKind::baseColor);
    settle();
    EXPECT_FALSE(previewButton().isEnabled());
    EXPECT_FALSE(exportButton().isEnabled());
}

TEST_F(MaterialSettingsPanelTest, BuildsThePreviewAndExports) {
    load(TextureSlotKind::baseColor);
    const qsizetype before = store.logLines().size();
    click(previewButton());
    EXPECT_EQ(store.logLines().size(), before + 1);
    EXPECT_EQ(newest(), stamped(QStringLiteral("Preview updated.")));
    click(exportButton());
    EXPECT_EQ(chooser.folderQuestions.size(), 1U);
}

TEST_F(MaterialSettingsPanelTest, HasOneProminentButton) {
    EXPECT_EQ(exportButton().buttonStyle(), ButtonStyle::prominent);
    EXPECT_EQ(exportButton().text(), QStringLiteral("E&xport"));
    EXPECT_EQ(exportButton().symbol(), QStringLiteral("square.and.arrow.up"));
    EXPECT_EQ(previewButton().buttonStyle(), ButtonStyle::bordered);
    EXPECT_EQ(previewButton().symbol(), QStringLiteral("eye"));
}

TEST_F(MaterialSettingsPanelTest, ShowsTheDefaultsAgainAfterAReset) {
    click(toggle("Write notes"));
    click(withText<Segment>(view, QStringLiteral("512")));
    press(*row("AO").slider(), Qt::Key_Home);
    load(TextureSlotKind::baseColor);
    store.reset();
    settle();
    EXPECT_EQ(name().text(), QStringLiteral("VOREK_PBR_Material"));
    EXPECT_TRUE(toggle("Write notes").isChecked());
    EXPECT_EQ(view.findChild<SegmentedPicker*>()->currentIndex(), 3);
    EXPECT_EQ(row("AO").valueLabel(), QStringLiteral("100%"));
}

TEST_F(MaterialSettingsPanelTest, ReachesEveryControlInReadingOrder) {
    load(TextureSlotKind::baseColor);
    name().setFocus();
    QStringList reached;
    QWidget* first = QApplication::focusWidget();
    do {
        QWidget* focused = QApplication::focusWidget();
        auto* labelled = qobject_cast<QAbstractButton*>(focused);
        reached << (labelled ? labelled->text() : focused->accessibleName());
        press(*focused, Qt::Key_Tab);
    } while (QApplication::focusWidget() != first && reached.size() < 30);
    EXPECT_EQ(reached, QStringList({QStringLiteral("Name"), QStringLiteral("2048"),
                                    QStringLiteral("Roughness input is gloss/smoothness"),
                                    QStringLiteral("Flip normal green channel"), QStringLiteral("AO"),
                                    QStringLiteral("Roughness"), QStringLiteral("Metallic"),
                                    QStringLiteral("Write .gltf material"), QStringLiteral("Write notes"),
                                    QStringLiteral("Pre&view"), QStringLiteral("E&xport")}));
}

}  // namespace
