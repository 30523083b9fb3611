#include "cli_test.h"
#include "set_files.h"

#include <QDir>

#include <gmock/gmock.h>

using namespace Qt::StringLiterals;

using namespace quarlin;
using namespace quarlin::tests;

namespace {

class BadOutput : public CliTest {
protected:
    const QString good = writeImage(u"good.png"_s, patternedImage(64, 64, 1));

    QStringList material(const QString& folder) const {
        return {u"material"_s, u"--base-color"_s, good,          u"--name"_s, u"Brick"_s,
                u"--size"_s,   u"base"_s,         u"--output"_s, folder};
    }
    QStringList maps(const QString& folder) const {
        return {u"maps"_s,   u"--source"_s, good,          u"--name"_s, u"Brick"_s,
                u"--size"_s, u"base"_s,     u"--output"_s, folder};
    }

    static void expectExportFailure(const Outcome& outcome, const std::string& description) {
        EXPECT_EQ(outcome.status, 1);
        EXPECT_EQ(outcome.output, "");
        EXPECT_EQ(firstLine(outcome.errors), "Export failed: " + description);
    }
};

TEST_F(BadOutput, FileInPlaceOfTheFolder) {
    const QString file = writeFile(u"file"_s, "kept");
    expectExportFailure(runCli(material(file)), "Could not create folder: Brick (Not a directory)");
    expectExportFailure(runCli(maps(file)), "Could not create folder: Brick (Not a directory)");
    EXPECT_EQ(bytesOf(file), "kept");
}

TEST_F(BadOutput, FileInPlaceOfTheSet) {
    const QString file = writeFile(u"Brick"_s, "kept");
    const Outcome outcome = runCli(material(path({})));
    EXPECT_EQ(outcome.status, 1);
    EXPECT_THAT(outcome.errors, testing::StartsWith("Export failed: Could not create folder: Brick ("));
    EXPECT_EQ(bytesOf(file), "kept");
}

TEST_F(BadOutput, FolderInPlaceOfAnImage) {
    ASSERT_TRUE(QDir(path({})).mkpath(u"output/Brick/Brick_ORM.png/in the way"_s));
    const Outcome outcome = runCli(material(output()));
    EXPECT_EQ(outcome.status, 1);
    EXPECT_EQ(outcome.output, "");
    EXPECT_EQ(outcome.errors, "Export failed: Could not create PNG image: Brick_ORM.png\n  " +
                                  output().toStdString() + "/Brick/Brick_ORM.png: is a folder\n");
    // The files before it stay, and no partial file does.
    EXPECT_EQ(contentsOf(output() + u"/Brick"_s).keys(), QStringList{u"Brick_BaseColor.png"_s});
}

TEST_F(BadOutput, FolderInPlaceOfTheNotes) {
    ASSERT_TRUE(QDir(path({})).mkpath(u"output/Brick/Brick_maps_notes.txt/in the way"_s));
    expectExportFailure(runCli(maps(output())), "Could not write file: Brick_maps_notes.txt");
    QStringList written = namesOf(fixtures::generatedFiles(), u"Brick"_s);
    written.removeOne(u"Brick_maps_notes.txt"_s);
    written.sort();
    EXPECT_EQ(contentsOf(output() + u"/Brick"_s).keys(), written);
}

TEST_F(BadOutput, FullDiskLeavesTheEarlierImage) {
    ASSERT_EQ(runCli(material(output())).status, 0);
    const FolderContents before = contentsOf(output() + u"/Brick"_s);
    // A limit on the size of files simulates a full disk. The image is larger than the limit.
    ASSERT_GT(before[u"Brick_BaseColor.png"_s].size(), 512);
    writeImage(u"good.png"_s, patternedImage(64, 64, 2));
    const Outcome outcome =
        runCliThroughShell(u"trap '' XFSZ; ulimit -f 1; exec \"$@\""_s, material(output()));
    expectExportFailure(outcome, "Could not write PNG: Brick_BaseColor.png");
    expectSame(contentsOf(output() + u"/Brick"_s), before);
}

TEST_F(BadOutput, ClosedStandardOutputIsAFailure) {
    const Outcome outcome = runCliThroughShell(u"exec \"$@\" >&-"_s, material(output()));
    EXPECT_EQ(outcome.status, 4);
    EXPECT_EQ(outcome.errors, "quarlin-cli: Could not write to the standard output\n");
    // The set itself is complete, and the report did not end up in one of its files.
    const FolderContents contents = contentsOf(output() + u"/Brick"_s);
    EXPECT_EQ(contents.size(), 4);
    for (const QByteArray& file : contents) {
        EXPECT_FALSE(file.contains("Export complete"));
    }
}

TEST_F(BadOutput, FullStandardOutputIsAFailure) {
    const Outcome outcome = runCliThroughShell(u"exec \"$@\" >/dev/full"_s, {u"--version"_s});
    EXPECT_EQ(outcome.status, 4);
    EXPECT_EQ(outcome.errors, "quarlin-cli: Could not write to the standard output\n");
}

}  // namespace
