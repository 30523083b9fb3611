#include "engine/material/orm_packing.h"
#include "each_instruction_set.h"
#include "picture.h"

#include <gtest/gtest.h>

#include <random>

using namespace quarlin;
using namespace quarlin::fixtures;

namespace {

using Bytes = std::vector<std::uint8_t>;

TEST(OrmPacking, MatchesItsPlainTwinForEveryCountAndEveryKindOfChannel) {
    std::mt19937 random(1);
    constexpr int longest = 70;
    const std::array pictures{noisePicture(longest, 1, 1, true), noisePicture(longest, 1, 2),
                              noisePicture(longest, 1, 3)};
    for (std::int64_t count = 0; count <= longest; ++count) {
        OrmChannels channels;
        for (std::size_t index = 0; index < channels.size(); ++index) {
            const bool isLoaded = random() % 4 != 0;
            channels[index] = {.pixels = isLoaded ? pictures[index].bytes.data() : nullptr,
                               .isChannel = random() % 4 == 0,
                               .fallback = static_cast<std::uint8_t>(random() % 256),
                               .inverted = random() % 2 == 0};
        }
        const std::int64_t first = (longest - count) / 2;
        Bytes expected(static_cast<std::size_t>(count * 4));
        plain::packOrm(channels, first, count, expected.data());
        forEachInstructionSet([&] {
            Bytes packed(expected.size());
            packOrm(channels, first, count, packed.data());
            ASSERT_EQ(packed, expected) << count;
        });
    }
}

TEST(OrmPacking, EveryGrayAndEveryColorOfACoarseCubeMatchThePlainTwin) {
    Bytes colors;
    for (int gray = 0; gray < 256; ++gray) {
        const auto value = static_cast<std::uint8_t>(gray);
        colors.insert(colors.end(), {value, value, value, 255});
    }
    for (int red = 0; red < 256; red += 5) {
        for (int green = 0; green < 256; green += 5) {
            for (int blue = 0; blue < 256; blue += 5) {
                colors.insert(colors.end(), {static_cast<std::uint8_t>(red), static_cast<std::uint8_t>(green),
                                             static_cast<std::uint8_t>(blue), 255});
            }
        }
    }
    const OrmChannels channels{OrmChannel{.pixels = colors.data()},
                               OrmChannel{.pixels = colors.data(), .inverted = true}, OrmChannel{}};
    const auto count = static_cast<std::int64_t>(colors.size() / 4);
    Bytes expected(colors.size());
    plain::packOrm(channels, 0, count, expected.data());
    forEachInstructionSet([&] {
        Bytes packed(colors.size());
        packOrm(channels, 0, count, packed.data());
        EXPECT_TRUE(packed == expected);
    });
}

}  // namespace
