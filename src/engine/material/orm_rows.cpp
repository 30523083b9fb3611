#include "engine/material/orm_rows.h"

#include "imaging/base/outcome.h"
#include "imaging/base/parallel.h"
#include "imaging/base/row_strips.h"

#include <algorithm>
#include <variant>

namespace quarlin {

OrmRows::OrmRows(const OrmInputs& inputs, PixelSize size) : RowReader(size.width, size.height) {
    for (std::size_t index = 0; index < inputs.size(); ++index) {
        Input& input = m_inputs[index];
        input.channel.fallback = inputs[index].fallback;
        input.channel.inverted = inputs[index].inverted;
        input.channel.isChannel = inputs[index].isChannel;
        try {
            input.reader = inputs[index].open();
        } catch (...) {
            readInputsBefore(index);
            throw;
        }
    }
}

void OrmRows::readInputsBefore(std::size_t failed) {
    for (std::size_t index = 0; index < failed; ++index) {
        skipRest(m_inputs[index].reader.get());
    }
}

void OrmRows::readRows(std::int64_t count, std::uint8_t* rows) {
    constexpr std::int64_t stripBytes = 1 << 20;
    const RowStrips strips(count, std::clamp<std::int64_t>(stripBytes / bytesPerRow(), 1, count));
    for (std::int64_t strip = 0; strip < strips.count(); ++strip) {
        readInputs(strips[strip].count);
        packOrm({m_inputs[0].channel, m_inputs[1].channel, m_inputs[2].channel}, 0,
                strips[strip].count * width(), rows + strips[strip].first * bytesPerRow());
    }
}

void OrmRows::readInputs(std::int64_t count) {
    std::array<Outcome<std::monostate>, 3> outcomes;
    forEachInParallel(static_cast<std::int64_t>(m_inputs.size()), [&](std::int64_t index) {
        Input& input = m_inputs[static_cast<std::size_t>(index)];
        if (!input.reader) {
            return;
        }
        outcomes[static_cast<std::size_t>(index)] = Outcome<std::monostate>::of([&] {
            input.rows.resize(static_cast<std::size_t>(count * bytesPerRow()));
            input.reader->read(count, input.rows.data());
            input.channel.pixels = input.rows.data();
            return std::monostate{};
        });
    });
    for (std::size_t index = 0; index < outcomes.size(); ++index) {
        try {
            outcomes[index].value();
        } catch (...) {
            readInputsBefore(index);
            throw;
        }
    }
}

}  // namespace quarlin
