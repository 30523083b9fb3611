#pragma once

#include "imaging/files/byte_source.h"

#include <QByteArray>
#include <QByteArrayView>

#include <array>
#include <cstdint>
#include <iterator>
#include <memory>

namespace quarlin {

/// Reads the chunks of a PNG file in order, their data a block at a time. The last block of a chunk is only
/// returned if the checksum is right. Reads the source in large blocks, however small the chunks are. Throws
/// what the source throws.
class PngChunkReader {
public:
    /// Starts after the signature.
    explicit PngChunkReader(std::shared_ptr<ByteSource> source);

    /// Goes to the next chunk; the data of the current one must have been read. False if the file ends before
    /// that chunk does. Throws `DecodeError` if it is empty and its checksum is wrong.
    bool advance();

    /// The four bytes of the current chunk's type.
    QByteArrayView type() const { return {m_type.data(), std::ssize(m_type)}; }
    /// The bytes of the current chunk that have not been read.
    std::int64_t dataLeft() const { return m_dataLeft; }

    /// The next block of data, valid until the next call; empty at the end. Throws `DecodeError` if the
    /// checksum is wrong.
    QByteArrayView nextBlock();

    /// The rest of the data if it is no more than `mostBytes`, else nothing. Throws as `nextBlock` does.
    QByteArray data(std::int64_t mostBytes);

    /// Reads the rest of the data without returning it. Throws as `nextBlock` does.
    void skipData();

private:
    /// The `count` bytes from the current position on, or as many as exist. Valid until the next call.
    QByteArrayView peek(std::int64_t count);
    void compareChecksum(QByteArrayView checksum);

    std::shared_ptr<ByteSource> m_source;
    std::int64_t m_position;
    std::array<char, 4> m_type{};
    std::int64_t m_dataLeft = 0;
    std::uint32_t m_checksum = 0;
    /// Bytes of the source from `m_bufferPosition` on.
    QByteArray m_buffer;
    std::int64_t m_bufferPosition = 0;
};

}  // namespace quarlin
