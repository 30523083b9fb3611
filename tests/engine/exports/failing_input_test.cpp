// Inputs that fail after they were loaded and before they are exported: the message, and the state of an
// older set.

#include "engine/base/texture_processor_error.h"
#include "engine_errors.h"
#include "export_kind.h"
#include "limited_writing.h"

#include <QFile>

#include <sys/socket.h>
#include <sys/stat.h>
#include <sys/un.h>
#include <unistd.h>

using namespace Qt::StringLiterals;

using namespace quarlin;
using namespace quarlin::fixtures;

namespace {

class FailingInput : public EitherExport {
protected:
    FailingInput() {
        exported();
        before = files();
        // A different picture, so that an export would change the set.
        loadPictures(2);
    }

    /// Expects that the export fails and that the older set is unchanged.
    void expectRefused() const {
        EXPECT_EQ(failure(), "Could not read image: baseColor.png");
        EXPECT_EQ(files(), before);
    }
    void removeInput() const { ASSERT_TRUE(QFile::remove(file.toLocalFile())); }
    QByteArray path() const { return QFile::encodeName(file.toLocalFile()); }

    const QUrl file = folder.url(u"in/baseColor.png"_s);
    std::map<QString, QByteArray> before;
};

TEST_P(FailingInput, ADeletedFileIsReported) {
    removeInput();
    expectRefused();
}

TEST_P(FailingInput, AFileInADeletedFolderIsReported) {
    ASSERT_TRUE(QDir(folder.path(u"in"_s)).removeRecursively());
    expectRefused();
}

TEST_P(FailingInput, AShortenedFileIsReported) {
    const QByteArray whole = readFile(file);
    for (const qsizetype length : {whole.size() - 20, whole.size() / 2, qsizetype{8}, qsizetype{0}}) {
        writeFile(file, whole.first(length));
        expectRefused();
    }
    writeFile(file, whole);
    EXPECT_EQ(failure(), "");
    EXPECT_NE(files(), before);
}

TEST_P(FailingInput, AFileReplacedByATextIsReported) {
    writeFile(file, "no picture");
    expectRefused();
}

TEST_P(FailingInput, AFileReplacedByAFolderIsReported) {
    removeInput();
    folder.makeFolder(u"in/baseColor.png"_s);
    expectRefused();
}

TEST_P(FailingInput, APipeInItsPlaceIsReportedAndNotWaitedFor) {
    removeInput();
    ASSERT_EQ(mkfifo(path().constData(), 0666), 0);
    expectRefused();
}

TEST_P(FailingInput, ASocketInItsPlaceIsReported) {
    removeInput();
    sockaddr_un address{};
    address.sun_family = AF_UNIX;
    const QByteArray place = path();
    ASSERT_LT(static_cast<std::size_t>(place.size()), sizeof(address.sun_path));
    std::copy(place.begin(), place.end(), address.sun_path);
    const int socketFile = socket(AF_UNIX, SOCK_STREAM, 0);
    ASSERT_EQ(bind(socketFile, reinterpret_cast<const sockaddr*>(&address), sizeof(address)), 0);
    expectRefused();
    close(socketFile);
}

TEST_P(FailingInput, ALinkToADeviceInItsPlaceIsReportedAndNotWaitedFor) {
    for (const char* device : {"/dev/zero", "/dev/null", "/dev/tty"}) {
        QFile::remove(file.toLocalFile());
        ASSERT_TRUE(QFile::link(QString::fromLatin1(device), file.toLocalFile()));
        expectRefused();
    }
}

TEST_P(FailingInput, ALinkThatLeadsNowhereIsReported) {
    removeInput();
    ASSERT_TRUE(QFile::link(folder.path(u"in/none.png"_s), file.toLocalFile()));
    expectRefused();
}

TEST_P(FailingInput, LinksThatLeadInACircleAreReported) {
    removeInput();
    const QString other = folder.path(u"in/other.png"_s);
    ASSERT_TRUE(QFile::link(other, file.toLocalFile()));
    ASSERT_TRUE(QFile::link(file.toLocalFile(), other));
    expectRefused();
}

TEST_P(FailingInput, AFileThatMayNotBeReadIsReported) {
    ASSERT_EQ(chmod(QFile::encodeName(folder.path()).constData(), 0755), 0);
    for (const mode_t mode : {0U, 0222U}) {
        ASSERT_EQ(chmod(path().constData(), mode), 0);
        const OrdinaryUser user;
        ASSERT_TRUE(user.works());
        // Changing the permissions of a file changes its stamp, so it is read again.
        EXPECT_EQ(failure(), "Could not read image: baseColor.png");
        EXPECT_EQ(errorOf([&] { return processor.loadAsset(file); }),
                  TextureProcessorError::cannotReadImage(file));
    }
    EXPECT_EQ(files(), before);
}

TEST_P(FailingInput, AFileInAFolderThatMayNotBeEnteredIsReported) {
    ASSERT_EQ(chmod(QFile::encodeName(folder.path()).constData(), 0755), 0);
    const QByteArray inputs = QFile::encodeName(folder.path(u"in"_s));
    ASSERT_EQ(chmod(inputs.constData(), 0), 0);
    {
        const OrdinaryUser user;
        ASSERT_TRUE(user.works());
        EXPECT_EQ(failure(), "Could not read image: baseColor.png");
    }
    ASSERT_EQ(chmod(inputs.constData(), 0755), 0);
    EXPECT_EQ(files(), before);
}

TEST_P(FailingInput, AFileReplacedByALargerPictureIsExportedAsItIsNow) {
    // The size of the set was determined when the texture was loaded.
    writePng(file, constantPicture(100, 60, {10, 200, 30, 255}));
    EXPECT_EQ(failure(), "");
    const Picture written = readPng(QUrl::fromLocalFile(setPath() + u'/' + setNames().constFirst()));
    EXPECT_EQ(written, constantPicture(24, 24, {10, 200, 30, 255}));
}

TEST_P(FailingInput, IsForgottenByTheNextExport) {
    const QByteArray whole = readFile(file);
    removeInput();
    expectRefused();
    writeFile(file, whole);
    EXPECT_EQ(failure(), "");
    EXPECT_NE(files(), before);
}

INSTANTIATE_TEST_SUITE_P(Exports, FailingInput, allExportKinds(), testing::PrintToStringParamName());

}  // namespace
