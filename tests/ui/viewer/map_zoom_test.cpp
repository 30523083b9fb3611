#include "ui/viewer/map_zoom.h"

#include <gtest/gtest.h>

using namespace quarlin;

namespace {

TEST(MapZoom, FitsTheWholeMap) {
    EXPECT_DOUBLE_EQ(fittingScale({2048, 1024}, {1024, 768}), 0.5);
    EXPECT_DOUBLE_EQ(fittingScale({1024, 2048}, {1024, 512}), 0.25);
}

TEST(MapZoom, EnlargesByWholeNumbersAndNotTooFar) {
    EXPECT_DOUBLE_EQ(fittingScale({256, 256}, {1000, 800}), 3);
    EXPECT_DOUBLE_EQ(fittingScale({4, 4}, {1000, 800}), 16);
    EXPECT_DOUBLE_EQ(fittingScale({600, 600}, {1000, 800}), 1);
}

TEST(MapZoom, GoesUpInPowersOfTwo) {
    EXPECT_DOUBLE_EQ(nextScale(0.37, 0.37), 0.5);
    EXPECT_DOUBLE_EQ(nextScale(0.5, 0.37), 1);
    EXPECT_DOUBLE_EQ(nextScale(1, 0.37), 2);
    EXPECT_DOUBLE_EQ(nextScale(3, 3), 4);
    EXPECT_DOUBLE_EQ(nextScale(8, 3), 16);
    EXPECT_DOUBLE_EQ(nextScale(16, 3), 16);
}

TEST(MapZoom, GoesDownToTheWholeMap) {
    EXPECT_DOUBLE_EQ(previousScale(16, 0.37), 8);
    EXPECT_DOUBLE_EQ(previousScale(1, 0.37), 0.5);
    EXPECT_DOUBLE_EQ(previousScale(0.5, 0.37), 0.37);
    EXPECT_DOUBLE_EQ(previousScale(0.37, 0.37), 0.37);
    // A small map goes down to its pixels.
    EXPECT_DOUBLE_EQ(previousScale(3, 3), 2);
    EXPECT_DOUBLE_EQ(previousScale(1, 3), 1);
}

TEST(MapZoom, OfNothingIsOne) { EXPECT_DOUBLE_EQ(fittingScale({}, {100, 100}), 1); }

}  // namespace
