#pragma once

#include <cstdint>
#include <cstring>
#include <span>

namespace quarlin {

/// Packs bits into bytes, lowest bit first, as deflate does. The output must hold all of them and eight bytes
/// more.
class BitWriter {
public:
    explicit BitWriter(std::span<std::uint8_t> output) : m_begin(output.data()), m_next(output.data()) {}

    /// The most bits of one call. Up to seven earlier bits wait for their byte to fill; together they fit in
    /// 64 bits.
    static constexpr int mostAtOnce = 56;

    /// Appends the lowest `count` bits of `bits`, at most `mostAtOnce`. The other bits must be 0.
    void add(std::uint64_t bits, int count) {
        m_held |= bits << static_cast<unsigned>(m_heldCount);
        m_heldCount += count;
        std::memcpy(m_next, &m_held, sizeof m_held);
        const int bytes = m_heldCount / 8;
        m_next += bytes;
        m_held >>= static_cast<unsigned>(bytes * 8);
        m_heldCount -= bytes * 8;
    }

    /// Fills the last byte with zeros.
    void alignToByte() { add(0, (8 - m_heldCount) % 8); }

    /// The number of complete bytes.
    std::size_t size() const { return static_cast<std::size_t>(m_next - m_begin); }

private:
    std::uint8_t* m_begin;
    std::uint8_t* m_next;
    std::uint64_t m_held = 0;
    int m_heldCount = 0;
};

}  // namespace quarlin
