#pragma once

#include <cstdint>
#include <functional>

namespace quarlin {

/// Called while an image is made, with the number of rows that are done, from any thread but never from two
/// at once. Returns whether to go on.
using RowProgress = std::function<bool(std::int64_t rows)>;

}  // namespace quarlin
