#include "ui/controls/button.h"
#include "ui/controls/picture_view.h"
#include "ui/controls/segment.h"
#include "ui/controls/segmented_picker.h"
#include "ui/controls/slider.h"
#include "ui/controls/slider_row.h"
#include "ui/controls/stepper.h"
#include "ui/layout/adaptive_grid.h"
#include "ui/layout/scroll_panel.h"
#include "view_fixture.h"

#include <QAccessible>
#include <QCheckBox>
#include <QPainter>
#include <QScrollBar>
#include <QSignalSpy>
#include <QStyleOptionSlider>
#include <QVBoxLayout>

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

class ScrollPanelTest : public testing::Test {
protected:
    ViewWindow window{new ScrollPanel(0, {}), QSize(200, 100)};
    ScrollPanel& panel = static_cast<ScrollPanel&>(window.view());
    QScrollBar& bar = *panel.overlayBar();

    QRect handle() const {
        QStyleOptionSlider option;
        option.initFrom(&bar);
        option.orientation = bar.orientation();
        option.minimum = bar.minimum();
        option.maximum = bar.maximum();
        option.pageStep = bar.pageStep();
        option.sliderPosition = bar.sliderPosition();
        return bar.style()->subControlRect(QStyle::CC_ScrollBar, &option, QStyle::SC_ScrollBarSlider, &bar);
    }

    void setContentHeight(int height) {
        auto* content = new QWidget;
        content->setFixedHeight(height);
        panel.rows()->addWidget(content);
        settle();
    }
};

TEST_F(ScrollPanelTest, ShowsItsBarOnlyWhenThereIsSomethingToScroll) {
    setContentHeight(50);
    EXPECT_FALSE(bar.isVisible());
    setContentHeight(200);
    EXPECT_TRUE(bar.isVisible());
    EXPECT_EQ(panel.viewport()->width(), 200);
}

TEST_F(ScrollPanelTest, ScrollsWithItsBar) {
    setContentHeight(400);
    const QPoint grip = handle().center();
    QTest::mousePress(&bar, Qt::LeftButton, {}, grip);
    QTest::mouseMove(&bar, grip + QPoint(0, 500));
    QTest::mouseRelease(&bar, Qt::LeftButton, {}, grip);
    EXPECT_EQ(panel.verticalScrollBar()->value(), 300);
    click(bar, QPoint(6, 3));
    EXPECT_EQ(panel.verticalScrollBar()->value(), 200);
    panel.verticalScrollBar()->setValue(0);
    EXPECT_EQ(bar.value(), 0);
    click(bar, QPoint(6, 97));
    EXPECT_EQ(panel.verticalScrollBar()->value(), 100);
}

TEST(AdaptiveGrid, FitsAsManyColumnsAsTheWidthHolds) {
    AdaptiveGrid grid(140, 12);
    EXPECT_EQ(grid.columnCount(0), 1);
    EXPECT_EQ(grid.columnCount(291), 1);
    EXPECT_EQ(grid.columnCount(292), 2);
    EXPECT_EQ(grid.columnCount(443), 2);
    EXPECT_EQ(grid.columnCount(444), 3);
}

TEST(AdaptiveGrid, SpreadsItsColumnsOverTheWholeWidth) {
    QWidget owner;
    auto* grid = new AdaptiveGrid(140, 12, &owner);
    for (int index = 0; index < 5; ++index) {
        auto* item = new QWidget;
        item->setMinimumHeight(20);
        grid->addWidget(item);
    }
    grid->setGeometry(QRect(0, 0, 300, 200));
    EXPECT_EQ(grid->itemAt(0)->geometry().left(), 0);
    EXPECT_EQ(grid->itemAt(1)->geometry().right(), 299);
    EXPECT_EQ(grid->itemAt(1)->geometry().left() - grid->itemAt(0)->geometry().right() - 1, 12);
    EXPECT_EQ(grid->itemAt(2)->geometry().top(), 20 + 12);
    EXPECT_EQ(grid->heightForWidth(300), 3 * 20 + 2 * 12);
    EXPECT_EQ(grid->itemAt(5), nullptr);
}

TEST(AdaptiveGrid, MakesEveryColumnEquallyWide) {
    QWidget owner;
    auto* grid = new AdaptiveGrid(140, 12, &owner);
    for (int index = 0; index < 3; ++index) {
        grid->addWidget(new QWidget);
    }
    for (int width = 444; width < 460; ++width) {
        grid->setGeometry(QRect(0, 0, width, 100));
        EXPECT_EQ(grid->itemAt(1)->geometry().width(), grid->itemAt(0)->geometry().width()) << width;
        EXPECT_EQ(grid->itemAt(2)->geometry().width(), grid->itemAt(0)->geometry().width()) << width;
        EXPECT_EQ(grid->itemAt(2)->geometry().right(), width - 1) << width;
        EXPECT_GE(grid->itemAt(1)->geometry().left() - grid->itemAt(0)->geometry().right() - 1, 12) << width;
    }
}

TEST(PictureView, FillsItsFrameAndCutsOffWhatStandsOver) {
    // Red on the left, green in the middle, blue on the right: the frame is square, so only green is left.
    QImage wide(90, 30, QImage::Format_RGB32);
    wide.fill(Qt::green);
    for (int y = 0; y < 30; ++y) {
        for (int x = 0; x < 30; ++x) {
            wide.setPixelColor(x, y, Qt::red);
            wide.setPixelColor(60 + x, y, Qt::blue);
        }
    }
    PictureView view(0, false);
    view.setFixedSize(54, 54);
    view.setImage(wide);
    const QImage shown = view.grab().toImage();
    EXPECT_EQ(shown.pixelColor(2, 27), QColor(Qt::green));
    EXPECT_EQ(shown.pixelColor(51, 2), QColor(Qt::green));
    EXPECT_EQ(shown.pixelColor(27, 51), QColor(Qt::green));
}

TEST(PictureView, ShowsTheSamePartAtEveryScale) {
    // One dark quarter: a picture that were tiled or shifted would show it elsewhere too.
    QImage image(64, 64, QImage::Format_RGB32);
    image.fill(Qt::white);
    for (int y = 0; y < 32; ++y) {
        for (int x = 0; x < 32; ++x) {
            image.setPixelColor(x, y, Qt::black);
        }
    }
    PictureView view(0, false);
    view.setFixedSize(40, 40);
    view.setImage(image);
    for (const double scale : {1.0, 1.5, 2.0}) {
        QImage shown((QSizeF(40, 40) * scale).toSize(), QImage::Format_RGB32);
        shown.setDevicePixelRatio(scale);
        QPainter painter(&shown);
        view.render(&painter);
        painter.end();
        const auto at = [&](double x, double y) {
            return shown.pixelColor(qRound(x * scale), qRound(y * scale));
        };
        EXPECT_EQ(at(2, 2), QColor(Qt::black)) << scale;
        EXPECT_EQ(at(17, 17), QColor(Qt::black)) << scale;
        EXPECT_EQ(at(23, 17), QColor(Qt::white)) << scale;
        EXPECT_EQ(at(17, 38), QColor(Qt::white)) << scale;
        EXPECT_EQ(at(38, 38), QColor(Qt::white)) << scale;
    }
}

TEST(PictureView, RoundsItsCorners) {
    QImage image(54, 54, QImage::Format_RGB32);
    image.fill(Qt::red);
    PictureView view(6, false);
    view.setFixedSize(54, 54);
    view.setImage(image);
    const QImage shown = view.grab().toImage();
    EXPECT_NE(shown.pixelColor(0, 0), QColor(Qt::red));
    EXPECT_EQ(shown.pixelColor(27, 0), QColor(Qt::red));
}

}  // namespace
