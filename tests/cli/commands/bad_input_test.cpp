#include "cli_test.h"

#include <QDir>
#include <QFile>

#include <gmock/gmock.h>

#include <sys/stat.h>

using namespace Qt::StringLiterals;

using namespace quarlin::tests;

namespace {

/// The first half of `whole`.
QByteArray truncatedImage(const QByteArray& whole) { return whole.left(whole.size() / 2); }

class BadInput : public CliTest {
protected:
    const QString good = writeImage(u"good.png"_s, patternedImage(64, 64, 1));

    void expectLoadFailure(const QStringList& arguments, const std::string& fileName) const {
        const Outcome outcome =
            runCli(arguments + QStringList{u"--output"_s, output(), u"--name"_s, u"Brick"_s});
        EXPECT_EQ(outcome.status, 1);
        EXPECT_EQ(outcome.output, "");
        EXPECT_EQ(firstLine(outcome.errors), "Load failed: Could not read image: " + fileName);
        // The whole path and the reason: see `GivesTheWholePathAndTheReason`.
        EXPECT_THAT(secondLine(outcome.errors), testing::MatchesRegex("/.*: .+"));
        EXPECT_FALSE(QDir(output()).exists());
    }

    void expectUnreadable(const QString& file, const std::string& fileName) const {
        expectLoadFailure({u"material"_s, u"--base-color"_s, file}, fileName);
        expectLoadFailure({u"maps"_s, u"--source"_s, file}, fileName);
        expectLoadFailure({u"material"_s, u"--base-color"_s, good, u"--metallic"_s, file}, fileName);
    }
};

TEST_F(BadInput, GivesTheWholePathAndTheReason) {
    ASSERT_TRUE(QDir(path({})).mkdir(u"folder.png"_s));
    const QByteArray whole = bytesOf(good);
    const std::vector<std::pair<QString, std::string>> reasons{
        {path(u"none.png"_s), "not found"},
        {path(u"folder.png"_s), "is a folder"},
        {u"/dev/null"_s, "is not a regular file"},
        {writeFile(u"notes.txt"_s, "no picture at all"), "is not an image that Quarlin reads"},
        {writeFile(u"head.png"_s, whole.first(20)),
         "damaged or incomplete, or of an unknown kind (found when it was opened)"},
        {writeFile(u"half.jpg"_s,
                   truncatedImage(bytesOf(writeImage(u"whole.jpg"_s, patternedImage(64, 64, 1))))),
         "damaged or incomplete, or of an unknown kind (found in its pixels)"},
    };
    for (const auto& [file, reason] : reasons) {
        const Outcome outcome = runCli({u"material"_s, u"--base-color"_s, file, u"--output"_s, output()});
        EXPECT_EQ(outcome.status, 1);
        EXPECT_EQ(secondLine(outcome.errors), file.toStdString() + ": " + reason);
    }
}

TEST_F(BadInput, NamesAreShownWithoutControlCharacters) {
    const QString file = writeFile(u"a\n\x1b[2J\u202e.png"_s, "no picture");
    const Outcome outcome = runCli({u"material"_s, u"--base-color"_s, file, u"--output"_s, output()});
    EXPECT_EQ(firstLine(outcome.errors), "Load failed: Could not read image: a\\n\\x1b[2J\\u202e.png");
    EXPECT_EQ(outcome.errors.find('\x1b'), std::string::npos);
}

TEST_F(BadInput, ParentsOfLinksAreThoseOfTheFileSystem) {
    const QDir root(path({}));
    ASSERT_TRUE(root.mkpath(u"real/inner"_s));
    ASSERT_TRUE(QFile::link(path(u"real/inner"_s), path(u"link"_s)));
    ASSERT_TRUE(QFile::copy(good, path(u"real/texture.png"_s)));
    const Outcome outcome = runCli({u"material"_s, u"--base-color"_s, path(u"link/../texture.png"_s),
                                    u"--output"_s, path(u"link/../made"_s), u"--size"_s, u"base"_s});
    EXPECT_EQ(outcome.status, 0) << outcome.errors;
    EXPECT_TRUE(QFile::exists(path(u"real/made/texture/texture_BaseColor.png"_s)));
    EXPECT_FALSE(QFile::exists(path(u"made"_s)));
}

TEST_F(BadInput, AShortageOfMemoryIsReportedAsOne) {
#ifdef __SANITIZE_ADDRESS__
    GTEST_SKIP() << "the sanitizer needs more address space than any such limit";
#endif
    // The program takes some 200 MB of address space for its libraries, and the picture 256 MB.
    const QString large = writeImage(u"large.bmp"_s, patternedImage(8192, 8192, 1));
    const Outcome outcome =
        runCliThroughShell(u"ulimit -v 400000; exec \"$@\""_s,
                           {u"material"_s, u"--base-color"_s, large, u"--output"_s, output()});
    EXPECT_EQ(outcome.status, 1);
    EXPECT_THAT(outcome.errors, testing::HasSubstr("large.bmp: too large for the memory"));
}

TEST_F(BadInput, MissingFile) { expectUnreadable(path(u"none.png"_s), "none.png"); }

TEST_F(BadInput, MissingFolder) { expectUnreadable(path(u"none/none.png"_s), "none.png"); }

TEST_F(BadInput, EmptyFile) { expectUnreadable(writeFile(u"empty.png"_s, {}), "empty.png"); }

TEST_F(BadInput, TextFile) { expectUnreadable(writeFile(u"notes.txt"_s, "no picture at all"), "notes.txt"); }

TEST_F(BadInput, Folder) {
    ASSERT_TRUE(QDir(path({})).mkdir(u"folder.png"_s));
    const QString folder = path(u"folder.png"_s);
    expectLoadFailure({u"material"_s, u"--base-color"_s, folder}, "folder.png");
    expectLoadFailure({u"material"_s, u"--base-color"_s, good, u"--metallic"_s, folder}, "folder.png");
}

TEST_F(BadInput, PipeIsRefusedWithoutWaiting) {
    const QString pipe = path(u"pipe.png"_s);
    ASSERT_EQ(mkfifo(QFile::encodeName(pipe).constData(), 0666), 0);
    expectUnreadable(pipe, "pipe.png");
}

TEST_F(BadInput, Device) {
    expectUnreadable(u"/dev/zero"_s, "zero");
    expectUnreadable(u"/dev/null"_s, "null");
}

TEST_F(BadInput, StandardInputIsNotAFile) { expectUnreadable(u"/dev/stdin"_s, "stdin"); }

TEST_F(BadInput, CircularLinks) {
    const QString one = path(u"one.png"_s);
    const QString two = path(u"two.png"_s);
    ASSERT_TRUE(QFile::link(two, one));
    ASSERT_TRUE(QFile::link(one, two));
    expectUnreadable(one, "one.png");
}

TEST_F(BadInput, TruncatedPng) {
    expectUnreadable(writeFile(u"half.png"_s, truncatedImage(bytesOf(good))), "half.png");
}

TEST_F(BadInput, TruncatedJpeg) {
    const QString whole = writeImage(u"whole.jpg"_s, patternedImage(256, 256, 1));
    expectUnreadable(writeFile(u"half.jpg"_s, truncatedImage(bytesOf(whole))), "half.jpg");
}

TEST_F(BadInput, NonAsciiNameIsShownAsItIs) {
    expectUnreadable(path(u"Größe 1.png"_s), u"Größe 1.png"_s.toStdString());
}

TEST_F(BadInput, FirstSlotInOrderIsReported) {
    const QString normal = writeFile(u"bad_normal.png"_s, "x");
    const QString roughness = path(u"bad_roughness.png"_s);
    expectLoadFailure(
        {u"material"_s, u"--roughness"_s, roughness, u"--normal"_s, normal, u"--base-color"_s, good},
        "bad_normal.png");
}

TEST_F(BadInput, LeavesAnEarlierSetAsItWas) {
    const QStringList outputArguments{u"--output"_s, output(),    u"--name"_s,
                                      u"Brick"_s,    u"--size"_s, u"base"_s};
    ASSERT_EQ(runCli(QStringList{u"material"_s, u"--base-color"_s, good} + outputArguments).status, 0);
    const FolderContents before = contentsOf(output() + u"/Brick"_s);
    ASSERT_EQ(before.size(), 4);
    EXPECT_EQ(runCli(QStringList{u"material"_s, u"--base-color"_s, good, u"--normal"_s, path(u"none.png"_s)} +
                     outputArguments)
                  .status,
              1);
    expectSame(contentsOf(output() + u"/Brick"_s), before);
}

}  // namespace
