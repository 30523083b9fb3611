#include "batch_test.h"

#include <gmock/gmock.h>

#include <unistd.h>

using namespace quarlin;
using namespace quarlin::tests;
using testing::HasSubstr;

namespace {

QString word(const char* text) { return QString::fromUtf8(text); }

class MapsBatch : public BatchTest {
protected:
    QStringList fromFolder() const { return {word("--source"), sources()}; }
};

TEST_F(MapsBatch, ReportsTheSetsOfAFolderByName) {
    writeSource(word("wood.png"));
    writeSource(word("Brick.PNG"));
    const Outcome outcome = runMaps(fromFolder());
    EXPECT_EQ(outcome.status, 0);
    EXPECT_EQ(outcome.errors, "");
    EXPECT_EQ(outcome.output, mapsReport("Brick") + mapsReport("wood") + "2 sets exported\n");
    EXPECT_EQ(exportedSets(), (QStringList{word("Brick"), word("wood")}));
}

TEST_F(MapsBatch, GivesTheBytesOfSingleRuns) {
    QMap<QString, FolderContents> single;
    for (int index = 0; index < 6; ++index) {
        const QString name = word("texture") + QString::number(index);
        const QString file = writeSource(name + word(".png"), index);
        ASSERT_EQ(runMaps({word("--source"), file}).status, 0);
        single[name] = takenFrom(output() + u'/' + name);
    }
    const Outcome outcome = runMaps(fromFolder() + QStringList{word("--jobs"), word("5")});
    EXPECT_EQ(outcome.status, 0) << outcome.errors;
    std::string wanted;
    for (auto set = single.begin(); set != single.end(); ++set) {
        expectSame(contentsOf(output() + u'/' + set.key()), set.value());
        wanted += mapsReport(set.key().toStdString());
    }
    EXPECT_EQ(outcome.output, wanted + "6 sets exported\n");
}

TEST_F(MapsBatch, ReportsSourcesInTheOrderOfTheWords) {
    const QString wood = writeSource(word("wood.png"));
    const QString brick = writeSource(word("brick.png"));
    const Outcome outcome = runMaps({word("--source"), wood, word("--source"), brick});
    EXPECT_EQ(outcome.status, 0);
    EXPECT_EQ(outcome.output, mapsReport("wood") + mapsReport("brick") + "2 sets exported\n");
}

TEST_F(MapsBatch, TakesAFileThatIsNamedTwiceOnce) {
    const QString wood = writeSource(word("wood.png"));
    const Outcome outcome = runMaps({word("--source"), wood, word("--source"), sources()});
    EXPECT_EQ(outcome.status, 0) << outcome.errors;
    EXPECT_EQ(outcome.output, mapsReport("wood") + "1 set exported\n");
}

TEST_F(MapsBatch, GoesOnAfterABrokenTexture) {
    writeSource(word("a.png"));
    writeBrokenSource(word("b.png"));
    writeSource(word("c.png"));
    const Outcome outcome = runMaps(fromFolder());
    EXPECT_EQ(outcome.status, 3);
    EXPECT_EQ(outcome.errors, "b: Load failed: Could not read image: b.png\n");
    EXPECT_EQ(outcome.output, mapsReport("a") + mapsReport("c") + "2 sets exported, 1 failed\n");
    EXPECT_EQ(exportedSets(), (QStringList{word("a"), word("c")}));
}

TEST_F(MapsBatch, FailsWhenEveryTextureIsBroken) {
    writeBrokenSource(word("a.png"));
    writeBrokenSource(word("b.png"));
    const Outcome outcome = runMaps(fromFolder());
    EXPECT_EQ(outcome.status, 1);
    EXPECT_EQ(outcome.output, "0 sets exported, 2 failed\n");
}

TEST_F(MapsBatch, FailsForAFolderWithoutImages) {
    writeBrokenSource(word("readme.txt"));
    const Outcome outcome = runMaps(fromFolder());
    EXPECT_EQ(outcome.status, 1);
    EXPECT_EQ(outcome.errors, "sources: Load failed: No image files in folder: sources\n");
    EXPECT_EQ(outcome.output, "0 sets exported, 1 failed\n");
    EXPECT_FALSE(QDir(output()).exists());
}

TEST_F(MapsBatch, GoesOnAfterASourceThatIsMissing) {
    const QString wood = writeSource(word("wood.png"));
    const Outcome outcome = runMaps({word("--source"), path(word("none")), word("--source"), wood});
    EXPECT_EQ(outcome.status, 3);
    EXPECT_EQ(outcome.errors, "none: Load failed: Could not read image: none\n");
    EXPECT_EQ(outcome.output, mapsReport("wood") + "1 set exported, 1 failed\n");
}

TEST_F(MapsBatch, GoesOnAfterAFolderThatCannotBeRead) {
    const QString wood = writeSource(word("wood.png"));
    ASSERT_TRUE(QDir(path({})).mkdir(word("locked")));
    const QString locked = path(word("locked"));
    ASSERT_TRUE(QFile::setPermissions(locked, {}));
    // Root reads everything, unless that capability is taken away.
    const QString prefix = geteuid() == 0
                               ? word("setpriv --bounding-set=-dac_override,-dac_read_search \"$@\"")
                               : word("\"$@\"");
    const Outcome outcome =
        runCliThroughShell(prefix, {word("maps"), word("--source"), locked, word("--source"), wood,
                                    word("--size"), word("base"), word("--output"), output()});
    EXPECT_EQ(outcome.status, 3);
    EXPECT_EQ(outcome.errors, "locked: Load failed: Could not read folder: locked (Permission denied)\n");
    EXPECT_EQ(outcome.output, mapsReport("wood") + "1 set exported, 1 failed\n");
    ASSERT_TRUE(QFile::setPermissions(locked, QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner));
}

TEST_F(MapsBatch, RefusesTwoSourcesForOneFolder) {
    writeSource(word("a/wood.png"));
    writeSource(word("b/Wood.png"));
    writeSource(word("b/brick.png"));
    const Outcome outcome =
        runMaps({word("--source"), sources() + word("/a"), word("--source"), sources() + word("/b")});
    EXPECT_EQ(outcome.status, 3);
    EXPECT_EQ(outcome.errors,
              "wood: Export failed: The set of Wood.png has the same folder\n"
              "Wood: Export failed: The set of wood.png has the same folder\n");
    EXPECT_EQ(outcome.output, mapsReport("brick") + "1 set exported, 2 failed\n");
    EXPECT_EQ(exportedSets(), QStringList{word("brick")});
}

TEST_F(MapsBatch, RefusesNamesThatAreTheSameOnceTheyAreCleaned) {
    writeSource(word("wood wall.png"));
    writeSource(word("wood_wall.png"));
    const Outcome outcome = runMaps(fromFolder());
    EXPECT_EQ(outcome.status, 1);
    EXPECT_EQ(outcome.output, "0 sets exported, 2 failed\n");
    EXPECT_FALSE(QDir(output()).exists());
}

TEST_F(MapsBatch, RefusesASourceThatAnotherSetWrites) {
    const QString wood = writeSource(word("wood.png"));
    ASSERT_EQ(runMaps({word("--source"), wood}).status, 0);
    const FolderContents before = contentsOf(output() + word("/wood"));
    const Outcome outcome =
        runMaps({word("--source"), wood, word("--source"), output() + word("/wood/wood_basecolor.png")});
    EXPECT_EQ(outcome.status, 3);
    EXPECT_EQ(outcome.errors,
              "wood_basecolor: Export failed: The set wood writes its source wood_basecolor.png\n");
    expectSame(contentsOf(output() + word("/wood")), before);
}

TEST_F(MapsBatch, LeavesSubfoldersAloneUnlessTold) {
    writeSource(word("wood.png"));
    writeSource(word("deep/er/brick.png"));
    EXPECT_EQ(runMaps(fromFolder()).output, mapsReport("wood") + "1 set exported\n");
    EXPECT_EQ(runMaps(fromFolder() + QStringList{word("--recursive")}).output,
              mapsReport("wood") + mapsReport("brick") + "2 sets exported\n");
}

TEST_F(MapsBatch, IsNoSourceOfItselfWhenExportedIntoTheFolderThatIsRead) {
    writeSource(word("wood.png"));
    const QStringList into{word("maps"),   word("--source"), sources(),        word("--recursive"),
                           word("--size"), word("base"),     word("--output"), sources() + word("/out")};
    for (int run = 0; run < 2; ++run) {
        const Outcome outcome = runCli(into);
        EXPECT_EQ(outcome.status, 0) << outcome.errors;
        EXPECT_THAT(outcome.output, HasSubstr("\n1 set exported\n"));
    }
    EXPECT_EQ(QDir(sources() + word("/out")).entryList(QDir::Dirs | QDir::NoDotAndDotDot),
              QStringList{word("wood")});
}

TEST_F(MapsBatch, FollowsLinksToFilesButNotToFolders) {
    const QString wood = writeSource(word("wood.png"));
    ASSERT_TRUE(QDir().mkdir(path(word("linked"))));
    ASSERT_TRUE(QFile::link(wood, path(word("linked/oak.png"))));
    ASSERT_TRUE(QFile::link(path(word("nowhere")), path(word("linked/lost.png"))));
    ASSERT_TRUE(QFile::link(path(word("linked")), path(word("linked/round"))));
    const Outcome outcome = runMaps({word("--source"), path(word("linked")), word("--recursive")});
    EXPECT_EQ(outcome.status, 3);
    EXPECT_EQ(outcome.errors, "lost: Load failed: Could not read image: lost.png\n");
    EXPECT_EQ(outcome.output, mapsReport("oak") + "1 set exported, 1 failed\n");
}

TEST_F(MapsBatch, LeavesHiddenFilesAndOtherFilesAlone) {
    writeSource(word("wood.png"));
    writeSource(word("._wood.png"));
    writeBrokenSource(word("wood.blend"));
    writeBrokenSource(word("png"));
    const Outcome outcome = runMaps(fromFolder());
    EXPECT_EQ(outcome.errors, "");
    EXPECT_EQ(outcome.output, mapsReport("wood") + "1 set exported\n");
}

TEST_F(MapsBatch, KeepsNamesOutsideAscii) {
    writeSource(word("Größe 壁.png"));
    const Outcome outcome = runMaps(fromFolder());
    EXPECT_EQ(outcome.status, 0);
    EXPECT_EQ(outcome.output, mapsReport("Größe_壁") + "1 set exported\n");
}

TEST_F(MapsBatch, GivesATypedNameToTheOnlySet) {
    writeSource(word("wood.png"));
    EXPECT_EQ(runMaps(fromFolder() + QStringList{word("--name"), word("Oak")}).output,
              mapsReport("Oak") + "1 set exported\n");
}

TEST_F(MapsBatch, RejectsOneNameForSeveralSets) {
    writeSource(word("a.png"));
    writeSource(word("b.png"));
    const Outcome outcome = runMaps(fromFolder() + QStringList{word("--name"), word("Oak")});
    EXPECT_EQ(outcome.status, 2);
    EXPECT_EQ(outcome.output, "");
    EXPECT_EQ(outcome.errors,
              "quarlin-cli: --name is for one set, and here are 2\nTry 'quarlin-cli maps --help'.\n");
}

TEST_F(MapsBatch, ReportsLinesOfJson) {
    writeSource(word("a.png"));
    writeBrokenSource(word("b.png"));
    const Outcome outcome =
        runMaps(fromFolder() + leavingOut(fixtures::generatedFiles()) + QStringList{word("--json")});
    EXPECT_EQ(outcome.status, 3);
    EXPECT_EQ(outcome.errors, "");
    const std::string folder = path({}).toStdString() + "/";
    EXPECT_EQ(outcome.output,
              "{\"type\": \"set\", \"name\": \"a\", \"status\": \"exported\", \"inputs\": {\"source\": \"" +
                  folder + "sources/a.png\"}, \"folder\": \"" + folder +
                  "output/a\", \"files\": [\"a_basecolor.png\", \"a_normal.png\"]}\n"
                  "{\"type\": \"set\", \"name\": \"b\", \"status\": \"failed\", \"inputs\": {\"source\": \"" +
                  folder +
                  "sources/b.png\"}, \"error\": \"Load failed: Could not read image: b.png\"}\n"
                  "{\"type\": \"summary\", \"sets\": 2, \"exported\": 1, \"planned\": 0, \"failed\": 1, "
                  "\"notStarted\": 0, \"leftOut\": 0}\n");
    EXPECT_EQ(jsonLines(outcome.output).size(), 3U);
}

TEST_F(MapsBatch, FailsWhenItsReportCannotBeWritten) {
    writeSource(word("a.png"));
    const Outcome outcome = runCliThroughShell(word("exec \"$@\" >/dev/full"),
                                               {word("maps"), word("--source"), sources(), word("--size"),
                                                word("base"), word("--output"), output()});
    EXPECT_EQ(outcome.status, 1);
    EXPECT_EQ(outcome.errors, "quarlin-cli: Could not write to the standard output\n");
    EXPECT_EQ(exportedSets(), QStringList{word("a")});
}

TEST_F(MapsBatch, ExportsManySets) {
    for (int index = 0; index < 100; ++index) {
        writeSource(word("t") + QString::number(index) + word(".png"), index);
    }
    const Outcome outcome = runMaps(fromFolder() + QStringList{word("--jobs"), word("8")});
    EXPECT_EQ(outcome.status, 0);
    EXPECT_THAT(outcome.output, testing::EndsWith("\n100 sets exported\n"));
    EXPECT_EQ(exportedSets().size(), 100);
}

}  // namespace
