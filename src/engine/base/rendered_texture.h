#pragma once

#include "imaging/base/pixel_size.h"
#include "imaging/pixels/image_view.h"
#include "model/texture_asset.h"

namespace quarlin {

/// A texture at the size that an operation needs, ready to be read. It shares the pixels of a loaded texture
/// when it already has this size, so that nothing is decoded or copied needlessly.
///
/// The pixels of a loaded texture are used as long as its file still has the stamp that it had when they were
/// decoded; a file that has changed is decoded again. Throws `cannotReadImage` and
/// `cannotCreateBitmap`.
QImage renderTexture(const TextureAsset& asset, PixelSize size);

/// The same from a file.
QImage renderFile(const QUrl& url, PixelSize size);

/// A file at its own size, and its stamp when it was read.
struct DecodedFile {
    QImage image;
    FileStamp stamp;
    /// See `TextureAsset`.
    QString convertedFrom;
};
/// Throws `cannotReadImage`.
DecodedFile decodeFile(const QUrl& url);

}  // namespace quarlin
