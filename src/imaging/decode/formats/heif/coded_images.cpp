#include "imaging/decode/formats/heif/coded_images.h"

#include "imaging/decode/formats/heif/item_places.h"

#include <algorithm>
#include <optional>

namespace quarlin {

namespace {

/// Whether the bytes are units of HEVC, each after its size, which may have been written by an encoder.
bool isWholeHevc(QByteArrayView data, int lengthSize) {
    while (!data.isEmpty()) {
        if (data.size() < lengthSize) {
            return false;
        }
        qsizetype size = 0;
        for (const char byte : data.first(lengthSize)) {
            size = size << 8 | static_cast<std::uint8_t>(byte);
        }
        if (size == 0 || size > data.size() - lengthSize) {
            return false;
        }
        const QByteArrayView unit = data.sliced(lengthSize, size);
        constexpr qsizetype excludedZeros = 3;
        if (unit.back() == '\0' ||
            std::search_n(unit.begin(), unit.end(), excludedZeros, '\0') != unit.end()) {
            return false;
        }
        data = data.sliced(lengthSize + size);
    }
    return true;
}

/// A unit of AV1: headers, or the codes of a frame.
struct Av1Unit {
    int type = 0;
    QByteArrayView content;
};

/// Takes the next unit off `data`; nothing if it is not complete. The last one may come without its size.
std::optional<Av1Unit> takeAv1Unit(QByteArrayView& data) {
    constexpr unsigned forbiddenBit = 0x80;
    constexpr unsigned extensionBit = 4;
    constexpr unsigned sizeBit = 2;
    const auto head = static_cast<std::uint8_t>(data.front());
    data = data.sliced(1);
    if ((head & forbiddenBit) != 0 || ((head & extensionBit) != 0 && data.isEmpty())) {
        return std::nullopt;
    }
    data = data.sliced((head & extensionBit) != 0 ? 1 : 0);
    std::uint64_t size = static_cast<std::uint64_t>(data.size());
    if ((head & sizeBit) != 0) {
        constexpr unsigned mostBits = 56;
        size = 0;
        bool isLast = false;
        for (unsigned shift = 0; !isLast; shift += 7) {
            if (data.isEmpty() || shift >= mostBits) {
                return std::nullopt;
            }
            const auto byte = static_cast<std::uint8_t>(data.front());
            data = data.sliced(1);
            size |= std::uint64_t{byte & 0x7fU} << shift;
            isLast = (byte & 0x80U) == 0;
        }
    }
    if (size > static_cast<std::uint64_t>(data.size())) {
        return std::nullopt;
    }
    const Av1Unit unit{(head >> 3) & 15, data.first(static_cast<qsizetype>(size))};
    data = data.sliced(static_cast<qsizetype>(size));
    return unit;
}

bool isWholeAv1(QByteArrayView data) {
    constexpr int reserved = 0;
    constexpr int tileGroup = 4;
    constexpr int frame = 6;
    constexpr qsizetype manyZeros = 8;
    while (!data.isEmpty()) {
        const std::optional<Av1Unit> unit = takeAv1Unit(data);
        if (!unit || unit->type == reserved) {
            return false;
        }
        const bool hasCodes = unit->type == tileGroup || unit->type == frame;
        const QByteArrayView end = unit->content.last(std::min(manyZeros, unit->content.size()));
        if (hasCodes && std::all_of(end.begin(), end.end(), [](char byte) { return byte == 0; })) {
            return false;
        }
    }
    return true;
}

}  // namespace

bool hasWholeCodedImages(const QByteArray& file) {
    const auto items = heifItems(file);
    if (!items) {
        return false;
    }
    const int lengthSize = hevcLengthSize(file);
    return std::all_of(items->begin(), items->end(), [&](const auto& entry) {
        const HeifItem& item = entry.second;
        if (item.type == "hvc1") {
            return item.data && isWholeHevc(*item.data, lengthSize);
        }
        return item.type != "av01" || (item.data && isWholeAv1(*item.data));
    });
}

}  // namespace quarlin
