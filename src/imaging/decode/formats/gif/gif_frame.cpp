#include "imaging/decode/formats/gif/gif_frame.h"

#include "imaging/decode/formats/gif/lzw_codes.h"

#include <QtEndian>

#include <algorithm>

namespace quarlin {

namespace {

/// Takes parts off the front of a file. Whatever is missing is empty or 0, and then `isIncomplete()`.
class GifBytes {
public:
    explicit GifBytes(QByteArrayView bytes) : m_rest(bytes) {}

    QByteArrayView take(qsizetype count) {
        const qsizetype available = std::min(count, m_rest.size());
        m_isIncomplete = m_isIncomplete || available < count;
        const QByteArrayView taken = m_rest.first(available);
        m_rest = m_rest.sliced(available);
        return taken;
    }
    std::uint8_t takeByte() {
        const QByteArrayView byte = take(1);
        return byte.isEmpty() ? std::uint8_t{0} : static_cast<std::uint8_t>(byte.front());
    }
    std::int64_t takeNumber() {
        const QByteArrayView bytes = take(2);
        return bytes.size() == 2 ? qFromLittleEndian<std::uint16_t>(bytes.data()) : 0;
    }
    /// The content of blocks, each of which begins with its size, up to an empty one. It may end early.
    QByteArray takeBlocks() {
        QByteArray content;
        while (const std::uint8_t size = takeByte()) {
            content += take(size);
        }
        return content;
    }
    QByteArrayView rest() const { return m_rest; }
    bool isIncomplete() const { return m_isIncomplete; }

private:
    QByteArrayView m_rest;
    bool m_isIncomplete = false;
};

/// Takes the palette that `flags` declare, if they do.
void takePalette(GifBytes& bytes, std::uint8_t flags, GifFrame& frame) {
    constexpr unsigned hasPalette = 0x80;
    if ((flags & hasPalette) == 0) {
        return;
    }
    const auto size = std::size_t{2} << (flags & 7U);
    frame.palette = {};
    for (std::size_t index = 0; index < size; ++index) {
        for (std::uint8_t& color : frame.palette[index]) {
            color = bytes.takeByte();
        }
    }
}

/// What comes between the header and a frame. Only transparency matters.
void takeExtension(GifBytes& bytes, GifFrame& frame) {
    constexpr std::uint8_t graphicControl = 0xf9;
    constexpr qsizetype controlSize = 4;
    const bool isControl = bytes.takeByte() == graphicControl;
    const QByteArray content = bytes.takeBlocks();
    if (isControl && content.size() >= controlSize) {
        const bool isTransparent = (static_cast<unsigned>(content[0]) & 1U) != 0;
        frame.transparentIndex =
            isTransparent ? std::optional(static_cast<std::uint8_t>(content[3])) : std::nullopt;
    }
}

void takeFrame(GifBytes& bytes, GifFrame& frame) {
    frame.left = bytes.takeNumber();
    frame.top = bytes.takeNumber();
    frame.width = bytes.takeNumber();
    frame.height = bytes.takeNumber();
    const std::uint8_t flags = bytes.takeByte();
    frame.isInterlaced = (flags & 0x40U) != 0;
    takePalette(bytes, flags, frame);
    frame.firstBits = bytes.takeByte();
}

/// The row that comes at each place of an interlaced frame.
std::vector<std::int64_t> interlacedRows(std::int64_t height) {
    struct Pass {
        std::int64_t first;
        std::int64_t step;
    };
    std::vector<std::int64_t> rows;
    for (const Pass pass : {Pass{0, 8}, Pass{4, 8}, Pass{2, 4}, Pass{1, 2}}) {
        for (std::int64_t row = pass.first; row < height; row += pass.step) {
            rows.push_back(row);
        }
    }
    return rows;
}

}  // namespace

std::optional<GifFrame> firstGifFrame(const QByteArray& file) {
    constexpr qsizetype signatureSize = 6;
    constexpr std::uint8_t extension = 0x21;
    constexpr std::uint8_t image = 0x2c;
    GifBytes bytes(file);
    GifFrame frame;
    bytes.take(signatureSize);
    frame.canvasWidth = bytes.takeNumber();
    frame.canvasHeight = bytes.takeNumber();
    const std::uint8_t flags = bytes.takeByte();
    // The background, which viewers ignore, and the shape of pixels.
    bytes.take(2);
    // Without any palette, the first two colors are black and white.
    frame.palette[1] = {255, 255, 255};
    takePalette(bytes, flags, frame);
    std::uint8_t kind = bytes.takeByte();
    for (; kind == extension && !bytes.isIncomplete(); kind = bytes.takeByte()) {
        takeExtension(bytes, frame);
    }
    if (kind != image) {
        return std::nullopt;
    }
    takeFrame(bytes, frame);
    if (bytes.isIncomplete()) {
        return std::nullopt;
    }
    frame.codes = bytes.takeBlocks();
    frame.rest = bytes.rest();
    // Some writers leave the canvas at nothing, or smaller than the frame.
    frame.canvasWidth = std::max(frame.canvasWidth, frame.left + frame.width);
    frame.canvasHeight = std::max(frame.canvasHeight, frame.top + frame.height);
    return frame;
}

std::optional<std::vector<std::uint8_t>> gifIndices(const GifFrame& frame) {
    constexpr int mostFirstBits = 8;
    if (frame.firstBits < 1 || frame.firstBits > mostFirstBits) {
        return std::nullopt;
    }
    std::vector<std::uint8_t> indices(static_cast<std::size_t>(frame.width * frame.height));
    const LzwEnd end = decodeLzw(frame.codes, frame.firstBits, indices);
    const bool isFollowedByZeros = !frame.rest.isEmpty() && std::all_of(frame.rest.begin(), frame.rest.end(),
                                                                        [](char byte) { return byte == 0; });
    if (end.pixels < indices.size() || (!end.hasEndCode && isFollowedByZeros)) {
        return std::nullopt;
    }
    if (!frame.isInterlaced) {
        return indices;
    }
    std::vector<std::uint8_t> sorted(indices.size());
    auto next = indices.cbegin();
    for (const std::int64_t row : interlacedRows(frame.height)) {
        std::copy_n(next, frame.width, sorted.begin() + row * frame.width);
        next += frame.width;
    }
    return sorted;
}

}  // namespace quarlin
