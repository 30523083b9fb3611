#pragma once

#include "imaging/base/outcome.h"
#include "imaging/base/pixel_size.h"
#include "imaging/decode/opened_image.h"
#include "imaging/files/input_file.h"
#include "imaging/pixels/image_view.h"
#include "imaging/pixels/row_reader.h"
#include "model/texture_asset.h"

#include <QImage>

#include <memory>
#include <optional>

namespace quarlin {

/// What a texture is read from: the pixels that were loaded, as long as the file still has the stamp that it
/// had then, else the file. The file stays open, so that it can be read again even when an export has given
/// its name to another file.
class TextureSource {
public:
    /// Opens the file if it is needed. A failure is thrown when the texture is read, so that the caller
    /// decides which one comes first.
    explicit TextureSource(const TextureAsset& asset);

    /// The pixels in memory, in `pixelFormat`; a null image if the file is read or the pixels are held as
    /// gray.
    QImage image() const { return m_image.format() == pixelFormat ? m_image : QImage(); }

    /// The rows of the texture at `size`, from the first on. Throws `cannotReadImage` and
    /// `cannotCreateBitmap`; the rows throw `cannotReadImage`.
    std::unique_ptr<RowReader> open(PixelSize size) const;

    /// Reads the file to its end, if it is read at all. Throws `cannotReadImage`.
    void expectReadable() const;

private:
    QImage m_image;
    /// A null pointer if the file is not needed.
    Outcome<std::shared_ptr<InputFile>> m_file;
    ColorHandling m_handling;
    std::optional<TextureChannel> m_channel;
};

/// Opens the image in a file; with `channel`, the rows are those of that channel in gray. This and the rows
/// throw `cannotReadImage`.
OpenedImage openFileRows(const std::shared_ptr<InputFile>& file, ColorHandling handling,
                         std::optional<TextureChannel> channel = {});

/// Opens a file for `openFileRows`. Throws `cannotReadImage`.
std::shared_ptr<InputFile> openInputFile(const QUrl& url);

/// Rows at another size; the same reader if they have it already. Throws `cannotCreateBitmap` for a size that
/// no image can have.
std::unique_ptr<RowReader> scaledRows(std::unique_ptr<RowReader> rows, PixelSize size);

}  // namespace quarlin
