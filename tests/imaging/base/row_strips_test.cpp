#include "imaging/base/row_strips.h"

#include <gtest/gtest.h>

using namespace quarlin;

namespace {

TEST(RowStrips, CoverEveryRowOnce) {
    for (std::int64_t height = 1; height <= 20; ++height) {
        for (std::int64_t rowsPerStrip = 1; rowsPerStrip <= 22; ++rowsPerStrip) {
            const RowStrips strips(height, rowsPerStrip);
            std::int64_t next = 0;
            for (std::int64_t strip = 0; strip < strips.count(); ++strip) {
                EXPECT_EQ(strips[strip].first, next);
                EXPECT_GT(strips[strip].count, 0);
                next = strips[strip].end();
            }
            EXPECT_EQ(next, height);
        }
    }
}

}  // namespace
