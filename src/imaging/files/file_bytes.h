#pragma once

#include "imaging/files/file_stamp.h"

#include <QByteArray>
#include <QUrl>

#include <optional>

namespace quarlin {

/// What a file holds, and what it was when that was read.
struct FileBytes {
    QByteArray bytes;
    FileStamp stamp;
};

/// The stamp of the regular file at `url`, symbolic links followed; nothing where there is none.
std::optional<FileStamp> fileStamp(const QUrl& url);

/// Reads the regular file at `url` whole; nothing when it is none (a folder, a pipe, a device), can't be
/// read, or changes while it is read.
std::optional<FileBytes> readFile(const QUrl& url);

}  // namespace quarlin
