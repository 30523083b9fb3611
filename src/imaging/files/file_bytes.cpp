#include "imaging/files/file_bytes.h"

#include "imaging/files/file_error.h"
#include "imaging/files/file_names.h"

#include <QDateTime>
#include <QFile>
#include <QFileInfo>

#include <filesystem>
#include <system_error>

#ifdef Q_OS_UNIX
#include <sys/stat.h>
#endif

namespace quarlin {

namespace {

/// Why there is no regular file at `url`.
FileProblem problemOf(const QUrl& url) {
    if (!url.isLocalFile()) {
        return FileProblem::notAFile;
    }
    std::error_code failure;
    const std::filesystem::file_status status = std::filesystem::status(localPath(url), failure);
    switch (status.type()) {
        case std::filesystem::file_type::none:
            return fileProblem(failure.value());
        case std::filesystem::file_type::not_found:
            return FileProblem::notFound;
        case std::filesystem::file_type::directory:
            return FileProblem::isFolder;
        default:
            return FileProblem::notAFile;
    }
}

}  // namespace

std::optional<FileStamp> fileStamp(const QUrl& url) {
    const QString path = url.toLocalFile();
#ifdef Q_OS_UNIX
    struct stat status {};
    if (path.isEmpty() || stat(QFile::encodeName(path).constData(), &status) != 0 ||
        !S_ISREG(status.st_mode)) {
        return std::nullopt;
    }
#ifdef Q_OS_DARWIN
    const timespec modified = status.st_mtimespec;
    const timespec changed = status.st_ctimespec;
#else
    const timespec modified = status.st_mtim;
    const timespec changed = status.st_ctim;
#endif
    constexpr std::int64_t nanoseconds = 1'000'000'000;
    return FileStamp{.device = static_cast<std::uint64_t>(status.st_dev),
                     .node = static_cast<std::uint64_t>(status.st_ino),
                     .size = status.st_size,
                     .modified = modified.tv_sec * nanoseconds + modified.tv_nsec,
                     .changed = changed.tv_sec * nanoseconds + changed.tv_nsec};
#else
    const QFileInfo info(path);
    if (!info.isFile()) {
        return std::nullopt;
    }
    constexpr std::int64_t nanosecondsPerMillisecond = 1'000'000;
    return FileStamp{.size = info.size(),
                     .modified = info.lastModified().toMSecsSinceEpoch() * nanosecondsPerMillisecond,
                     .changed = info.metadataChangeTime().toMSecsSinceEpoch() * nanosecondsPerMillisecond};
#endif
}

FileBytes readFile(const QUrl& url) {
    using Action = FileError::Action;
    const std::optional<FileStamp> before = fileStamp(url);
    if (!before) {
        throw FileError(Action::read, problemOf(url), url);
    }
    QFile file(url.toLocalFile());
    if (!file.open(QIODevice::ReadOnly)) {
        throw FileError(Action::read,
                        file.error() == QFileDevice::PermissionsError || !QFileInfo(file).isReadable()
                            ? FileProblem::noPermission
                            : FileProblem::other,
                        url);
    }
    FileBytes result{file.readAll(), *before};
    if (file.error() != QFileDevice::NoError) {
        throw FileError(Action::read, FileProblem::other, url);
    }
    if (fileStamp(url) != before) {
        throw FileError(Action::read, FileProblem::changed, url);
    }
    return result;
}

}  // namespace quarlin
