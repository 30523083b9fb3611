#include "imaging/files/file_stamp.h"

#include "imaging/files/file_names.h"

#include <QDateTime>
#include <QFileInfo>

#ifdef Q_OS_UNIX
#include <sys/stat.h>
#endif

namespace quarlin {

#ifdef Q_OS_UNIX

namespace {

std::optional<FileStamp> stampOf(const struct stat& status) {
    if (!S_ISREG(status.st_mode)) {
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
}

}  // namespace

std::optional<FileStamp> fileStamp(const QUrl& url) {
    struct stat status {};
    if (url.toLocalFile().isEmpty() || stat(existingPath(url).c_str(), &status) != 0) {
        return std::nullopt;
    }
    return stampOf(status);
}

std::optional<FileStamp> fileStamp(const QFileDevice& file) {
    struct stat status {};
    if (fstat(file.handle(), &status) != 0) {
        return std::nullopt;
    }
    return stampOf(status);
}

#else

std::optional<FileStamp> fileStamp(const QUrl& url) {
    const QFileInfo info(url.toLocalFile());
    if (!info.isFile()) {
        return std::nullopt;
    }
    constexpr std::int64_t nanosecondsPerMillisecond = 1'000'000;
    return FileStamp{.size = info.size(),
                     .modified = info.lastModified().toMSecsSinceEpoch() * nanosecondsPerMillisecond,
                     .changed = info.metadataChangeTime().toMSecsSinceEpoch() * nanosecondsPerMillisecond};
}

std::optional<FileStamp> fileStamp(const QFileDevice& file) {
    return fileStamp(QUrl::fromLocalFile(file.fileName()));
}

#endif

}  // namespace quarlin
