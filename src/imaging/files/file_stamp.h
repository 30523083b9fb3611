#pragma once

#include <QFileDevice>
#include <QUrl>

#include <cstdint>
#include <optional>

namespace quarlin {

/// Identifies one state of a file: any write, replacement or truncation changes it. Times are in nanoseconds
/// since the epoch, as precise as the system keeps them.
struct FileStamp {
    std::uint64_t device = 0;
    std::uint64_t node = 0;
    std::int64_t size = 0;
    std::int64_t modified = 0;
    std::int64_t changed = 0;

    bool operator==(const FileStamp&) const = default;
};

/// The stamp of the regular file at `url`, symbolic links followed; nothing if there is no such file.
std::optional<FileStamp> fileStamp(const QUrl& url);

/// The stamp of an open file; nothing if it is not a regular one.
std::optional<FileStamp> fileStamp(const QFileDevice& file);

}  // namespace quarlin
