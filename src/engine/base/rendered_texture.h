#pragma once

#include "imaging/pixels/image_view.h"
#include "model/texture_asset.h"

namespace quarlin {

/// A texture at the size that an operation needs, ready to be read. It shares the pixels of a loaded texture
/// when those are what is asked for, so that nothing is decoded or copied in vain.
///
/// A loaded texture's pixels stand for its file as long as the file is the one they were decoded from; when
/// it has changed, been replaced or deleted since, it is read anew. Throws `cannotReadImage` and
/// `cannotCreateBitmap`.
QImage renderTexture(const TextureAsset& asset, std::int64_t width, std::int64_t height);

/// The same from a file.
QImage renderFile(const QUrl& url, std::int64_t width, std::int64_t height);

/// Decodes a file at its own size and tells what it was then. Throws `cannotReadImage`.
struct DecodedFile {
    QImage image;
    FileStamp stamp;
};
DecodedFile decodeFile(const QUrl& url);

}  // namespace quarlin
