#pragma once

#include <QByteArrayView>

#include <cstdint>
#include <memory>
#include <span>
#include <vector>

struct inflate_state;

namespace quarlin {

/// Inflates a zlib stream that is cut into several pieces, as many bytes at a time as the caller asks for.
class InflateStream {
public:
    using Pieces = std::vector<QByteArrayView>;

    /// The bytes of `pieces` must outlive the stream.
    explicit InflateStream(Pieces pieces);
    ~InflateStream();
    InflateStream(const InflateStream&) = delete;
    InflateStream& operator=(const InflateStream&) = delete;

    /// Fills `output` with the next bytes. False when the stream is damaged or has fewer left.
    bool read(std::span<std::uint8_t> output);

    /// Whether only the end of the stream is left, with a correct checksum and no byte after it.
    bool hasEnded();

    /// Whether the stream was inflated to its end, where a wrong checksum was found.
    bool hasWrongChecksum() const { return m_hasWrongChecksum; }

private:
    bool advance();

    Pieces m_pieces;
    Pieces::const_iterator m_next;
    std::unique_ptr<inflate_state> m_state;
    bool m_hasWrongChecksum = false;
};

}  // namespace quarlin
