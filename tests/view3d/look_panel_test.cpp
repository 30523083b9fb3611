#include "view3d/window/look_panel.h"

#include "ui/controls/segmented_picker.h"
#include "ui/controls/slider_row.h"
#include "ui/controls/stepper.h"
#include "ui/controls/stepper_row.h"
#include "view_fixture.h"

#include <QAbstractButton>

using namespace quarlin;
using namespace quarlin::fixtures;

namespace {

class LookPanels : public testing::Test {
protected:
    LookPanels() {
        QObject::connect(&panel, &LookPanel::edited, [this] { ++edits; });
    }

    SegmentedPicker& picker(const QString& name) const { return child<SegmentedPicker>(window.view(), name); }
    void choose(const QString& name, const QString& segment) const {
        click(withText<QAbstractButton>(picker(name), segment));
    }

    SceneLook look;
    LookPanel& panel = *new LookPanel(look);
    ViewWindow window{&panel, {360, 640}};
    int edits = 0;
};

TEST_F(LookPanels, EveryChoiceIsOffered) {
    choose(u"Shape"_s, u"Cylinder"_s);
    EXPECT_EQ(look.shape, SceneShape::cylinder);
    choose(u"Show"_s, u"Rough"_s);
    EXPECT_EQ(look.content, SceneContent::roughness);
    choose(u"Background"_s, u"White"_s);
    EXPECT_EQ(look.backdrop, SceneBackdrop::white);
    EXPECT_EQ(edits, 3);
}

TEST_F(LookPanels, TheSlidersSetLampAndExposure) {
    press(*child<SliderRow>(panel, u"Direction"_s).slider(), Qt::Key_Right);
    EXPECT_DOUBLE_EQ(look.lampSide, 40);
    press(*child<SliderRow>(panel, u"Height"_s).slider(), Qt::Key_End);
    EXPECT_DOUBLE_EQ(look.lampHeight, 90);
    press(*child<SliderRow>(panel, u"Exposure"_s).slider(), Qt::Key_Left);
    EXPECT_NEAR(look.exposure, -0.1, 1e-9);
    EXPECT_EQ(edits, 3);
}

TEST_F(LookPanels, TilingGoesFromOneToEight) {
    auto& row = child<StepperRow>(panel, u"Tiling"_s);
    for (int step = 0; step < 10; ++step) {
        press(*row.stepper(), Qt::Key_Up);
    }
    EXPECT_EQ(look.tiling, 8);
    EXPECT_EQ(row.valueLabel(), u"8"_s);
}

TEST_F(LookPanels, ShowWhatWasChangedElsewhere) {
    look.lampSide = -90;
    look.shape = SceneShape::plane;
    panel.showLook();
    EXPECT_EQ(child<SliderRow>(panel, u"Direction"_s).valueLabel(), u"-90\u00b0"_s);
    EXPECT_EQ(picker(u"Shape"_s).currentIndex(), 2);
    EXPECT_EQ(edits, 0);
}

TEST_F(LookPanels, FitTheirContents) { EXPECT_LE(panel.widget()->minimumSizeHint().width(), 360); }

}  // namespace
