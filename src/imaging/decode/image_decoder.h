#pragma once

#include "imaging/decode/opened_image.h"
#include "imaging/files/byte_source.h"

#include <QByteArray>
#include <QImage>

#include <memory>

namespace quarlin {

/// Opens the image that a file holds. The content decides on the format, never a name: PNG, JPEG, TIFF, BMP,
/// GIF, HEIC, WebP, AVIF and Targa; of several images it is the first, or the one that the file declares the
/// primary one. Embedded color profiles are converted to sRGB, orientation tags are ignored, 16 bits are
/// rounded to 8, and then colors are premultiplied with rounding. Throws `DecodeError` if the bytes are not
/// an image of at most `maximumPixels` pixels; its rows throw `DecodeError` if it is damaged. Both throw what
/// the source throws.
///
/// PNG without interlacing and baseline JPEG are read from the source as their rows are read. For any other
/// format the whole file, and the whole image as well, may be held in memory.
std::unique_ptr<RowReader> openImage(const std::shared_ptr<ByteSource>& source);
std::unique_ptr<RowReader> openImage(const QByteArray& bytes);

/// The same, with its colors handled in one way or the other.
OpenedImage openImage(const std::shared_ptr<ByteSource>& source, ColorHandling handling);

/// The whole image, in `pixelFormat`. Throws `DecodeError`, and `std::bad_alloc` if memory runs out.
QImage decodeImage(const QByteArray& bytes);

/// The rows that `reader` has left, as an image in `pixelFormat`. Throws what the reader throws, and
/// `std::bad_alloc` if memory runs out.
QImage readImage(RowReader& reader);

}  // namespace quarlin
