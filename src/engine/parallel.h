#pragma once

#include <cstdint>
#include <functional>

namespace quarlin {

/// The number of cores of this machine, at least 1.
unsigned coreCount();

/// Calls `work(0)` to `work(count - 1)`, each once, on up to `threads` threads including the calling one, and
/// returns when all are done. Which thread does which is left open, so the results must not depend on it.
/// When calls throw, the exception of the lowest index is thrown once all are done.
void forEachInParallel(std::int64_t count, const std::function<void(std::int64_t)>& work,
                       unsigned threads = coreCount());

/// A run of rows: `count` rows from `first`.
struct RowRange {
    std::int64_t first = 0;
    std::int64_t count = 0;

    std::int64_t end() const { return first + count; }
};

/// `height` rows cut into runs of `rowsPerBand` rows, the last one shorter where they don't divide.
class RowBands {
public:
    RowBands(std::int64_t height, std::int64_t rowsPerBand) : m_height(height), m_rowsPerBand(rowsPerBand) {}

    std::int64_t count() const { return (m_height + m_rowsPerBand - 1) / m_rowsPerBand; }
    RowRange operator[](std::int64_t band) const;

private:
    std::int64_t m_height;
    std::int64_t m_rowsPerBand;
};

}  // namespace quarlin
