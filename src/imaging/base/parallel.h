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

/// Does work of two steps, one behind the other and yet side by side: `first(turn)` on a thread of its own,
/// `second(turn)` on the calling one, each for the turns 0 to `count - 1` in order. A turn's second step
/// follows its first one, which is never as many as `ahead` turns in front: so many buffers, used in turn,
/// will do. When a step returns false, there are no more turns; returns whether all were done. What a step
/// throws is thrown once both have stopped.
bool doInStep(std::int64_t count, std::int64_t ahead, const std::function<bool(std::int64_t)>& first,
              const std::function<bool(std::int64_t)>& second);

/// A run of rows: `count` rows from `first`.
struct RowRange {
    std::int64_t first = 0;
    std::int64_t count = 0;

    std::int64_t end() const { return first + count; }
};

/// `height` rows cut into runs of `rowsPerStrip` rows, the last one shorter where they don't divide.
class RowStrips {
public:
    RowStrips(std::int64_t height, std::int64_t rowsPerStrip)
        : m_height(height), m_rowsPerStrip(rowsPerStrip) {}

    std::int64_t count() const { return (m_height + m_rowsPerStrip - 1) / m_rowsPerStrip; }
    RowRange operator[](std::int64_t strip) const;

private:
    std::int64_t m_height;
    std::int64_t m_rowsPerStrip;
};

}  // namespace quarlin
