#include "imaging/decode/formats/heif/box.h"

#include <QtEndian>

#include <cstdint>

namespace quarlin {

std::optional<Box> boxAt(const QByteArray& file, ByteRange range) {
    constexpr qsizetype shortHead = 8;
    constexpr qsizetype longHead = 16;
    constexpr std::uint64_t toTheEnd = 0;
    constexpr std::uint64_t hasLongSize = 1;
    if (range.size() < shortHead) {
        return std::nullopt;
    }
    const char* head = file.constData() + range.begin;
    std::uint64_t size = qFromBigEndian<std::uint32_t>(head);
    qsizetype headSize = shortHead;
    if (size == hasLongSize) {
        if (range.size() < longHead) {
            return std::nullopt;
        }
        size = qFromBigEndian<std::uint64_t>(head + shortHead);
        headSize = longHead;
    } else if (size == toTheEnd) {
        size = static_cast<std::uint64_t>(range.size());
    }
    if (size < static_cast<std::uint64_t>(headSize) || size > static_cast<std::uint64_t>(range.size())) {
        return std::nullopt;
    }
    return Box{
        {head + 4, 4}, range.begin, {range.begin + headSize, range.begin + static_cast<qsizetype>(size)}};
}

std::optional<ByteRange> boxesOfMeta(const Box& meta) {
    constexpr qsizetype versionAndFlags = 4;
    const ByteRange boxes{meta.content.begin + versionAndFlags, meta.content.end};
    return boxes.size() > 0 ? std::optional(boxes) : std::nullopt;
}

}  // namespace quarlin
