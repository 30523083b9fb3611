#include "stores/failure.h"

#include "engine/base/texture_processor_error.h"

#include <gtest/gtest.h>

#include <new>
#include <stdexcept>

using namespace Qt::StringLiterals;

using quarlin::failureOf;

namespace {

TEST(Failure, IsNothingWhenTheWorkSucceeds) {
    bool done = false;
    EXPECT_EQ(failureOf([&] { done = true; }), std::nullopt);
    EXPECT_TRUE(done);
}

TEST(Failure, IsTheEnginesOwnDescription) {
    EXPECT_EQ(failureOf([] { throw quarlin::TextureProcessorError::missingBaseColor(); }),
              u"Base Color texture is required."_s);
    const QUrl file = QUrl::fromLocalFile(u"/a/b/Brick_ORM.png"_s);
    EXPECT_EQ(failureOf([&] { throw quarlin::TextureProcessorError::cannotWritePNG(file); }),
              u"Could not write PNG: Brick_ORM.png"_s);
}

TEST(Failure, TellsThatMemoryRanOut) {
    EXPECT_EQ(failureOf([] { throw std::bad_alloc(); }), u"Not enough memory."_s);
}

TEST(Failure, RepeatsWhatAnyOtherExceptionSays) {
    EXPECT_EQ(failureOf([] { throw std::runtime_error("disk on fire"); }), u"disk on fire"_s);
}

}  // namespace
