#include "imaging/decode/formats/gif/lzw_codes.h"

#include <algorithm>
#include <array>
#include <optional>

namespace quarlin {

namespace {

constexpr int mostBits = 12;
constexpr std::size_t mostCodes = std::size_t{1} << mostBits;

/// Takes codes of a varying number of bits, the lowest bit first.
class CodeReader {
public:
    explicit CodeReader(QByteArrayView bytes) : m_bytes(bytes) {}

    std::optional<std::uint32_t> take(int bits) {
        while (m_bitCount < bits) {
            if (m_next == m_bytes.size()) {
                return std::nullopt;
            }
            m_bits |= std::uint32_t{static_cast<std::uint8_t>(m_bytes[m_next++])} << m_bitCount;
            m_bitCount += 8;
        }
        const std::uint32_t code = m_bits & ((1U << bits) - 1);
        m_bits >>= bits;
        m_bitCount -= bits;
        return code;
    }

private:
    QByteArrayView m_bytes;
    qsizetype m_next = 0;
    std::uint32_t m_bits = 0;
    int m_bitCount = 0;
};

/// What the codes stand for: each a string of pixels, kept as the string of another code and one more pixel.
class CodeTable {
public:
    explicit CodeTable(std::uint32_t literals) : m_literals(literals) { clear(); }

    void clear() { m_size = m_literals + 2; }
    std::size_t size() const { return m_size; }
    bool isFull() const { return m_size == mostCodes; }
    std::size_t lengthOf(std::uint32_t code) const { return code < m_literals ? 1 : m_strings[code].length; }
    std::uint8_t firstOf(std::uint32_t code) const {
        return code < m_literals ? static_cast<std::uint8_t>(code) : m_strings[code].first;
    }
    void add(std::uint32_t beginning, std::uint8_t last) {
        m_strings[m_size++] = {beginning, static_cast<std::uint32_t>(lengthOf(beginning) + 1),
                               firstOf(beginning), last};
    }
    /// Writes the string of a code, or as much of it as there is room for.
    void write(std::uint32_t code, std::uint8_t* string, std::size_t room) const {
        std::size_t length = lengthOf(code);
        while (length > 0) {
            --length;
            const bool isLiteral = code < m_literals;
            if (length < room) {
                string[length] = isLiteral ? static_cast<std::uint8_t>(code) : m_strings[code].last;
            }
            if (!isLiteral) {
                code = m_strings[code].beginning;
            }
        }
    }

private:
    struct String {
        std::uint32_t beginning = 0;
        std::uint32_t length = 0;
        std::uint8_t first = 0;
        std::uint8_t last = 0;
    };

    std::uint32_t m_literals;
    std::size_t m_size = 0;
    std::array<String, mostCodes> m_strings{};
};

}  // namespace

LzwEnd decodeLzw(QByteArrayView codes, int firstBits, std::span<std::uint8_t> indices) {
    const std::uint32_t clearCode = 1U << firstBits;
    const std::uint32_t endCode = clearCode + 1;
    CodeReader reader(codes);
    CodeTable table(clearCode);
    int bits = firstBits + 1;
    std::uint32_t previous = 0;
    bool hasPrevious = false;
    LzwEnd end;
    while (const std::optional<std::uint32_t> code = reader.take(bits)) {
        if (*code == clearCode) {
            table.clear();
            bits = firstBits + 1;
            hasPrevious = false;
            continue;
        }
        if (*code == endCode) {
            end.hasEndCode = true;
            break;
        }
        if (end.pixels == indices.size()) {
            break;
        }
        // A code may stand for the string that it is about to define: the previous one and its first pixel.
        const bool isNew = *code == table.size() && hasPrevious && !table.isFull();
        if (!isNew && (*code >= table.size() || (!hasPrevious && *code > clearCode))) {
            break;
        }
        if (hasPrevious && !table.isFull()) {
            table.add(previous, table.firstOf(isNew ? previous : *code));
            if (table.size() == std::size_t{1} << bits && bits < mostBits) {
                ++bits;
            }
        }
        const std::size_t room = indices.size() - end.pixels;
        table.write(*code, indices.data() + end.pixels, room);
        end.pixels += std::min(room, table.lengthOf(*code));
        previous = *code;
        hasPrevious = true;
    }
    return end;
}

}  // namespace quarlin
