#include "engine/base/channels.h"
#include "engine/reference/normal_synthesis.h"
#include "independent_generator.h"

#include <gtest/gtest.h>

#include <cmath>
#include <random>

using namespace quarlin;

namespace {

TEST(ByteFromUnit, GivesTheNamedValues) {
    EXPECT_EQ(byteFromUnit(-0.2), 0);
    EXPECT_EQ(byteFromUnit(1.7), 255);
    EXPECT_EQ(byteFromUnit(0.002), 1);
    EXPECT_EQ(byteFromUnit(0.5), 128);
    EXPECT_EQ(byteFromUnit(0.65), 166);
    EXPECT_EQ(byteFromUnit(0.8), 204);
    EXPECT_EQ(byteFromUnit(0.0), 0);
    EXPECT_EQ(byteFromUnit(-0.0), 0);
    EXPECT_EQ(byteFromUnit(1.0), 255);
}

TEST(ByteFromUnit, RoundsHalvesAwayFromZero) {
    int halves = 0;
    for (int step = 0; step < 255; ++step) {
        const double value = (step + 0.5) / 255;
        if (value * 255.0 == step + 0.5) {
            EXPECT_EQ(byteFromUnit(value), step + 1) << step;
            ++halves;
        }
    }
    EXPECT_GT(halves, 100);
}

TEST(ByteFromUnit, DoesNotRoundUpJustBelowAHalf) {
    EXPECT_EQ(byteFromUnit(std::nextafter(0.5 / 255, 0.0)), 0);
    EXPECT_EQ(byteFromUnit(std::nextafter(0.5, 0.0)), 127);
}

TEST(ByteFromUnit, GivesEveryByteItsOwnFraction) {
    for (int byte = 0; byte < 256; ++byte) {
        EXPECT_EQ(byteFromUnit(byte / 255.0), byte);
    }
}

TEST(ByteFromUnit, ClampsFarValues) {
    EXPECT_EQ(byteFromUnit(1e15), 255);
    EXPECT_EQ(byteFromUnit(-1e15), 0);
    EXPECT_EQ(byteFromUnit(1.0 + 0.6 / 255), 255);
    EXPECT_EQ(byteFromUnit(-0.6 / 255), 0);
}

TEST(ByteFromUnit, AgreesWithASecondDerivation) {
    std::mt19937_64 random(11);
    std::uniform_real_distribution<double> around(-0.3, 1.3);
    for (int count = 0; count < 100000; ++count) {
        const double value = around(random);
        ASSERT_EQ(byteFromUnit(value), independent::unitByte(value)) << value;
    }
}

TEST(ByteFromSignedUnit, GivesTheNamedValues) {
    EXPECT_EQ(reference::byteFromSignedUnit(-1), 0);
    EXPECT_EQ(reference::byteFromSignedUnit(0), 128);
    EXPECT_EQ(reference::byteFromSignedUnit(-0.0), 128);
    EXPECT_EQ(reference::byteFromSignedUnit(1), 255);
    EXPECT_EQ(reference::byteFromSignedUnit(0.5), 191);
    EXPECT_EQ(reference::byteFromSignedUnit(-0.5), 64);
}

TEST(ByteFromSignedUnit, ClampsBeyondOne) {
    EXPECT_EQ(reference::byteFromSignedUnit(-3), 0);
    EXPECT_EQ(reference::byteFromSignedUnit(3), 255);
}

TEST(ByteFromSignedUnit, RoundsTheProductBeforeTheSum) {
    std::mt19937_64 random(12);
    std::uniform_real_distribution<double> around(-1, 1);
    for (int count = 0; count < 100000; ++count) {
        const double value = around(random);
        volatile const double half = value * 0.5;
        ASSERT_EQ(reference::byteFromSignedUnit(value), independent::unitByte(half + 0.5)) << value;
    }
}

TEST(Clamp, IsTheLargerOfMinAndTheSmallerOfMaxAndValue) {
    EXPECT_EQ(quarlin::clamp(0.5, 0, 1), 0.5);
    EXPECT_EQ(quarlin::clamp(-2, 0, 1), 0);
    EXPECT_EQ(quarlin::clamp(2, 0, 1), 1);
    EXPECT_EQ(quarlin::clamp(1, 1, 1), 1);
}

TEST(Clamp, OfCrossedBoundsIsMin) {
    EXPECT_EQ(quarlin::clamp(0.5, 0.9, 0.1), 0.9);
    EXPECT_EQ(quarlin::clamp(5, 0.9, 0.1), 0.9);
    EXPECT_EQ(quarlin::clamp(-5, 0.9, 0.1), 0.9);
}

}  // namespace
