#include "batch_test.h"

#include <QDateTime>

#include <gmock/gmock.h>

using namespace Qt::StringLiterals;

using namespace quarlin::tests;

namespace {

/// `--update`: sets are skipped as long as nothing that they depend on has changed.
class Update : public BatchTest {
protected:
    Update() {
        writeOld(u"brick_color.png"_s, 1);
        writeOld(u"brick_normal.png"_s, 2);
    }

    /// A source that was written an hour ago, so that outputs are newer however coarse the file system's
    /// times are.
    QString writeOld(const QString& name, int seed) const {
        const QString path = writeSource(name, seed);
        QFile file(path);
        EXPECT_TRUE(file.open(QIODevice::ReadWrite));
        EXPECT_TRUE(file.setFileTime(QDateTime::currentDateTime().addSecs(-3600 + seed),
                                     QFileDevice::FileModificationTime));
        return path;
    }
    Outcome update(const QStringList& arguments = {}) const {
        return runMaterial(QStringList{u"--folder"_s, sources(), u"--update"_s} + arguments);
    }
    void expectExported(const QStringList& arguments = {}) const {
        const Outcome outcome = update(arguments);
        EXPECT_EQ(outcome.status, 0) << outcome.errors;
        EXPECT_THAT(outcome.output, testing::EndsWith("\n1 set exported\n"));
    }
    void expectUpToDate(const QStringList& arguments = {}) const {
        const Outcome outcome = update(arguments);
        EXPECT_EQ(outcome.status, 0) << outcome.errors;
        EXPECT_EQ(outcome.output,
                  "Up to date: " + output().toStdString() + "/brick\n0 sets exported, 1 up to date\n");
    }
};

TEST_F(Update, SkipsASetThatIsUpToDate) {
    expectExported();
    const FolderContents before = contentsOf(output() + u"/brick"_s);
    expectUpToDate();
    expectSame(contentsOf(output() + u"/brick"_s), before);
}

TEST_F(Update, ExportsASetThatWasMadeWithoutIt) {
    ASSERT_EQ(runMaterial({u"--folder"_s, sources()}).status, 0);
    expectExported();
    expectUpToDate();
}

TEST_F(Update, ExportsAfterASettingChanged) {
    expectExported();
    expectExported({u"--default-roughness"_s, u"0.651"_s});
    expectUpToDate({u"--default-roughness"_s, u"0.651"_s});
    expectExported();
}

TEST_F(Update, ExportsAfterAnInputChanged) {
    expectExported();
    writeOld(u"brick_normal.png"_s, 3);
    expectExported();
    expectUpToDate();
}

TEST_F(Update, ExportsAfterAnInputCameOrWent) {
    expectExported();
    const QString roughness = writeOld(u"brick_roughness.png"_s, 4);
    expectExported();
    ASSERT_TRUE(QFile::remove(roughness));
    expectExported();
    expectUpToDate();
}

TEST_F(Update, ExportsAfterAnOutputWentMissing) {
    expectExported();
    ASSERT_TRUE(QFile::remove(output() + u"/brick/brick.gltf"_s));
    expectExported();
}

TEST_F(Update, ExportsIfAnInputIsNewerThanTheOutputs) {
    expectExported();
    QFile normal(sourcePath(u"brick_normal.png"_s));
    ASSERT_TRUE(normal.open(QIODevice::ReadWrite));
    ASSERT_TRUE(
        normal.setFileTime(QDateTime::currentDateTime().addSecs(3600), QFileDevice::FileModificationTime));
    normal.close();
    expectExported();
    expectExported();
}

TEST_F(Update, IsReportedByADryRunAndInJson) {
    expectExported();
    expectUpToDate();
    EXPECT_EQ(update({u"--dry-run"_s}).output,
              "Up to date: " + output().toStdString() + "/brick\n0 sets to export, 1 up to date\n");
    const auto lines = jsonLines(update({u"--json"_s}).output);
    ASSERT_EQ(lines.size(), 2U);
    EXPECT_EQ(lines[0][u"status"_s].toString(), u"upToDate"_s);
    EXPECT_EQ(lines[1][u"upToDate"_s].toInt(), 1);
}

TEST_F(Update, WorksForGeneratedSets) {
    const QStringList arguments{u"--source"_s, sources(), u"--update"_s};
    EXPECT_THAT(runMaps(arguments).output, testing::HasSubstr("\n1 set exported"));
    EXPECT_THAT(runMaps(arguments).output, testing::HasSubstr("0 sets exported, 1 up to date"));
    EXPECT_THAT(runMaps(arguments + QStringList{u"--strength"_s, u"4"_s}).output,
                testing::HasSubstr("\n1 set exported"));
}

}  // namespace
