#pragma once

#include <QColor>

#include <algorithm>
#include <cmath>

namespace quarlin::fixtures {

/// The relative luminance of a color, 0...1, as WCAG 2.1 defines it.
inline double relativeLuminance(const QColor& color) {
    const auto linear = [](double value) {
        return value <= 0.04045 ? value / 12.92 : std::pow((value + 0.055) / 1.055, 2.4);
    };
    return 0.2126 * linear(color.redF()) + 0.7152 * linear(color.greenF()) + 0.0722 * linear(color.blueF());
}

/// The contrast ratio of two colors, 1...21, as WCAG 2.1 defines it: text needs 4.5, the parts of controls 3.
inline double contrast(const QColor& a, const QColor& b) {
    const double first = relativeLuminance(a);
    const double second = relativeLuminance(b);
    return (std::max(first, second) + 0.05) / (std::min(first, second) + 0.05);
}

}  // namespace quarlin::fixtures
