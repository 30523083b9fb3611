#include "imaging/base/outcome.h"

#include <gtest/gtest.h>

#include <stdexcept>
#include <string>

using namespace quarlin;

namespace {

TEST(Outcome, GivesTheValueThatTheWorkReturned) {
    const auto outcome = Outcome<std::string>::of([] { return std::string("brick"); });
    EXPECT_EQ(outcome.value(), "brick");
    EXPECT_EQ(outcome.value(), "brick");
}

TEST(Outcome, ThrowsWhatTheWorkThrewEachTimeItIsRead) {
    const auto outcome = Outcome<int>::of([]() -> int { throw std::runtime_error("slot"); });
    for (int times = 0; times < 2; ++times) {
        EXPECT_THROW(outcome.value(), std::runtime_error);
    }
}

TEST(Outcome, IsAnEmptyValueAtFirst) { EXPECT_EQ(Outcome<std::string>().value(), ""); }

}  // namespace
