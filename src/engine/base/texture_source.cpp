#include "engine/base/texture_source.h"

#include "engine/base/imaging_errors.h"
#include "engine/base/texture_processor_error.h"
#include "imaging/decode/image_file.h"
#include "imaging/files/file_stamp.h"
#include "imaging/pixels/image_rows.h"
#include "imaging/pixels/resampled_rows.h"

#include <utility>

namespace quarlin {

namespace {

/// The rows of a file, which throw the engine's errors.
class FileRows final : public RowReader {
public:
    explicit FileRows(std::unique_ptr<RowReader> rows)
        : RowReader(rows->width(), rows->height()), m_rows(std::move(rows)) {}

private:
    void readRows(std::int64_t count, std::uint8_t* rows) override {
        reportingEngineErrors(FileKind::image, [&] { m_rows->read(count, rows); });
    }

    std::unique_ptr<RowReader> m_rows;
};

}  // namespace

std::shared_ptr<InputFile> openInputFile(const QUrl& url) {
    return reportingEngineErrors(FileKind::image, [&] { return InputFile::open(url); });
}

OpenedImage openFileRows(const std::shared_ptr<InputFile>& file, ColorHandling handling,
                         std::optional<TextureChannel> channel) {
    const auto index = channel ? std::optional(static_cast<int>(*channel)) : std::nullopt;
    OpenedImage image =
        reportingEngineErrors(FileKind::image, [&] { return openImageFile(file, handling, index); });
    image.rows = std::make_unique<FileRows>(std::move(image.rows));
    return image;
}

std::unique_ptr<RowReader> scaledRows(std::unique_ptr<RowReader> rows, PixelSize size) {
    if (!isUsableSize(size.width, size.height)) {
        throw TextureProcessorError::cannotCreateBitmap();
    }
    if (rows->width() == size.width && rows->height() == size.height) {
        return rows;
    }
    return std::make_unique<ResampledRows>(std::move(rows), size.width, size.height);
}

TextureSource::TextureSource(const TextureAsset& asset)
    : m_handling(asset.keepsSamples ? ColorHandling::keepSamples : ColorHandling::convert),
      m_channel(asset.channel) {
    if (asset.decodedFrom && fileStamp(asset.url) == asset.decodedFrom) {
        m_image = asset.preview;
    } else {
        m_file = Outcome<std::shared_ptr<InputFile>>::of([&] { return openInputFile(asset.url); });
    }
}

void TextureSource::expectReadable() const {
    if (const std::shared_ptr<InputFile>& file = m_file.value()) {
        skipRest(openFileRows(file, m_handling, m_channel).rows.get());
    }
}

std::unique_ptr<RowReader> TextureSource::open(PixelSize size) const {
    const std::shared_ptr<InputFile>& file = m_file.value();
    return scaledRows(
        file ? openFileRows(file, m_handling, m_channel).rows : std::make_unique<ImageRows>(m_image), size);
}

}  // namespace quarlin
