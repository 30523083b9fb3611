#pragma once

#include <cstdint>
#include <cstring>

namespace quarlin {

/// The bytes at `place`, which need not be aligned, as one number.
template <typename Word>
Word loadWord(const std::uint8_t* place) {
    Word word;
    std::memcpy(&word, place, sizeof word);
    return word;
}

}  // namespace quarlin
