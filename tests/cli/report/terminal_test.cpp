// The program on a terminal: what it shows, and how it reacts to Ctrl-C.

#include "batch_test.h"

#include "cli/report/progress_bar.h"

#include <gmock/gmock.h>

using namespace Qt::StringLiterals;

using namespace quarlin;
using namespace quarlin::tests;
using testing::HasSubstr;

namespace {

class Terminal : public BatchTest {
protected:
    /// Runs the program on a terminal of its own. The output is what both streams print there.
    Outcome runOnTerminal(const QString& environment) const {
        const QString command = environment +
                                u" exec \"$QUARLIN\" maps --source \"$SOURCES\" --size base "
                                "--output \"$OUTPUT\" >\"$REPORT\""_s;
        const QString shell =
            u"export QUARLIN=\"$1\" SOURCES=\"$2\" OUTPUT=\"$3\" REPORT=\"$4\"; "
            "script --quiet --return --command \"$5\" /dev/null"_s;
        return run(u"sh"_s,
                   {u"-c"_s, shell, u"sh"_s, cliPath(), sources(), output(), path(u"report"_s), command});
    }
};

TEST_F(Terminal, ShowsProgressAndRemovesItAgain) {
    writeSource(u"a.png"_s);
    writeSource(u"b.png"_s);
    const Outcome outcome = runOnTerminal(u"TERM=xterm; export TERM; stty columns 60;"_s);
    EXPECT_EQ(outcome.status, 0);
    EXPECT_THAT(outcome.output, HasSubstr("\r\x1b[K[..............................] 0/2"));
    EXPECT_THAT(outcome.output, HasSubstr("\r\x1b[K[###############...............] 1/2 a"));
    EXPECT_THAT(outcome.output, HasSubstr("\r\x1b[K[##############################] 2/2 b"));
    EXPECT_THAT(outcome.output, testing::EndsWith("\r\x1b[K"));
    EXPECT_EQ(bytesOf(path(u"report"_s)).toStdString(),
              mapsReport("a") + mapsReport("b") + "2 sets exported\n");
}

TEST_F(Terminal, ShowsNoProgressOnADumbTerminal) {
    writeSource(u"a.png"_s);
    const Outcome outcome = runOnTerminal(u"TERM=dumb; export TERM;"_s);
    EXPECT_EQ(outcome.status, 0);
    EXPECT_EQ(outcome.output, "");
}

TEST(ProgressLine, FitsIntoTheTerminal) {
    for (int columns = 0; columns < 100; ++columns) {
        EXPECT_LE(progressLine(3, 12, u"a long name of a texture"_s, columns).size(), columns);
    }
    EXPECT_EQ(progressLine(3, 12, u"wood"_s, 16).toStdString(), "[##.......] 3/12");
    EXPECT_EQ(progressLine(0, 0, {}, 80).toStdString(), "[..............................] 0/0");
}

class Interruption : public BatchTest {
protected:
    /// Exports `count` sets and interrupts the program, as a shell would, once it has reported the first one.
    Outcome interrupted(int count) const {
        for (int index = 0; index < count; ++index) {
            writeSource(u"t"_s + QString::number(index).rightJustified(2, u'0') + u".png"_s, index);
        }
        const QString shell =
            u"mkfifo \"$2/lines\"; "
            "\"$1\" maps --source \"$2/sources\" --size 1024 --jobs 2 --output "
            "\"$2/output\" >\"$2/lines\" & "
            "{ read -r line; kill -TERM $!; echo \"$line\"; cat; } <\"$2/lines\"; "
            "wait $!"_s;
        return run(u"sh"_s, {u"-c"_s, shell, u"sh"_s, cliPath(), path({})});
    }
};

TEST_F(Interruption, FinishesTheSetsInProgressAndStartsNoMore) {
    constexpr int count = 40;
    const Outcome outcome = interrupted(count);
    constexpr int terminated = 128 + 15;
    EXPECT_EQ(outcome.status, terminated);
    const qsizetype exported = exportedSets().size();
    EXPECT_LT(exported, count);
    const QString lastLine = u"\n%1 %2 exported, %3 not started\n"_s.arg(
        QString::number(exported), exported == 1 ? u"set"_s : u"sets"_s, QString::number(count - exported));
    EXPECT_THAT(outcome.output, testing::EndsWith(lastLine.toStdString()));
    for (const QString& set : exportedSets()) {
        const QStringList files =
            QDir(output() + u'/' + set).entryList(QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot);
        EXPECT_EQ(files.size(), namesOf(fixtures::generatedFiles(), set).size())
            << files.join(u' ').toStdString();
    }
}

}  // namespace
