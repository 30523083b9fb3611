// Why files can't be read or written.

#include "imaging/files/file_error.h"

#include "imaging/decode/decode_error.h"
#include "imaging/decode/image_file.h"
#include "imaging/files/atomic_file.h"
#include "imaging/files/file_bytes.h"
#include "limited_writing.h"
#include "picture.h"
#include "png_files.h"
#include "temporary_folder.h"

#include <QFile>

#include <gtest/gtest.h>

#include <functional>
#include <stdexcept>

using namespace Qt::StringLiterals;

using namespace quarlin;
using namespace quarlin::fixtures;

namespace {

class FileErrors : public testing::Test {
protected:
    static void expectFailure(const std::function<void()>& work, FileError::Action action,
                              FileProblem problem, const QUrl& file) {
        try {
            work();
            ADD_FAILURE() << "nothing failed";
        } catch (const FileError& error) {
            EXPECT_EQ(error.action(), action);
            EXPECT_EQ(error.problem(), problem);
            EXPECT_EQ(error.file(), file);
        }
    }
    static void expectUnreadable(const QUrl& file, FileProblem problem) {
        expectFailure([&] { quarlin::readFile(file); }, FileError::Action::read, problem, file);
    }
    static void expectNotCreated(const QUrl& file, FileProblem problem) {
        expectFailure([&] { const AtomicFile atomic(file); }, FileError::Action::create, problem, file);
    }
    static DecodeProblem decodeProblem(const QUrl& file) {
        try {
            readImageFile(file);
        } catch (const DecodeError& error) {
            EXPECT_EQ(error.file(), file);
            return error.problem();
        }
        throw std::runtime_error("the file was decoded");
    }

    const TemporaryFolder folder;
};

TEST_F(FileErrors, OfReadingGiveTheReason) {
    expectUnreadable(folder.url(u"nowhere"_s), FileProblem::notFound);
    expectUnreadable(folder.url(u"no/where"_s), FileProblem::notFound);
    expectUnreadable(folder.url(), FileProblem::isFolder);
    expectUnreadable(QUrl::fromLocalFile(u"/dev/null"_s), FileProblem::notAFile);
    expectUnreadable(QUrl(u"http://localhost/a.png"_s), FileProblem::notAFile);
}

TEST_F(FileErrors, OfMissingPermission) {
    const QUrl file = folder.url(u"locked"_s);
    writeFile(file, "content");
    QFile::setPermissions(file.toLocalFile(), {});
    const OrdinaryUser user;
    ASSERT_TRUE(user.works());
    expectUnreadable(file, FileProblem::noPermission);
    expectNotCreated(file, FileProblem::noPermission);
}

TEST_F(FileErrors, OfCreatingGiveTheReason) {
    folder.makeFolder(u"folder"_s);
    expectNotCreated(folder.url(u"folder"_s), FileProblem::isFolder);
    expectNotCreated(QUrl::fromLocalFile(u"/dev/null"_s), FileProblem::notAFile);
    expectNotCreated(folder.url(u"no/where"_s), FileProblem::notFound);
    expectNotCreated(folder.url(QString(300, u'n')), FileProblem::nameTooLong);
}

TEST_F(FileErrors, OfWritingAreThoseOfAFileThatWasCreated) {
    const QUrl file = folder.url(u"large"_s);
    const FullDisk full(1000);
    expectFailure(
        [&] {
            AtomicFile atomic(file);
            atomic.write(QByteArray(5000, 'x'));
            atomic.commit();
        },
        FileError::Action::write, FileProblem::noSpace, file);
}

TEST_F(FileErrors, OfDecodingTellDamageFromOtherFiles) {
    const QUrl file = folder.url(u"a.png"_s);
    writeFile(file, "a text");
    EXPECT_EQ(decodeProblem(file), DecodeProblem::notAnImage);
    writeFile(file, {});
    EXPECT_EQ(decodeProblem(file), DecodeProblem::notAnImage);
    writePng(file, noisePicture(20, 20, 1));
    writeFile(file, fixtures::readFile(file).first(500));
    EXPECT_EQ(decodeProblem(file), DecodeProblem::damaged);
}

}  // namespace
