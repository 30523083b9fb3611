#include "image_decoder.h"

#include "bmp_decoder.h"
#include "vips_decoder.h"

#include <new>

namespace quarlin {

QImage decodeImage(const QByteArray& bytes) {
    try {
        return isBmp(bytes) ? decodeBmp(bytes) : decodeWithVips(bytes);
    } catch (const std::bad_alloc&) {
        return {};
    }
}

}  // namespace quarlin
