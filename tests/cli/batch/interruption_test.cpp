// What the program says of the sets in progress when it is interrupted. Each test interrupts a process of its
// own.

#include "cli/batch/interruption.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <csignal>
#include <cstdlib>
#include <string>

using namespace Qt::StringLiterals;

using namespace quarlin;
using testing::StrEq;

namespace {

/// Ends the process with whether a set that begins now is exported.
[[noreturn]] void endByExporting() { std::_Exit(SetInProgress(u"late"_s).isTooLate() ? 0 : 1); }

TEST(InterruptionDeathTest, NamesTheSetsInProgress) {
    EXPECT_EXIT(
        {
            deferInterruption();
            const SetInProgress brick(u"brick"_s);
            { const SetInProgress sand(u"sand"_s); }
            const SetInProgress wood(u"wood\x1b"_s);
            std::raise(SIGTERM);
            endByExporting();
        },
        testing::ExitedWithCode(0),
        StrEq("\nInterrupted. Being finished: brick, wood\\x1b. Interrupt again to end at once.\n"));
}

TEST(InterruptionDeathTest, CutsALongNameBetweenCharacters) {
    EXPECT_EXIT(
        {
            deferInterruption();
            const SetInProgress set(u'a' + QString(200, u'é'));
            std::raise(SIGTERM);
            endByExporting();
        },
        testing::ExitedWithCode(0),
        StrEq("\nInterrupted. Being finished: " + (u'a' + QString(127, u'é')).toStdString() +
              ". Interrupt again to end at once.\n"));
}

TEST(InterruptionDeathTest, SaysNothingBetweenTwoSets) {
    EXPECT_EXIT(
        {
            deferInterruption();
            std::raise(SIGTERM);
            endByExporting();
        },
        testing::ExitedWithCode(0), StrEq(""));
}

TEST(InterruptionDeathTest, EndsTheProgramTheSecondTime) {
    EXPECT_EXIT(
        {
            deferInterruption();
            std::raise(SIGTERM);
            std::raise(SIGTERM);
            endByExporting();
        },
        testing::KilledBySignal(SIGTERM), StrEq(""));
}

}  // namespace
