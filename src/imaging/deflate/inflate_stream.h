#pragma once

#include <QByteArrayView>

#include <cstdint>
#include <functional>
#include <memory>
#include <span>

struct inflate_state;

namespace quarlin {

/// Inflates a zlib stream that comes in pieces, as many bytes at a time as the caller asks for.
class InflateStream {
public:
    /// Returns the next piece of the stream, which must stay valid until the next call; an empty one at its
    /// end.
    using NextPiece = std::function<QByteArrayView()>;

    /// What `nextPiece` throws is thrown by the functions below.
    explicit InflateStream(NextPiece nextPiece);
    ~InflateStream();
    InflateStream(const InflateStream&) = delete;
    InflateStream& operator=(const InflateStream&) = delete;

    /// Fills `output` with the next bytes. False when the stream is damaged or has fewer left.
    bool read(std::span<std::uint8_t> output);

    /// Whether only the end of the stream is left, with a correct checksum and no byte after it.
    bool hasEnded();

    /// Whether the stream was inflated to its end, where a wrong checksum was found.
    bool hasWrongChecksum() const { return m_hasWrongChecksum; }

    /// Whether the pieces came to an end before the stream did.
    bool isCut() const { return m_isCut; }

private:
    bool advance();

    NextPiece m_nextPiece;
    std::unique_ptr<inflate_state> m_state;
    bool m_hasWrongChecksum = false;
    bool m_isCut = false;
};

}  // namespace quarlin
