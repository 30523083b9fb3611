#pragma once

#include <cstdint>
#include <cstring>
#include <span>

namespace quarlin {

/// Packs bits into bytes, lowest first, as deflate does. The room for them must be known beforehand, with
/// eight bytes to spare.
class BitWriter {
public:
    explicit BitWriter(std::span<std::uint8_t> room) : m_begin(room.data()), m_next(room.data()) {}

    /// Up to seven bits are held back until they fill a byte; this many more fit a word with them.
    static constexpr int mostAtOnce = 56;

    /// Adds the lowest `count` bits of `bits`, of which no others are set; at most `mostAtOnce`.
    void add(std::uint64_t bits, int count) {
        m_held |= bits << static_cast<unsigned>(m_heldCount);
        m_heldCount += count;
        std::memcpy(m_next, &m_held, sizeof m_held);
        const int bytes = m_heldCount / 8;
        m_next += bytes;
        m_held >>= static_cast<unsigned>(bytes * 8);
        m_heldCount -= bytes * 8;
    }

    /// Fills the last byte up with zeros.
    void alignToByte() { add(0, (8 - m_heldCount) % 8); }

    /// The bytes that are complete.
    std::size_t size() const { return static_cast<std::size_t>(m_next - m_begin); }

private:
    std::uint8_t* m_begin;
    std::uint8_t* m_next;
    std::uint64_t m_held = 0;
    int m_heldCount = 0;
};

}  // namespace quarlin
