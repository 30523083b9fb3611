#include "imaging/decode/image_file.h"

#include "imaging/decode/channel_rows.h"
#include "imaging/decode/decode_error.h"
#include "imaging/decode/image_decoder.h"

#include <new>
#include <utility>

namespace quarlin {

ImageFile readImageFile(const QUrl& url, std::optional<int> channel) {
    try {
        FileBytes content = readFile(url);
        std::unique_ptr<RowReader> rows = openImage(content.bytes);
        if (channel) {
            rows = channelRows(std::move(rows), *channel);
        }
        QImage image = readImage(*rows);
        return {std::move(content), std::move(image)};
    } catch (const DecodeError& error) {
        throw DecodeError(error.problem(), url);
    } catch (const std::bad_alloc&) {
        throw DecodeError(DecodeProblem::tooLarge, url);
    }
}

}  // namespace quarlin
