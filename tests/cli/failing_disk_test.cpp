// Disks that fail under the program: a full one, a read-only one, and an end in the middle of a file.

#include "cli_test.h"

#include <QDir>

using namespace quarlin::tests;

namespace {

enum class Command { material, maps };

void PrintTo(Command command, std::ostream* out) {
    *out << (command == Command::material ? "Material" : "Maps");
}

class FailingDisk : public CliTest, public testing::WithParamInterface<Command> {
protected:
    FailingDisk() { QDir().mkpath(output()); }

    QStringList words(const QString& name = QStringLiteral("Brick")) const {
        const QStringList input =
            GetParam() == Command::material
                ? QStringList{QStringLiteral("material"), QStringLiteral("--base-color"), good,
                              QStringLiteral("--occlusion"), good}
                : QStringList{QStringLiteral("maps"), QStringLiteral("--source"), good};
        return input + QStringList{QStringLiteral("--name"),   name,
                                   QStringLiteral("--size"),   QStringLiteral("base"),
                                   QStringLiteral("--output"), output()};
    }
    QString first() const {
        return GetParam() == Command::material ? QStringLiteral("Brick_BaseColor.png")
                                               : QStringLiteral("Brick_basecolor.png");
    }
    QString second() const {
        return GetParam() == Command::material ? QStringLiteral("Brick_ORM.png")
                                               : QStringLiteral("Brick_normal.png");
    }
    QString set() const { return output() + QStringLiteral("/Brick"); }

    static bool canMount() {
        return run(QStringLiteral("unshare"),
                   {QStringLiteral("-rm"), QStringLiteral("mount"), QStringLiteral("-t"),
                    QStringLiteral("tmpfs"), QStringLiteral("none"), QStringLiteral("/mnt")})
                   .status == 0;
    }
    /// Runs the program where `mount` has mounted something on the export folder, which is "$folder", for it
    /// alone. Its output ends with the names of all files of the set.
    Outcome runOnMounted(const QString& mount) const {
        const QString inside = mount + QStringLiteral(
                                           " && { \"$@\"; status=$?; "
                                           "ls -A \"$folder/Brick\" 2>/dev/null; exit $status; }");
        return runCliThroughShell(
            QStringLiteral("folder='%1' exec unshare -rm sh -c '%2' sh \"$@\"").arg(output(), inside),
            words());
    }

    const QString good = writeImage(QStringLiteral("good.png"), patternedImage(512, 512, 1));
};

std::string failed(const QString& description) {
    return "Export failed: " + description.toStdString() + "\n";
}

TEST_P(FailingDisk, WithoutSpaceForTheSecondFileKeepsTheFirst) {
    if (!canMount()) {
        GTEST_SKIP() << "this machine lets nobody mount a small disk; a limit on file sizes stands in";
    }
    ASSERT_EQ(runCli(words()).status, 0);
    const FolderContents whole = takenFrom(set());
    constexpr qsizetype page = 4096;
    const qsizetype pages = whole[first()].size() / page + 1;
    ASSERT_GT(whole[first()].size(), page);
    ASSERT_GT(whole[second()].size(), page);
    const Outcome outcome =
        runOnMounted(QStringLiteral("mount -t tmpfs -o size=%1 none \"$folder\"").arg((pages + 1) * page));
    EXPECT_EQ(outcome.status, 1);
    EXPECT_EQ(outcome.errors, failed(QStringLiteral("Could not write PNG: ") + second()));
    EXPECT_EQ(outcome.output, first().toStdString() + "\n");
}

TEST_P(FailingDisk, WithoutAnySpaceLeavesAnEmptyFolder) {
    if (!canMount()) {
        GTEST_SKIP() << "this machine lets nobody mount a small disk; a limit on file sizes stands in";
    }
    const Outcome outcome = runOnMounted(QStringLiteral("mount -t tmpfs -o size=4096 none \"$folder\""));
    EXPECT_EQ(outcome.status, 1);
    EXPECT_EQ(outcome.errors, failed(QStringLiteral("Could not write PNG: ") + first()));
    EXPECT_EQ(outcome.output, "");
}

TEST_P(FailingDisk, MountedReadOnlyKeepsItsSet) {
    if (!canMount()) {
        GTEST_SKIP() << "this machine lets nobody mount a disk read-only";
    }
    ASSERT_EQ(runCli(words()).status, 0);
    const FolderContents before = contentsOf(set());
    const Outcome outcome = runOnMounted(
        QStringLiteral("mount --bind \"$folder\" \"$folder\" && mount -o remount,bind,ro \"$folder\""));
    EXPECT_EQ(outcome.status, 1);
    EXPECT_EQ(outcome.errors, failed(QStringLiteral("Could not create PNG image: ") + first()));
    EXPECT_EQ(outcome.output, before.keys().join(u'\n').toStdString() + "\n");
    expectSame(contentsOf(set()), before);
    EXPECT_EQ(runCli(words()).status, 0);
}

TEST_P(FailingDisk, MountedReadOnlyTakesNoNewSet) {
    if (!canMount()) {
        GTEST_SKIP() << "this machine lets nobody mount a disk read-only";
    }
    const Outcome outcome = runOnMounted(QStringLiteral("mount -t tmpfs -o ro none \"$folder\""));
    EXPECT_EQ(outcome.status, 1);
    EXPECT_EQ(outcome.errors,
              failed(QStringLiteral("Could not create folder: Brick (Read-only file system)")));
}

TEST_P(FailingDisk, UnderALimitOfFileSizesLeavesAnEmptyFolder) {
    const Outcome outcome =
        runCliThroughShell(QStringLiteral("trap '' XFSZ; ulimit -f 1; exec \"$@\""), words());
    EXPECT_EQ(outcome.status, 1);
    EXPECT_EQ(outcome.output, "");
    EXPECT_EQ(outcome.errors, failed(QStringLiteral("Could not write PNG: ") + first()));
    EXPECT_EQ(contentsOf(set()).size(), 0);
    EXPECT_EQ(runCli(words()).status, 0);
}

TEST_P(FailingDisk, TakesNoNameThatIsTooLong) {
    const QString name(256, u'n');
    const Outcome outcome = runCli(words(name));
    EXPECT_EQ(outcome.status, 1);
    EXPECT_EQ(outcome.output, "");
    EXPECT_EQ(outcome.errors,
              failed(QStringLiteral("Could not create folder: %1 (File name too long)").arg(name)));
    EXPECT_TRUE(QDir(output()).isEmpty());
}

TEST_P(FailingDisk, StopsAtTheFileWhoseNameIsTooLong) {
    // The folder may have the name, but with what follows it no image may.
    const QString name(250, u'n');
    const Outcome outcome = runCli(words(name));
    EXPECT_EQ(outcome.status, 1);
    EXPECT_EQ(outcome.errors, failed(QStringLiteral("Could not create PNG image: ") + name +
                                     first().sliced(QStringLiteral("Brick").size())));
    EXPECT_EQ(contentsOf(output() + u'/' + name).size(), 0);
}

TEST_P(FailingDisk, ThatEndsTheProgramInTheMiddleOfAFileKeepsTheOldSet) {
    ASSERT_EQ(runCli(words()).status, 0);
    const FolderContents before = contentsOf(set());
    writeImage(QStringLiteral("good.png"), patternedImage(512, 512, 2));
    // The signal of a file that grows too large is deadly unless it is ignored.
    EXPECT_EQ(runCliThroughShell(QStringLiteral("ulimit -c 0; ulimit -f 2; exec \"$@\""), words()).status,
              -1);
    FolderContents after = contentsOf(set());
    const QStringList names = after.keys();
    EXPECT_GE(names.filter(QStringLiteral(".quarlin-")).size(), 1);
    for (const QString& name : names.filter(QStringLiteral(".quarlin-"))) {
        after.remove(name);
    }
    expectSame(after, before);
    EXPECT_EQ(runCli(words()).status, 0);
    EXPECT_NE(contentsOf(set())[first()], before[first()]);
}

INSTANTIATE_TEST_SUITE_P(Commands, FailingDisk, testing::Values(Command::material, Command::maps),
                         testing::PrintToStringParamName());

}  // namespace
