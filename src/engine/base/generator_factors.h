#pragma once

#include "model/normal_generator_settings.h"

namespace quarlin {

/// The generator's settings as its formulas use them.
struct GeneratorFactors {
    explicit GeneratorFactors(const NormalGeneratorSettings& settings);

    /// Gradient multiplier, at least `formulas::leastStrength`.
    double strength;
    bool flipGreen;
    /// The bounds of roughness, `low` not above `high`.
    double low;
    double high;
    /// `high - low`, at least `formulas::leastRoughnessSpan`.
    double span;
    double metallicStrength;
    double aoStrength;
};

}  // namespace quarlin
