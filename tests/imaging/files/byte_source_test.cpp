#include "imaging/files/byte_source.h"
#include "imaging/files/file_error.h"
#include "imaging/files/file_names.h"
#include "imaging/files/folder_listing.h"
#include "imaging/files/input_file.h"

#include "rename_hook.h"
#include "temporary_folder.h"

#include <QFile>

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <string>

using namespace Qt::StringLiterals;

using namespace quarlin;
using namespace quarlin::fixtures;

namespace {

/// Bytes without a period, longer than a few blocks.
QByteArray someBytes() {
    QByteArray bytes(300'001, '\0');
    std::uint32_t state = 7;
    for (char& byte : bytes) {
        state = state * 1664525U + 1013904223U;
        byte = static_cast<char>(state >> 24U);
    }
    return bytes;
}

enum class Kind { memory, file };

class ByteSources : public testing::TestWithParam<Kind> {
protected:
    std::shared_ptr<ByteSource> sourceOf(const QByteArray& bytes) const {
        if (GetParam() == Kind::memory) {
            return bytesInMemory(bytes);
        }
        writeFile(file, bytes);
        return InputFile::open(file);
    }

    const TemporaryFolder folder;
    const QUrl file = folder.url(u"a"_s);
};

TEST_P(ByteSources, GiveAnyPartInAnyOrder) {
    const QByteArray bytes = someBytes();
    const std::shared_ptr<ByteSource> source = sourceOf(bytes);
    EXPECT_EQ(source->size(), bytes.size());
    EXPECT_EQ(source->part(299'000, 2000), bytes.sliced(299'000));
    EXPECT_EQ(source->part(5, 10), bytes.sliced(5, 10));
    EXPECT_EQ(source->part(0, 0), QByteArray());
    EXPECT_EQ(source->part(bytes.size() + 5, 10), QByteArray());
    EXPECT_EQ(source->all(), bytes);
}

TEST_P(ByteSources, GiveRangesInBlocks) {
    const QByteArray bytes = someBytes();
    BlockReader reader(sourceOf(bytes), {{10, 5}, {7, 0}, {100, 200'000}, {0, 1}, {299'999, 2}});
    QByteArray read;
    for (QByteArrayView block = reader.next(); !block.isEmpty(); block = reader.next()) {
        read += block;
    }
    EXPECT_EQ(read, bytes.sliced(10, 5) + bytes.sliced(100, 200'000) + bytes.first(1) + bytes.last(2));
    EXPECT_TRUE(reader.next().isEmpty());
}

TEST_P(ByteSources, FindEveryByte) {
    QByteArray bytes(200'000, 'a');
    for (const qsizetype place : {0, 1, 65'535, 65'536, 131'072, 199'999}) {
        bytes[place] = 'b';
    }
    const std::shared_ptr<ByteSource> source = sourceOf(bytes);
    ByteFinder finder(*source);
    qsizetype expected = bytes.indexOf('b');
    for (std::int64_t place = finder.find('b', 0); place >= 0; place = finder.find('b', place + 1)) {
        EXPECT_EQ(place, expected);
        expected = bytes.indexOf('b', expected + 1);
    }
    EXPECT_EQ(expected, -1);
    EXPECT_EQ(finder.find('c', 0), -1);
    for (std::int64_t place = finder.size() - 1; place >= 0; place -= 777) {
        EXPECT_EQ(finder.at(place), static_cast<std::uint8_t>(bytes.at(place)));
    }
}

INSTANTIATE_TEST_SUITE_P(Kind, ByteSources, testing::Values(Kind::memory, Kind::file),
                         [](const auto& instance) {
                             return instance.param == Kind::memory ? "Memory" : "File";
                         });

class InputFiles : public testing::Test {
protected:
    InputFiles() { writeFile(file, "before"); }

    const TemporaryFolder folder;
    const QUrl file = folder.url(u"a"_s);
};

FileProblem problemOf(const std::function<void()>& work) {
    try {
        work();
    } catch (const FileError& error) {
        EXPECT_EQ(error.action(), FileError::Action::read);
        return error.problem();
    }
    ADD_FAILURE() << "nothing failed";
    return FileProblem::other;
}

TEST_F(InputFiles, KeepTheirContentWhenTheNameIsGivenAway) {
    const std::shared_ptr<InputFile> input = InputFile::open(file);
    writeFile(folder.url(u"b"_s), "after, and longer");
    std::filesystem::rename(folder.path(u"b"_s).toStdString(), folder.path(u"a"_s).toStdString());
    EXPECT_EQ(input->all(), "before");
    EXPECT_NO_THROW(input->expectUnchanged());
    EXPECT_EQ(InputFile::open(file)->all(), "after, and longer");
}

TEST_F(InputFiles, NoticeThatTheyAreWrittenTo) {
    const std::shared_ptr<InputFile> input = InputFile::open(file);
    std::ofstream(folder.path(u"a"_s).toStdString(), std::ios::app) << "more";
    EXPECT_EQ(problemOf([&] { input->expectUnchanged(); }), FileProblem::changed);
}

TEST_F(InputFiles, NoticeThatTheyAreCut) {
    const std::shared_ptr<InputFile> input = InputFile::open(file);
    std::filesystem::resize_file(folder.path(u"a"_s).toStdString(), 3);
    EXPECT_EQ(problemOf([&] { input->all(); }), FileProblem::changed);
}

/// Names in the Latin-1 bytes of an old archive, which are not valid UTF-8.
class UndecodableNames : public testing::Test {
protected:
    void write(const std::string& name, const std::string& content) const {
        std::ofstream(folder.path().toStdString() + "/" + name) << content;
    }
    QString text(const std::string& name) const { return nameText(std::filesystem::path(name)); }

    const TemporaryFolder folder;
};

TEST_F(UndecodableNames, AreListedAndOpened) {
    write("m\xe9tal.png", "metal");
    const std::vector<FolderEntry> entries = listFolder(folder.url());
    ASSERT_EQ(entries.size(), 1U);
    EXPECT_EQ(entries.front().name, text("m\xe9tal.png"));
    const QUrl url = fileIn(folder.url(), entries.front().name);
    EXPECT_TRUE(fileStamp(url).has_value());
    EXPECT_EQ(InputFile::open(url)->all(), "metal");
}

TEST_F(UndecodableNames, MayBeThoseOfFoldersToo) {
    std::filesystem::create_directories(folder.path().toStdString() + "/b\xe9ton/m\xe9tal");
    write("b\xe9ton/m\xe9tal/gr\xfcn.png", "green");
    const QUrl url = folder.url(text("b\xe9ton/m\xe9tal/gr\xfcn.png"));
    EXPECT_EQ(InputFile::open(url)->all(), "green");
    EXPECT_EQ(listFolder(folder.url(text("b\xe9ton"))).size(), 1U);
}

TEST_F(UndecodableNames, AreNotGuessedBetweenTwoThatLookTheSame) {
    write("m\xe9tal.png", "one");
    write("m\xe8tal.png", "other");
    EXPECT_EQ(problemOf([&] { InputFile::open(folder.url(text("m\xe9tal.png"))); }), FileProblem::notFound);
}

TEST_F(UndecodableNames, GiveWayToAFileOfExactlyThatText) {
    write("m\xe9tal.png", "bytes");
    write("m\xef\xbf\xbdtal.png", "text");
    EXPECT_EQ(InputFile::open(folder.url(text("m\xe9tal.png")))->all(), "text");
}

}  // namespace
