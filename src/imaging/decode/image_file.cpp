#include "imaging/decode/image_file.h"

#include "imaging/decode/channel_rows.h"
#include "imaging/decode/decode_error.h"
#include "imaging/decode/image_decoder.h"
#include "imaging/pixels/held_image.h"

#include <new>
#include <utility>

namespace quarlin {

namespace {

/// Returns the result of `work`, and adds the location of the file, and the place in it, to errors of
/// decoding it.
template <typename Work>
auto locatingErrors(const QUrl& url, DecodePlace place, Work&& work) -> decltype(work()) {
    try {
        return work();
    } catch (const DecodeError& error) {
        throw DecodeError(error.problem(), url, error.file().isEmpty() ? place : error.place());
    } catch (const std::bad_alloc&) {
        throw DecodeError(DecodeProblem::tooLarge, url, place);
    }
}

class ImageFileRows final : public RowReader {
public:
    ImageFileRows(std::shared_ptr<InputFile> file, std::unique_ptr<RowReader> rows)
        : RowReader(rows->width(), rows->height()), m_file(std::move(file)), m_rows(std::move(rows)) {}

private:
    void readRows(std::int64_t count, std::uint8_t* rows) override {
        locatingErrors(m_file->url(), DecodePlace::pixels, [&] { m_rows->read(count, rows); });
        if (m_rows->position() == height()) {
            m_file->expectUnchanged();
        }
    }

    std::shared_ptr<InputFile> m_file;
    std::unique_ptr<RowReader> m_rows;
};

}  // namespace

OpenedImage openImageFile(const std::shared_ptr<InputFile>& file, ColorHandling handling,
                          std::optional<int> channel) {
    return locatingErrors(file->url(), DecodePlace::beginning, [&] {
        OpenedImage image = openImage(file, handling);
        if (channel) {
            image.rows = channelRows(std::move(image.rows), *channel);
        }
        image.rows = std::make_unique<ImageFileRows>(file, std::move(image.rows));
        return image;
    });
}

ImageFile readImageFile(const QUrl& url, ColorHandling handling) {
    const std::shared_ptr<InputFile> file = InputFile::open(url);
    const OpenedImage image = openImageFile(file, handling);
    return locatingErrors(url, DecodePlace::pixels, [&] {
        return ImageFile{file, readHeldImage(*image.rows), image.convertedFrom};
    });
}

}  // namespace quarlin
