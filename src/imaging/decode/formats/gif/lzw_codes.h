#pragma once

#include <QByteArray>

#include <cstdint>
#include <span>

namespace quarlin {

/// How the codes of a GIF frame end.
struct LzwEnd {
    /// The number of pixels that the codes gave.
    std::size_t pixels = 0;
    /// The code for the end followed the last pixel.
    bool hasEndCode = false;
};

/// Decodes the codes of a GIF frame, whose first ones have `firstBits` + 1 bits (`firstBits` is 1...8), until
/// `indices` is full, the codes end, or one of them has no meaning.
LzwEnd decodeLzw(QByteArrayView codes, int firstBits, std::span<std::uint8_t> indices);

}  // namespace quarlin
