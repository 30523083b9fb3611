#include "check/normal_statistics.h"

#include "imaging/pixels/image_view.h"

#include <gtest/gtest.h>

#include <cmath>
#include <functional>
#include <random>

using namespace quarlin;

namespace {

constexpr int side = 128;

struct Slope {
    double right = 0;
    double down = 0;
};

int byteOf(double component) { return static_cast<int>(std::lround((component * 0.5 + 0.5) * 255)); }

/// The normal map of a surface with the slope `slopeAt` at each pixel; `up` is 1 if green points up, else -1.
QImage normalMap(const std::function<Slope(double x, double y)>& slopeAt, double up) {
    QImage image(side, side, pixelFormat);
    for (int y = 0; y < side; ++y) {
        for (int x = 0; x < side; ++x) {
            const auto [right, down] = slopeAt(x, y);
            const double length = std::sqrt(right * right + down * down + 1);
            image.setPixel(x, y,
                           qRgb(byteOf(-right / length), byteOf(up * down / length), byteOf(1 / length)));
        }
    }
    return image;
}

/// The slope of round bumps, whose height is `steepness` * sin(x / 5) * sin(y / 7).
std::function<Slope(double, double)> bumps(double steepness) {
    return [steepness](double x, double y) {
        return Slope{steepness * std::cos(x / 5) * std::sin(y / 7) / 5,
                     steepness * std::sin(x / 5) * std::cos(y / 7) / 7};
    };
}

QImage constantImage(QColor color) {
    QImage image(side, side, pixelFormat);
    image.fill(color);
    return image;
}

TEST(GreenDirection, IsUpForAMapOfGltf) {
    EXPECT_LT(normalStatistics(normalMap(bumps(2), 1)).greenDirection, -0.95);
}

TEST(GreenDirection, IsDownForAMapOfDirectX) {
    EXPECT_GT(normalStatistics(normalMap(bumps(2), -1)).greenDirection, 0.95);
}

TEST(GreenDirection, DoesNotDependOnWhetherTheSurfaceIsRaisedOrSunk) {
    EXPECT_LT(normalStatistics(normalMap(bumps(-2), 1)).greenDirection, -0.95);
}

TEST(GreenDirection, IsFoundForAShallowSurface) {
    EXPECT_LT(normalStatistics(normalMap(bumps(0.5), 1)).greenDirection, -0.5);
}

TEST(GreenDirection, IsUnknownForAFlatMap) {
    EXPECT_EQ(normalStatistics(constantImage(QColor(128, 128, 255))).greenDirection, 0);
}

TEST(GreenDirection, IsUnknownForRidgesInOneDirection) {
    const auto ridges = [](double x, double) { return Slope{std::cos(x / 5), 0}; };
    EXPECT_EQ(normalStatistics(normalMap(ridges, 1)).greenDirection, 0);
}

TEST(GreenDirection, IsUnknownForNormalsThatFitNoSurface) {
    std::minstd_rand random(1);
    std::uniform_real_distribution<double> slope(-1, 1);
    const QImage noise = normalMap([&](double, double) { return Slope{slope(random), slope(random)}; }, 1);
    EXPECT_NEAR(normalStatistics(noise).greenDirection, 0, 0.05);
}

TEST(GreenDirection, IsUnknownForAnImageTooSmallToHaveSlopes) {
    EXPECT_EQ(normalStatistics(QImage(normalMap(bumps(2), 1).copy(0, 0, 2, 2))).greenDirection, 0);
    EXPECT_EQ(normalStatistics(QImage(normalMap(bumps(2), 1).copy(0, 0, 1, side))).greenDirection, 0);
}

TEST(NormalLength, IsOneInANormalMap) {
    const NormalStatistics statistics = normalStatistics(normalMap(bumps(4), 1));
    EXPECT_EQ(statistics.offLength, 0);
    EXPECT_EQ(statistics.inward, 0);
}

TEST(NormalLength, IsWrongInAnyOtherPicture) {
    EXPECT_EQ(normalStatistics(constantImage(QColor(128, 128, 128))).offLength, 1);
    EXPECT_EQ(normalStatistics(constantImage(Qt::white)).offLength, 1);
}

TEST(NormalLength, CountsTheShareOfPixels) {
    QImage image = constantImage(QColor(128, 128, 255));
    image.setPixel(0, 0, qRgb(128, 128, 128));
    EXPECT_EQ(normalStatistics(image).offLength, 1.0 / (side * side));
}

TEST(InwardNormals, AreThoseWithBlueBelowTheMiddle) {
    EXPECT_EQ(normalStatistics(constantImage(QColor(128, 128, 0))).inward, 1);
    EXPECT_EQ(normalStatistics(constantImage(QColor(255, 128, 127))).inward, 1);
    EXPECT_EQ(normalStatistics(constantImage(QColor(255, 128, 128))).inward, 0);
}

}  // namespace
