#include "check/glb_file.h"

#include <QtEndian>

#include <cstdint>

namespace quarlin {

namespace {

constexpr qsizetype headerSize = 12;
constexpr qsizetype chunkHeaderSize = 8;

std::uint32_t numberAt(const QByteArray& bytes, qsizetype offset) {
    return qFromLittleEndian<std::uint32_t>(bytes.constData() + offset);
}

}  // namespace

std::optional<GlbFile> readGLB(const QByteArray& bytes) {
    constexpr std::uint32_t version = 2;
    if (bytes.size() < headerSize || !bytes.startsWith("glTF") || numberAt(bytes, 4) != version ||
        numberAt(bytes, 8) > static_cast<std::uint64_t>(bytes.size())) {
        return std::nullopt;
    }
    const qsizetype end = numberAt(bytes, 8);
    GlbFile file;
    for (qsizetype position = headerSize; position + chunkHeaderSize <= end;) {
        const qsizetype length = numberAt(bytes, position);
        const QByteArray type = bytes.mid(position + 4, 4);
        position += chunkHeaderSize;
        if (length > end - position) {
            return std::nullopt;
        }
        if (type == "JSON" && file.json.isEmpty()) {
            file.json = bytes.mid(position, length);
        } else if (type == QByteArray("BIN\0", 4) && file.buffer.isEmpty()) {
            file.buffer = bytes.mid(position, length);
        }
        position += length;
    }
    return file.json.isEmpty() ? std::nullopt : std::optional(file);
}

}  // namespace quarlin
