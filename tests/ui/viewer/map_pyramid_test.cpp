#include "ui/viewer/map_pyramid.h"

#include "imaging/pixels/image_view.h"
#include "viewer_fixture.h"

#include <gtest/gtest.h>

using namespace quarlin;
using namespace quarlin::fixtures;

namespace {

QImage plainImage(int width, int height, const QColor& color) {
    QImage image(width, height, pixelFormat);
    image.fill(color);
    return image;
}

TEST(MapPyramid, HalvesUntilTheLongSideIsSmall) {
    const MapPyramid pyramid(placeImage(1000, 3));
    EXPECT_EQ(pyramid.size(), QSize(1000, 3));
    EXPECT_TRUE(pyramid.isWhole());
    EXPECT_EQ(pyramid.levelFor(1).image.size(), QSize(1000, 3));
    EXPECT_EQ(pyramid.levelFor(0.51).image.size(), QSize(1000, 3));
    EXPECT_EQ(pyramid.levelFor(0.5).image.size(), QSize(500, 2));
    EXPECT_EQ(pyramid.levelFor(0.2).image.size(), QSize(250, 1));
    EXPECT_EQ(pyramid.levelFor(0.001).image.size(), QSize(250, 1));
    EXPECT_EQ(pyramid.levelFor(16).image.size(), QSize(1000, 3));
}

TEST(MapPyramid, AveragesFourPixels) {
    QImage image = plainImage(600, 600, Qt::black);
    image.setPixelColor(0, 0, QColor(255, 0, 0));
    image.setPixelColor(1, 1, QColor(255, 0, 0));
    image.setPixelColor(598, 599, QColor(0, 0, 255));
    const MapPyramid pyramid(image);
    const QImage& half = pyramid.levelFor(0.5).image;
    EXPECT_EQ(half.pixelColor(0, 0), QColor(128, 0, 0));
    EXPECT_EQ(half.pixelColor(1, 0), QColor(0, 0, 0));
    EXPECT_EQ(half.pixelColor(299, 299), QColor(0, 0, 64));
}

TEST(MapPyramid, AveragesWhatThereIsAtOddEdges) {
    QImage image = plainImage(601, 601, Qt::black);
    image.setPixelColor(600, 0, QColor(200, 0, 0));
    image.setPixelColor(600, 600, QColor(0, 80, 0));
    const MapPyramid pyramid(image);
    const QImage& half = pyramid.levelFor(0.5).image;
    EXPECT_EQ(half.size(), QSize(301, 301));
    EXPECT_EQ(half.pixelColor(300, 0), QColor(100, 0, 0));
    EXPECT_EQ(half.pixelColor(300, 300), QColor(0, 80, 0));
}

TEST(MapPyramid, GivesTheValuesOfTheFile) {
    QImage image(2, 1, QImage::Format_RGBA8888);
    image.setPixelColor(0, 0, QColor(10, 20, 30, 255));
    image.setPixelColor(1, 0, QColor(200, 100, 0, 128));
    const MapPyramid pyramid(image.convertToFormat(pixelFormat));
    EXPECT_TRUE(pyramid.hasTransparency());
    EXPECT_EQ(pyramid.valueAt({0, 0}), QColor(10, 20, 30, 255));
    const QColor value = pyramid.valueAt({1, 0});
    EXPECT_EQ(value.alpha(), 128);
    EXPECT_NEAR(value.red(), 200, 1);
    EXPECT_NEAR(value.green(), 100, 1);
    EXPECT_EQ(value.blue(), 0);
}

TEST(MapPyramid, FindsTransparencyInTheLastPixel) {
    QImage image = plainImage(300, 300, Qt::white);
    EXPECT_FALSE(MapPyramid(image).hasTransparency());
    image.setPixelColor(299, 299, QColor(0, 0, 0, 254));
    EXPECT_TRUE(MapPyramid(image).hasTransparency());
}

TEST(MapPyramid, OfAPreviewStandsForTheWholeMap) {
    const MapPyramid pyramid(placeImage(512, 256), QSize(4096, 2048));
    EXPECT_EQ(pyramid.size(), QSize(4096, 2048));
    EXPECT_FALSE(pyramid.isWhole());
    EXPECT_EQ(pyramid.levelFor(1).across, 0.125);
    EXPECT_EQ(pyramid.levelFor(1).down, 0.125);
}

TEST(MapPyramid, OfNothingIsEmpty) {
    const MapPyramid pyramid{QImage()};
    EXPECT_TRUE(pyramid.size().isEmpty());
    EXPECT_FALSE(pyramid.isWhole());
    EXPECT_EQ(pyramid.bytes(), 0);
}

}  // namespace
