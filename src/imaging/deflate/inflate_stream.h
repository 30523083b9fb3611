#pragma once

#include <QByteArrayView>

#include <cstdint>
#include <memory>
#include <span>
#include <vector>

struct inflate_state;

namespace quarlin {

/// Inflates a zlib stream that stands in several pieces, as much at a time as is asked for.
class InflateStream {
public:
    using Pieces = std::vector<QByteArrayView>;

    /// The bytes that `pieces` view must outlive the stream.
    explicit InflateStream(Pieces pieces);
    ~InflateStream();
    InflateStream(const InflateStream&) = delete;
    InflateStream& operator=(const InflateStream&) = delete;

    /// Fills `output` with what comes next; false when the stream is damaged or has less left.
    bool read(std::span<std::uint8_t> output);

    /// Whether nothing is left but the stream's own end with the right checksum, and no byte behind it.
    bool hasEnded();

private:
    bool advance();

    Pieces m_pieces;
    Pieces::const_iterator m_next;
    std::unique_ptr<inflate_state> m_state;
};

}  // namespace quarlin
