#include "imaging/decode/formats/png_chunk_reader.h"

#include "imaging/decode/decode_error.h"
#include "imaging/png/png_signature.h"

#include <QtEndian>

#include <isa-l/crc.h>

#include <algorithm>
#include <utility>

namespace quarlin {

namespace {

constexpr std::int64_t checksumSize = 4;

/// The checksum of bytes that follow others whose checksum is `before`, 0 for none.
std::uint32_t extendedChecksum(std::uint32_t before, QByteArrayView bytes) {
    return crc32_gzip_refl(before, reinterpret_cast<const unsigned char*>(bytes.data()),
                           static_cast<std::uint64_t>(bytes.size()));
}

}  // namespace

PngChunkReader::PngChunkReader(std::shared_ptr<ByteSource> source)
    : m_source(std::move(source)), m_position(static_cast<std::int64_t>(pngSignature.size())) {}

bool PngChunkReader::advance() {
    constexpr std::int64_t lengthSize = 4;
    constexpr std::int64_t typeSize = 4;
    const QByteArray head = m_source->part(m_position, lengthSize + typeSize);
    if (head.size() < lengthSize + typeSize) {
        return false;
    }
    const std::int64_t length = qFromBigEndian<std::uint32_t>(head.constData());
    const std::int64_t dataPosition = m_position + head.size();
    if (length > m_source->size() - dataPosition - checksumSize) {
        return false;
    }
    m_type = head.sliced(lengthSize);
    m_checksum = extendedChecksum(0, m_type);
    m_position = dataPosition;
    m_dataLeft = length;
    if (m_dataLeft == 0) {
        compareChecksum();
    }
    return true;
}

QByteArrayView PngChunkReader::nextBlock() {
    constexpr std::int64_t blockSize = 1 << 16;
    const std::int64_t count = std::min(blockSize, m_dataLeft);
    if (count == 0) {
        return {};
    }
    m_block.resize(std::max<qsizetype>(m_block.size(), count));
    m_source->read(m_position, count, m_block.data());
    const QByteArrayView block = QByteArrayView(m_block).first(count);
    m_checksum = extendedChecksum(m_checksum, block);
    m_position += count;
    m_dataLeft -= count;
    if (m_dataLeft == 0) {
        compareChecksum();
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

void PngChunkReader::compareChecksum() {
    const QByteArray checksum = m_source->part(m_position, checksumSize);
    m_position += checksumSize;
    if (qFromBigEndian<std::uint32_t>(checksum.constData()) != m_checksum) {
        throw DecodeError(DecodeProblem::damaged);
    }
}

}  // namespace quarlin
