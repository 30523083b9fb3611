#include "imaging/decode/alternative_rows.h"

#include "imaging/decode/decode_error.h"

#include <utility>

namespace quarlin {

AlternativeRows::AlternativeRows(std::unique_ptr<RowReader> first, Open openSecond)
    : RowReader(first->width(), first->height()),
      m_reader(std::move(first)),
      m_openSecond(std::move(openSecond)) {}

void AlternativeRows::readRows(std::int64_t count, std::uint8_t* rows) {
    try {
        m_reader->read(count, rows);
        return;
    } catch (const DecodeError&) {
        if (!m_openSecond) {
            throw;
        }
    }
    switchToSecond();
    m_reader->read(count, rows);
}

void AlternativeRows::switchToSecond() {
    m_reader.reset();
    m_reader = std::exchange(m_openSecond, {})();
    if (m_reader->width() != width() || m_reader->height() != height()) {
        throw DecodeError(DecodeProblem::damaged);
    }
    skipTo(position(), *m_reader);
}

}  // namespace quarlin
