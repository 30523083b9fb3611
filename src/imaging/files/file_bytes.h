#pragma once

#include "imaging/files/file_stamp.h"

#include <QByteArray>
#include <QUrl>

namespace quarlin {

/// The content of a file, and the file's stamp when it was read.
struct FileBytes {
    QByteArray bytes;
    FileStamp stamp;
};

/// Reads the whole regular file at `url`. Throws `FileError` if it is not one (a folder, a pipe, a device),
/// if it can't be read, and if it changes while it is read.
FileBytes readFile(const QUrl& url);

}  // namespace quarlin
