#pragma once

#include "engine/material/orm_packing.h"
#include "imaging/base/pixel_size.h"
#include "imaging/pixels/pixel_image.h"
#include "imaging/pixels/row_reader.h"

#include <array>
#include <cstdint>
#include <functional>
#include <memory>

namespace quarlin {

/// Where one channel of an ORM image comes from.
struct OrmInput {
    /// Opens the texture at the size of the image; returns a null pointer for no texture.
    std::function<std::unique_ptr<RowReader>()> open;
    /// The value without a texture, never inverted.
    std::uint8_t fallback = 0;
    /// Whether the value is subtracted from 255.
    bool inverted = false;
    /// Whether the texture is one channel of a file, whose samples are used as they are.
    bool isChannel = false;
};

/// Occlusion, roughness and metallic.
using OrmInputs = std::array<OrmInput, 3>;

/// The rows of an ORM image, packed from textures that are read in step. If several textures fail, the
/// failure of the first one in the order of the channels is thrown, wherever in the files they fail.
class OrmRows final : public RowReader {
public:
    OrmRows(const OrmInputs& inputs, PixelSize size);

private:
    void readRows(std::int64_t count, std::uint8_t* rows) override;
    void readInputs(std::int64_t count);

    /// Reads the inputs before a failed one to their end. Throws if one of them fails, too.
    void readInputsBefore(std::size_t failed);

    struct Input {
        std::unique_ptr<RowReader> reader;
        PixelBuffer rows;
        OrmChannel channel;
    };

    std::array<Input, 3> m_inputs;
};

}  // namespace quarlin
