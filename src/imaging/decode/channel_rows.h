#pragma once

#include "imaging/pixels/row_reader.h"

#include <memory>

namespace quarlin {

/// One channel of an image as opaque gray: every pixel is (v, v, v, 255), where v is the sample of `channel`,
/// 0 (red) to 3 (alpha). Colors that are multiplied by their alpha can't be told from it any more, so a
/// reader that gives nothing else must be of an opaque image: the rows throw `DecodeError` if it is not, and
/// what `rows` throws.
std::unique_ptr<RowReader> channelRows(std::unique_ptr<RowReader> rows, int channel);

}  // namespace quarlin
