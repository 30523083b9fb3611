#include "imaging/decode/formats/png_chunk_reader.h"

#include "imaging/decode/decode_error.h"
#include "imaging/png/png_signature.h"

#include <QtEndian>

#include <isa-l/crc.h>

#include <algorithm>
#include <utility>

namespace quarlin {

namespace {

constexpr std::int64_t blockSize = 1 << 16;
constexpr std::int64_t checksumSize = 4;

/// The checksum of bytes that follow others whose checksum is `before`, 0 for none.
std::uint32_t extendedChecksum(std::uint32_t before, QByteArrayView bytes) {
    return crc32_gzip_refl(before, reinterpret_cast<const unsigned char*>(bytes.data()),
                           static_cast<std::uint64_t>(bytes.size()));
}

}  // namespace

PngChunkReader::PngChunkReader(std::shared_ptr<ByteSource> source)
    : m_source(std::move(source)),
      m_position(std::min(static_cast<std::int64_t>(pngSignature.size()), m_source->size())) {}

bool PngChunkReader::advance() {
    constexpr std::int64_t lengthSize = 4;
    constexpr std::int64_t headSize = 8;
    const QByteArrayView head = peek(headSize);
    if (head.size() < headSize) {
        return false;
    }
    const std::int64_t length = qFromBigEndian<std::uint32_t>(head.data());
    if (length > m_source->size() - m_position - headSize - checksumSize) {
        return false;
    }
    std::copy(head.begin() + lengthSize, head.end(), m_type.begin());
    m_checksum = extendedChecksum(0, type());
    m_position += headSize;
    m_dataLeft = length;
    if (m_dataLeft == 0) {
        compareChecksum(peek(checksumSize));
    }
    return true;
}

QByteArrayView PngChunkReader::nextBlock() {
    const std::int64_t count = std::min(blockSize, m_dataLeft);
    if (count == 0) {
        return {};
    }
    const QByteArrayView bytes = peek(count + checksumSize);
    const QByteArrayView block = bytes.first(count);
    m_checksum = extendedChecksum(m_checksum, block);
    m_position += count;
    m_dataLeft -= count;
    if (m_dataLeft == 0) {
        compareChecksum(bytes.sliced(count));
    }
    return block;
}

QByteArray PngChunkReader::data(std::int64_t mostBytes) {
    QByteArray all;
    if (m_dataLeft <= mostBytes) {
        while (m_dataLeft > 0) {
            all += nextBlock();
        }
    }
    return all;
}

void PngChunkReader::skipData() {
    while (m_dataLeft > 0) {
        nextBlock();
    }
}

QByteArrayView PngChunkReader::peek(std::int64_t count) {
    const std::int64_t available = std::min(count, m_source->size() - m_position);
    if (m_position + available > m_bufferPosition + m_buffer.size()) {
        m_buffer.resize(std::min(blockSize + checksumSize, m_source->size() - m_position));
        m_source->read(m_position, m_buffer.size(), m_buffer.data());
        m_bufferPosition = m_position;
    }
    return QByteArrayView(m_buffer).sliced(m_position - m_bufferPosition, available);
}

void PngChunkReader::compareChecksum(QByteArrayView checksum) {
    m_position += checksumSize;
    if (qFromBigEndian<std::uint32_t>(checksum.data()) != m_checksum) {
        throw DecodeError(DecodeProblem::damaged);
    }
}

}  // namespace quarlin
