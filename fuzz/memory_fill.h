#pragma once

#include <cstdint>

namespace quarlin::fuzz {

/// Fills memory that is allocated from now on with `value`, so that a result which depends on uninitialized
/// bytes differs between two fills. Large blocks are not filled: they may have to be zero.
void fillNewMemoryWith(std::uint8_t value);

}  // namespace quarlin::fuzz
