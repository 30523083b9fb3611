#pragma once

#include "image_view.h"
#include "png_encoder.h"

#include <QUrl>

#include <functional>

namespace quarlin {

/// Gives a run of rows as premultiplied RGBA, `width * 4` bytes each: either where they stand, or made in
/// `scratch`. It is called from several threads at once.
using RowSource = std::function<const std::uint8_t*(RowRange rows, PixelBuffer& scratch)>;

/// The rows of an image that exists already. `image` must outlive the source.
RowSource rowsOf(const ImageView& image);

/// Encodes an image on all cores.
PngEncoder encodePng(std::int64_t width, std::int64_t height, const RowSource& rows);

/// Writes an encoded image, whole or not at all. Throws `cannotCreatePNG` when the file can't be opened for
/// writing, `cannotWritePNG` when it can't be completed.
void writePngFile(const PngEncoder& png, const QUrl& url);

}  // namespace quarlin
