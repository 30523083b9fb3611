#pragma once

namespace quarlin::formulas {

// The constants of the map generator's formulas, used by the plain operations of engine/reference and by
// their vector forms. Heights, luminance and maps are fractions of one.

/// A smooth step rises from 0 at `edge0` to 1 at `edge1`.
struct StepEdges {
    double edge0;
    double edge1;
};

/// The least gradient multiplier of a normal map.
inline constexpr double leastStrength = 0.05;
/// A normal is divided by its length, or by this where the length is smaller.
inline constexpr double leastNormalLength = 0.0001;

/// Multiplies the largest height difference to a neighbor.
inline constexpr double contrastGain = 6.0;
/// Multiplies the depth of a pixel below the mean of its neighborhood.
inline constexpr double cavityGain = 3.0;

/// Bright surfaces turn from rough to smooth over this range of luminance.
inline constexpr StepEdges brightnessEdges{0.42, 0.92};
inline constexpr double brightnessWeight = 0.75;
/// High local contrast makes a pixel smoother, which is intended.
inline constexpr double contrastWeight = 1.6;
/// A narrower range of roughness is widened to this for the formula; the result is still clamped to the
/// range.
inline constexpr double leastRoughnessSpan = 0.02;

/// Unsaturated surfaces turn metallic over this range of luminance.
inline constexpr StepEdges metalEdges{0.18, 0.78};

}  // namespace quarlin::formulas
