#include "check/image_header.h"

#include "imaging/png/png_signature.h"

#include <QtEndian>

namespace quarlin {

namespace {

const QByteArray jpegSignature("\xFF\xD8\xFF", 3);

}  // namespace

ImageFormat imageFormat(const QByteArray& bytes) {
    if (bytes.startsWith(QByteArrayView(pngSignature))) {
        return ImageFormat::png;
    }
    return bytes.startsWith(jpegSignature) ? ImageFormat::jpeg : ImageFormat::other;
}

std::optional<PngHeader> readPngHeader(const QByteArray& bytes) {
    // Offsets: the signature and the length of the chunk come before its type; of its data, 10 bytes are
    // read.
    constexpr qsizetype type = 12;
    constexpr qsizetype data = 16;
    constexpr qsizetype end = data + 10;
    if (imageFormat(bytes) != ImageFormat::png || bytes.size() < end || bytes.mid(type, 4) != "IHDR") {
        return std::nullopt;
    }
    return PngHeader{.width = qFromBigEndian<quint32>(bytes.constData() + data),
                     .height = qFromBigEndian<quint32>(bytes.constData() + data + 4),
                     .bitDepth = static_cast<std::uint8_t>(bytes[data + 8]),
                     .color = static_cast<PngColor>(bytes[data + 9])};
}

}  // namespace quarlin
