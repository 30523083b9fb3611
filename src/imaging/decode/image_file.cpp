#include "imaging/decode/image_file.h"

#include "imaging/decode/decode_error.h"
#include "imaging/decode/image_decoder.h"

#include <new>
#include <utility>

namespace quarlin {

ImageFile readImageFile(const QUrl& url) {
    try {
        FileBytes content = readFile(url);
        QImage image = decodeImage(content.bytes);
        return {std::move(content), std::move(image)};
    } catch (const DecodeError& error) {
        throw DecodeError(error.problem(), url);
    } catch (const std::bad_alloc&) {
        throw DecodeError(DecodeProblem::tooLarge, url);
    }
}

}  // namespace quarlin
