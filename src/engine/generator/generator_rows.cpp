#include "engine/generator/generator_rows.h"

#include "engine/base/formulas.h"

#include <algorithm>
#include <array>
#include <cstring>

// Compiles this file once for every instruction set.
#undef HWY_TARGET_INCLUDE
#define HWY_TARGET_INCLUDE "engine/generator/generator_rows.cpp"
#include <hwy/foreach_target.h>
#include <hwy/highway.h>

#include "imaging/pixels/color_lanes-inl.h"
#include "imaging/pixels/pixel_image.h"

HWY_BEFORE_NAMESPACE();
namespace quarlin::HWY_NAMESPACE {

using Bytes = hn::Rebind<std::uint8_t, Doubles>;

HWY_INLINE HWY_ATTR Double clamped(Double value, double low, double high) {
    return hn::Max(number(low), hn::Min(number(high), value));
}

/// `value * 255`, rounded with halves upwards. The result is exact because subtracting the whole part of a
/// number is.
HWY_INLINE HWY_ATTR Integer byteFromUnit(Double value) {
    const Double scaled = hn::Mul(value, number(255.0));
    const Double whole = hn::Trunc(scaled);
    const auto roundsUp = hn::Ge(hn::Sub(scaled, whole), number(0.5));
    return hn::DemoteTo(Integers(), hn::Add(whole, hn::IfThenElseZero(roundsUp, number(1.0))));
}

HWY_INLINE HWY_ATTR Integer byteFromSignedUnit(Double value) {
    return byteFromUnit(hn::Add(hn::Mul(value, number(0.5)), number(0.5)));
}

HWY_INLINE HWY_ATTR Double smoothStep(formulas::StepEdges edges, Double value) {
    const Double t =
        clamped(hn::Div(hn::Sub(value, number(edges.edge0)), number(edges.edge1 - edges.edge0)), 0.0, 1.0);
    return hn::Mul(hn::Mul(t, t), hn::Sub(number(3.0), hn::Mul(number(2.0), t)));
}

/// The nearest values in 0...255, as `writeGray` writes them.
HWY_INLINE HWY_ATTR Integer saturated(Integer values) {
    const Integers integers;
    return hn::Min(hn::Max(values, hn::Zero(integers)), hn::Set(integers, 255));
}

/// Writes values out of 0...255 as the nearest byte, at pixel `x` of the row of a gray map.
HWY_INLINE HWY_ATTR void writeGray(Integer values, const GeneratedRow& row, GeneratedMap map,
                                   std::int64_t x) {
    hn::StoreU(hn::DemoteTo(Bytes(), values), Bytes(), row[map] + x);
}

/// Writes packed pixels at pixel `x` of the row of a map that is not gray.
HWY_INLINE HWY_ATTR void writePixels(Integer pixels, const GeneratedRow& row, GeneratedMap map,
                                     std::int64_t x) {
    hn::StoreU(pixels, Integers(), reinterpret_cast<std::int32_t*>(row[map] + x * bytesPerPixel));
}

/// Calls `work(x, pixels, count)` for every vector of a row's pixels. The last one may be incomplete; then
/// `count` is less than the lanes of a vector and `pixels` a copy that is long enough to be read.
template <typename Work>
HWY_INLINE HWY_ATTR void forEachVector(const std::uint8_t* pixels, std::int64_t width, const Work& work) {
    const auto lanes = static_cast<std::int64_t>(hn::Lanes(Doubles()));
    std::int64_t x = 0;
    for (; x + lanes <= width; x += lanes) {
        work(x, pixels + x * bytesPerPixel, lanes);
    }
    if (x < width) {
        std::uint8_t rest[HWY_MAX_BYTES] = {};
        std::memcpy(rest, pixels + x * bytesPerPixel, static_cast<std::size_t>((width - x) * bytesPerPixel));
        work(x, rest, width - x);
    }
}

HWY_ATTR void heightRow(const std::uint8_t* pixels, std::int64_t width, bool inverted, double* heights) {
    const Double full = number(255.0);
    forEachVector(pixels, width, [&](std::int64_t x, const std::uint8_t* vector, std::int64_t) HWY_ATTR {
        Double gray = hn::Trunc(luminance(loadColor(vector)));
        if (inverted) {
            gray = hn::Sub(full, gray);
        }
        hn::StoreU(hn::Div(gray, full), Doubles(), heights + x);
    });
    heights[-1] = heights[0];
    heights[width] = heights[width - 1];
}

/// The mean of the columns `first`...`last` of the rows, added up row by row from left to right.
double windowMean(std::span<const double* const> rows, std::int64_t first, std::int64_t last) {
    double sum = 0.0;
    double count = 0.0;
    for (const double* row : rows) {
        for (std::int64_t x = first; x <= last; ++x) {
            sum += row[x];
            count += 1.0;
        }
    }
    return sum / count;
}

template <std::size_t rowCount>
HWY_ATTR void blurInterior(std::span<const double* const> rows, std::int64_t width, double* blurred) {
    const Doubles doubles;
    const Double count = number(3.0 * static_cast<double>(rowCount));
    const auto lanes = static_cast<std::int64_t>(hn::Lanes(doubles));
    for (std::int64_t x = 1; x < width - 1; x += lanes) {
        Double sum = hn::Zero(doubles);
        for (std::size_t row = 0; row < rowCount; ++row) {
            sum = hn::Add(sum, hn::LoadU(doubles, rows[row] + x - 1));
            sum = hn::Add(sum, hn::LoadU(doubles, rows[row] + x));
            sum = hn::Add(sum, hn::LoadU(doubles, rows[row] + x + 1));
        }
        hn::StoreU(hn::Div(sum, count), doubles, blurred + x);
    }
}

HWY_ATTR void blurRow(std::span<const double* const> rows, std::int64_t width, double* blurred) {
    switch (rows.size()) {
        case 1:
            blurInterior<1>(rows, width, blurred);
            break;
        case 2:
            blurInterior<2>(rows, width, blurred);
            break;
        default:
            blurInterior<3>(rows, width, blurred);
    }
    // The vectors went beyond the right edge, and the windows at both edges are cut off.
    blurred[0] = windowMean(rows, 0, std::min<std::int64_t>(1, width - 1));
    blurred[width - 1] = windowMean(rows, std::max<std::int64_t>(0, width - 2), width - 1);
    blurred[-1] = blurred[0];
    blurred[width] = blurred[width - 1];
}

/// The normals of as many pixels as a vector has lanes, as packed opaque pixels.
HWY_INLINE HWY_ATTR Integer normals(const double* above, const double* row, const double* below,
                                    const GeneratorFactors& factors) {
    const Doubles doubles;
    const Double strength = number(factors.strength);
    const Double dx = hn::Mul(hn::Sub(hn::LoadU(doubles, row + 1), hn::LoadU(doubles, row - 1)), strength);
    Double dy = hn::Mul(hn::Sub(hn::LoadU(doubles, below), hn::LoadU(doubles, above)), strength);
    if (factors.flipGreen) {
        dy = hn::Neg(dy);
    }
    const Double x = hn::Neg(dx);
    const Double y = hn::Neg(dy);
    const Double z = number(1.0);
    const Double length = hn::Sqrt(hn::Add(hn::Add(hn::Mul(x, x), hn::Mul(y, y)), hn::Mul(z, z)));
    const Double divisor = hn::Max(number(formulas::leastNormalLength), length);
    const Integer red = byteFromSignedUnit(hn::Div(x, divisor));
    const Integer green = byteFromSignedUnit(hn::Div(y, divisor));
    const Integer blue = byteFromSignedUnit(hn::Div(z, divisor));
    return packed(red, green, blue);
}

HWY_INLINE HWY_ATTR Double localHeightContrast(const double* above, const double* row, const double* below) {
    const Doubles doubles;
    const Double center = hn::LoadU(doubles, row);
    Double largest = hn::Zero(doubles);
    for (const double* line : {above, row, below}) {
        for (const int step : {-1, 0, 1}) {
            largest = hn::Max(largest, hn::Abs(hn::Sub(center, hn::LoadU(doubles, line + step))));
        }
    }
    return clamped(hn::Mul(largest, number(formulas::contrastGain)), 0.0, 1.0);
}

/// The difference of the largest and the smallest component, as a fraction of the largest; 0 for black.
HWY_INLINE HWY_ATTR Double saturationOf(const Color& color) {
    const Double largest = hn::Max(hn::Max(color.red, color.green), color.blue);
    const Double smallest = hn::Min(hn::Min(color.red, color.green), color.blue);
    return hn::IfThenElseZero(hn::Gt(largest, hn::Zero(Doubles())),
                              hn::Div(hn::Sub(largest, smallest), largest));
}

HWY_INLINE HWY_ATTR Double roughnessOf(Double light, Double contrast, const GeneratorFactors& factors) {
    const Double brightness = smoothStep(formulas::brightnessEdges, light);
    const Double smoothness = clamped(hn::Add(hn::Mul(brightness, number(formulas::brightnessWeight)),
                                              hn::Mul(contrast, number(formulas::contrastWeight))),
                                      0.0, 1.0);
    return clamped(hn::Sub(number(factors.high), hn::Mul(smoothness, number(factors.span))), factors.low,
                   factors.high);
}

HWY_INLINE HWY_ATTR Double metallicOf(Double light, Double saturation, const GeneratorFactors& factors) {
    const Double metalTone = smoothStep(formulas::metalEdges, light);
    return clamped(
        hn::Mul(hn::Mul(hn::Sub(number(1.0), saturation), metalTone), number(factors.metallicStrength)), 0.0,
        1.0);
}

/// `mean` is that of the heights around each pixel.
HWY_INLINE HWY_ATTR Double occlusionOf(Double height, Double mean, const GeneratorFactors& factors) {
    const Double cavity = clamped(hn::Mul(hn::Sub(mean, height), number(formulas::cavityGain)), 0.0, 1.0);
    return clamped(hn::Sub(number(1.0), hn::Mul(cavity, number(factors.aoStrength))), 0.0, 1.0);
}

/// Computes the maps of one vector of pixels, which starts at column `x` of the heights, and writes them at
/// pixel `place` of `output`.
HWY_INLINE HWY_ATTR void mapVector(const std::uint8_t* pixels, const HeightWindow& heights, std::int64_t x,
                                   const GeneratorFactors& factors, const GeneratedRow& output,
                                   std::int64_t place) {
    const Doubles doubles;
    const Double full = number(255.0);
    const Color bytes = loadColor(pixels);
    const Color color{hn::Div(bytes.red, full), hn::Div(bytes.green, full), hn::Div(bytes.blue, full)};
    const Double light = luminance(color);
    const Double height = hn::LoadU(doubles, heights.row + x);
    const Double contrast = localHeightContrast(heights.above + x, heights.row + x, heights.below + x);
    const Double roughness = roughnessOf(light, contrast, factors);

    const Integer roughnessByte = byteFromUnit(roughness);
    const Integer metallicByte = byteFromUnit(metallicOf(light, saturationOf(color), factors));
    const Integer occlusionByte =
        byteFromUnit(occlusionOf(height, hn::LoadU(doubles, heights.blurred + x), factors));
    writeGray(byteFromUnit(height), output, GeneratedMap::height, place);
    writeGray(roughnessByte, output, GeneratedMap::roughness, place);
    writeGray(byteFromUnit(hn::Sub(number(1.0), roughness)), output, GeneratedMap::gloss, place);
    writeGray(metallicByte, output, GeneratedMap::metallic, place);
    writeGray(occlusionByte, output, GeneratedMap::occlusion, place);
    writePixels(normals(heights.above + x, heights.row + x, heights.below + x, factors), output,
                GeneratedMap::normal, place);
    writePixels(packed(saturated(occlusionByte), saturated(roughnessByte), saturated(metallicByte)), output,
                GeneratedMap::orm, place);
}

/// `mapVector` for the last `count` pixels of a row, which do not fill a vector. The results of the other
/// lanes are dropped.
HWY_INLINE HWY_ATTR void mapRest(const std::uint8_t* pixels, const HeightWindow& heights, std::int64_t x,
                                 std::int64_t count, const GeneratorFactors& factors,
                                 const GeneratedRow& output) {
    PerCase<GeneratedMap, std::array<std::uint8_t, HWY_MAX_BYTES>> made;
    GeneratedRow rest;
    for (const GeneratedMap map : computedMaps) {
        rest[map] = made[map].data();
    }
    mapVector(pixels, heights, x, factors, rest, 0);
    for (const GeneratedMap map : computedMaps) {
        std::copy_n(rest[map], count * bytesPerPixelOf(map), output[map] + x * bytesPerPixelOf(map));
    }
}

HWY_ATTR void mapRow(const std::uint8_t* pixels, const HeightWindow& heightWindow, std::int64_t width,
                     const GeneratorFactors& generatorFactors, const GeneratedRow& generatedRow) {
    // Copies, which the compiler knows to be unchanged by the bytes that are written.
    const HeightWindow heights = heightWindow;
    const GeneratorFactors factors = generatorFactors;
    const GeneratedRow output = generatedRow;
    const auto lanes = static_cast<std::int64_t>(hn::Lanes(Doubles()));
    forEachVector(pixels, width,
                  [&](std::int64_t x, const std::uint8_t* vector, std::int64_t count) HWY_ATTR {
                      if (count == lanes) {
                          mapVector(vector, heights, x, factors, output, x);
                      } else {
                          mapRest(vector, heights, x, count, factors, output);
                      }
                  });
}

}  // namespace quarlin::HWY_NAMESPACE
HWY_AFTER_NAMESPACE();

#if HWY_ONCE

namespace quarlin {

HWY_EXPORT(heightRow);
HWY_EXPORT(blurRow);
HWY_EXPORT(mapRow);

void heightRow(const std::uint8_t* pixels, std::int64_t width, bool inverted, double* heights) {
    HWY_DYNAMIC_DISPATCH(heightRow)(pixels, width, inverted, heights);
}

void blurRow(std::span<const double* const> rows, std::int64_t width, double* blurred) {
    HWY_DYNAMIC_DISPATCH(blurRow)(rows, width, blurred);
}

void mapRow(const std::uint8_t* pixels, const HeightWindow& heights, std::int64_t width,
            const GeneratorFactors& factors, const GeneratedRow& output) {
    HWY_DYNAMIC_DISPATCH(mapRow)(pixels, heights, width, factors, output);
}

}  // namespace quarlin

#endif
