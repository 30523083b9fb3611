#pragma once

#include "imaging/files/byte_source.h"

#include <QByteArray>
#include <QByteArrayView>

#include <cstdint>
#include <memory>

namespace quarlin {

/// Reads the chunks of a PNG file in order, their data a block at a time. The last block of a chunk is only
/// returned if the checksum is right. Throws what the source throws.
class PngChunkReader {
public:
    /// Starts after the signature.
    explicit PngChunkReader(std::shared_ptr<ByteSource> source);

    /// Goes to the next chunk; the data of the current one must have been read. False if the file ends before
    /// that chunk does. Throws `DecodeError` if it is empty and its checksum is wrong.
    bool advance();

    /// The four bytes of the current chunk's type.
    QByteArrayView type() const { return m_type; }
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
    void compareChecksum();

    std::shared_ptr<ByteSource> m_source;
    std::int64_t m_position;
    QByteArray m_type;
    std::int64_t m_dataLeft = 0;
    std::uint32_t m_checksum = 0;
    QByteArray m_block;
};

}  // namespace quarlin
