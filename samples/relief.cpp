#include "relief.h"

#include "tiling_noise.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstddef>

namespace quarlin::samples {

namespace {

constexpr std::size_t indexOf(int x, int y) {
    const int column = (x + textureSize) % textureSize;
    const int row = (y + textureSize) % textureSize;
    return static_cast<std::size_t>(row) * textureSize + static_cast<std::size_t>(column);
}

/// The mean over a window that reaches `reach` pixels both ways along one axis.
Relief blurredAlong(const Relief& relief, int reach, bool alongRows) {
    Relief result(relief.size());
    for (int line = 0; line < textureSize; ++line) {
        const auto at = [&](int position) {
            return alongRows ? indexOf(position, line) : indexOf(line, position);
        };
        double sum = 0;
        for (int position = -reach; position <= reach; ++position) {
            sum += relief[at(position)];
        }
        for (int position = 0; position < textureSize; ++position) {
            result[at(position)] = sum / (2 * reach + 1);
            sum += relief[at(position + reach + 1)] - relief[at(position - reach)];
        }
    }
    return result;
}

/// Two passes of a square mean: close to a bell.
Relief blurred(const Relief& relief, int reach) {
    Relief result = relief;
    for (int pass = 0; pass < 2; ++pass) {
        result = blurredAlong(blurredAlong(result, reach, true), reach, false);
    }
    return result;
}

}  // namespace

Direction directionAt(const Relief& relief, int x, int y) {
    const double right = (relief[indexOf(x + 1, y)] - relief[indexOf(x - 1, y)]) / 2;
    const double down = (relief[indexOf(x, y + 1)] - relief[indexOf(x, y - 1)]) / 2;
    const double length = std::sqrt(right * right + down * down + 1);
    return {-right / length, down / length, 1 / length};
}

std::vector<double> skyOver(const Relief& relief) {
    std::vector<double> sky(relief.size(), 1);
    for (const int reach : std::array{2, 6, 14, 30}) {
        const Relief around = blurred(relief, reach);
        for (std::size_t index = 0; index < relief.size(); ++index) {
            const double walls = std::max(around[index] - relief[index], 0.0);
            sky[index] *= 1 - 0.42 * std::min(walls / (2.0 + 0.28 * reach), 1.0);
        }
    }
    return sky;
}

}  // namespace quarlin::samples
