#pragma once

#include "imaging/decode/formats/tiff/tiff_rows.h"

namespace quarlin {

/// Makes samples of `page.sampleForm()` of the current row of `rows`: integers are scaled with rounding to 8
/// bits if they have no more, else to 16; floating point numbers count as 0...1, clamped; palettes are looked
/// up; CIELAB becomes that of `labProfile()`. Samples that don't count are left out.
void convertTiffRow(const TiffPage& page, const TiffRows& rows, std::uint8_t* samples);

}  // namespace quarlin
