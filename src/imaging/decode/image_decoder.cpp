#include "imaging/decode/image_decoder.h"

#include "imaging/decode/bmp_decoder.h"
#include "imaging/decode/jpeg_decoder.h"
#include "imaging/decode/plain_png_decoder.h"
#include "imaging/decode/vips_decoder.h"

#include <new>

namespace quarlin {

QImage decodeImage(const QByteArray& bytes) {
    try {
        if (isBmp(bytes)) {
            return decodeBmp(bytes);
        }
        if (isJpeg(bytes)) {
            return decodeJpeg(bytes);
        }
        QImage plain = decodePlainPng(bytes);
        return plain.isNull() ? decodeWithVips(bytes) : plain;
    } catch (const std::bad_alloc&) {
        return {};
    }
}

}  // namespace quarlin
