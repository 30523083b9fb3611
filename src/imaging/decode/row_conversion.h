#pragma once

#include "imaging/color/color_conversion.h"

#include <cstdint>
#include <functional>

namespace quarlin {

/// Turns `count` decoded pixels into RGBA of 8 bits with premultiplied alpha. May be called from several
/// threads at once.
template <typename Sample>
using RowStore = std::function<void(const Sample* input, std::int64_t count, std::uint8_t* output)>;

/// Whether the colors of a file are multiplied by their alpha already.
enum class StoredAlpha { straight, premultiplied };

/// Stores pixels of `bands` sRGB samples (1 gray, 2 gray and alpha, 3 RGB, 4 RGBA); empty for other numbers.
/// `Sample` is an unsigned integer of 8 or 16 bits.
template <typename Sample>
RowStore<Sample> storeAsTheyAre(int bands, StoredAlpha alpha);

/// Stores pixels of `bands` samples whose colors need `conversion`; the last of them is alpha when
/// `hasAlpha`.
template <typename Sample>
RowStore<Sample> storeConverted(ColorConversion<Sample> conversion, int bands, bool hasAlpha,
                                StoredAlpha alpha);

extern template RowStore<std::uint8_t> storeAsTheyAre(int, StoredAlpha);
extern template RowStore<std::uint16_t> storeAsTheyAre(int, StoredAlpha);
extern template RowStore<std::uint8_t> storeConverted(ColorConversion<std::uint8_t>, int, bool, StoredAlpha);
extern template RowStore<std::uint16_t> storeConverted(ColorConversion<std::uint16_t>, int, bool,
                                                       StoredAlpha);

}  // namespace quarlin
