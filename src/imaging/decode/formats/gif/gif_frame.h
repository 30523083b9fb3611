#pragma once

#include <QByteArray>

#include <array>
#include <cstdint>
#include <optional>
#include <vector>

namespace quarlin {

/// The first frame of a GIF file, and the canvas on which it is.
struct GifFrame {
    std::int64_t canvasWidth = 0;
    std::int64_t canvasHeight = 0;
    std::int64_t left = 0;
    std::int64_t top = 0;
    std::int64_t width = 0;
    std::int64_t height = 0;
    bool isInterlaced = false;
    std::optional<std::uint8_t> transparentIndex;
    /// R, G, B of each index. What the file does not define is black.
    std::array<std::array<std::uint8_t, 3>, 256> palette{};
    /// Bits of the first codes, less one.
    int firstBits = 0;
    QByteArray codes;
    /// What follows the codes in the file.
    QByteArrayView rest;
};

/// Finds the first frame; `file` must outlive it. Nothing if there is none.
std::optional<GifFrame> firstGifFrame(const QByteArray& file);

/// The index of each pixel of the frame, rows from the top. Nothing if one is missing, or if they may be part
/// of a file that was never written: they end without the code for that, and then there are only zeros.
std::optional<std::vector<std::uint8_t>> gifIndices(const GifFrame& frame);

}  // namespace quarlin
