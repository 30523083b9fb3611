#include "imaging/decode/formats/tiff/tiff_rows.h"

#include "imaging/base/pixel_size.h"
#include "imaging/decode/decode_error.h"

#include <algorithm>

namespace quarlin {

TiffRows::TiffRows(const TiffFile& file, const TiffPage& page) : m_file(file), m_page(page) {
    TIFF* tiff = file.handle();
    m_rowSize = TIFFScanlineSize(tiff);
    if (TIFFIsTiled(tiff) != 0) {
        m_storage = Storage::tiles;
        const std::int64_t tileWidth = file.valueOf<std::uint32_t>(TIFFTAG_TILEWIDTH, 0);
        m_blockHeight = file.valueOf<std::uint32_t>(TIFFTAG_TILELENGTH, 0);
        const std::int64_t bitsPerPixel =
            std::int64_t{page.bits} * (page.hasSeparatePlanes ? 1 : page.fileChannels);
        constexpr std::int64_t bitsPerByte = 8;
        // A row of a tile must end where a byte does, so that the next tile can follow.
        if (!isPlausibleSize(tileWidth, m_blockHeight, file.size()) ||
            tileWidth * bitsPerPixel % bitsPerByte != 0) {
            throw DecodeError(DecodeProblem::damaged);
        }
        m_tile = PixelBuffer(static_cast<std::size_t>(TIFFTileSize(tiff)));
        m_rowSize = TIFFTileRowSize(tiff) * ((page.width + tileWidth - 1) / tileWidth);
    } else if (page.hasSeparatePlanes) {
        m_storage = Storage::strips;
        m_blockHeight = std::min<std::int64_t>(file.valueOf<std::uint32_t>(TIFFTAG_ROWSPERSTRIP, UINT32_MAX),
                                               page.height);
    }
    if (m_rowSize <= 0 || m_blockHeight <= 0) {
        throw DecodeError(DecodeProblem::damaged);
    }
}

int TiffRows::planeCount() const { return m_page.hasSeparatePlanes ? m_page.fileChannels : 1; }

const std::uint8_t* TiffRows::plane(int channel) const {
    const std::int64_t row = m_storage == Storage::rows ? 0 : (m_nextRow - 1) % m_blockHeight;
    return m_buffers[m_page.hasSeparatePlanes ? static_cast<std::size_t>(channel) : 0].data() +
           row * m_rowSize;
}

void TiffRows::readNext() {
    if (m_buffers.empty()) {
        m_buffers.resize(static_cast<std::size_t>(planeCount()));
    }
    const bool startsBlock = m_nextRow % m_blockHeight == 0;
    switch (m_storage) {
        case Storage::rows:
            if (m_buffers.front().empty()) {
                m_buffers.front() = PixelBuffer(static_cast<std::size_t>(m_rowSize));
            }
            m_file.expect(TIFFReadScanline(m_file.handle(), m_buffers.front().data(),
                                           static_cast<std::uint32_t>(m_nextRow), 0) == 1);
            break;
        case Storage::strips:
            if (startsBlock) {
                readStrips();
            }
            break;
        case Storage::tiles:
            if (startsBlock) {
                readTiles();
            }
            break;
    }
    ++m_nextRow;
}

void TiffRows::readStrips() {
    const std::int64_t rows = std::min(m_blockHeight, m_page.height - m_nextRow);
    const std::int64_t size = rows * m_rowSize;
    // Planes that don't count are not read.
    for (const int channel : m_page.channels) {
        PixelBuffer& buffer = m_buffers[static_cast<std::size_t>(channel)];
        if (buffer.empty()) {
            buffer = PixelBuffer(static_cast<std::size_t>(size));
        }
        const std::uint32_t strip = TIFFComputeStrip(m_file.handle(), static_cast<std::uint32_t>(m_nextRow),
                                                     static_cast<std::uint16_t>(channel));
        m_file.expect(TIFFReadEncodedStrip(m_file.handle(), strip, buffer.data(), size) == size);
    }
}

void TiffRows::readTiles() {
    TIFF* tiff = m_file.handle();
    const std::int64_t tileWidth = m_file.valueOf<std::uint32_t>(TIFFTAG_TILEWIDTH, 0);
    const std::int64_t tileRowSize = TIFFTileRowSize(tiff);
    const auto tileSize = static_cast<tmsize_t>(m_tile.size());
    const std::int64_t rows = std::min(m_blockHeight, m_page.height - m_nextRow);
    for (int plane = 0; plane < planeCount(); ++plane) {
        const std::vector<int>& used = m_page.channels;
        if (m_page.hasSeparatePlanes && std::find(used.begin(), used.end(), plane) == used.end()) {
            continue;
        }
        PixelBuffer& buffer = m_buffers[static_cast<std::size_t>(plane)];
        if (buffer.empty()) {
            buffer = PixelBuffer(static_cast<std::size_t>(m_blockHeight * m_rowSize));
        }
        for (std::int64_t left = 0; left < m_page.width; left += tileWidth) {
            const std::uint32_t tile =
                TIFFComputeTile(tiff, static_cast<std::uint32_t>(left), static_cast<std::uint32_t>(m_nextRow),
                                0, static_cast<std::uint16_t>(plane));
            m_file.expect(TIFFReadEncodedTile(tiff, tile, m_tile.data(), tileSize) == tileSize);
            for (std::int64_t row = 0; row < rows; ++row) {
                std::copy_n(m_tile.data() + row * tileRowSize, tileRowSize,
                            buffer.data() + row * m_rowSize + left / tileWidth * tileRowSize);
            }
        }
    }
}

}  // namespace quarlin
