#pragma once

#include "imaging/pixels/image_view.h"
#include "model/texture_asset.h"

namespace quarlin {

/// A texture at the size that an operation needs. It shares the pixels of a loaded texture if that has the
/// size, so that nothing is decoded or copied without need.
///
/// A loaded texture's pixels are used as long as its file is the one that they were decoded from. If that has
/// been changed, replaced or deleted since, it is read again. Throws `cannotReadImage` and
/// `cannotCreateBitmap`.
QImage renderTexture(const TextureAsset& asset, std::int64_t width, std::int64_t height);

/// The same from a file.
QImage renderFile(const QUrl& url, std::int64_t width, std::int64_t height);

/// A file at its own size, and its stamp when it was read.
struct DecodedFile {
    QImage image;
    FileStamp stamp;
};
/// Throws `cannotReadImage`.
DecodedFile decodeFile(const QUrl& url);

}  // namespace quarlin
