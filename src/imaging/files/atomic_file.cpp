#include "imaging/files/atomic_file.h"

#include "imaging/files/file_error.h"
#include "imaging/files/file_names.h"

#include <QDateTime>
#include <QDir>
#include <QFileInfo>
#include <QRandomGenerator>

#include <algorithm>
#include <filesystem>
#include <system_error>

namespace quarlin {

using namespace Qt::StringLiterals;

namespace {

QString draftPrefix() { return u".quarlin-"_s; }

bool isDraftName(const QString& name) {
    constexpr qsizetype mostDigits = 16;
    const QStringView digits = QStringView(name).sliced(draftPrefix().size());
    return !digits.isEmpty() && digits.size() <= mostDigits &&
           std::all_of(digits.begin(), digits.end(), [](QChar digit) {
               return (digit >= u'0' && digit <= u'9') || (digit >= u'a' && digit <= u'f');
           });
}

FileError writeError(const QFile& file, const QUrl& url) {
    const bool isFull = file.error() == QFileDevice::ResourceError;
    return {FileError::Action::write, isFull ? FileProblem::noSpace : FileProblem::other, url};
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
    const QString name = draftPrefix() + QString::number(QRandomGenerator::system()->generate64(), 16);
    m_file.setFileName(folder.filePath(name));
    if (!m_file.open(QIODevice::WriteOnly | QIODevice::NewOnly | QIODevice::Unbuffered)) {
        refuse(!folder.exists()                               ? FileProblem::notFound
               : m_file.error() == QFileDevice::ResourceError ? FileProblem::noSpace
               : !QFileInfo(folder.path()).isWritable()       ? FileProblem::noPermission
                                                              : FileProblem::other);
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
    if (m_file.write(bytes.data(), bytes.size()) != bytes.size()) {
        throw writeError(m_file, m_url);
    }
}

void AtomicFile::commit() {
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
