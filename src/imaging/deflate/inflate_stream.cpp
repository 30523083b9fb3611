#include "imaging/deflate/inflate_stream.h"

#include <isa-l/igzip_lib.h>

#include <tuple>
#include <utility>

namespace quarlin {

InflateStream::InflateStream(NextPiece nextPiece)
    : m_nextPiece(std::move(nextPiece)), m_state(std::make_unique<inflate_state>()) {
    isal_inflate_init(m_state.get());
    m_state->crc_flag = ISAL_ZLIB;
}

InflateStream::~InflateStream() = default;

/// Inflates as far as the current piece and the output allow. False for an error or no progress.
bool InflateStream::advance() {
    if (m_state->avail_in == 0) {
        const QByteArrayView piece = m_nextPiece();
        // The library reads through this pointer only.
        m_state->next_in = reinterpret_cast<std::uint8_t*>(const_cast<char*>(piece.data()));
        m_state->avail_in = static_cast<std::uint32_t>(piece.size());
    }
    // The library buffers bits, so progress may show in neither input nor output.
    const auto place = [this] {
        return std::tuple(m_state->avail_in, m_state->avail_out, m_state->block_state,
                          m_state->read_in_length);
    };
    const auto before = place();
    const int result = isal_inflate(m_state.get());
    m_hasWrongChecksum = result == ISAL_INCORRECT_CHECKSUM;
    const bool isOk = result == ISAL_DECOMP_OK;
    const bool hasProgress = place() != before;
    m_isCut = isOk && !hasProgress && m_state->avail_in == 0 && m_state->avail_out > 0;
    return isOk && hasProgress;
}

bool InflateStream::read(std::span<std::uint8_t> output) {
    m_state->next_out = output.data();
    m_state->avail_out = static_cast<std::uint32_t>(output.size());
    while (m_state->avail_out > 0) {
        if (m_state->block_state == ISAL_BLOCK_FINISH || !advance()) {
            return false;
        }
    }
    return true;
}

bool InflateStream::hasEnded() {
    std::uint8_t surplus = 0;
    m_state->next_out = &surplus;
    m_state->avail_out = 1;
    while (m_state->block_state != ISAL_BLOCK_FINISH) {
        if (!advance() || m_state->avail_out == 0) {
            return false;
        }
    }
    // The library may have buffered the bits that pad the last byte of the stream, but no whole byte.
    return m_state->avail_out == 1 && m_state->avail_in == 0 && m_state->read_in_length < 8 &&
           m_nextPiece().isEmpty();
}

}  // namespace quarlin
