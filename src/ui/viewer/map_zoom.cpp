#include "ui/viewer/map_zoom.h"

#include <algorithm>
#include <cmath>

namespace quarlin {

namespace {

/// Scales that differ by less are the same: they come from divisions.
constexpr double tolerance = 1e-6;

}  // namespace

double fittingScale(const QSize& map, const QSize& view) {
    if (map.isEmpty() || view.isEmpty()) {
        return 1;
    }
    const double scale = std::min(static_cast<double>(view.width()) / map.width(),
                                  static_cast<double>(view.height()) / map.height());
    return std::min(largestScale, scale > 1 ? std::floor(scale) : scale);
}

double nextScale(double scale, double fitting) {
    const double power = std::exp2(std::floor(std::log2(scale) + tolerance) + 1);
    return std::min(power, std::max(largestScale, fitting));
}

double previousScale(double scale, double fitting) {
    const double power = std::exp2(std::ceil(std::log2(scale) - tolerance) - 1);
    return std::max(power, std::min(fitting, 1.0));
}

}  // namespace quarlin
