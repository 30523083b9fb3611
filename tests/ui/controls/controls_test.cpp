#include "ui/controls/button.h"
#include "ui/controls/segment.h"
#include "ui/controls/segmented_picker.h"
#include "ui/controls/slider.h"
#include "ui/controls/slider_row.h"
#include "ui/controls/stepper.h"
#include "view_fixture.h"

#include <QAccessible>
#include <QCheckBox>
#include <QSignalSpy>

using namespace Qt::StringLiterals;

using namespace quarlin;
using namespace quarlin::fixtures;

namespace {

class SliderTest : public testing::Test {
protected:
    ViewWindow window{SliderRow::percentage(u"AO"_s), QSize(400, 30)};
    SliderRow& row = static_cast<SliderRow&>(window.view());
    Slider& slider = *row.slider();
    QSignalSpy edits{&row, &SliderRow::valueEdited};

    QPoint at(double part) const { return {qRound(part * slider.width()), slider.height() / 2}; }
};

TEST_F(SliderTest, FollowsThePointerWithoutSteps) {
    QTest::mousePress(&slider, Qt::LeftButton, {}, at(0.5));
    QTest::mouseMove(&slider, at(0.5) + QPoint(37, 0));
    const double first = slider.number();
    QTest::mouseMove(&slider, at(0.5) + QPoint(38, 0));
    EXPECT_GT(slider.number(), first);
    EXPECT_LT(slider.number() - first, 0.01);
    QTest::mouseRelease(&slider, Qt::LeftButton, {}, at(0.5));
    const double released = slider.number();
    QTest::mouseMove(&slider, at(0.1));
    EXPECT_EQ(slider.number(), released);
}

TEST_F(SliderTest, CannotLeaveItsRange) {
    QTest::mousePress(&slider, Qt::LeftButton, {}, at(0.5));
    QTest::mouseMove(&slider, QPoint(5000, 5));
    EXPECT_EQ(slider.number(), 1.0);
    QTest::mouseMove(&slider, QPoint(-5000, 5));
    EXPECT_EQ(slider.number(), 0.0);
    QTest::mouseRelease(&slider, Qt::LeftButton);
    press(slider, Qt::Key_Left);
    EXPECT_EQ(slider.number(), 0.0);
    press(slider, Qt::Key_End);
    press(slider, Qt::Key_Up);
    EXPECT_EQ(slider.number(), 1.0);
}

TEST_F(SliderTest, DoesNotJumpWhenItsKnobIsTakenAside) {
    row.setValue(0.5);
    QTest::mousePress(&slider, Qt::LeftButton, {}, slider.handle().center() + QPoint(5, 0));
    EXPECT_EQ(slider.number(), 0.5);
    QTest::mouseRelease(&slider, Qt::LeftButton);
}

TEST_F(SliderTest, AlwaysShowsItsOwnValue) {
    for (const double value : {0.0, 0.123, 0.655, 1.0}) {
        row.setValue(value);
        EXPECT_EQ(slider.number(), value);
        EXPECT_EQ(row.valueLabel(), slider.numberText());
    }
    press(slider, Qt::Key_PageDown);
    EXPECT_EQ(row.valueLabel(), u"90%"_s);
}

TEST_F(SliderTest, AnnouncesTheUsersEditsOnly) {
    row.setValue(0.5);
    EXPECT_EQ(edits.size(), 0);
    press(slider, Qt::Key_Right);
    EXPECT_EQ(edits.size(), 1);
    row.setValue(1.0);
    press(slider, Qt::Key_Right);
    EXPECT_EQ(edits.size(), 1);
}

TEST_F(SliderTest, IsLeftAloneByTheOtherMouseButtonsAndTheWheel) {
    QTest::mouseClick(&slider, Qt::RightButton, {}, at(0.9));
    EXPECT_EQ(slider.number(), 0.0);
    QWheelEvent wheel(at(0.5), at(0.5), {}, {0, 120}, {}, {}, Qt::NoScrollPhase, false);
    QCoreApplication::sendEvent(&slider, &wheel);
    EXPECT_EQ(slider.number(), 0.0);
}

TEST_F(SliderTest, RunsTheOtherWayInRightToLeftLayouts) {
    row.setLayoutDirection(Qt::RightToLeft);
    row.setValue(0.0);
    EXPECT_GT(slider.handle().center().x(), slider.width() / 2.0);
    press(slider, Qt::Key_Left);
    EXPECT_GT(slider.number(), 0.0);
}

TEST_F(SliderTest, TellsAssistiveTechnologyItsNameRoleAndValue) {
    row.setValue(0.25);
    QAccessibleInterface* accessible = QAccessible::queryAccessibleInterface(&slider);
    ASSERT_NE(accessible, nullptr);
    EXPECT_EQ(accessible->role(), QAccessible::Slider);
    EXPECT_EQ(accessible->text(QAccessible::Name), u"AO"_s);
    EXPECT_EQ(accessible->text(QAccessible::Value), u"25%"_s);
    ASSERT_NE(accessible->valueInterface(), nullptr);
    EXPECT_EQ(accessible->valueInterface()->maximumValue().toDouble(), 1.0);
    accessible->valueInterface()->setCurrentValue(0.75);
    EXPECT_EQ(slider.number(), 0.75);
    EXPECT_EQ(edits.size(), 1);
}

TEST(Stepper, TellsAssistiveTechnologyItsRoleAndValue) {
    Stepper stepper(0, 4);
    stepper.setAccessibleName(u"Smoothing"_s);
    stepper.showValue(2);
    QAccessibleInterface* accessible = QAccessible::queryAccessibleInterface(&stepper);
    ASSERT_NE(accessible, nullptr);
    EXPECT_EQ(accessible->role(), QAccessible::SpinBox);
    EXPECT_EQ(accessible->text(QAccessible::Name), u"Smoothing"_s);
    EXPECT_EQ(accessible->text(QAccessible::Value), u"2"_s);
}

TEST(SegmentedPicker, HasOneChoiceAndTellsItsName) {
    SegmentedPicker picker(u"Size"_s, {u"a"_s, u"b"_s});
    QSignalSpy chosen(&picker, &SegmentedPicker::chosen);
    picker.setCurrentIndex(1);
    EXPECT_EQ(picker.currentIndex(), 1);
    EXPECT_EQ(chosen.size(), 0);
    const auto segments = picker.findChildren<Segment*>();
    EXPECT_FALSE(segments[0]->isChecked());
    click(*segments[0]);
    EXPECT_EQ(chosen.size(), 1);
    EXPECT_EQ(picker.currentIndex(), 0);
    QAccessibleInterface* accessible = QAccessible::queryAccessibleInterface(segments[0]);
    EXPECT_EQ(accessible->role(), QAccessible::RadioButton);
    EXPECT_EQ(accessible->text(QAccessible::Name), u"a"_s);
    EXPECT_TRUE(accessible->state().checked);
    EXPECT_EQ(picker.accessibleName(), u"Size"_s);
}

TEST(CheckBox, TakesAClickAnywhereOnItsTitle) {
    QCheckBox toggle(u"Write notes"_s);
    toggle.resize(toggle.sizeHint());
    click(toggle, QPoint(toggle.width() - 4, 4));
    EXPECT_TRUE(toggle.isChecked());
    QAccessibleInterface* accessible = QAccessible::queryAccessibleInterface(&toggle);
    EXPECT_EQ(accessible->role(), QAccessible::CheckBox);
    EXPECT_EQ(accessible->text(QAccessible::Name), u"Write notes"_s);
}

TEST(Button, OfOnlyASymbolIsNamedByItsTooltip) {
    const std::unique_ptr<Button> button(Button::symbolOnly(u"trash"_s, u"Reset Inputs"_s));
    QAccessibleInterface* accessible = QAccessible::queryAccessibleInterface(button.get());
    EXPECT_EQ(accessible->role(), QAccessible::Button);
    EXPECT_EQ(accessible->text(QAccessible::Name), u"Reset Inputs"_s);
}

}  // namespace
