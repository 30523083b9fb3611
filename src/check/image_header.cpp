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

int jpegComponents(const QByteArray& bytes) {
    constexpr qsizetype frameHeader = 10;
    qsizetype position = 2;
    while (imageFormat(bytes) == ImageFormat::jpeg && position + frameHeader <= bytes.size()) {
        const auto marker = static_cast<std::uint8_t>(bytes[position + 1]);
        const bool isFrame =
            marker >= 0xC0 && marker <= 0xCF && marker != 0xC4 && marker != 0xC8 && marker != 0xCC;
        if (isFrame) {
            return static_cast<std::uint8_t>(bytes[position + 9]);
        }
        // Fill bytes may precede a marker.
        position += marker == 0xFF ? 1 : 2 + qFromBigEndian<quint16>(bytes.constData() + position + 2);
    }
    return 0;
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
