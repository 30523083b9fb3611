#include "app/application_icon.h"

#include <gtest/gtest.h>

using namespace quarlin;

namespace {

TEST(ApplicationIcon, IsThereForTitleBarsAndForTaskSwitchers) {
    const QList<QSize> sizes = applicationIcon().availableSizes();
    for (const int side : {16, 32, 48, 256, 512}) {
        EXPECT_TRUE(sizes.contains(QSize(side, side))) << side;
    }
}

TEST(ApplicationIcon, IsABallOnATileWithRoundCorners) {
    const QImage icon = applicationIcon().pixmap(QSize(128, 128)).toImage();
    EXPECT_EQ(icon.pixelColor(0, 0).alpha(), 0);
    EXPECT_EQ(icon.pixelColor(64, 64).alpha(), 255);
    // The slices from left to right: warm, violet, green.
    EXPECT_GT(icon.pixelColor(35, 64).red(), icon.pixelColor(35, 64).blue());
    EXPECT_GT(icon.pixelColor(64, 64).blue(), icon.pixelColor(64, 64).red());
    EXPECT_GT(icon.pixelColor(94, 64).green(), icon.pixelColor(94, 64).red());
}

}  // namespace
