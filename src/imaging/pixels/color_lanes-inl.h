// Vectors of the colors of several pixels, for files that are compiled once per instruction set. They include
// this file once for each.

#if defined(QUARLIN_COLOR_LANES_INL_H) == defined(HWY_TARGET_TOGGLE)
#ifdef QUARLIN_COLOR_LANES_INL_H
#undef QUARLIN_COLOR_LANES_INL_H
#else
#define QUARLIN_COLOR_LANES_INL_H
#endif

#include "imaging/pixels/luminance.h"
#include "imaging/pixels/pixel_image.h"

#include <hwy/highway.h>

#include <cstring>

HWY_BEFORE_NAMESPACE();
namespace quarlin::HWY_NAMESPACE {

namespace hn = hwy::HWY_NAMESPACE;

using Doubles = hn::ScalableTag<double>;
using Integers = hn::Rebind<std::int32_t, Doubles>;
using Double = hn::Vec<Doubles>;
using Integer = hn::Vec<Integers>;

/// The three color components of several pixels, one per lane.
struct Color {
    Double red, green, blue;
};

HWY_INLINE HWY_ATTR Double number(double value) { return hn::Set(Doubles(), value); }

/// Reads the components of pixels, 0...255.
HWY_INLINE HWY_ATTR Color loadColor(const std::uint8_t* pixels) {
    const Integers integers;
    const Doubles doubles;
    // A pixel is one little-endian integer, red in its lowest byte.
    const Integer packed = hn::LoadU(integers, reinterpret_cast<const std::int32_t*>(pixels));
    const Integer low = hn::Set(integers, 255);
    return {hn::PromoteTo(doubles, hn::And(packed, low)),
            hn::PromoteTo(doubles, hn::And(hn::ShiftRight<8>(packed), low)),
            hn::PromoteTo(doubles, hn::And(hn::ShiftRight<16>(packed), low))};
}

/// Reads the red components of pixels, 0...255.
HWY_INLINE HWY_ATTR Integer loadRed(const std::uint8_t* pixels) {
    const Integers integers;
    return hn::And(hn::LoadU(integers, reinterpret_cast<const std::int32_t*>(pixels)),
                   hn::Set(integers, 255));
}

HWY_INLINE HWY_ATTR Double luminance(const Color& color) {
    const Double redAndGreen = hn::Add(hn::Mul(color.red, number(luminanceWeights[0])),
                                       hn::Mul(color.green, number(luminanceWeights[1])));
    return hn::Add(redAndGreen, hn::Mul(color.blue, number(luminanceWeights[2])));
}

/// Opaque pixels with these components, each in 0...255.
HWY_INLINE HWY_ATTR Integer packed(Integer red, Integer green, Integer blue) {
    const Integer opaque = hn::Set(Integers(), static_cast<std::int32_t>(0xFF000000U));
    return hn::Or(hn::Or(red, hn::ShiftLeft<8>(green)), hn::Or(hn::ShiftLeft<16>(blue), opaque));
}

}  // namespace quarlin::HWY_NAMESPACE
HWY_AFTER_NAMESPACE();

#endif
