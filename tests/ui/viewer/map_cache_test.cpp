#include "ui/viewer/map_cache.h"

#include "viewer_fixture.h"

#include <gtest/gtest.h>

using namespace quarlin;
using namespace quarlin::fixtures;

namespace {

std::shared_ptr<const MapPyramid> mapOf(int edge) {
    return std::make_shared<MapPyramid>(placeImage(edge, edge));
}

class MapCacheTest : public testing::Test {
protected:
    /// Room for three maps of 16 x 16.
    MapCache cache{3 * 16 * 16 * 4};
    MapCache::Key first{0, false};
    MapCache::Key second{1, false};
    MapCache::Key flipped{1, true};
    MapCache::Key fourth{2, false};
};

TEST_F(MapCacheTest, FindsWhatItKeeps) {
    const auto map = mapOf(16);
    cache.insert(first, map);
    EXPECT_EQ(cache.find(first), map);
    EXPECT_EQ(cache.find(second), nullptr);
    cache.clear();
    EXPECT_EQ(cache.find(first), nullptr);
}

TEST_F(MapCacheTest, ForgetsTheOldestWhenItIsFull) {
    cache.insert(first, mapOf(16));
    cache.insert(second, mapOf(16));
    cache.insert(flipped, mapOf(16));
    EXPECT_NE(cache.find(first), nullptr);
    cache.insert(fourth, mapOf(16));
    EXPECT_EQ(cache.find(first), nullptr);
    EXPECT_NE(cache.find(second), nullptr);
    EXPECT_NE(cache.find(flipped), nullptr);
    EXPECT_NE(cache.find(fourth), nullptr);
}

TEST_F(MapCacheTest, KeepsTheNewestHoweverLargeItIs) {
    cache.insert(first, mapOf(16));
    cache.insert(second, mapOf(100));
    EXPECT_EQ(cache.find(first), nullptr);
    EXPECT_NE(cache.find(second), nullptr);
}

TEST_F(MapCacheTest, ReplacesAMap) {
    cache.insert(first, mapOf(16));
    const auto newer = mapOf(16);
    cache.insert(first, newer);
    EXPECT_EQ(cache.find(first), newer);
}

}  // namespace
