#pragma once

#include "imaging/decode/opened_image.h"
#include "imaging/files/input_file.h"

#include <QImage>

#include <memory>
#include <optional>

namespace quarlin {

/// Opens the image in a file, as `openImage` does. Here and from the rows, all errors have the file's
/// location: `FileError` if it can't be read or changes meanwhile, `DecodeError` if it can't be decoded or
/// does not fit into memory. With `channel`, 0 (red) to 3 (alpha), the rows are those of that channel in
/// gray: see `channelRows`.
OpenedImage openImageFile(const std::shared_ptr<InputFile>& file,
                          ColorHandling handling = ColorHandling::convert, std::optional<int> channel = {});

/// An image file, still open, and the image that it decodes to.
struct ImageFile {
    std::shared_ptr<InputFile> file;
    /// See `readHeldImage`.
    QImage image;
    /// See `OpenedImage`.
    QString convertedFrom = {};
};

/// Reads and decodes the image file at `url`. Throws as `openImageFile` does.
ImageFile readImageFile(const QUrl& url, ColorHandling handling = ColorHandling::convert);

}  // namespace quarlin
