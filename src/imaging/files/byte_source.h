#pragma once

#include <QByteArray>
#include <QByteArrayView>

#include <cstdint>
#include <memory>
#include <vector>

namespace quarlin {

/// Bytes that can be read in any order: a file or a buffer. To be used by one thread at a time.
class ByteSource {
public:
    virtual ~ByteSource() = default;
    ByteSource(const ByteSource&) = delete;
    ByteSource& operator=(const ByteSource&) = delete;

    std::int64_t size() const { return m_size; }

    /// Copies the `count` bytes from `offset` on, which must exist, to `bytes`. Throws `FileError`.
    virtual void read(std::int64_t offset, std::int64_t count, char* bytes) = 0;

    /// As many of the `count` bytes from `offset` on as exist. Throws `FileError`.
    QByteArray part(std::int64_t offset, std::int64_t count);

    /// All bytes. Throws `FileError`.
    virtual QByteArray all() { return part(0, m_size); }

protected:
    explicit ByteSource(std::int64_t size) : m_size(size) {}

private:
    std::int64_t m_size;
};

/// A source of the bytes of a buffer.
std::shared_ptr<ByteSource> bytesInMemory(QByteArray bytes);

/// `count` bytes of a source from `offset` on.
struct ByteRange {
    std::int64_t offset = 0;
    std::int64_t count = 0;

    bool operator==(const ByteRange&) const = default;
};

/// Gives the bytes of some ranges of a source in order, a block at a time.
class BlockReader {
public:
    BlockReader(std::shared_ptr<ByteSource> source, std::vector<ByteRange> ranges);

    /// The next block, valid until the next call; empty at the end. Throws `FileError`.
    QByteArrayView next();

private:
    std::shared_ptr<ByteSource> m_source;
    std::vector<ByteRange> m_ranges;
    std::size_t m_range = 0;
    /// The bytes of the current range that have been read.
    std::int64_t m_read = 0;
    QByteArray m_block;
};

/// Finds bytes in a source. It holds one block of it at a time, so that neighboring bytes are read at once.
class ByteFinder {
public:
    /// `source` must outlive the finder.
    explicit ByteFinder(ByteSource& source) : m_source(source) {}

    std::int64_t size() const { return m_source.size(); }

    /// The byte at `position`, which must exist. Throws `FileError`.
    std::uint8_t at(std::int64_t position) {
        if (position < m_first || position - m_first >= m_block.size()) {
            load(position);
        }
        return static_cast<std::uint8_t>(m_block.constData()[position - m_first]);
    }

    /// The first place of `byte` from `position` on; -1 if there is none. Throws `FileError`.
    std::int64_t find(std::uint8_t byte, std::int64_t position);

private:
    void load(std::int64_t position);

    ByteSource& m_source;
    std::int64_t m_first = 0;
    QByteArray m_block;
};

}  // namespace quarlin
