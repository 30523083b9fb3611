#include "imaging/decode/image_file.h"

#include "imaging/decode/decode_error.h"
#include "imaging/decode/image_decoder.h"

#include <new>
#include <utility>

namespace quarlin {

ImageFile readImageFile(const QUrl& url, ColorHandling handling) {
    DecodePlace place = DecodePlace::beginning;
    try {
        FileBytes content = readFile(url);
        const OpenedImage opened = openImage(content.bytes, handling);
        place = DecodePlace::pixels;
        QImage image = readImage(*opened.rows);
        return {std::move(content), std::move(image), opened.convertedFrom};
    } catch (const DecodeError& error) {
        throw DecodeError(error.problem(), url, place);
    } catch (const std::bad_alloc&) {
        throw DecodeError(DecodeProblem::tooLarge, url, place);
    }
}

}  // namespace quarlin
