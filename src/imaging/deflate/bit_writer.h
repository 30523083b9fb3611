#pragma once

#include <cstdint>
#include <cstring>

namespace quarlin {

/// Packs bits into bytes, lowest bit first, as deflate does. The output must hold all of them and `spare`
/// bytes more. Loops should work on a local copy, which stays in registers.
class BitWriter {
public:
    /// How far beyond the end of its bits the writer may write.
    static constexpr std::size_t spare = 8;

    explicit BitWriter(std::uint8_t* output) : m_begin(output), m_next(output) {}

    /// The most bits of one call. Up to seven earlier bits wait for their byte to fill; together they fit in
    /// 64 bits.
    static constexpr unsigned mostAtOnce = 56;

    /// Appends the lowest `count` bits of `bits`, at most `mostAtOnce`. The other bits must be 0.
    void add(std::uint64_t bits, unsigned count) {
        m_held |= bits << m_heldCount;
        m_heldCount += count;
        std::memcpy(m_next, &m_held, sizeof m_held);
        m_next += m_heldCount / 8;
        m_held >>= m_heldCount & 56U;
        m_heldCount &= 7U;
    }

    /// Fills the last byte with zeros.
    void alignToByte() { add(0, (8 - m_heldCount) % 8); }

    /// The number of complete bytes.
    std::size_t size() const { return static_cast<std::size_t>(m_next - m_begin); }

private:
    std::uint8_t* m_begin;
    std::uint8_t* m_next;
    std::uint64_t m_held = 0;
    unsigned m_heldCount = 0;
};

}  // namespace quarlin
