#include "imaging/files/atomic_file.h"

#include "imaging/files/file_error.h"
#include "imaging/files/file_names.h"

#include <QDateTime>
#include <QDir>
#include <QFileInfo>
#include <QRandomGenerator>

#include <algorithm>
#include <cerrno>
#include <filesystem>
#include <system_error>

#ifdef Q_OS_UNIX
#include <unistd.h>
#endif

namespace quarlin {

using namespace Qt::StringLiterals;

namespace {

constexpr int draftDigits = 16;

QString draftPrefix() { return u".quarlin-draft-"_s; }

/// A name that no draft has had before.
QString newDraftName() {
    const QString digits = QString::number(QRandomGenerator::system()->generate64(), 16);
    return draftPrefix() + digits.rightJustified(draftDigits, u'0');
}

/// Whether it is the name of a draft to the letter: other hidden files are not ours.
bool isDraftName(const QString& name) {
    const QStringView digits = QStringView(name).sliced(draftPrefix().size());
    return digits.size() == draftDigits && std::all_of(digits.begin(), digits.end(), [](QChar digit) {
               return (digit >= u'0' && digit <= u'9') || (digit >= u'a' && digit <= u'f');
           });
}

/// The error of a write that has just failed.
FileError writeError(const QFile& file, const QUrl& url) {
    const int errorNumber = errno;
    const bool isFull = file.error() == QFileDevice::ResourceError;
    return {FileError::Action::write, isFull ? FileProblem::noSpace : fileProblem(errorNumber), url};
}

/// Why no file can be made in a folder.
FileProblem problemOfFolder(const QDir& folder) {
    if (!folder.exists()) {
        return FileProblem::notFound;
    }
#ifdef Q_OS_UNIX
    if (access(QFile::encodeName(folder.path()).constData(), W_OK | X_OK) != 0) {
        return fileProblem(errno);
    }
    return FileProblem::other;
#else
    return QFileInfo(folder.path()).isWritable() ? FileProblem::other : FileProblem::noPermission;
#endif
}

}  // namespace

AtomicFile::AtomicFile(const QUrl& url) : m_url(url), m_target(url.toLocalFile()) {
    const auto refuse = [&](FileProblem problem) {
        throw FileError(FileError::Action::create, problem, url);
    };
    // A name that is too long, or a link that leads only to itself, would otherwise fail only at the end.
    std::error_code failure;
    if (std::filesystem::status(localPath(url), failure).type() == std::filesystem::file_type::none) {
        refuse(fileProblem(failure.value()));
    }
    const QFileInfo old(m_target);
    if (old.exists()) {
        if (!old.isFile()) {
            refuse(old.isDir() ? FileProblem::isFolder : FileProblem::notAFile);
        }
        if (!old.isWritable()) {
            refuse(FileProblem::noPermission);
        }
        // A link keeps pointing at the file that it names.
        m_target = old.canonicalFilePath();
    }
    // A short name of its own: the target's name may already be as long as the file system allows.
    const QDir folder = QFileInfo(m_target).dir();
    m_file.setFileName(folder.filePath(newDraftName()));
    if (!m_file.open(QIODevice::WriteOnly | QIODevice::NewOnly | QIODevice::Unbuffered)) {
        refuse(m_file.error() == QFileDevice::ResourceError ? FileProblem::noSpace : problemOfFolder(folder));
    }
    if (old.exists()) {
        m_file.setPermissions(old.permissions());
    }
}

AtomicFile::~AtomicFile() {
    if (m_file.isOpen()) {
        m_file.close();
        m_file.remove();
    }
}

void AtomicFile::write(QByteArrayView bytes) {
    errno = 0;
    if (m_file.write(bytes.data(), bytes.size()) != bytes.size()) {
        throw writeError(m_file, m_url);
    }
}

void AtomicFile::commit() {
    errno = 0;
    m_file.close();
    if (m_file.error() != QFileDevice::NoError) {
        const FileError error = writeError(m_file, m_url);
        m_file.remove();
        throw error;
    }
    std::error_code failure;
    std::filesystem::rename(localPath(QUrl::fromLocalFile(m_file.fileName())),
                            localPath(QUrl::fromLocalFile(m_target)), failure);
    if (failure) {
        m_file.remove();
        throw FileError(FileError::Action::write, fileProblem(failure.value()), m_url);
    }
}

void removeAbandonedDrafts(const QUrl& folder) {
    const QDateTime yesterday = QDateTime::currentDateTimeUtc().addDays(-1);
    const QFileInfoList found =
        QDir(folder.toLocalFile())
            .entryInfoList({draftPrefix() + u'*'}, QDir::Files | QDir::Hidden | QDir::NoSymLinks);
    for (const QFileInfo& file : found) {
        if (isDraftName(file.fileName()) && file.lastModified() < yesterday) {
            QFile::remove(file.filePath());
        }
    }
}

}  // namespace quarlin
