// What a person sees, and does, at a terminal.

#include "batch_test.h"

#include "cli/report/progress_bar.h"

#include <gmock/gmock.h>

using namespace quarlin;
using namespace quarlin::tests;
using testing::HasSubstr;

namespace {

QString word(const char* text) { return QString::fromUtf8(text); }

class Terminal : public BatchTest {
protected:
    /// Runs the program on a terminal of its own; what both streams print there comes as the output.
    Outcome runOnTerminal(const QString& environment) const {
        const QString command = environment + word(
                                                  " exec \"$QUARLIN\" maps --source \"$SOURCES\" --size base "
                                                  "--output \"$OUTPUT\" >\"$REPORT\"");
        const QString shell = word(
            "export QUARLIN=\"$1\" SOURCES=\"$2\" OUTPUT=\"$3\" REPORT=\"$4\"; "
            "script --quiet --return --command \"$5\" /dev/null");
        return run(word("sh"), {word("-c"), shell, word("sh"), cliPath(), sources(), output(),
                                path(word("report")), command});
    }
};

TEST_F(Terminal, ShowsProgressAndTakesItAwayAgain) {
    writeSource(word("a.png"));
    writeSource(word("b.png"));
    const Outcome outcome = runOnTerminal(word("TERM=xterm; export TERM; stty columns 60;"));
    EXPECT_EQ(outcome.status, 0);
    EXPECT_THAT(outcome.output, HasSubstr("\r\x1b[K[..............................] 0/2"));
    EXPECT_THAT(outcome.output, HasSubstr("\r\x1b[K[###############...............] 1/2 a"));
    EXPECT_THAT(outcome.output, HasSubstr("\r\x1b[K[##############################] 2/2 b"));
    EXPECT_THAT(outcome.output, testing::EndsWith("\r\x1b[K"));
    EXPECT_EQ(bytesOf(path(word("report"))).toStdString(),
              mapsReport("a") + mapsReport("b") + "2 sets exported\n");
}

TEST_F(Terminal, ShowsNoProgressWhereOnlyLinesCanBeAdded) {
    writeSource(word("a.png"));
    const Outcome outcome = runOnTerminal(word("TERM=dumb; export TERM;"));
    EXPECT_EQ(outcome.status, 0);
    EXPECT_EQ(outcome.output, "");
}

TEST(ProgressLine, FitsIntoTheTerminal) {
    for (int columns = 0; columns < 100; ++columns) {
        EXPECT_LE(progressLine(3, 12, word("a long name of a texture"), columns).size(), columns);
    }
    EXPECT_EQ(progressLine(3, 12, word("wood"), 16).toStdString(), "[##.......] 3/12");
    EXPECT_EQ(progressLine(0, 0, {}, 80).toStdString(), "[..............................] 0/0");
}

class Interruption : public BatchTest {
protected:
    /// Ends the program as a shell would once it has reported its first set, of `count`.
    Outcome interrupted(int count) const {
        for (int index = 0; index < count; ++index) {
            writeSource(word("t") + QString::number(index).rightJustified(2, u'0') + word(".png"), index);
        }
        const QString shell = word(
            "mkfifo \"$2/lines\"; "
            "\"$1\" maps --source \"$2/sources\" --size 1024 --jobs 2 --output "
            "\"$2/output\" >\"$2/lines\" & "
            "{ read -r line; kill -TERM $!; echo \"$line\"; cat; } <\"$2/lines\"; "
            "wait $!");
        return run(word("sh"), {word("-c"), shell, word("sh"), cliPath(), path({})});
    }
};

TEST_F(Interruption, CompletesTheSetsAtWorkAndBeginsNoOther) {
    constexpr int count = 40;
    const Outcome outcome = interrupted(count);
    constexpr int terminated = 128 + 15;
    EXPECT_EQ(outcome.status, terminated);
    const qsizetype exported = exportedSets().size();
    EXPECT_LT(exported, count);
    EXPECT_THAT(outcome.output,
                testing::EndsWith("\n" + std::to_string(exported) + (exported == 1 ? " set" : " sets") +
                                  " exported, " + std::to_string(count - exported) + " not started\n"));
    for (const QString& set : exportedSets()) {
        const QStringList files =
            QDir(output() + u'/' + set).entryList(QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot);
        EXPECT_EQ(files.size(), namesOf(fixtures::generatedFiles(), set).size())
            << files.join(u' ').toStdString();
    }
}

}  // namespace
