#pragma once

namespace quarlin {

/// The values that a setting can be given by hand, both ends included. The engine itself takes any value.
template <typename Number>
struct SettingRange {
    Number lowest;
    Number highest;

    constexpr bool contains(Number value) const { return value >= lowest && value <= highest; }
};

/// Fractions of full scale: the defaults for missing maps, the roughness bounds, the metallic and occlusion
/// strengths.
inline constexpr SettingRange<double> fractionRange{0.0, 1.0};
/// `NormalGeneratorSettings::strength`.
inline constexpr SettingRange<double> strengthRange{0.2, 10.0};
/// `NormalGeneratorSettings::smoothing`.
inline constexpr SettingRange<int> smoothingRange{0, 4};

}  // namespace quarlin
