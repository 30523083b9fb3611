#include "ui/viewer/map_canvas.h"

#include "viewer_fixture.h"

#include <QMouseEvent>
#include <QScrollBar>
#include <QSignalSpy>
#include <QWheelEvent>

#include <gtest/gtest.h>

using namespace quarlin;
using namespace quarlin::fixtures;

namespace {

class MapCanvasTest : public testing::Test {
protected:
    MapCanvasTest() : window(new MapCanvas, QSize(424, 324)) { canvas.setMap(mapOf(200, 100)); }

    static std::shared_ptr<const MapPyramid> mapOf(int width, int height) {
        return std::make_shared<MapPyramid>(placeImage(width, height));
    }

    void turnWheel(const QPoint& position, int turn) {
        QWheelEvent event(position, canvas.viewport()->mapToGlobal(position), {}, {0, turn}, {}, {},
                          Qt::NoScrollPhase, false);
        QCoreApplication::sendEvent(canvas.viewport(), &event);
        settle();
    }

    void pointAt(const QPoint& position) {
        QTest::mouseMove(canvas.viewport(), position);
        settle();
    }

    QColor shownAt(const QPoint& position) {
        return canvas.viewport()->grab().toImage().pixelColor(position);
    }

    QPoint place() const { return canvas.probedPixel().value().place; }

    ViewWindow window;
    MapCanvas& canvas = static_cast<MapCanvas&>(window.view());
    const QPoint middle = canvas.viewport()->rect().center();
};

TEST_F(MapCanvasTest, FitsTheMapAtFirst) {
    EXPECT_TRUE(canvas.isFitted());
    EXPECT_EQ(canvas.scale(), 2);
    EXPECT_EQ(shownAt(canvas.viewportPosition({0, 0})), QColor(0, 0, 7));
    EXPECT_EQ(shownAt(canvas.viewportPosition({199, 99})), QColor(199, 99, 7));
}

TEST_F(MapCanvasTest, FitsTheMapAgainWhenItsSizeChanges) {
    canvas.resize(224, 224);
    settle();
    EXPECT_EQ(canvas.scale(), 1);
    canvas.resize(124, 224);
    settle();
    EXPECT_EQ(canvas.scale(), 0.5);
}

TEST_F(MapCanvasTest, ZoomsToThePixelsAndUpTo1600Percent) {
    canvas.showPixels();
    EXPECT_EQ(canvas.scale(), 1);
    for (const double scale : {2, 4, 8, 16, 16}) {
        canvas.zoomIn();
        EXPECT_EQ(canvas.scale(), scale);
    }
    canvas.fit();
    EXPECT_EQ(canvas.scale(), 2);
}

TEST_F(MapCanvasTest, ZoomsOutToTheWholeMap) {
    canvas.setMap(mapOf(1600, 800));
    EXPECT_EQ(canvas.scale(), 0.25);
    canvas.showPixels();
    canvas.zoomOut();
    EXPECT_EQ(canvas.scale(), 0.5);
    EXPECT_FALSE(canvas.isFitted());
    canvas.zoomOut();
    EXPECT_TRUE(canvas.isFitted());
    canvas.zoomOut();
    EXPECT_TRUE(canvas.isFitted());
}

TEST_F(MapCanvasTest, ZoomsWithTheWheelAtThePointer) {
    const QPoint position = canvas.viewportPosition({150, 60});
    pointAt(position);
    for (int turn = 0; turn < 3; ++turn) {
        turnWheel(position, 120);
        EXPECT_EQ(place(), QPoint(150, 60)) << turn;
    }
    EXPECT_EQ(canvas.scale(), 16);
    EXPECT_EQ(shownAt(position), QColor(150, 60, 7));
    turnWheel(position, -120);
    EXPECT_EQ(canvas.scale(), 8);
    EXPECT_EQ(place(), QPoint(150, 60));
}

TEST_F(MapCanvasTest, AddsUpTheSmallTurnsOfATouchPad) {
    for (int part = 0; part < 3; ++part) {
        turnWheel(middle, 30);
    }
    EXPECT_EQ(canvas.scale(), 2);
    turnWheel(middle, 30);
    EXPECT_EQ(canvas.scale(), 4);
}

TEST_F(MapCanvasTest, IsDraggedWithTheMouse) {
    canvas.showPixels();
    canvas.zoomIn();
    canvas.zoomIn();
    pointAt(middle);
    const QPoint before = place();
    const auto scrolled = [this] {
        return QPoint(canvas.horizontalScrollBar()->value(), canvas.verticalScrollBar()->value());
    };
    const QPoint start = scrolled();
    QTest::mousePress(canvas.viewport(), Qt::LeftButton, {}, middle);
    pointAt(middle + QPoint(40, 20));
    QTest::mouseRelease(canvas.viewport(), Qt::LeftButton, {}, middle + QPoint(40, 20));
    // The pixel stays under the pointer.
    EXPECT_EQ(place(), before);
    EXPECT_EQ(scrolled(), start - QPoint(40, 20));
    // After the release, the pointer moves without the map.
    QMouseEvent back(QEvent::MouseMove, middle, canvas.viewport()->mapToGlobal(middle), Qt::NoButton,
                     Qt::NoButton, Qt::NoModifier);
    QCoreApplication::sendEvent(canvas.viewport(), &back);
    EXPECT_EQ(place(), before - QPoint(10, 5));
}

TEST_F(MapCanvasTest, ChangesBetweenThePixelsAndTheWholeMapWithADoubleClick) {
    const QPoint position = canvas.viewportPosition({20, 10});
    QTest::mouseDClick(canvas.viewport(), Qt::LeftButton, {}, position);
    EXPECT_EQ(canvas.scale(), 1);
    EXPECT_FALSE(canvas.isFitted());
    QTest::mouseDClick(canvas.viewport(), Qt::LeftButton, {}, position);
    EXPECT_TRUE(canvas.isFitted());
}

TEST_F(MapCanvasTest, MovesWithShiftAndTheArrowKeys) {
    canvas.showPixels();
    for (int step = 0; step < 4; ++step) {
        canvas.zoomIn();
    }
    press(canvas, Qt::Key_Right, Qt::ShiftModifier);
    const QPoint before = place();
    press(canvas, Qt::Key_Right, Qt::ShiftModifier);
    EXPECT_EQ(place(), before + QPoint(1, 0));
    press(canvas, Qt::Key_Down, Qt::ShiftModifier);
    EXPECT_EQ(place(), before + QPoint(1, 1));
    press(canvas, Qt::Key_Left, Qt::ShiftModifier);
    press(canvas, Qt::Key_Up, Qt::ShiftModifier);
    EXPECT_EQ(place(), before);
}

TEST_F(MapCanvasTest, AsksForTheNextMapWithTheArrowKeys) {
    const QSignalSpy steps(&canvas, &MapCanvas::stepRequested);
    for (const Qt::Key key : {Qt::Key_Right, Qt::Key_Left, Qt::Key_Down, Qt::Key_Up}) {
        press(canvas, key);
    }
    canvas.setLayoutDirection(Qt::RightToLeft);
    press(canvas, Qt::Key_Right);
    QList<int> distances;
    for (const QList<QVariant>& step : steps) {
        distances << step[0].toInt();
    }
    EXPECT_EQ(distances, QList<int>({1, -1, 1, -1, -1}));
}

TEST_F(MapCanvasTest, ProbesThePixelUnderThePointer) {
    EXPECT_FALSE(canvas.probedPixel());
    pointAt(canvas.viewportPosition({123, 45}));
    EXPECT_EQ(place(), QPoint(123, 45));
    EXPECT_EQ(canvas.probedPixel()->value, QColor(123, 45, 7));
    pointAt({1, 1});
    EXPECT_FALSE(canvas.probedPixel());
    pointAt(middle);
    EXPECT_TRUE(canvas.probedPixel());
    QEvent leave(QEvent::Leave);
    QCoreApplication::sendEvent(canvas.viewport(), &leave);
    EXPECT_FALSE(canvas.probedPixel());
}

TEST_F(MapCanvasTest, DoesNotProbeAPreview) {
    canvas.setMap(std::make_shared<MapPyramid>(placeImage(20, 10), QSize(200, 100)));
    pointAt(middle);
    EXPECT_FALSE(canvas.probedPixel());
}

TEST_F(MapCanvasTest, ShowsTilesAroundTheMap) {
    canvas.setMap(mapOf(100, 75));
    canvas.setTiled(true);
    EXPECT_EQ(canvas.scale(), 1);
    const QPoint first = canvas.viewportPosition({0, 0});
    for (int row = -1; row <= 1; ++row) {
        for (int column = -1; column <= 1; ++column) {
            const QPoint position = first + QPoint(100 * column, 75 * row);
            EXPECT_EQ(shownAt(position), QColor(0, 0, 7)) << row << ' ' << column;
            EXPECT_EQ(shownAt(position + QPoint(99, 74)), QColor(99, 74, 7)) << row << ' ' << column;
            pointAt(position + QPoint(3, 4));
            EXPECT_EQ(place(), QPoint(3, 4));
        }
    }
}

TEST_F(MapCanvasTest, KeepsItsPlaceWhenTilesAppear) {
    canvas.showPixels();
    for (int step = 0; step < 4; ++step) {
        canvas.zoomIn();
    }
    pointAt(middle);
    const QPoint before = place();
    canvas.setTiled(true);
    EXPECT_EQ(place(), before);
    canvas.setTiled(false);
    EXPECT_EQ(place(), before);
}

TEST_F(MapCanvasTest, KeepsItsPlaceOnAMapOfTheSameSize) {
    canvas.showPixels();
    canvas.zoomIn();
    canvas.zoomIn();
    pointAt(middle);
    const QPoint before = place();
    canvas.setMap(mapOf(200, 100));
    EXPECT_EQ(canvas.scale(), 4);
    EXPECT_EQ(place(), before);
    canvas.setMap(mapOf(100, 100));
    EXPECT_TRUE(canvas.isFitted());
}

TEST_F(MapCanvasTest, ShowsAChannelInGray) {
    canvas.setChannel(TextureChannel::red);
    EXPECT_EQ(shownAt(canvas.viewportPosition({150, 20})), QColor(150, 150, 150));
    canvas.setChannel(std::nullopt);
    EXPECT_EQ(shownAt(canvas.viewportPosition({150, 20})), QColor(150, 20, 7));
}

TEST_F(MapCanvasTest, ShowsSquaresBehindTransparentPixels) {
    QImage clear(200, 100, QImage::Format_RGBA8888_Premultiplied);
    clear.fill(Qt::transparent);
    canvas.setMap(std::make_shared<MapPyramid>(clear));
    const QPoint first = canvas.viewportPosition({0, 0}) + QPoint(16, 16);
    EXPECT_NE(shownAt(first), shownAt(first + QPoint(8, 0)));
    EXPECT_EQ(shownAt(first), shownAt(first + QPoint(8, 8)));
}

TEST_F(MapCanvasTest, ShowsNothingWithoutAMap) {
    canvas.setMap(nullptr);
    pointAt(middle);
    EXPECT_FALSE(canvas.probedPixel());
    EXPECT_EQ(shownAt(middle), shownAt({0, 0}));
}

}  // namespace
