// Disks that fail while the program writes: full, read-only, or the program is killed in the middle of a
// file.

#include "cli_test.h"

#include <QDir>

using namespace Qt::StringLiterals;

using namespace quarlin::tests;

namespace {

enum class Command { material, maps };

void PrintTo(Command command, std::ostream* out) {
    *out << (command == Command::material ? "Material" : "Maps");
}

class FailingDisk : public CliTest, public testing::WithParamInterface<Command> {
protected:
    FailingDisk() { QDir().mkpath(output()); }

    QStringList arguments(const QString& name = u"Brick"_s) const {
        const QStringList input =
            GetParam() == Command::material
                ? QStringList{u"material"_s, u"--base-color"_s, good, u"--occlusion"_s, good}
                : QStringList{u"maps"_s, u"--source"_s, good};
        return input + QStringList{u"--name"_s, name, u"--size"_s, u"base"_s, u"--output"_s, output()};
    }
    QString first() const {
        return GetParam() == Command::material ? u"Brick_BaseColor.png"_s : u"Brick_basecolor.png"_s;
    }
    QString second() const {
        return GetParam() == Command::material ? u"Brick_ORM.png"_s : u"Brick_normal.png"_s;
    }
    QString set() const { return output() + u"/Brick"_s; }

    static bool canMount() {
        return run(u"unshare"_s, {u"-rm"_s, u"mount"_s, u"-t"_s, u"tmpfs"_s, u"none"_s, u"/mnt"_s}).status ==
               0;
    }
    /// Runs the program in a namespace where `mount`, a shell command, has mounted something on the export
    /// folder,
    /// "$folder". The output ends with the names of all files of the set.
    Outcome runOnMounted(const QString& mount) const {
        const QString inside = mount +
                               u" && { \"$@\"; status=$?; "
                               "ls -A \"$folder/Brick\" 2>/dev/null; exit $status; }"_s;
        return runCliThroughShell(
            u"folder='%1' exec unshare -rm sh -c '%2' sh \"$@\""_s.arg(output(), inside), arguments());
    }

    const QString good = writeImage(u"good.png"_s, patternedImage(512, 512, 1));
};

std::string failed(const QString& description) { return "Export failed: " + description.toStdString(); }

TEST_P(FailingDisk, WithoutSpaceForTheSecondFileKeepsTheFirst) {
    if (!canMount()) {
        GTEST_SKIP() << "this machine lets nobody mount a small disk; a limit on file sizes stands in";
    }
    ASSERT_EQ(runCli(arguments()).status, 0);
    const FolderContents whole = takenFrom(set());
    constexpr qsizetype page = 4096;
    const qsizetype pages = whole[first()].size() / page + 1;
    ASSERT_GT(whole[first()].size(), page);
    ASSERT_GT(whole[second()].size(), page);
    const Outcome outcome =
        runOnMounted(u"mount -t tmpfs -o size=%1 none \"$folder\""_s.arg((pages + 1) * page));
    EXPECT_EQ(outcome.status, 1);
    EXPECT_EQ(firstLine(outcome.errors), failed(u"Could not write PNG: "_s + second()));
    EXPECT_EQ(outcome.output, first().toStdString() + "\n");
}

TEST_P(FailingDisk, WithoutAnySpaceLeavesAnEmptyFolder) {
    if (!canMount()) {
        GTEST_SKIP() << "this machine lets nobody mount a small disk; a limit on file sizes stands in";
    }
    const Outcome outcome = runOnMounted(u"mount -t tmpfs -o size=4096 none \"$folder\""_s);
    EXPECT_EQ(outcome.status, 1);
    EXPECT_EQ(firstLine(outcome.errors), failed(u"Could not write PNG: "_s + first()));
    EXPECT_EQ(outcome.output, "");
}

TEST_P(FailingDisk, MountedReadOnlyKeepsItsSet) {
    if (!canMount()) {
        GTEST_SKIP() << "this machine lets nobody mount a disk read-only";
    }
    ASSERT_EQ(runCli(arguments()).status, 0);
    const FolderContents before = contentsOf(set());
    const Outcome outcome =
        runOnMounted(u"mount --bind \"$folder\" \"$folder\" && mount -o remount,bind,ro \"$folder\""_s);
    EXPECT_EQ(outcome.status, 1);
    EXPECT_EQ(firstLine(outcome.errors), failed(u"Could not create PNG image: "_s + first()));
    EXPECT_EQ(outcome.output, before.keys().join(u'\n').toStdString() + "\n");
    expectSame(contentsOf(set()), before);
    EXPECT_EQ(runCli(arguments()).status, 0);
}

TEST_P(FailingDisk, MountedReadOnlyAcceptsNoNewSet) {
    if (!canMount()) {
        GTEST_SKIP() << "this machine lets nobody mount a disk read-only";
    }
    const Outcome outcome = runOnMounted(u"mount -t tmpfs -o ro none \"$folder\""_s);
    EXPECT_EQ(outcome.status, 1);
    EXPECT_EQ(firstLine(outcome.errors), failed(u"Could not create folder: Brick (Read-only file system)"_s));
}

TEST_P(FailingDisk, WithALimitOnFileSizesLeavesAnEmptyFolder) {
    const Outcome outcome = runCliThroughShell(u"ulimit -c 0; ulimit -f 1; exec \"$@\""_s, arguments());
    EXPECT_EQ(outcome.status, 1);
    EXPECT_EQ(outcome.output, "");
    EXPECT_EQ(firstLine(outcome.errors), failed(u"Could not write PNG: "_s + first()));
    EXPECT_EQ(contentsOf(set()).size(), 0);
    EXPECT_EQ(runCli(arguments()).status, 0);
}

TEST_P(FailingDisk, RefusesANameThatIsTooLong) {
    const QString name(256, u'n');
    const Outcome outcome = runCli(arguments(name));
    EXPECT_EQ(outcome.status, 1);
    EXPECT_EQ(outcome.output, "");
    EXPECT_EQ(firstLine(outcome.errors),
              failed(u"Could not create folder: %1 (File name too long)"_s.arg(name)));
    EXPECT_TRUE(QDir(output()).isEmpty());
}

TEST_P(FailingDisk, StopsAtTheFileWhoseNameIsTooLong) {
    // The name is short enough for the folder, but not for an image, which has a suffix.
    const QString name(250, u'n');
    const Outcome outcome = runCli(arguments(name));
    EXPECT_EQ(outcome.status, 1);
    EXPECT_EQ(firstLine(outcome.errors),
              failed(u"Could not create PNG image: "_s + name + first().sliced(u"Brick"_s.size())));
    EXPECT_EQ(contentsOf(output() + u'/' + name).size(), 0);
}

TEST_P(FailingDisk, WithALimitInTheMiddleOfAFileKeepsTheOldSet) {
    ASSERT_EQ(runCli(arguments()).status, 0);
    const FolderContents before = contentsOf(set());
    writeImage(u"good.png"_s, patternedImage(512, 512, 2));
    // The system would end a program that does not ignore its signal.
    const Outcome outcome = runCliThroughShell(u"ulimit -c 0; ulimit -f 2; exec \"$@\""_s, arguments());
    EXPECT_EQ(outcome.status, 1);
    EXPECT_EQ(firstLine(outcome.errors), failed(u"Could not write PNG: "_s + first()));
    expectSame(contentsOf(set()), before);
    EXPECT_EQ(runCli(arguments()).status, 0);
    EXPECT_NE(contentsOf(set())[first()], before[first()]);
}

INSTANTIATE_TEST_SUITE_P(Commands, FailingDisk, testing::Values(Command::material, Command::maps),
                         testing::PrintToStringParamName());

}  // namespace
