#pragma once

#include "imaging/decode/opened_image.h"
#include "imaging/files/file_bytes.h"

#include <QImage>

namespace quarlin {

/// An image file: its content, and the image that it decodes to.
struct ImageFile {
    FileBytes content;
    QImage image;
    /// See `OpenedImage`.
    QString convertedFrom = {};
};

/// Reads and decodes the image file at `url`. Throws `FileError` if it can't be read, and `DecodeError` with
/// its location if it can't be decoded or does not fit into memory.
ImageFile readImageFile(const QUrl& url, ColorHandling handling = ColorHandling::convert);

}  // namespace quarlin
