#include "cli_test.h"

#include <QDir>
#include <QFile>

#include <sys/stat.h>

using namespace quarlin::tests;

namespace {

/// The bytes of a PNG, cut off in the middle.
QByteArray truncatedImage(const QByteArray& whole) { return whole.left(whole.size() / 2); }

class BadInput : public CliTest {
protected:
    const QString good = writeImage(QStringLiteral("good.png"), patternedImage(64, 64, 1));

    void expectLoadFailure(const QStringList& words, const std::string& fileName) const {
        const Outcome outcome =
            runCli(words + QStringList{QStringLiteral("--output"), output(), QStringLiteral("--name"),
                                       QStringLiteral("Brick")});
        EXPECT_EQ(outcome.status, 1);
        EXPECT_EQ(outcome.output, "");
        EXPECT_EQ(outcome.errors, "Load failed: Could not read image: " + fileName + "\n");
        EXPECT_FALSE(QDir(output()).exists());
    }

    void expectUnreadable(const QString& file, const std::string& fileName) const {
        expectLoadFailure({QStringLiteral("material"), QStringLiteral("--base-color"), file}, fileName);
        expectLoadFailure({QStringLiteral("maps"), QStringLiteral("--source"), file}, fileName);
        expectLoadFailure({QStringLiteral("material"), QStringLiteral("--base-color"), good,
                           QStringLiteral("--metallic"), file},
                          fileName);
    }
};

TEST_F(BadInput, MissingFile) { expectUnreadable(path(QStringLiteral("none.png")), "none.png"); }

TEST_F(BadInput, MissingFolder) { expectUnreadable(path(QStringLiteral("none/none.png")), "none.png"); }

TEST_F(BadInput, EmptyFile) { expectUnreadable(writeFile(QStringLiteral("empty.png"), {}), "empty.png"); }

TEST_F(BadInput, TextFile) {
    expectUnreadable(writeFile(QStringLiteral("notes.txt"), "no picture at all"), "notes.txt");
}

TEST_F(BadInput, Folder) {
    ASSERT_TRUE(QDir(path({})).mkdir(QStringLiteral("folder.png")));
    const QString folder = path(QStringLiteral("folder.png"));
    expectLoadFailure({QStringLiteral("material"), QStringLiteral("--base-color"), folder}, "folder.png");
    expectLoadFailure({QStringLiteral("material"), QStringLiteral("--base-color"), good,
                       QStringLiteral("--metallic"), folder},
                      "folder.png");
}

TEST_F(BadInput, PipeIsNotWaitedFor) {
    const QString pipe = path(QStringLiteral("pipe.png"));
    ASSERT_EQ(mkfifo(QFile::encodeName(pipe).constData(), 0666), 0);
    expectUnreadable(pipe, "pipe.png");
}

TEST_F(BadInput, Device) {
    expectUnreadable(QStringLiteral("/dev/zero"), "zero");
    expectUnreadable(QStringLiteral("/dev/null"), "null");
}

TEST_F(BadInput, StandardInputIsNoFile) { expectUnreadable(QStringLiteral("/dev/stdin"), "stdin"); }

TEST_F(BadInput, LinksInACircle) {
    const QString one = path(QStringLiteral("one.png"));
    const QString two = path(QStringLiteral("two.png"));
    ASSERT_TRUE(QFile::link(two, one));
    ASSERT_TRUE(QFile::link(one, two));
    expectUnreadable(one, "one.png");
}

TEST_F(BadInput, TruncatedPng) {
    expectUnreadable(writeFile(QStringLiteral("half.png"), truncatedImage(bytesOf(good))), "half.png");
}

TEST_F(BadInput, TruncatedJpeg) {
    const QString whole = writeImage(QStringLiteral("whole.jpg"), patternedImage(256, 256, 1));
    expectUnreadable(writeFile(QStringLiteral("half.jpg"), truncatedImage(bytesOf(whole))), "half.jpg");
}

TEST_F(BadInput, NonAsciiNameIsShownAsItIs) {
    expectUnreadable(path(QStringLiteral("Größe 1.png")), QStringLiteral("Größe 1.png").toStdString());
}

TEST_F(BadInput, FirstSlotInOrderIsReported) {
    const QString normal = writeFile(QStringLiteral("bad_normal.png"), "x");
    const QString roughness = path(QStringLiteral("bad_roughness.png"));
    expectLoadFailure({QStringLiteral("material"), QStringLiteral("--roughness"), roughness,
                       QStringLiteral("--normal"), normal, QStringLiteral("--base-color"), good},
                      "bad_normal.png");
}

TEST_F(BadInput, LeavesAnEarlierSetAsItWas) {
    const QStringList outputWords{QStringLiteral("--output"), output(),
                                  QStringLiteral("--name"),   QStringLiteral("Brick"),
                                  QStringLiteral("--size"),   QStringLiteral("base")};
    ASSERT_EQ(
        runCli(QStringList{QStringLiteral("material"), QStringLiteral("--base-color"), good} + outputWords)
            .status,
        0);
    const FolderContents before = contentsOf(output() + QStringLiteral("/Brick"));
    ASSERT_EQ(before.size(), 4);
    EXPECT_EQ(runCli(QStringList{QStringLiteral("material"), QStringLiteral("--base-color"), good,
                                 QStringLiteral("--normal"), path(QStringLiteral("none.png"))} +
                     outputWords)
                  .status,
              1);
    expectSame(contentsOf(output() + QStringLiteral("/Brick")), before);
}

}  // namespace
