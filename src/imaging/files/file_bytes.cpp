#include "imaging/files/file_bytes.h"

#include <QDateTime>
#include <QFile>
#include <QFileInfo>

#ifdef Q_OS_UNIX
#include <sys/stat.h>
#endif

namespace quarlin {

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

std::optional<FileBytes> readFile(const QUrl& url) {
    const std::optional<FileStamp> before = fileStamp(url);
    if (!before) {
        return std::nullopt;
    }
    QFile file(url.toLocalFile());
    if (!file.open(QIODevice::ReadOnly)) {
        return std::nullopt;
    }
    FileBytes result{file.readAll(), *before};
    if (file.error() != QFileDevice::NoError || fileStamp(url) != before) {
        return std::nullopt;
    }
    return result;
}

}  // namespace quarlin
