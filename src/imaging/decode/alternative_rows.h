#pragma once

#include "imaging/pixels/row_reader.h"

#include <functional>
#include <memory>

namespace quarlin {

/// The rows of a reader and, once it throws `DecodeError`, those of another way to decode the same image.
/// Both ways give the same rows as far as they come. Throws what the second one throws.
class AlternativeRows final : public RowReader {
public:
    using Open = std::function<std::unique_ptr<RowReader>()>;

    AlternativeRows(std::unique_ptr<RowReader> first, Open openSecond);

    bool keepColorsStraight() override;

private:
    void readRows(std::int64_t count, std::uint8_t* rows) override;
    void switchToSecond();

    std::unique_ptr<RowReader> m_reader;
    /// Empty once the second reader is in use.
    Open m_openSecond;
    bool m_isStraight = false;
};

}  // namespace quarlin
