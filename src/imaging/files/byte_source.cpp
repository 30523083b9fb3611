#include "imaging/files/byte_source.h"

#include <algorithm>
#include <utility>

namespace quarlin {

namespace {

constexpr std::int64_t blockSize = 1 << 16;

class MemoryBytes final : public ByteSource {
public:
    explicit MemoryBytes(QByteArray bytes) : ByteSource(bytes.size()), m_bytes(std::move(bytes)) {}

    void read(std::int64_t offset, std::int64_t count, char* bytes) override {
        std::copy_n(m_bytes.constData() + offset, count, bytes);
    }
    QByteArray all() override { return m_bytes; }

private:
    QByteArray m_bytes;
};

}  // namespace

QByteArray ByteSource::part(std::int64_t offset, std::int64_t count) {
    const std::int64_t first = std::min(offset, m_size);
    QByteArray bytes(std::min(count, m_size - first), Qt::Uninitialized);
    read(first, bytes.size(), bytes.data());
    return bytes;
}

std::shared_ptr<ByteSource> bytesInMemory(QByteArray bytes) {
    return std::make_shared<MemoryBytes>(std::move(bytes));
}

BlockReader::BlockReader(std::shared_ptr<ByteSource> source, std::vector<ByteRange> ranges)
    : m_source(std::move(source)), m_ranges(std::move(ranges)) {}

QByteArrayView BlockReader::next() {
    while (m_range < m_ranges.size()) {
        const ByteRange& range = m_ranges[m_range];
        if (const std::int64_t count = std::min(blockSize, range.count - m_read); count > 0) {
            m_block.resize(std::max<qsizetype>(m_block.size(), count));
            m_source->read(range.offset + m_read, count, m_block.data());
            m_read += count;
            return QByteArrayView(m_block).first(count);
        }
        ++m_range;
        m_read = 0;
    }
    return {};
}

std::int64_t ByteFinder::find(std::uint8_t byte, std::int64_t position) {
    while (position < size()) {
        at(position);
        const qsizetype found = m_block.indexOf(static_cast<char>(byte), position - m_first);
        if (found >= 0) {
            return m_first + found;
        }
        position = m_first + m_block.size();
    }
    return -1;
}

void ByteFinder::load(std::int64_t position) {
    // Aligned, so that a search backwards reads each block once, too.
    m_first = position - position % blockSize;
    m_block.resize(std::min(blockSize, size() - m_first));
    m_source.read(m_first, m_block.size(), m_block.data());
}

}  // namespace quarlin
