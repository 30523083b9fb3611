#include "app/program_arguments.h"

#include <QProcess>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

using namespace quarlin;
using testing::EndsWith;
using testing::HasSubstr;
using testing::StartsWith;

namespace {

ProgramArguments early(const QStringList& arguments) {
    return readArguments(arguments, ToolkitOptions::mayBePresent);
}

ProgramArguments late(const QStringList& arguments) {
    return readArguments(arguments, ToolkitOptions::areTaken);
}

TEST(ProgramArguments, OpenTheWindowByThemselves) {
    EXPECT_EQ(late({}), ProgramArguments());
    EXPECT_EQ(early({}), ProgramArguments());
}

TEST(ProgramArguments, NameFilesInTheirOrder) {
    EXPECT_EQ(late({u"b.png"_s, u"a.png"_s, u"-"_s}).files, QStringList({u"b.png"_s, u"a.png"_s, u"-"_s}));
}

TEST(ProgramArguments, AskForHelpAndVersion) {
    EXPECT_EQ(early({u"a.png"_s, u"--help"_s}).request, ProgramRequest::showHelp);
    EXPECT_EQ(early({u"-h"_s}).request, ProgramRequest::showHelp);
    EXPECT_EQ(early({u"--version"_s, u"--nonsense"_s}).request, ProgramRequest::showVersion);
}

TEST(ProgramArguments, AreRejectedIfTheyAreUnknown) {
    EXPECT_EQ(early({u"a.png"_s, u"--sise"_s}).request, ProgramRequest::rejectArguments);
    EXPECT_EQ(early({u"a.png"_s, u"--sise"_s}).unknownOption, u"--sise"_s);
    EXPECT_EQ(late({u"-x"_s}).unknownOption, u"-x"_s);
}

TEST(ProgramArguments, LeaveOneDashToTheToolkitWhileItHasNotTakenItsOwn) {
    EXPECT_EQ(early({u"-platform"_s, u"wayland"_s}).request, ProgramRequest::openWindow);
}

TEST(ProgramArguments, AreFilesAfterTwoDashes) {
    const ProgramArguments arguments = late({u"a.png"_s, u"--"_s, u"--help"_s, u"-x"_s, u"--"_s});
    EXPECT_EQ(arguments.request, ProgramRequest::openWindow);
    EXPECT_EQ(arguments.files, QStringList({u"a.png"_s, u"--help"_s, u"-x"_s, u"--"_s}));
}

/// How a run of the program without a display ended.
struct Outcome {
    int status = -1;
    std::string output;
    std::string errors;
};

Outcome run(const QStringList& arguments, bool hasPlatform = false) {
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    for (const QString& name : {u"DISPLAY"_s, u"WAYLAND_DISPLAY"_s, u"QT_QPA_PLATFORM"_s}) {
        environment.remove(name);
    }
    if (hasPlatform) {
        environment.insert(u"QT_QPA_PLATFORM"_s, u"offscreen"_s);
    }
    QProcess process;
    process.setProcessEnvironment(environment);
    process.start(QStringLiteral(QUARLIN_PROGRAM), arguments);
    if (!process.waitForFinished() || process.exitStatus() != QProcess::NormalExit) {
        process.kill();
        process.waitForFinished();
        return {-1, {}, process.errorString().toStdString()};
    }
    return {process.exitCode(), process.readAllStandardOutput().toStdString(),
            process.readAllStandardError().toStdString()};
}

TEST(StartedProgram, PrintsItsVersionWithoutADisplay) {
    const Outcome outcome = run({u"--version"_s});
    EXPECT_EQ(outcome.status, 0);
    EXPECT_EQ(outcome.output, "quarlin " QUARLIN_VERSION "\n");
    EXPECT_EQ(outcome.errors, "");
}

TEST(StartedProgram, PrintsItsHelpWithoutADisplay) {
    const Outcome outcome = run({u"--help"_s});
    EXPECT_EQ(outcome.status, 0);
    EXPECT_THAT(outcome.output, StartsWith("Usage: quarlin "));
    EXPECT_THAT(outcome.output, HasSubstr("\n  -h, --help "));
    EXPECT_THAT(outcome.output, HasSubstr("\n  --version "));
    EXPECT_EQ(outcome.errors, "");
    EXPECT_EQ(run({u"-h"_s}).output, outcome.output);
}

TEST(StartedProgram, RejectsAnUnknownOptionWithoutADisplay) {
    const Outcome outcome = run({u"--sise=512"_s});
    EXPECT_EQ(outcome.status, 2);
    EXPECT_EQ(outcome.output, "");
    EXPECT_EQ(outcome.errors, "quarlin: Unknown option '--sise=512'\nTry 'quarlin --help'.\n");
}

TEST(StartedProgram, RejectsWhatTheToolkitDoesNotTake) {
    const Outcome outcome = run({u"-platform"_s, u"offscreen"_s, u"-sise"_s}, true);
    EXPECT_EQ(outcome.status, 2);
    // Qt may have written warnings of its own before.
    EXPECT_THAT(outcome.errors, EndsWith("quarlin: Unknown option '-sise'\nTry 'quarlin --help'.\n"));
}

TEST(StartedProgram, FailsIfItsAnswerCannotBeWritten) {
    QProcess process;
    process.setStandardOutputFile(u"/dev/full"_s);
    process.start(QStringLiteral(QUARLIN_PROGRAM), {u"--help"_s});
    ASSERT_TRUE(process.waitForFinished());
    EXPECT_EQ(process.exitCode(), 1);
}

}  // namespace
