#pragma once

#include <cstdint>

namespace quarlin::fuzz {

/// From now on memory that is allocated holds `value` everywhere, so that a result which depends on bytes
/// that nobody wrote differs between two fills. Large blocks are left alone: they may have to be zero.
void fillNewMemoryWith(std::uint8_t value);

}  // namespace quarlin::fuzz
