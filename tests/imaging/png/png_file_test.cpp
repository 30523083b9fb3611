#include "imaging/png/png_file.h"
#include "imaging/files/file_error.h"
#include "limited_writing.h"
#include "picture.h"
#include "png_files.h"
#include "temporary_folder.h"

#include <gtest/gtest.h>

#include <functional>

using namespace Qt::StringLiterals;

using namespace quarlin;
using namespace quarlin::fixtures;

namespace {

/// Expects `work` to throw the error of one action on one file.
void expectFailure(const std::function<void()>& work, FileError::Action action, const QUrl& file) {
    try {
        work();
        ADD_FAILURE() << "nothing failed";
    } catch (const FileError& error) {
        EXPECT_EQ(error.action(), action);
        EXPECT_EQ(error.file(), file);
    }
}

/// Three pictures of noise, each of several strips.
class PngFiles : public testing::Test {
protected:
    static constexpr int side = 700;

    std::vector<RowSource> images() const {
        std::vector<RowSource> sources;
        for (const Picture& picture : pictures) {
            sources.push_back(rowsOf(ImageView(side, side, picture.bytes.data())));
        }
        return sources;
    }

    const TemporaryFolder folder;
    const std::vector<Picture> pictures{noisePicture(side, side, 1), noisePicture(side, side, 2),
                                        noisePicture(side, side, 3)};
    const QStringList names{u"a.png"_s, u"b.png"_s, u"c.png"_s};
};

TEST_F(PngFiles, ASetAppearsInOrderUnderItsNames) {
    PngFileSet files(folder.url(), side, side);
    for (const QString& name : names) {
        files.add(name);
    }
    files.encode(images());
    for (const QString& entry : folder.names()) {
        EXPECT_FALSE(names.contains(entry));
    }
    QStringList written;
    files.commit(written);
    EXPECT_EQ(written, names);
    EXPECT_EQ(folder.names(), names);
    for (std::size_t index = 0; index < pictures.size(); ++index) {
        EXPECT_EQ(readPng(folder.url(names[static_cast<qsizetype>(index)])).bytes, pictures[index].bytes);
    }
}

TEST_F(PngFiles, WithoutADraftAFileIsTheSame) {
    PngFile file(side, side, folder.url(names[0]));
    PngFile other(side, side, folder.url(names[1]));
    const RowStrips strips = file.strips();
    ASSERT_GT(strips.count(), 1);
    for (std::int64_t strip = 0; strip < strips.count(); ++strip) {
        const std::uint8_t* rows = pictures[0].bytes.data() + strips[strip].first * side * 4;
        file.encodeStrip(strip, rows);
        other.encodeStrip(strip, rows);
    }
    EXPECT_TRUE(file.commitDraft());
    other.dropDraft();
    EXPECT_FALSE(other.commitDraft());
    other.write();
    EXPECT_EQ(fixtures::readFile(folder.url(names[0])), fixtures::readFile(folder.url(names[1])));
}

TEST_F(PngFiles, StripsMayComeInAnyOrder) {
    PngFile file(side, side, folder.url(names[0]));
    const RowStrips strips = file.strips();
    for (std::int64_t strip = strips.count() - 1; strip >= 0; --strip) {
        file.encodeStrip(strip, pictures[0].bytes.data() + strips[strip].first * side * 4);
    }
    EXPECT_TRUE(file.commitDraft());
    EXPECT_EQ(readPng(folder.url(names[0])).bytes, pictures[0].bytes);
}

TEST_F(PngFiles, AFailedDraftIsWrittenAgainWhenThereIsSpace) {
    PngFileSet files(folder.url(), side, side);
    for (const QString& name : names) {
        files.add(name);
    }
    {
        const FullDisk full(100'000);
        files.encode(images());
    }
    QStringList written;
    files.commit(written);
    EXPECT_EQ(written, names);
    EXPECT_EQ(folder.names(), names);
    EXPECT_EQ(readPng(folder.url(names[2])).bytes, pictures[2].bytes);
}

TEST_F(PngFiles, AFileThatFailsAtItsEndGetsTheSpaceOfLaterDrafts) {
    PngFileSet files(folder.url(), side, side);
    for (const QString& name : names) {
        files.add(name);
    }
    files.encode(images());
    QStringList written;
    const FullDisk full(1000);
    expectFailure([&] { files.commit(written); }, FileError::Action::write, folder.url(names[0]));
    // The set still exists, but its drafts do not.
    EXPECT_EQ(folder.names(), QStringList());
}

TEST_F(PngFiles, AfterAFileThatCannotBeCreatedNothingIsWrittenOrLeft) {
    folder.makeFolder(names[1]);
    {
        PngFileSet files(folder.url(), side, side);
        for (const QString& name : names) {
            files.add(name);
        }
        files.encode(images());
        QStringList written;
        expectFailure([&] { files.commit(written); }, FileError::Action::create, folder.url(names[1]));
        EXPECT_EQ(written, names.first(1));
    }
    EXPECT_EQ(folder.names(), names.first(2));
}

}  // namespace
