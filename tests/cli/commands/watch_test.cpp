// `--watch`: the program runs while its sources change.

#include "batch_test.h"

#include <QElapsedTimer>
#include <QProcess>

#include <gmock/gmock.h>

#include <csignal>

using namespace Qt::StringLiterals;

using namespace quarlin::tests;

namespace {

class Watch : public BatchTest {
protected:
    ~Watch() override {
        if (process.state() != QProcess::NotRunning) {
            process.kill();
            process.waitForFinished();
        }
    }

    void start(const QStringList& arguments = {}) {
        process.setProcessChannelMode(QProcess::MergedChannels);
        process.start(cliPath(), QStringList{u"material"_s, u"--folder"_s, sources(), u"--size"_s, u"base"_s,
                                             u"--output"_s, output(), u"--watch"_s} +
                                     arguments);
        ASSERT_TRUE(process.waitForStarted());
    }
    /// The next line that the program prints.
    std::string nextLine() {
        constexpr int longest = 60000;
        QElapsedTimer timer;
        timer.start();
        while (!process.canReadLine() && timer.elapsed() < longest && process.state() == QProcess::Running) {
            process.waitForReadyRead(1000);
        }
        return process.readLine().trimmed().toStdString();
    }
    std::string exportedLine(const std::string& name) const {
        return "Exported: " + output().toStdString() + "/" + name;
    }
    void interrupt() {
        ASSERT_EQ(kill(static_cast<pid_t>(process.processId()), SIGINT), 0);
        ASSERT_TRUE(process.waitForFinished(60000));
    }

    QProcess process;
};

TEST_F(Watch, ExportsAtOnceAndAfterEveryChange) {
    writeSource(u"brick_color.png"_s, 1);
    start();
    EXPECT_EQ(nextLine(), exportedLine("brick"));
    const QByteArray first = bytesOf(output() + u"/brick/brick_BaseColor.png"_s);
    writeSource(u"brick_color.png"_s, 2);
    EXPECT_EQ(nextLine(), exportedLine("brick"));
    EXPECT_NE(bytesOf(output() + u"/brick/brick_BaseColor.png"_s), first);
}

TEST_F(Watch, NoticesNewFilesAndReplacedOnes) {
    writeSource(u"brick_color.png"_s, 1);
    start();
    EXPECT_EQ(nextLine(), exportedLine("brick"));
    const QString normal = writeSource(u"brick_normal.png"_s, 2);
    EXPECT_EQ(nextLine(), exportedLine("brick"));
    EXPECT_TRUE(QFile::exists(output() + u"/brick/brick_Normal.png"_s));
    writeSource(u"wood_color.png"_s, 3);
    EXPECT_EQ(nextLine(), exportedLine("wood"));
    // As editors save: a new file takes the name of the old one.
    for (int seed = 4; seed < 6; ++seed) {
        ASSERT_TRUE(patternedImage(16, 16, seed).save(path(u"new.png"_s), "PNG"));
        ASSERT_EQ(std::rename(path(u"new.png"_s).toLocal8Bit().constData(), normal.toLocal8Bit().constData()),
                  0);
        EXPECT_EQ(nextLine(), exportedLine("brick"));
    }
}

TEST_F(Watch, NoticesNewFoldersWithRecursive) {
    writeSource(u"brick_color.png"_s, 1);
    start({u"--recursive"_s});
    EXPECT_EQ(nextLine(), exportedLine("brick"));
    writeSource(u"deep/er/wood_color.png"_s, 2);
    EXPECT_EQ(nextLine(), exportedLine("wood"));
    writeSource(u"deep/er/sand_color.png"_s, 3);
    EXPECT_EQ(nextLine(), exportedLine("sand"));
}

TEST_F(Watch, WaitsForAFileThatIsStillBeingWritten) {
    const QByteArray whole = bytesOf(writeSource(u"wood_color.png"_s, 1));
    QFile half(sourcePath(u"brick_color.png"_s));
    ASSERT_TRUE(half.open(QIODevice::WriteOnly));
    half.write(whole.left(whole.size() / 2));
    half.flush();
    start();
    EXPECT_EQ(nextLine(), exportedLine("wood"));
    // Another set goes its whole way meanwhile.
    writeSource(u"wood_color.png"_s, 2);
    EXPECT_EQ(nextLine(), exportedLine("wood"));
    half.write(whole.mid(whole.size() / 2));
    half.close();
    EXPECT_EQ(nextLine(), exportedLine("brick"));
}

TEST_F(Watch, ReportsABrokenFileOnceAndGoesOn) {
    writeBrokenSource(u"brick_color.png"_s);
    start();
    EXPECT_EQ(nextLine(), "brick: Load failed: Could not read image: brick_color.png");
    EXPECT_EQ(nextLine(),
              sourcePath(u"brick_color.png"_s).toStdString() + ": is not an image that Quarlin reads");
    writeSource(u"brick_color.png"_s, 1);
    EXPECT_EQ(nextLine(), exportedLine("brick"));
}

TEST_F(Watch, EndsWithAnInterruption) {
    writeSource(u"brick_color.png"_s, 1);
    start();
    EXPECT_EQ(nextLine(), exportedLine("brick"));
    interrupt();
    EXPECT_EQ(process.exitStatus(), QProcess::CrashExit);
    EXPECT_EQ(process.exitCode(), SIGINT);
    EXPECT_EQ(process.readAll().toStdString(), "");
}

TEST_F(Watch, PrintsLinesOfJson) {
    writeSource(u"brick_color.png"_s, 1);
    start({u"--json"_s});
    const auto lines = jsonLines(nextLine());
    ASSERT_EQ(lines.size(), 1U);
    EXPECT_EQ(lines[0][u"status"_s].toString(), u"exported"_s);
}

TEST_F(Watch, CannotBeCombinedWithADryRun) {
    writeSource(u"brick_color.png"_s, 1);
    const Outcome outcome = runMaterial({u"--folder"_s, sources(), u"--watch"_s, u"--dry-run"_s});
    EXPECT_EQ(outcome.status, 2);
    EXPECT_EQ(outcome.errors,
              "quarlin-cli: --watch can't be combined with --dry-run or --strict\n"
              "Try 'quarlin-cli material --help'.\n");
}

}  // namespace
