#include "batch_test.h"

#include <gmock/gmock.h>

#include <unistd.h>

using namespace Qt::StringLiterals;

using namespace quarlin;
using namespace quarlin::tests;
using testing::HasSubstr;

namespace {

class MapsBatch : public BatchTest {
protected:
    QStringList fromFolder() const { return {u"--source"_s, sources()}; }
};

TEST_F(MapsBatch, ReportsTheSetsOfAFolderByName) {
    writeSource(u"wood.png"_s);
    writeSource(u"Brick.PNG"_s);
    const Outcome outcome = runMaps(fromFolder());
    EXPECT_EQ(outcome.status, 0);
    EXPECT_EQ(outcome.errors, "");
    EXPECT_EQ(outcome.output, mapsReport("Brick") + mapsReport("wood") + "2 sets exported\n");
    EXPECT_EQ(exportedSets(), (QStringList{u"Brick"_s, u"wood"_s}));
}

TEST_F(MapsBatch, WritesTheBytesOfSingleRuns) {
    QMap<QString, FolderContents> single;
    for (int index = 0; index < 6; ++index) {
        const QString name = u"texture"_s + QString::number(index);
        const QString file = writeSource(name + u".png"_s, index);
        ASSERT_EQ(runMaps({u"--source"_s, file}).status, 0);
        single[name] = takenFrom(output() + u'/' + name);
    }
    const Outcome outcome = runMaps(fromFolder() + QStringList{u"--jobs"_s, u"5"_s});
    EXPECT_EQ(outcome.status, 0) << outcome.errors;
    std::string wanted;
    for (auto set = single.begin(); set != single.end(); ++set) {
        expectSame(contentsOf(output() + u'/' + set.key()), set.value());
        wanted += mapsReport(set.key().toStdString());
    }
    EXPECT_EQ(outcome.output, wanted + "6 sets exported\n");
}

TEST_F(MapsBatch, ReportsSourcesInTheOrderOfTheArguments) {
    const QString wood = writeSource(u"wood.png"_s);
    const QString brick = writeSource(u"brick.png"_s);
    const Outcome outcome = runMaps({u"--source"_s, wood, u"--source"_s, brick});
    EXPECT_EQ(outcome.status, 0);
    EXPECT_EQ(outcome.output, mapsReport("wood") + mapsReport("brick") + "2 sets exported\n");
}

TEST_F(MapsBatch, ExportsAFileThatIsGivenTwiceOnce) {
    const QString wood = writeSource(u"wood.png"_s);
    const Outcome outcome = runMaps({u"--source"_s, wood, u"--source"_s, sources()});
    EXPECT_EQ(outcome.status, 0) << outcome.errors;
    EXPECT_EQ(outcome.output, mapsReport("wood") + "1 set exported\n");
}

TEST_F(MapsBatch, ContinuesAfterABrokenTexture) {
    writeSource(u"a.png"_s);
    writeBrokenSource(u"b.png"_s);
    writeSource(u"c.png"_s);
    const Outcome outcome = runMaps(fromFolder());
    EXPECT_EQ(outcome.status, 3);
    EXPECT_EQ(outcome.errors, "b: Load failed: Could not read image: b.png\n  " +
                                  sourcePath(u"b.png"_s).toStdString() +
                                  ": is not an image that Quarlin reads\n");
    EXPECT_EQ(outcome.output, mapsReport("a") + mapsReport("c") + "2 sets exported, 1 failed\n");
    EXPECT_EQ(exportedSets(), (QStringList{u"a"_s, u"c"_s}));
}

TEST_F(MapsBatch, FailsWhenEveryTextureIsBroken) {
    writeBrokenSource(u"a.png"_s);
    writeBrokenSource(u"b.png"_s);
    const Outcome outcome = runMaps(fromFolder());
    EXPECT_EQ(outcome.status, 1);
    EXPECT_EQ(outcome.output, "0 sets exported, 2 failed\n");
}

TEST_F(MapsBatch, FailsForAFolderWithoutImages) {
    writeBrokenSource(u"readme.txt"_s);
    const Outcome outcome = runMaps(fromFolder());
    EXPECT_EQ(outcome.status, 1);
    EXPECT_EQ(outcome.errors, "sources: Load failed: No image files in folder: sources\n");
    EXPECT_EQ(outcome.output, "0 sets exported, 1 failed\n");
    EXPECT_FALSE(QDir(output()).exists());
}

TEST_F(MapsBatch, ContinuesAfterAMissingSource) {
    const QString wood = writeSource(u"wood.png"_s);
    const Outcome outcome = runMaps({u"--source"_s, path(u"none"_s), u"--source"_s, wood});
    EXPECT_EQ(outcome.status, 3);
    EXPECT_EQ(firstLine(outcome.errors), "none: Load failed: Could not read image: none");
    EXPECT_EQ(outcome.output, mapsReport("wood") + "1 set exported, 1 failed\n");
}

TEST_F(MapsBatch, ContinuesAfterAnUnreadableFolder) {
    const QString wood = writeSource(u"wood.png"_s);
    ASSERT_TRUE(QDir(path({})).mkdir(u"locked"_s));
    const QString locked = path(u"locked"_s);
    ASSERT_TRUE(QFile::setPermissions(locked, {}));
    // Root can read everything unless this capability is removed.
    const QString prefix =
        geteuid() == 0 ? u"setpriv --bounding-set=-dac_override,-dac_read_search \"$@\""_s : u"\"$@\""_s;
    const Outcome outcome = runCliThroughShell(prefix, {u"maps"_s, u"--source"_s, locked, u"--source"_s, wood,
                                                        u"--size"_s, u"base"_s, u"--output"_s, output()});
    EXPECT_EQ(outcome.status, 3);
    EXPECT_EQ(outcome.errors, "locked: Load failed: Could not read folder: locked (Permission denied)\n");
    EXPECT_EQ(outcome.output, mapsReport("wood") + "1 set exported, 1 failed\n");
    ASSERT_TRUE(QFile::setPermissions(locked, QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner));
}

TEST_F(MapsBatch, NeedsNoFurtherThread) {
#ifdef __SANITIZE_ADDRESS__
    GTEST_SKIP() << "the sanitizer looks for leaks in a process of its own, which the limit forbids";
#endif
    if (geteuid() != 0) {
        GTEST_SKIP() << "only root can run the program as a user without other processes";
    }
    writeSource(u"brick.png"_s);
    writeSource(u"wood.png"_s);
    // The limit counts all processes of a user, and does not apply to root.
    const QString user = u"64321"_s;
    ASSERT_EQ(run(u"chown"_s, {u"-R"_s, user, path({})}).status, 0);
    const QString asUser = u"setpriv --reuid="_s + user + u" --clear-groups "_s;
    if (runCliThroughShell(asUser + u"test -x \"$1\""_s, {}).status != 0) {
        GTEST_SKIP() << "other users can't reach the program";
    }
    const Outcome outcome = runCliThroughShell(
        asUser + u"prlimit --nproc=1 \"$@\""_s,
        {u"maps"_s, u"--source"_s, sources(), u"--size"_s, u"1024"_s, u"--output"_s, output()});
    EXPECT_EQ(outcome.errors, "");
    EXPECT_EQ(outcome.status, 0);
    EXPECT_EQ(outcome.output, mapsReport("brick") + mapsReport("wood") + "2 sets exported\n");
}

TEST_F(MapsBatch, RefusesTwoSetsForOneFolder) {
    const std::string lower = writeSource(u"a/wood.png"_s).toStdString();
    const std::string upper = writeSource(u"b/Wood.png"_s).toStdString();
    writeSource(u"b/brick.png"_s);
    const Outcome outcome = runMaps({u"--source"_s, sources() + u"/a"_s, u"--source"_s, sources() + u"/b"_s});
    EXPECT_EQ(outcome.status, 3);
    EXPECT_EQ(outcome.errors, "wood: Export failed: The sets of " + lower + " and " + upper +
                                  " go to the same folder\nWood: Export failed: The sets of " + upper +
                                  " and " + lower + " go to the same folder\n");
    EXPECT_EQ(outcome.output, mapsReport("brick") + "1 set exported, 2 failed\n");
    EXPECT_EQ(exportedSets(), QStringList{u"brick"_s});
}

TEST_F(MapsBatch, RefusesNamesThatAreEqualOnceTheyAreSafe) {
    writeSource(u"wood wall.png"_s);
    writeSource(u"wood_wall.png"_s);
    const Outcome outcome = runMaps(fromFolder());
    EXPECT_EQ(outcome.status, 1);
    EXPECT_EQ(outcome.output, "0 sets exported, 2 failed\n");
    EXPECT_FALSE(QDir(output()).exists());
}

TEST_F(MapsBatch, RefusesASourceThatAnotherSetWrites) {
    const QString wood = writeSource(u"wood.png"_s);
    ASSERT_EQ(runMaps({u"--source"_s, wood}).status, 0);
    const FolderContents before = contentsOf(output() + u"/wood"_s);
    const Outcome outcome =
        runMaps({u"--source"_s, wood, u"--source"_s, output() + u"/wood/wood_basecolor.png"_s});
    EXPECT_EQ(outcome.status, 3);
    EXPECT_EQ(outcome.errors,
              "wood_basecolor: Export failed: The set wood overwrites its source wood_basecolor.png\n");
    expectSame(contentsOf(output() + u"/wood"_s), before);
}

TEST_F(MapsBatch, SkipsSubfoldersByDefault) {
    writeSource(u"wood.png"_s);
    writeSource(u"deep/er/brick.png"_s);
    EXPECT_EQ(runMaps(fromFolder()).output, mapsReport("wood") + "1 set exported\n");
    EXPECT_EQ(runMaps(fromFolder() + QStringList{u"--recursive"_s}).output,
              mapsReport("wood") + mapsReport("brick") + "2 sets exported\n");
}

TEST_F(MapsBatch, DoesNotReadItsOwnOutputBelowTheSource) {
    writeSource(u"wood.png"_s);
    const QStringList into{u"maps"_s,   u"--source"_s, sources(),     u"--recursive"_s,
                           u"--size"_s, u"base"_s,     u"--output"_s, sources() + u"/out"_s};
    for (int run = 0; run < 2; ++run) {
        const Outcome outcome = runCli(into);
        EXPECT_EQ(outcome.status, 0) << outcome.errors;
        EXPECT_THAT(outcome.output, HasSubstr("\n1 set exported\n"));
    }
    EXPECT_EQ(QDir(sources() + u"/out"_s).entryList(QDir::Dirs | QDir::NoDotAndDotDot),
              QStringList{u"wood"_s});
}

TEST_F(MapsBatch, FollowsLinksToFilesButNotToFolders) {
    const QString wood = writeSource(u"wood.png"_s);
    ASSERT_TRUE(QDir().mkdir(path(u"linked"_s)));
    ASSERT_TRUE(QFile::link(wood, path(u"linked/oak.png"_s)));
    ASSERT_TRUE(QFile::link(path(u"nowhere"_s), path(u"linked/lost.png"_s)));
    ASSERT_TRUE(QFile::link(path(u"linked"_s), path(u"linked/round"_s)));
    const Outcome outcome = runMaps({u"--source"_s, path(u"linked"_s), u"--recursive"_s});
    EXPECT_EQ(outcome.status, 3);
    EXPECT_EQ(firstLine(outcome.errors), "lost: Load failed: Could not read image: lost.png");
    EXPECT_EQ(outcome.output, mapsReport("oak") + "1 set exported, 1 failed\n");
}

TEST_F(MapsBatch, SkipsHiddenFilesAndOtherFiles) {
    writeSource(u"wood.png"_s);
    writeSource(u"._wood.png"_s);
    writeBrokenSource(u"wood.blend"_s);
    writeBrokenSource(u"png"_s);
    const Outcome outcome = runMaps(fromFolder());
    EXPECT_EQ(outcome.errors, "");
    EXPECT_EQ(outcome.output, mapsReport("wood") + "1 set exported\n");
}

TEST_F(MapsBatch, KeepsNamesOutsideAscii) {
    writeSource(u"Größe 壁.png"_s);
    const Outcome outcome = runMaps(fromFolder());
    EXPECT_EQ(outcome.status, 0);
    EXPECT_EQ(outcome.output, mapsReport("Größe_壁") + "1 set exported\n");
}

TEST_F(MapsBatch, GivesTheNameToTheOnlySet) {
    writeSource(u"wood.png"_s);
    EXPECT_EQ(runMaps(fromFolder() + QStringList{u"--name"_s, u"Oak"_s}).output,
              mapsReport("Oak") + "1 set exported\n");
}

TEST_F(MapsBatch, RejectsOneNameForSeveralSets) {
    writeSource(u"a.png"_s);
    writeSource(u"b.png"_s);
    const Outcome outcome = runMaps(fromFolder() + QStringList{u"--name"_s, u"Oak"_s});
    EXPECT_EQ(outcome.status, 2);
    EXPECT_EQ(outcome.output, "");
    EXPECT_EQ(outcome.errors,
              "quarlin-cli: --name is for a single set, but there are 2\nTry 'quarlin-cli maps --help'.\n");
}

TEST_F(MapsBatch, ReportsLinesOfJson) {
    writeSource(u"a.png"_s);
    writeBrokenSource(u"b.png"_s);
    const Outcome outcome =
        runMaps(fromFolder() + leavingOut(fixtures::generatedFiles()) + QStringList{u"--json"_s});
    EXPECT_EQ(outcome.status, 3);
    EXPECT_EQ(outcome.errors, "");
    const std::string folder = path({}).toStdString() + "/";
    EXPECT_EQ(
        outcome.output,
        "{\"type\": \"set\", \"version\": 1, \"status\": \"exported\", \"name\": \"a\", \"folder\": \"" +
            folder +
            "output/a\", \"files\": [\"a_basecolor.png\", \"a_normal.png\"], \"replaced\": [], "
            "\"inputs\": {\"source\": \"" +
            folder +
            "sources/a.png\"}, \"channels\": {}, \"notes\": [], \"error\": {}}\n"
            "{\"type\": \"set\", \"version\": 1, \"status\": \"failed\", \"name\": \"b\", \"folder\": \"" +
            folder + "output/b\", \"files\": [], \"replaced\": [], \"inputs\": {\"source\": \"" + folder +
            "sources/b.png\"}, \"channels\": {}, \"notes\": [], \"error\": {\"code\": \"notAnImage\", "
            "\"message\": \"Load "
            "failed: Could not read image: b.png\", \"path\": \"" +
            folder +
            "sources/b.png\", \"reason\": \"is not an image that Quarlin reads\"}}\n"
            "{\"type\": \"summary\", \"version\": 1, \"sets\": 2, \"exported\": 1, \"planned\": 0, "
            "\"upToDate\": 0, "
            "\"failed\": 1, \"notStarted\": 0, \"leftOut\": 0}\n");
    EXPECT_EQ(jsonLines(outcome.output).size(), 3U);
}

TEST_F(MapsBatch, FailsWhenItsReportCannotBeWritten) {
    writeSource(u"a.png"_s);
    const Outcome outcome = runCliThroughShell(
        u"exec \"$@\" >/dev/full"_s,
        {u"maps"_s, u"--source"_s, sources(), u"--size"_s, u"base"_s, u"--output"_s, output()});
    EXPECT_EQ(outcome.status, 4);
    EXPECT_EQ(outcome.errors, "quarlin-cli: Could not write to the standard output\n");
    EXPECT_EQ(exportedSets(), QStringList{u"a"_s});
}

TEST_F(MapsBatch, TakesTheBaseColorsOfAFolder) {
    writeSource(u"brick_color.png"_s);
    const QString normal = writeSource(u"brick_normal.png"_s);
    writeSource(u"photo.png"_s);
    const Outcome outcome = runMaps(fromFolder());
    EXPECT_EQ(outcome.errors,
              "Left out: " + normal.toStdString() + " (it is the Normal texture of a material)\n");
    EXPECT_EQ(exportedSets(), (QStringList{u"brick_color"_s, u"photo"_s}));
    EXPECT_EQ(runMaps(fromFolder() + QStringList{u"--all"_s}).errors, "");
    EXPECT_EQ(exportedSets(), (QStringList{u"brick_color"_s, u"brick_normal"_s, u"photo"_s}));
}

TEST_F(MapsBatch, ExportsManySets) {
    for (int index = 0; index < 100; ++index) {
        writeSource(u"t"_s + QString::number(index) + u".png"_s, index);
    }
    const Outcome outcome = runMaps(fromFolder() + QStringList{u"--jobs"_s, u"8"_s});
    EXPECT_EQ(outcome.status, 0);
    EXPECT_THAT(outcome.output, testing::EndsWith("\n100 sets exported\n"));
    EXPECT_EQ(exportedSets().size(), 100);
}

}  // namespace
