#pragma once

#include "imaging/decode/formats/tiff/tiff_page.h"
#include "imaging/pixels/pixel_image.h"

#include <cstdint>
#include <vector>

namespace quarlin {

/// The rows of a TIFF page in order, as the file packs them, whether it keeps them in strips or in tiles.
class TiffRows {
public:
    /// Both must outlive the rows. Throws `DecodeError` for tiles of an absurd size.
    TiffRows(const TiffFile& file, const TiffPage& page);

    /// Decodes the next row. Throws `DecodeError` if it is damaged.
    void readNext();

    /// The bytes of the current row. With separate planes, those of `channel`; otherwise all channels are in
    /// the one plane 0.
    const std::uint8_t* plane(int channel) const;

private:
    enum class Storage { rows, strips, tiles };

    int planeCount() const;
    void readStrips();
    void readTiles();

    const TiffFile& m_file;
    const TiffPage& m_page;
    Storage m_storage = Storage::rows;
    /// Bytes from one row to the next in a buffer.
    std::int64_t m_rowSize = 0;
    /// Rows of a strip or tile.
    std::int64_t m_blockHeight = 1;
    std::int64_t m_nextRow = 0;
    /// The current row, strip, or row of tiles: one buffer for each plane.
    std::vector<PixelBuffer> m_buffers;
    /// One tile.
    PixelBuffer m_tile;
};

}  // namespace quarlin
