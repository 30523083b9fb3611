#include "generator_settings_panel.h"

#include "button.h"
#include "segment.h"
#include "slider.h"
#include "stepper.h"
#include "view_fixture.h"

using namespace quarlin;
using namespace quarlin::fixtures;

namespace {

class GeneratorSettingsPanelTest : public StoreFixture<NormalGeneratorStore> {
protected:
    ViewWindow window{new GeneratorSettingsPanel(store), QSize(440, 960)};
    QWidget& view = window.view();
    Button& previewButton = child<Button>(view, QStringLiteral("preview"));
    Button& exportButton = child<Button>(view, QStringLiteral("export"));
    StepperRow& smoothing = *view.findChild<StepperRow*>();

    Toggle& toggle(const QString& title) const { return withText<Toggle>(view, title); }
    SliderRow& row(const char* title) const {
        for (SliderRow* candidate : view.findChildren<SliderRow*>()) {
            if (candidate->slider()->accessibleName() == QString::fromLatin1(title)) {
                return *candidate;
            }
        }
        throw std::runtime_error(title);
    }
};

TEST_F(GeneratorSettingsPanelTest, ShowsTheDefaultsAtTheStart) {
    EXPECT_TRUE(shows(view, QStringLiteral("Generated Maps")));
    EXPECT_EQ(view.findChild<NameField*>()->text(), QStringLiteral("VOREK_Normal"));
    EXPECT_EQ(view.findChild<SegmentedPicker*>()->currentIndex(), 3);
    EXPECT_EQ(row("Strength").valueLabel(), QStringLiteral("3.0"));
    EXPECT_EQ(smoothing.valueLabel(), QStringLiteral("1"));
    EXPECT_EQ(row("Rough Min").valueLabel(), QStringLiteral("18%"));
    EXPECT_EQ(row("Rough Max").valueLabel(), QStringLiteral("82%"));
    EXPECT_EQ(row("Metal").valueLabel(), QStringLiteral("45%"));
    EXPECT_EQ(row("AO").valueLabel(), QStringLiteral("55%"));
    EXPECT_FALSE(toggle(QStringLiteral("Invert height")).isChecked());
    EXPECT_FALSE(toggle(QStringLiteral("Flip green channel")).isChecked());
}

TEST_F(GeneratorSettingsPanelTest, GroupsItsControlsInOrder) {
    QStringList groups;
    for (const GroupBox* group : view.findChildren<GroupBox*>()) {
        groups << group->title();
    }
    EXPECT_EQ(groups,
              QStringList({QString(), QStringLiteral("Normal / Height"), QStringLiteral("Roughness / Gloss"),
                           QStringLiteral("Metal / AO"), QStringLiteral("Files")}));
    QStringList toggles;
    for (const Toggle* candidate : view.findChildren<Toggle*>()) {
        toggles << candidate->text();
    }
    EXPECT_EQ(toggles, QStringList({QStringLiteral("Invert height"), QStringLiteral("Flip green channel"),
                                    QStringLiteral("Write height helper"), QStringLiteral("Write roughness"),
                                    QStringLiteral("Write gloss"), QStringLiteral("Write metallic"),
                                    QStringLiteral("Write AO"), QStringLiteral("Write ORM"),
                                    QStringLiteral("Write .gltf material"), QStringLiteral("Write notes")}));
}

TEST_F(GeneratorSettingsPanelTest, WritesEachToggleIntoItsOwnField) {
    using Settings = NormalGeneratorSettings;
    const std::vector<std::pair<QString, bool Settings::*>> fields{
        {QStringLiteral("Invert height"), &Settings::invertHeight},
        {QStringLiteral("Flip green channel"), &Settings::flipGreen},
        {QStringLiteral("Write height helper"), &Settings::exportHeight},
        {QStringLiteral("Write roughness"), &Settings::exportRoughness},
        {QStringLiteral("Write gloss"), &Settings::exportGloss},
        {QStringLiteral("Write metallic"), &Settings::exportMetallic},
        {QStringLiteral("Write AO"), &Settings::exportAO},
        {QStringLiteral("Write ORM"), &Settings::exportORM},
        {QStringLiteral("Write .gltf material"), &Settings::exportGLTF},
        {QStringLiteral("Write notes"), &Settings::exportNotes}};
    for (const auto& [title, field] : fields) {
        Settings expected = store.settings();
        expected.*field = !(expected.*field);
        click(toggle(title));
        EXPECT_EQ(store.settings(), expected) << title.toStdString();
    }
}

TEST_F(GeneratorSettingsPanelTest, WritesEachSliderIntoItsOwnField) {
    using Settings = NormalGeneratorSettings;
    const std::vector<std::pair<const char*, double Settings::*>> fields{
        {"Strength", &Settings::strength},
        {"Rough Min", &Settings::roughnessMin},
        {"Rough Max", &Settings::roughnessMax},
        {"Metal", &Settings::metallicStrength},
        {"AO", &Settings::aoStrength}};
    for (const auto& [title, field] : fields) {
        Settings expected = store.settings();
        expected.*field = row(title).slider()->range().maximum;
        press(*row(title).slider(), Qt::Key_End);
        EXPECT_EQ(store.settings(), expected) << title;
    }
}

TEST_F(GeneratorSettingsPanelTest, KeepsTheStrengthBetweenItsBounds) {
    Slider& slider = *row("Strength").slider();
    press(slider, Qt::Key_End);
    press(slider, Qt::Key_Right);
    EXPECT_EQ(store.settings().strength, 10.0);
    EXPECT_EQ(row("Strength").valueLabel(), QStringLiteral("10.0"));
    press(slider, Qt::Key_Home);
    press(slider, Qt::Key_Left);
    EXPECT_EQ(store.settings().strength, 0.2);
    EXPECT_EQ(row("Strength").valueLabel(), QStringLiteral("0.2"));
}

TEST_F(GeneratorSettingsPanelTest, WritesTheStrengthAlikeInEveryLocale) {
    const QLocale before;
    QLocale::setDefault(QLocale(QStringLiteral("de_DE")));
    NormalGeneratorSettings settings;
    settings.strength = 2.5;
    store.setSettings(settings);
    settle();
    EXPECT_EQ(row("Strength").valueLabel(), QStringLiteral("2.5"));
    EXPECT_EQ(row("AO").valueLabel(), QStringLiteral("55\u00a0%"));
    QLocale::setDefault(before);
}

TEST_F(GeneratorSettingsPanelTest, StepsTheSmoothingBetweenNoneAndFour) {
    Stepper& stepper = *smoothing.stepper();
    for (int step = 0; step < 6; ++step) {
        click(stepper, stepper.upperHalf().center());
    }
    EXPECT_EQ(store.settings().smoothing, 4);
    EXPECT_EQ(smoothing.valueLabel(), QStringLiteral("4"));
    for (int step = 0; step < 6; ++step) {
        click(stepper, stepper.lowerHalf().center());
    }
    EXPECT_EQ(store.settings().smoothing, 0);
    EXPECT_EQ(smoothing.valueLabel(), QStringLiteral("0"));
    press(stepper, Qt::Key_Up);
    EXPECT_EQ(store.settings().smoothing, 1);
    press(stepper, Qt::Key_Down);
    press(stepper, Qt::Key_Down);
    EXPECT_EQ(store.settings().smoothing, 0);
}

TEST_F(GeneratorSettingsPanelTest, LetsTheRoughnessBoundsCross) {
    press(*row("Rough Min").slider(), Qt::Key_End);
    press(*row("Rough Max").slider(), Qt::Key_Home);
    EXPECT_EQ(store.settings().roughnessMin, 1.0);
    EXPECT_EQ(store.settings().roughnessMax, 0.0);
}

TEST_F(GeneratorSettingsPanelTest, EnablesBothButtonsWithASource) {
    EXPECT_FALSE(previewButton.isEnabled());
    EXPECT_FALSE(exportButton.isEnabled());
    store.importSourceTexture(folder.texture(QStringLiteral("a.png")));
    settle();
    EXPECT_TRUE(previewButton.isEnabled());
    EXPECT_TRUE(exportButton.isEnabled());
    store.removeSourceTexture();
    settle();
    EXPECT_FALSE(previewButton.isEnabled());
    EXPECT_FALSE(exportButton.isEnabled());
}

TEST_F(GeneratorSettingsPanelTest, LeavesTheButtonsEnabledWithEveryFileOff) {
    store.importSourceTexture(folder.texture(QStringLiteral("a.png")));
    for (Toggle* candidate : view.findChildren<Toggle*>()) {
        if (candidate->isChecked()) {
            click(*candidate);
        }
    }
    EXPECT_FALSE(store.settings().exportNotes);
    EXPECT_TRUE(previewButton.isEnabled());
    EXPECT_TRUE(exportButton.isEnabled());
}

TEST_F(GeneratorSettingsPanelTest, BuildsThePreviewAndExports) {
    store.importSourceTexture(folder.texture(QStringLiteral("a.png")));
    settle();
    const qsizetype before = store.logLines().size();
    click(previewButton);
    EXPECT_EQ(store.logLines().size(), before + 1);
    click(exportButton);
    EXPECT_EQ(chooser.folderQuestions.size(), 1U);
}

}  // namespace
