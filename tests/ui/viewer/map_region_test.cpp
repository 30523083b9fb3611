#include "ui/viewer/map_region.h"

#include "imaging/pixels/image_view.h"
#include "ui/viewer/map_pyramid.h"
#include "viewer_fixture.h"

#include <gtest/gtest.h>

using namespace quarlin;
using namespace quarlin::fixtures;

namespace {

/// The place in the map that a pixel of a drawing of `placeImage` shows.
QPoint placeOf(const QColor& color) { return {color.red(), color.green()}; }

TEST(MapRegion, DrawsSharpSquaresWhenEnlarged) {
    const MapPyramid map(placeImage(20, 10));
    const QImage drawing = drawnRegion(map, {.origin = {3, 2}, .scale = 4, .size = {16, 12}});
    for (int y = 0; y < 12; ++y) {
        for (int x = 0; x < 16; ++x) {
            ASSERT_EQ(placeOf(drawing.pixelColor(x, y)), QPoint(3 + x / 4, 2 + y / 4)) << x << ' ' << y;
        }
    }
}

TEST(MapRegion, CopiesThePixelsAtTheirOwnSize) {
    const MapPyramid map(placeImage(200, 100));
    const QImage drawing = drawnRegion(map, {.origin = {50, 20}, .scale = 1, .size = {70, 60}});
    EXPECT_EQ(drawing, placeImage(200, 100).copy(50, 20, 70, 60));
}

TEST(MapRegion, StartsWithinAPixel) {
    const MapPyramid map(placeImage(20, 10));
    const QImage drawing = drawnRegion(map, {.origin = {3.5, 2}, .scale = 4, .size = {4, 1}});
    EXPECT_EQ(placeOf(drawing.pixelColor(1, 0)), QPoint(3, 2));
    EXPECT_EQ(placeOf(drawing.pixelColor(2, 0)), QPoint(4, 2));
}

TEST(MapRegion, RepeatsTheMapOnAllSides) {
    const MapPyramid map(placeImage(20, 10));
    const QImage drawing =
        drawnRegion(map, {.origin = {-5, -3}, .scale = 1, .size = {50, 30}, .repeats = true});
    for (int y = 0; y < 30; ++y) {
        for (int x = 0; x < 50; ++x) {
            ASSERT_EQ(placeOf(drawing.pixelColor(x, y)), QPoint((x + 15) % 20, (y + 7) % 10));
        }
    }
}

TEST(MapRegion, RepeatsTheEdgeOtherwise) {
    const MapPyramid map(placeImage(20, 10));
    const QImage drawing = drawnRegion(map, {.origin = {-5, -3}, .scale = 1, .size = {50, 30}});
    EXPECT_EQ(placeOf(drawing.pixelColor(0, 0)), QPoint(0, 0));
    EXPECT_EQ(placeOf(drawing.pixelColor(49, 29)), QPoint(19, 9));
}

TEST(MapRegion, IsSmoothWhenReduced) {
    // Lines of one pixel become an even gray; a drawing that skips pixels would show black or white.
    QImage lines(1024, 1024, pixelFormat);
    for (int y = 0; y < lines.height(); ++y) {
        for (int x = 0; x < lines.width(); ++x) {
            lines.setPixelColor(x, y, x % 2 == 0 ? Qt::black : Qt::white);
        }
    }
    const MapPyramid map(lines);
    for (const double scale : {0.5, 0.25, 0.4}) {
        const QImage drawing = drawnRegion(map, {.origin = {8, 8}, .scale = scale, .size = {100, 100}});
        for (int x = 0; x < 100; ++x) {
            ASSERT_NEAR(drawing.pixelColor(x, 50).red(), 128, 65) << scale << ' ' << x;
        }
    }
}

TEST(MapRegion, BlendsAcrossTheSeamOfTilesAsWithin) {
    // The left edge is black, the right edge white: with tiles they are neighbors.
    QImage image(512, 512, pixelFormat);
    image.fill(Qt::black);
    for (int y = 0; y < 512; ++y) {
        for (int x = 256; x < 512; ++x) {
            image.setPixelColor(x, y, Qt::white);
        }
    }
    const MapPyramid map(image);
    const auto edge = [&](bool repeats) {
        return drawnRegion(map, {.origin = {-1, 0}, .scale = 0.75, .size = {2, 1}, .repeats = repeats})
            .pixelColor(0, 0)
            .red();
    };
    EXPECT_EQ(edge(false), 0);
    EXPECT_GT(edge(true), 60);
}

TEST(MapRegion, ShowsChannelsAsOpaqueGraysOfTheFilesValues) {
    QImage image(1, 1, QImage::Format_RGBA8888);
    image.setPixelColor(0, 0, QColor(200, 100, 50, 51));
    const MapPyramid map(image.convertToFormat(pixelFormat));
    const auto shown = [&](TextureChannel channel) {
        return drawnRegion(map, {.origin = {}, .scale = 1, .size = {1, 1}, .channel = channel})
            .pixelColor(0, 0);
    };
    EXPECT_EQ(shown(TextureChannel::red), QColor(200, 200, 200));
    EXPECT_EQ(shown(TextureChannel::green), QColor(100, 100, 100));
    EXPECT_EQ(shown(TextureChannel::blue), QColor(50, 50, 50));
    EXPECT_EQ(shown(TextureChannel::alpha), QColor(51, 51, 51));
}

TEST(MapRegion, EnlargesAPreviewSmoothly) {
    QImage preview(2, 1, pixelFormat);
    preview.setPixelColor(0, 0, Qt::black);
    preview.setPixelColor(1, 0, Qt::white);
    const MapPyramid map(preview, QSize(200, 100));
    const QImage drawing = drawnRegion(map, {.origin = {}, .scale = 1, .size = {200, 1}});
    EXPECT_EQ(drawing.pixelColor(10, 0).red(), 0);
    EXPECT_NEAR(drawing.pixelColor(100, 0).red(), 128, 4);
    EXPECT_EQ(drawing.pixelColor(190, 0).red(), 255);
}

TEST(MapRegion, LooksTheSameFromEveryLevelOfALargeMap) {
    // Reduced in one go or in steps, a mean gray stays where it is.
    QImage image(2000, 1000, pixelFormat);
    image.fill(QColor(40, 80, 120));
    for (int y = 0; y < 500; ++y) {
        for (int x = 0; x < 1000; ++x) {
            image.setPixelColor(x, y, QColor(200, 160, 100));
        }
    }
    const MapPyramid map(image);
    for (const double scale : {0.7, 0.3, 0.11}) {
        const QSize size = QSize(2000, 1000) * scale;
        const QImage drawing = drawnRegion(map, {.origin = {}, .scale = scale, .size = size});
        const int x = size.width() / 2;
        const int y = size.height() / 2;
        EXPECT_EQ(drawing.pixelColor(x - 3, y - 3), QColor(200, 160, 100)) << scale;
        EXPECT_EQ(drawing.pixelColor(x + 3, y - 3), QColor(40, 80, 120)) << scale;
        EXPECT_EQ(drawing.pixelColor(x - 3, y + 3), QColor(40, 80, 120)) << scale;
    }
}

}  // namespace
