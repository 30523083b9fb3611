#include "view3d/window/orbit.h"

#include "view_fixture.h"

#include <QPoint>
#include <QWheelEvent>

using namespace quarlin;
using namespace quarlin::fixtures;

namespace {

class Orbiting : public testing::Test {
protected:
    Orbiting() {
        widget.resize(200, 200);
        widget.show();
        QObject::connect(&orbit, &Orbit::moved, [this] { ++moves; });
    }

    /// Drags by `way` pixels.
    void drag(const QPoint& way, Qt::MouseButton button = Qt::LeftButton,
              Qt::KeyboardModifiers modifiers = {}) {
        const QPoint start(100, 100);
        QTest::mousePress(&widget, button, modifiers, start);
        QMouseEvent move(QEvent::MouseMove, start + way, widget.mapToGlobal(start + way), Qt::NoButton,
                         button, modifiers);
        QCoreApplication::sendEvent(&widget, &move);
        QTest::mouseRelease(&widget, button, modifiers, start + way);
    }

    void wheel(int eighths) {
        QWheelEvent event({100, 100}, widget.mapToGlobal(QPointF(100, 100)), {}, {0, eighths}, Qt::NoButton,
                          {}, Qt::NoScrollPhase, false);
        QCoreApplication::sendEvent(&widget, &event);
    }

    SceneLook look;
    QWidget widget;
    // The widget owns it.
    Orbit& orbit = *new Orbit(&widget, look);
    int moves = 0;
    const SceneLook first;
};

TEST_F(Orbiting, TheMaterialFollowsThePointer) {
    drag({50, 0});
    EXPECT_LT(look.side, first.side);
    drag({0, 50});
    EXPECT_GT(look.elevation, first.elevation);
    EXPECT_EQ(look.lampSide, first.lampSide);
    EXPECT_EQ(moves, 2);
}

TEST_F(Orbiting, TheCameraStopsAboveTheMaterial) {
    drag({0, 1000});
    EXPECT_EQ(look.elevation, elevationRange.highest);
    drag({0, -2000});
    EXPECT_EQ(look.elevation, elevationRange.lowest);
}

TEST_F(Orbiting, ShiftAndTheRightButtonMoveTheLamp) {
    drag({50, 0}, Qt::LeftButton, Qt::ShiftModifier);
    EXPECT_GT(look.lampSide, first.lampSide);
    const double side = look.lampSide;
    drag({20, -30}, Qt::RightButton);
    EXPECT_GT(look.lampSide, side);
    EXPECT_GT(look.lampHeight, first.lampHeight);
    EXPECT_EQ(look.side, first.side);
    EXPECT_EQ(look.elevation, first.elevation);
}

TEST_F(Orbiting, TheWheelZooms) {
    wheel(120);
    EXPECT_LT(look.distance, first.distance);
    wheel(-120);
    EXPECT_NEAR(look.distance, first.distance, 1e-9);
    wheel(120 * 100);
    EXPECT_EQ(look.distance, distanceRange.lowest);
    wheel(-120 * 100);
    EXPECT_EQ(look.distance, distanceRange.highest);
}

TEST_F(Orbiting, KeysDoTheSame) {
    press(widget, Qt::Key_Right);
    EXPECT_LT(look.side, first.side);
    press(widget, Qt::Key_Left);
    EXPECT_EQ(look.side, first.side);
    press(widget, Qt::Key_Up);
    EXPECT_LT(look.elevation, first.elevation);
    press(widget, Qt::Key_Down, Qt::ShiftModifier);
    EXPECT_LT(look.lampHeight, first.lampHeight);
    press(widget, Qt::Key_Plus);
    EXPECT_LT(look.distance, first.distance);
    press(widget, Qt::Key_Minus);
    EXPECT_NEAR(look.distance, first.distance, 1e-9);
}

TEST_F(Orbiting, HomeReturnsToTheFirstViewButLeavesTheLamp) {
    press(widget, Qt::Key_Right);
    press(widget, Qt::Key_Down);
    press(widget, Qt::Key_Plus);
    press(widget, Qt::Key_Left, Qt::ShiftModifier);
    press(widget, Qt::Key_Home);
    EXPECT_EQ(look.side, first.side);
    EXPECT_EQ(look.elevation, first.elevation);
    EXPECT_EQ(look.distance, first.distance);
    EXPECT_NE(look.lampSide, first.lampSide);
}

TEST_F(Orbiting, OtherKeysGoOn) {
    press(widget, Qt::Key_A);
    EXPECT_EQ(moves, 0);
    EXPECT_EQ(look, first);
}

}  // namespace
