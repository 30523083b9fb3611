#include "ui/material/material_settings_panel.h"

#include "model/output_resolution.h"
#include "model/texture_slot_kind.h"
#include "ui/controls/button.h"
#include "ui/controls/segment.h"
#include "ui/controls/slider.h"
#include "ui/panels/tool_actions.h"
#include "view_fixture.h"

using namespace Qt::StringLiterals;

using namespace quarlin;
using namespace quarlin::fixtures;

namespace {

class MaterialSettingsPanelTest : public StoreFixture<MaterialStore> {
protected:
    ToolActions actions{store};
    ViewWindow window{new MaterialSettingsPanel(store, actions), QSize(440, 700)};
    QWidget& view = window.view();

    QCheckBox& toggle(const char* title) const {
        return withText<QCheckBox>(view, QString::fromLatin1(title));
    }
    NameField& name() const { return *view.findChild<NameField*>(); }
    Button& previewButton() const { return child<Button>(view, u"preview"_s); }
    Button& exportButton() const { return child<Button>(view, u"export"_s); }
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
        store.importTexture(folder.texture(u"a.png"_s), kind);
        settle();
    }
};

TEST_F(MaterialSettingsPanelTest, ShowsTheDefaultsAtTheStart) {
    EXPECT_EQ(name().text(), u"VOREK_PBR_Material"_s);
    EXPECT_EQ(name().placeholderText(), u"Name"_s);
    EXPECT_EQ(view.findChild<SegmentedPicker*>()->currentIndex(), 3);
    EXPECT_FALSE(toggle("Roughness input is gloss/smoothness").isChecked());
    EXPECT_FALSE(toggle("Flip normal green channel").isChecked());
    EXPECT_EQ(row("AO").valueLabel(), u"100%"_s);
    EXPECT_EQ(row("Roughness").valueLabel(), u"65%"_s);
    EXPECT_EQ(row("Metallic").valueLabel(), u"0%"_s);
    EXPECT_TRUE(toggle("Write .gltf material").isChecked());
    EXPECT_TRUE(toggle("Write notes").isChecked());
}

TEST_F(MaterialSettingsPanelTest, GroupsItsControlsInOrder) {
    QStringList titles;
    for (const GroupBox* group : view.findChildren<GroupBox*>()) {
        titles << group->title();
    }
    EXPECT_EQ(titles, QStringList({QString(), u"Map Conversion"_s, u"Missing Map Defaults"_s, u"Export"_s}));
    EXPECT_TRUE(shows(view, u"Material"_s));
    EXPECT_TRUE(shows(view, u"Output Size"_s));
}

TEST_F(MaterialSettingsPanelTest, OffersFiveSizesBaseSizeFirst) {
    EXPECT_EQ(segmentTitles(), QStringList({u"Base Size"_s, u"512"_s, u"1024"_s, u"2048"_s, u"4096"_s}));
}

TEST_F(MaterialSettingsPanelTest, WritesEachKeystrokeOfTheName) {
    name().setFocus();
    name().selectAll();
    QTest::keyClick(&name(), Qt::Key_B);
    EXPECT_EQ(store.settings().materialName, u"b"_s);
    QTest::keyClicks(&name(), u"rick"_s);
    EXPECT_EQ(store.settings().materialName, u"brick"_s);
    settle();
    EXPECT_EQ(name().text(), u"brick"_s);
}

TEST_F(MaterialSettingsPanelTest, ShowsTheBeginningOfALongName) {
    name().clearFocus();
    ConversionSettings settings = store.settings();
    settings.materialName = QString(200, u'w');
    store.setSettings(settings);
    settle();
    EXPECT_EQ(name().text(), settings.materialName);
    EXPECT_EQ(name().cursorPosition(), 0);
}

TEST_F(MaterialSettingsPanelTest, KeepsTheCursorWhileTyping) {
    name().setText(u"abcd"_s);
    name().setCursorPosition(2);
    QTest::keyClicks(&name(), u"x"_s);
    settle();
    QTest::keyClicks(&name(), u"y"_s);
    settle();
    EXPECT_EQ(name().text(), u"abxycd"_s);
    EXPECT_EQ(name().cursorPosition(), 4);
    EXPECT_EQ(store.settings().materialName, u"abxycd"_s);
}

TEST_F(MaterialSettingsPanelTest, TakesAnEmptyName) {
    name().selectAll();
    QTest::keyClick(&name(), Qt::Key_Delete);
    settle();
    EXPECT_EQ(store.settings().materialName, QString());
    EXPECT_EQ(name().text(), QString());
}

TEST_F(MaterialSettingsPanelTest, ShowsAnAdoptedName) {
    store.importTexture(folder.texture(u"Brick.png"_s), TextureSlotKind::baseColor);
    settle();
    EXPECT_EQ(name().text(), u"Brick"_s);
}

TEST_F(MaterialSettingsPanelTest, WritesTheChosenSize) {
    click(withText<Segment>(view, u"512"_s));
    EXPECT_EQ(store.settings().outputResolution, OutputResolution::px512);
    click(withText<Segment>(view, u"Base Size"_s));
    EXPECT_EQ(store.settings().outputResolution, OutputResolution::matchBase);
}

TEST_F(MaterialSettingsPanelTest, MovesTheSizeWithTheArrowKeys) {
    Segment& chosen = withText<Segment>(view, u"2048"_s);
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
    EXPECT_EQ(row("AO").valueLabel(), u"0%"_s);
    EXPECT_EQ(row("Roughness").valueLabel(), u"100%"_s);
    EXPECT_EQ(row("Metallic").valueLabel(), u"10%"_s);
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
    EXPECT_EQ(newest(), stamped(u"Preview updated."_s));
    click(exportButton());
    EXPECT_EQ(chooser.folderQuestions.size(), 1U);
}

TEST_F(MaterialSettingsPanelTest, HasOneProminentButton) {
    EXPECT_EQ(exportButton().buttonStyle(), ButtonStyle::prominent);
    EXPECT_EQ(exportButton().text(), u"E&xport"_s);
    EXPECT_EQ(exportButton().symbol(), u"square.and.arrow.up"_s);
    EXPECT_EQ(previewButton().buttonStyle(), ButtonStyle::bordered);
    EXPECT_EQ(previewButton().symbol(), u"eye"_s);
}

TEST_F(MaterialSettingsPanelTest, ShowsTheDefaultsAgainAfterAReset) {
    click(toggle("Write notes"));
    click(withText<Segment>(view, u"512"_s));
    press(*row("AO").slider(), Qt::Key_Home);
    load(TextureSlotKind::baseColor);
    store.reset();
    settle();
    EXPECT_EQ(name().text(), u"VOREK_PBR_Material"_s);
    EXPECT_TRUE(toggle("Write notes").isChecked());
    EXPECT_EQ(view.findChild<SegmentedPicker*>()->currentIndex(), 3);
    EXPECT_EQ(row("AO").valueLabel(), u"100%"_s);
}

TEST_F(MaterialSettingsPanelTest, ReachesEveryControlInReadingOrder) {
    load(TextureSlotKind::baseColor);
    name().setFocus();
    QStringList reached;
    QWidget* first = QApplication::focusWidget();
    do {
        QWidget* focused = QApplication::focusWidget();
        auto* labeled = qobject_cast<QAbstractButton*>(focused);
        reached << (labeled ? labeled->text() : focused->accessibleName());
        press(*focused, Qt::Key_Tab);
    } while (QApplication::focusWidget() != first && reached.size() < 30);
    EXPECT_EQ(reached,
              QStringList({u"Name"_s, u"2048"_s, u"Roughness input is gloss/smoothness"_s,
                           u"Flip normal green channel"_s, u"AO"_s, u"Roughness"_s, u"Metallic"_s,
                           u"Write .gltf material"_s, u"Write notes"_s, u"&Preview"_s, u"E&xport"_s}));
}

}  // namespace
