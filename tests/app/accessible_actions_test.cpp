#include "accessible_tree.h"
#include "model/output_resolution.h"
#include "ui/controls/name_field.h"
#include "ui/controls/stepper.h"
#include "window_fixture.h"

#include <QAccessible>

using namespace Qt::StringLiterals;

using namespace quarlin;
using namespace quarlin::fixtures;

namespace {

/// Operates the window as assistive technology does, without mouse and keys.
class AccessibleActions : public WindowFixture {
protected:
    /// What is visible on the page under this role and name; there must be one.
    QAccessibleInterface& object(QAccessible::Role role, const QString& name) const {
        QAccessibleInterface* found = nullptr;
        forEachAccessible(page(), [&](QAccessibleInterface& candidate) {
            if (candidate.role() == role && candidate.text(QAccessible::Name) == name &&
                !candidate.state().invisible) {
                found = &candidate;
            }
        });
        if (found == nullptr) {
            throw std::runtime_error("nothing named " + name.toStdString());
        }
        return *found;
    }

    void act(QAccessible::Role role, const QString& name, const QString& action) const {
        QAccessibleActionInterface* actions = object(role, name).actionInterface();
        ASSERT_NE(actions, nullptr);
        EXPECT_TRUE(actions->actionNames().contains(action)) << name.toStdString();
        actions->doAction(action);
        settle();
    }

    static QString toggle() { return QAccessibleActionInterface::toggleAction(); }
    static QString press() { return QAccessibleActionInterface::pressAction(); }
};

TEST_F(AccessibleActions, ToggleSettings) {
    act(QAccessible::CheckBox, u"Write notes"_s, toggle());
    EXPECT_FALSE(materials.settings().exportNotes);
    act(QAccessible::CheckBox, u"Write notes"_s, toggle());
    EXPECT_TRUE(materials.settings().exportNotes);
    showTool(StudioTool::normalGenerator);
    act(QAccessible::CheckBox, u"Invert height"_s, toggle());
    EXPECT_TRUE(maps.settings().invertHeight);
}

TEST_F(AccessibleActions, SelectTheOutputSize) {
    act(QAccessible::RadioButton, u"512"_s, toggle());
    EXPECT_EQ(materials.settings().outputResolution, OutputResolution::px512);
    // What is selected stays so.
    act(QAccessible::RadioButton, u"512"_s, toggle());
    EXPECT_EQ(materials.settings().outputResolution, OutputResolution::px512);
    showTool(StudioTool::normalGenerator);
    act(QAccessible::RadioButton, u"Base Size"_s, toggle());
    EXPECT_EQ(maps.settings().outputResolution, OutputResolution::matchBase);
}

TEST_F(AccessibleActions, SetTheNameAsAWhole) {
    object(QAccessible::EditableText, u"Name"_s).setText(QAccessible::Value, u"Brick"_s);
    settle();
    EXPECT_EQ(materials.settings().materialName, u"Brick"_s);
}

TEST_F(AccessibleActions, EditPartsOfTheName) {
    QAccessibleEditableTextInterface* text =
        object(QAccessible::EditableText, u"Name"_s).editableTextInterface();
    ASSERT_NE(text, nullptr);
    text->replaceText(0, 5, u"Old"_s);
    EXPECT_EQ(materials.settings().materialName, u"Old_PBR_Material"_s);
    text->insertText(0, u"Very"_s);
    EXPECT_EQ(materials.settings().materialName, u"VeryOld_PBR_Material"_s);
    text->deleteText(7, 20);
    EXPECT_EQ(materials.settings().materialName, u"VeryOld"_s);
}

TEST_F(AccessibleActions, SetNumbers) {
    object(QAccessible::Slider, u"Roughness"_s).valueInterface()->setCurrentValue(0.25);
    EXPECT_EQ(materials.settings().defaultRoughness, 0.25);
    showTool(StudioTool::normalGenerator);
    object(QAccessible::SpinBox, u"Smoothing"_s).valueInterface()->setCurrentValue(3);
    EXPECT_EQ(maps.settings().smoothing, 3);
}

TEST_F(AccessibleActions, StepNumbers) {
    act(QAccessible::Slider, u"Metallic"_s, QAccessibleActionInterface::increaseAction());
    EXPECT_DOUBLE_EQ(materials.settings().defaultMetallic, 0.01);
    act(QAccessible::Slider, u"Metallic"_s, QAccessibleActionInterface::decreaseAction());
    EXPECT_DOUBLE_EQ(materials.settings().defaultMetallic, 0);
    showTool(StudioTool::normalGenerator);
    const int before = maps.settings().smoothing;
    act(QAccessible::SpinBox, u"Smoothing"_s, QAccessibleActionInterface::increaseAction());
    EXPECT_EQ(maps.settings().smoothing, before + 1);
}

TEST_F(AccessibleActions, PressButtons) {
    chooser.file = folder.texture(u"Stone.png"_s);
    // A button that is pressed in this way looks pressed for a moment before it acts.
    act(QAccessible::Button, u"Choose Base Color"_s, press());
    ASSERT_TRUE(QTest::qWaitFor([&] { return materials.canExport(); }));
    settle();
    chooser.folder = folder.url();
    act(QAccessible::RadioButton, u"Base Size"_s, toggle());
    act(QAccessible::Button, u"Export"_s, press());
    EXPECT_TRUE(QTest::qWaitFor([&] { return QFile::exists(folder.path(u"Stone/Stone_ORM.png"_s)); }));
    act(QAccessible::Button, u"Remove Base Color"_s, press());
    EXPECT_TRUE(QTest::qWaitFor([&] { return !materials.hasAnyTexture(); }));
}

TEST_F(AccessibleActions, ShowTheOtherTool) {
    QAccessibleInterface* bar = QAccessible::queryAccessibleInterface(&tabs);
    bar->child(1)->actionInterface()->doAction(press());
    settle();
    EXPECT_EQ(window.content()->selectedTool(), StudioTool::normalGenerator);
}

TEST_F(AccessibleActions, AreNotNeededToShowWhatTheStoreHolds) {
    // Showing settings is no edit: the names below would not survive being typed.
    ConversionSettings settings = materials.settings();
    settings.materialName = QString(40'000, u'x');
    settings.exportNotes = false;
    settings.outputResolution = OutputResolution::px4096;
    materials.setSettings(settings);
    settle();
    EXPECT_EQ(materials.settings(), settings);
    settings.materialName = u"two\nlines"_s;
    materials.setSettings(settings);
    settle();
    EXPECT_EQ(materials.settings(), settings);
}

}  // namespace
