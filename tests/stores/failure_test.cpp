#include "failure.h"

#include "texture_processor_error.h"

#include <gtest/gtest.h>

#include <new>
#include <stdexcept>

using quarlin::failureOf;

namespace {

TEST(Failure, IsNothingWhenTheWorkSucceeds) {
    bool done = false;
    EXPECT_EQ(failureOf([&] { done = true; }), std::nullopt);
    EXPECT_TRUE(done);
}

TEST(Failure, IsTheEnginesOwnDescription) {
    EXPECT_EQ(failureOf([] { throw quarlin::TextureProcessorError::missingBaseColor(); }),
              QStringLiteral("Base Color texture is required."));
    const QUrl file = QUrl::fromLocalFile(QStringLiteral("/a/b/Brick_ORM.png"));
    EXPECT_EQ(failureOf([&] { throw quarlin::TextureProcessorError::cannotWritePNG(file); }),
              QStringLiteral("Could not write PNG: Brick_ORM.png"));
}

TEST(Failure, TellsThatMemoryRanOut) {
    EXPECT_EQ(failureOf([] { throw std::bad_alloc(); }), QStringLiteral("Not enough memory."));
}

TEST(Failure, RepeatsWhatAnyOtherExceptionSays) {
    EXPECT_EQ(failureOf([] { throw std::runtime_error("disk on fire"); }), QStringLiteral("disk on fire"));
}

}  // namespace
