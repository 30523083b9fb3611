#include "imaging/decode/formats/tiff/sample_bits.h"

#include <QtGlobal>

#include <algorithm>
#include <cmath>
#include <cstring>

namespace quarlin {

namespace {

template <typename Number>
Number numberAt(const std::uint8_t* row, std::int64_t index) {
    Number number{};
    std::memcpy(&number, row + index * static_cast<std::int64_t>(sizeof(Number)), sizeof(Number));
    return number;
}

/// A number of `size` bytes in the given order.
std::uint64_t bytesAt(const std::uint8_t* bytes, int size, bool isBigEndian) {
    std::uint64_t number = 0;
    for (int byte = 0; byte < size; ++byte) {
        number = number << 8U | bytes[isBigEndian ? byte : size - 1 - byte];
    }
    return number;
}

/// IEEE 754 with 5 bits of exponent and 10 of fraction.
double halfOf(std::uint64_t sample) {
    constexpr int fractionBits = 10;
    constexpr int bias = 15;
    constexpr int specialExponent = 31;
    const int exponent = static_cast<int>(sample >> fractionBits & 31U);
    const auto fraction = static_cast<double>(sample & 1023U);
    const double sign = (sample >> 15U & 1U) != 0 ? -1.0 : 1.0;
    if (exponent == specialExponent) {
        return fraction > 0 ? 0.0 : sign * HUGE_VAL;
    }
    return exponent == 0 ? sign * std::ldexp(fraction, 1 - bias - fractionBits)
                         : sign * std::ldexp(fraction + 1024, exponent - bias - fractionBits);
}

}  // namespace

std::uint64_t sampleBits(const std::uint8_t* row, std::int64_t index, SamplePacking packing) {
    constexpr bool isBigEndianMachine = Q_BYTE_ORDER == Q_BIG_ENDIAN;
    const int bits = packing.bits;
    switch (bits) {
        case 8:
            return row[index];
        case 16:
            return numberAt<std::uint16_t>(row, index);
        case 24:
            return bytesAt(row + index * 3, 3, isBigEndianMachine);
        case 32:
            return numberAt<std::uint32_t>(row, index);
        case 64:
            return numberAt<std::uint64_t>(row, index);
        default:
            break;
    }
    if (bits % 8 == 0) {
        return bytesAt(row + index * (bits / 8), bits / 8, packing.isBigEndian);
    }
    std::uint64_t sample = 0;
    std::int64_t place = index * bits;
    for (int left = bits; left > 0;) {
        // What is left of the byte at `place`.
        const int available = 8 - static_cast<int>(place % 8);
        const int count = std::min(left, available);
        const auto byte = static_cast<unsigned>(row[place / 8]);
        sample = sample << static_cast<unsigned>(count) | (byte >> static_cast<unsigned>(available - count) &
                                                           ((1U << static_cast<unsigned>(count)) - 1));
        place += count;
        left -= count;
    }
    return sample;
}

std::uint16_t scaledSample(std::uint64_t sample, int bits, std::uint32_t full) {
    // The product of a sample of 64 bits and one of 16.
    __extension__ using Wide = unsigned __int128;
    const Wide largest = (Wide{1} << static_cast<unsigned>(bits)) - 1;
    if (bits > 32) {
        return static_cast<std::uint16_t>((Wide{sample} * full + largest / 2) / largest);
    }
    const auto narrow = static_cast<std::uint64_t>(largest);
    return static_cast<std::uint16_t>((sample * full + narrow / 2) / narrow);
}

double floatingPointOf(std::uint64_t sample, int bits) {
    if (bits == 16) {
        return halfOf(sample);
    }
    if (bits == 32) {
        const auto word = static_cast<std::uint32_t>(sample);
        float number = 0;
        std::memcpy(&number, &word, sizeof(number));
        return number;
    }
    double number = 0;
    std::memcpy(&number, &sample, sizeof(number));
    return number;
}

std::uint16_t scaledUnit(double value) {
    constexpr double full = 65535;
    // False for what is no number, too.
    return value > 0 ? static_cast<std::uint16_t>(std::lround(std::min(value, 1.0) * full))
                     : std::uint16_t{0};
}

}  // namespace quarlin
