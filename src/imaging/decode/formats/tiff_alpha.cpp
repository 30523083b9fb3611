#include "imaging/decode/formats/tiff_alpha.h"

#include <QtEndian>

#include <cstdint>
#include <optional>

namespace quarlin {

namespace {

/// Reads the numbers of a TIFF file; gives nothing for a position outside of it.
class TiffNumbers {
public:
    TiffNumbers(const QByteArray& bytes, bool bigEndian) : m_bytes(bytes), m_bigEndian(bigEndian) {}

    template <typename T>
    std::optional<T> at(std::uint64_t position) const {
        const auto size = static_cast<std::uint64_t>(m_bytes.size());
        if (size < sizeof(T) || position > size - sizeof(T)) {
            return std::nullopt;
        }
        const char* number = m_bytes.constData() + position;
        return m_bigEndian ? qFromBigEndian<T>(number) : qFromLittleEndian<T>(number);
    }

private:
    const QByteArray& m_bytes;
    bool m_bigEndian;
};

/// The position of the value of the first page's ExtraSamples field, if it is a single one, stored in the
/// entry.
template <typename Offset, typename EntryCount>
std::optional<std::uint64_t> placeOfExtraSample(const TiffNumbers& numbers, std::uint64_t offsetPosition) {
    constexpr std::uint16_t extraSamplesTag = 338;
    constexpr std::uint16_t shortType = 3;
    constexpr std::uint64_t tagAndTypeSize = 4;
    constexpr std::uint64_t entrySize = tagAndTypeSize + 2 * sizeof(Offset);
    const std::optional<Offset> page = numbers.at<Offset>(offsetPosition);
    const std::optional<EntryCount> entries = page ? numbers.at<EntryCount>(*page) : std::nullopt;
    if (!entries) {
        return std::nullopt;
    }
    for (EntryCount index = 0; index < *entries; ++index) {
        const std::uint64_t entry = *page + sizeof(EntryCount) + index * entrySize;
        const std::optional<std::uint16_t> tag = numbers.at<std::uint16_t>(entry);
        if (!tag) {
            return std::nullopt;
        }
        if (*tag == extraSamplesTag) {
            const bool isSingle = numbers.at<std::uint16_t>(entry + 2) == shortType &&
                                  numbers.at<Offset>(entry + tagAndTypeSize) == Offset{1};
            return isSingle ? std::optional(entry + tagAndTypeSize + sizeof(Offset)) : std::nullopt;
        }
    }
    return std::nullopt;
}

}  // namespace

bool markPremultipliedTiffAsStraight(QByteArray& bytes) {
    const bool bigEndian = bytes.startsWith("MM");
    if (!bigEndian && !bytes.startsWith("II")) {
        return false;
    }
    const TiffNumbers numbers(bytes, bigEndian);
    constexpr std::uint16_t classic = 42;
    constexpr std::uint16_t large = 43;
    const std::optional<std::uint16_t> version = numbers.at<std::uint16_t>(2);
    const std::optional<std::uint64_t> place =
        version == classic ? placeOfExtraSample<std::uint32_t, std::uint16_t>(numbers, 4)
        : version == large ? placeOfExtraSample<std::uint64_t, std::uint64_t>(numbers, 8)
                           : std::nullopt;
    constexpr std::uint16_t premultiplied = 1;
    constexpr std::uint16_t straight = 2;
    if (!place || numbers.at<std::uint16_t>(*place) != premultiplied) {
        return false;
    }
    char* value = bytes.data() + *place;
    bigEndian ? qToBigEndian(straight, value) : qToLittleEndian(straight, value);
    return true;
}

}  // namespace quarlin
