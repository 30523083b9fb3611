#include "independent_generator.h"

#include <algorithm>
#include <cmath>
#include <cstddef>

namespace quarlin::independent {

namespace {

std::size_t at(int width, int x, int y) {
    return static_cast<std::size_t>(y) * static_cast<std::size_t>(width) + static_cast<std::size_t>(x);
}

double limited(double value, double low, double high) {
    const double below = high < value ? high : value;
    return below < low ? low : below;
}

void setGray(Bytes& rgba, std::size_t pixel, std::uint8_t value) {
    rgba[pixel * 4] = value;
    rgba[pixel * 4 + 1] = value;
    rgba[pixel * 4 + 2] = value;
    rgba[pixel * 4 + 3] = 255;
}

/// The weighted sum of red, green and blue, each product rounded by itself before it is added.
double weighted(double red, double green, double blue) {
    volatile const double redPart = red * 0.2126;
    volatile const double greenPart = green * 0.7152;
    volatile const double bluePart = blue * 0.0722;
    volatile const double two = redPart + greenPart;
    return two + bluePart;
}

}  // namespace

std::uint8_t unitByte(double value) {
    const double scaled = value * 255.0;
    // Rounds halves away from zero, using the integer parts.
    const double whole = std::trunc(scaled);
    double rounded = whole;
    if (std::fabs(scaled - whole) >= 0.5) {
        rounded += scaled < 0 ? -1 : 1;
    }
    return static_cast<std::uint8_t>(limited(rounded, 0, 255));
}

std::uint8_t luminanceByte(const Bytes& rgba, std::size_t pixel) {
    const double luminance = weighted(rgba[pixel * 4], rgba[pixel * 4 + 1], rgba[pixel * 4 + 2]);
    return static_cast<std::uint8_t>(std::floor(luminance));
}

Heights heights(const Bytes& rgba, int width, int height, bool inverted, int smoothing) {
    Heights result;
    const std::size_t pixels = static_cast<std::size_t>(width) * static_cast<std::size_t>(height);
    for (std::size_t pixel = 0; pixel < pixels; ++pixel) {
        const int gray = luminanceByte(rgba, pixel);
        result.push_back((inverted ? 255 - gray : gray) / 255.0);
    }
    for (int pass = 0; pass < smoothing; ++pass) {
        result = blurred(result, width, height);
    }
    return result;
}

Heights blurred(const Heights& heights, int width, int height) {
    Heights result;
    for (int y = 0; y < height; ++y) {
        for (int x = 0; x < width; ++x) {
            double sum = 0.0;
            double count = 0.0;
            for (int row = y - 1; row <= y + 1; ++row) {
                for (int column = x - 1; column <= x + 1; ++column) {
                    if (row >= 0 && row < height && column >= 0 && column < width) {
                        sum += heights[at(width, column, row)];
                        count += 1.0;
                    }
                }
            }
            result.push_back(sum / count);
        }
    }
    return result;
}

Bytes heightMap(const Heights& heights) {
    Bytes result(heights.size() * 4);
    for (std::size_t pixel = 0; pixel < heights.size(); ++pixel) {
        setGray(result, pixel, unitByte(heights[pixel]));
    }
    return result;
}

Bytes normalMap(const Heights& heights, int width, int height, double strength, bool flipGreen) {
    const double factor = strength > 0.05 ? strength : 0.05;
    Bytes result;
    for (int y = 0; y < height; ++y) {
        for (int x = 0; x < width; ++x) {
            const double left = heights[at(width, x == 0 ? 0 : x - 1, y)];
            const double right = heights[at(width, x == width - 1 ? x : x + 1, y)];
            const double up = heights[at(width, x, y == 0 ? 0 : y - 1)];
            const double down = heights[at(width, x, y == height - 1 ? y : y + 1)];
            const double slopeX = (right - left) * factor;
            const double slopeY = (down - up) * factor * (flipGreen ? -1 : 1);
            volatile const double squareX = slopeX * slopeX;
            volatile const double squareY = slopeY * slopeY;
            volatile const double squares = squareX + squareY;
            const double length = std::sqrt(squares + 1.0);
            for (const double component : {-slopeX / length, -slopeY / length, 1.0 / length}) {
                volatile const double half = component * 0.5;
                result.push_back(unitByte(half + 0.5));
            }
            result.push_back(255);
        }
    }
    return result;
}

double contrast(const Heights& heights, int width, int height, int x, int y) {
    double largest = 0.0;
    for (int row = std::max(y - 1, 0); row <= std::min(y + 1, height - 1); ++row) {
        for (int column = std::max(x - 1, 0); column <= std::min(x + 1, width - 1); ++column) {
            largest =
                std::max(largest, std::fabs(heights[at(width, x, y)] - heights[at(width, column, row)]));
        }
    }
    return limited(largest * 6.0, 0, 1);
}

double smoothStep(double from, double to, double value) {
    if (from == to) {
        return value >= from ? 1.0 : 0.0;
    }
    const double t = limited((value - from) / (to - from), 0, 1);
    volatile const double twice = 2.0 * t;
    return t * t * (3.0 - twice);
}

Maps maps(const Bytes& rgba, int width, int height, const NormalGeneratorSettings& settings) {
    const Heights field = heights(rgba, width, height, settings.invertHeight, settings.smoothing);
    const Heights mean = blurred(field, width, height);
    const bool inOrder = settings.roughnessMin <= settings.roughnessMax;
    const double low = inOrder ? settings.roughnessMin : settings.roughnessMax;
    const double high = inOrder ? settings.roughnessMax : settings.roughnessMin;
    const double span = high - low > 0.02 ? high - low : 0.02;
    Maps maps;
    maps.values.fill(Bytes(field.size() * 4, 255));
    maps[GeneratedMap::source] = rgba;
    maps[GeneratedMap::height] = heightMap(field);
    maps[GeneratedMap::normal] = normalMap(field, width, height, settings.strength, settings.flipGreen);
    for (int y = 0; y < height; ++y) {
        for (int x = 0; x < width; ++x) {
            const std::size_t pixel = at(width, x, y);
            const double red = rgba[pixel * 4] / 255.0;
            const double green = rgba[pixel * 4 + 1] / 255.0;
            const double blue = rgba[pixel * 4 + 2] / 255.0;
            const double largest = std::max({red, green, blue});
            const double smallest = std::min({red, green, blue});
            const double saturation = largest > 0 ? (largest - smallest) / largest : 0;
            const double luminance = weighted(red, green, blue);
            const double brightness = smoothStep(0.42, 0.92, luminance);
            const double cavity = limited((mean[pixel] - field[pixel]) * 3.0, 0, 1);
            volatile const double fromBrightness = brightness * 0.75;
            volatile const double fromDetail = contrast(field, width, height, x, y) * 1.6;
            const double smoothness = limited(fromBrightness + fromDetail, 0, 1);
            volatile const double drop = smoothness * span;
            const double roughness = limited(high - drop, low, high);
            const double metalTone = smoothStep(0.18, 0.78, luminance);
            const double metallic = limited((1.0 - saturation) * metalTone * settings.metallicStrength, 0, 1);
            volatile const double shade = cavity * settings.aoStrength;
            const double occlusion = limited(1.0 - shade, 0, 1);

            setGray(maps[GeneratedMap::roughness], pixel, unitByte(roughness));
            setGray(maps[GeneratedMap::gloss], pixel, unitByte(1.0 - roughness));
            setGray(maps[GeneratedMap::metallic], pixel, unitByte(metallic));
            setGray(maps[GeneratedMap::occlusion], pixel, unitByte(occlusion));
            maps[GeneratedMap::orm][pixel * 4] = unitByte(occlusion);
            maps[GeneratedMap::orm][pixel * 4 + 1] = unitByte(roughness);
            maps[GeneratedMap::orm][pixel * 4 + 2] = unitByte(metallic);
        }
    }
    return maps;
}

Bytes packedOrm(const Bytes* occlusion, const Bytes* roughness, const Bytes* metallic, std::size_t pixels,
                double defaultOcclusion, double defaultRoughness, double defaultMetallic, bool gloss) {
    Bytes result;
    for (std::size_t pixel = 0; pixel < pixels; ++pixel) {
        result.push_back(occlusion != nullptr ? luminanceByte(*occlusion, pixel)
                                              : unitByte(defaultOcclusion));
        const int rough =
            roughness != nullptr ? luminanceByte(*roughness, pixel) : unitByte(defaultRoughness);
        result.push_back(static_cast<std::uint8_t>(gloss && roughness != nullptr ? 255 - rough : rough));
        result.push_back(metallic != nullptr ? luminanceByte(*metallic, pixel) : unitByte(defaultMetallic));
        result.push_back(255);
    }
    return result;
}

}  // namespace quarlin::independent
