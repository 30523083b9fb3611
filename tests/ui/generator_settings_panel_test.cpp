#include "ui/panels/generator_settings_panel.h"

#include "model/normal_generator_settings.h"
#include "set_files.h"
#include "ui/controls/button.h"
#include "ui/controls/segment.h"
#include "ui/controls/slider.h"
#include "ui/controls/stepper.h"
#include "view_fixture.h"

using namespace Qt::StringLiterals;

using namespace quarlin;
using namespace quarlin::fixtures;

namespace {

class GeneratorSettingsPanelTest : public StoreFixture<NormalGeneratorStore> {
protected:
    ViewWindow window{new GeneratorSettingsPanel(store), QSize(440, 960)};
    QWidget& view = window.view();
    Button& previewButton = child<Button>(view, u"preview"_s);
    Button& exportButton = child<Button>(view, u"export"_s);
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
    EXPECT_TRUE(shows(view, u"Generated Maps"_s));
    EXPECT_EQ(view.findChild<NameField*>()->text(), u"VOREK_Normal"_s);
    EXPECT_EQ(view.findChild<SegmentedPicker*>()->currentIndex(), 3);
    EXPECT_EQ(row("Strength").valueLabel(), u"3.0"_s);
    EXPECT_EQ(smoothing.valueLabel(), u"1"_s);
    EXPECT_EQ(row("Rough Min").valueLabel(), u"18%"_s);
    EXPECT_EQ(row("Rough Max").valueLabel(), u"82%"_s);
    EXPECT_EQ(row("Metal").valueLabel(), u"45%"_s);
    EXPECT_EQ(row("AO").valueLabel(), u"55%"_s);
    EXPECT_FALSE(toggle(u"Invert height"_s).isChecked());
    EXPECT_FALSE(toggle(u"Flip green channel"_s).isChecked());
}

TEST_F(GeneratorSettingsPanelTest, GroupsItsControlsInOrder) {
    QStringList groups;
    for (const GroupBox* group : view.findChildren<GroupBox*>()) {
        groups << group->title();
    }
    EXPECT_EQ(groups, QStringList({QString(), u"Normal / Height"_s, u"Roughness / Gloss"_s, u"Metal / AO"_s,
                                   u"Files"_s}));
    QStringList toggles;
    for (const Toggle* candidate : view.findChildren<Toggle*>()) {
        toggles << candidate->text();
    }
    QStringList expected{u"Invert height"_s, u"Flip green channel"_s};
    for (const auto& file : withSwitch(generatedFiles())) {
        expected << QString::fromLatin1(file.toggle);
    }
    EXPECT_EQ(toggles, expected);
}

TEST_F(GeneratorSettingsPanelTest, WritesEachToggleIntoItsOwnField) {
    using Settings = NormalGeneratorSettings;
    std::vector<std::pair<QString, bool Settings::*>> fields{{u"Invert height"_s, &Settings::invertHeight},
                                                             {u"Flip green channel"_s, &Settings::flipGreen}};
    for (const auto& file : withSwitch(generatedFiles())) {
        fields.emplace_back(QString::fromLatin1(file.toggle), file.isExported);
    }
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
    EXPECT_EQ(row("Strength").valueLabel(), u"10.0"_s);
    press(slider, Qt::Key_Home);
    press(slider, Qt::Key_Left);
    EXPECT_EQ(store.settings().strength, 0.2);
    EXPECT_EQ(row("Strength").valueLabel(), u"0.2"_s);
}

TEST_F(GeneratorSettingsPanelTest, WritesTheStrengthAlikeInEveryLocale) {
    const QLocale before;
    QLocale::setDefault(QLocale(u"de_DE"_s));
    NormalGeneratorSettings settings;
    settings.strength = 2.5;
    store.setSettings(settings);
    settle();
    EXPECT_EQ(row("Strength").valueLabel(), u"2.5"_s);
    EXPECT_EQ(row("AO").valueLabel(), u"55\u00a0%"_s);
    QLocale::setDefault(before);
}

TEST_F(GeneratorSettingsPanelTest, StepsTheSmoothingBetweenNoneAndFour) {
    Stepper& stepper = *smoothing.stepper();
    for (int step = 0; step < 6; ++step) {
        click(stepper, stepper.upperHalf().center());
    }
    EXPECT_EQ(store.settings().smoothing, 4);
    EXPECT_EQ(smoothing.valueLabel(), u"4"_s);
    for (int step = 0; step < 6; ++step) {
        click(stepper, stepper.lowerHalf().center());
    }
    EXPECT_EQ(store.settings().smoothing, 0);
    EXPECT_EQ(smoothing.valueLabel(), u"0"_s);
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
    store.importSourceTexture(folder.texture(u"a.png"_s));
    settle();
    EXPECT_TRUE(previewButton.isEnabled());
    EXPECT_TRUE(exportButton.isEnabled());
    store.removeSourceTexture();
    settle();
    EXPECT_FALSE(previewButton.isEnabled());
    EXPECT_FALSE(exportButton.isEnabled());
}

TEST_F(GeneratorSettingsPanelTest, LeavesTheButtonsEnabledWithEveryFileOff) {
    store.importSourceTexture(folder.texture(u"a.png"_s));
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
    store.importSourceTexture(folder.texture(u"a.png"_s));
    settle();
    const qsizetype before = store.logLines().size();
    click(previewButton);
    EXPECT_EQ(store.logLines().size(), before + 1);
    click(exportButton);
    EXPECT_EQ(chooser.folderQuestions.size(), 1U);
}

}  // namespace
