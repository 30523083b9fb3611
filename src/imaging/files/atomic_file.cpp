#include "imaging/files/atomic_file.h"

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

}  // namespace

AtomicFile::AtomicFile(const QUrl& url) : m_target(url.toLocalFile()) {
    // A name that is too long, or a link that leads nowhere but to itself, would come out only at the end.
    std::error_code failure;
    if (std::filesystem::status(localPath(url), failure).type() == std::filesystem::file_type::none) {
        return;
    }
    const QFileInfo old(m_target);
    if (old.exists()) {
        if (!old.isFile() || !old.isWritable()) {
            return;
        }
        // A link keeps pointing at the file that it names.
        m_target = old.canonicalFilePath();
    }
    // A short name of its own: the target's name may already be as long as the file system allows.
    const QDir folder = QFileInfo(m_target).dir();
    const QString name = draftPrefix() + QString::number(QRandomGenerator::system()->generate64(), 16);
    m_file.setFileName(folder.filePath(name));
    if (m_file.open(QIODevice::WriteOnly | QIODevice::NewOnly | QIODevice::Unbuffered) && old.exists()) {
        m_file.setPermissions(old.permissions());
    }
}

AtomicFile::~AtomicFile() {
    if (m_file.isOpen()) {
        m_file.close();
        m_file.remove();
    }
}

bool AtomicFile::write(QByteArrayView bytes) {
    return m_file.write(bytes.data(), bytes.size()) == bytes.size();
}

bool AtomicFile::commit() {
    m_file.close();
    std::error_code failure;
    if (m_file.error() == QFileDevice::NoError) {
        std::filesystem::rename(localPath(QUrl::fromLocalFile(m_file.fileName())),
                                localPath(QUrl::fromLocalFile(m_target)), failure);
        if (!failure) {
            return true;
        }
    }
    m_file.remove();
    return false;
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
