#include "engine/base/generator_factors.h"

#include "engine/base/formulas.h"

#include <algorithm>

namespace quarlin {

GeneratorFactors::GeneratorFactors(const NormalGeneratorSettings& settings)
    : strength(std::max(formulas::leastStrength, settings.strength)),
      flipGreen(settings.flipGreen),
      low(std::min(settings.roughnessMin, settings.roughnessMax)),
      high(std::max(settings.roughnessMin, settings.roughnessMax)),
      span(std::max(formulas::leastRoughnessSpan, high - low)),
      metallicStrength(settings.metallicStrength),
      aoStrength(settings.aoStrength) {}

}  // namespace quarlin
