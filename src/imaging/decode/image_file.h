#pragma once

#include "imaging/files/file_bytes.h"

#include <QImage>

#include <optional>

namespace quarlin {

/// An image file: its content, and the image that it decodes to.
struct ImageFile {
    FileBytes content;
    QImage image;
};

/// Reads and decodes the image file at `url`. Throws `FileError` if it can't be read, and `DecodeError` with
/// its location if it can't be decoded or does not fit into memory. With `channel`, 0 (red) to 3 (alpha), the
/// image is that channel as gray: see `channelRows`.
ImageFile readImageFile(const QUrl& url, std::optional<int> channel = {});

}  // namespace quarlin
