#pragma once

#include <cstdint>

namespace quarlin {

/// How the samples of a row are packed.
struct SamplePacking {
    /// Bits of a sample, 1...64.
    int bits = 8;
    /// Bytes of a sample of 40, 48 or 56 bits are in the order of a big-endian file. (The library turns the
    /// usual sizes into the order of the machine.)
    bool isBigEndian = false;
};

/// The sample number `index` of a row, as an unsigned integer. Samples of 8, 16, 24, 32 and 64 bits are
/// numbers of this machine; others follow each other bit by bit, the highest bit first.
std::uint64_t sampleBits(const std::uint8_t* row, std::int64_t index, SamplePacking packing);

/// `sample` of `bits` bits scaled to 0...`full` (at most 16 bits), rounded to the nearest number.
std::uint16_t scaledSample(std::uint64_t sample, int bits, std::uint32_t full);

/// The floating point number of 16, 32 or 64 bits that an unsigned integer of that size holds.
double floatingPointOf(std::uint64_t sample, int bits);

/// 0...1 scaled to 0...65535, rounded; what is outside of it, and what is no number, is clamped.
std::uint16_t scaledUnit(double value);

}  // namespace quarlin
