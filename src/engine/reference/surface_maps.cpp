#include "engine/reference/surface_maps.h"

#include "engine/base/channels.h"
#include "engine/base/formulas.h"
#include "engine/base/generator_factors.h"
#include "engine/reference/height_field.h"
#include "imaging/pixels/luminance.h"

#include <algorithm>
#include <cmath>

namespace quarlin::reference {

GeneratedSurfaceMaps generatedSurfaceMaps(const PixelImage& source, std::span<const double> heightValues,
                                          const NormalGeneratorSettings& settings) {
    const std::int64_t width = source.width;
    const std::int64_t height = source.height;
    const HeightField blurred = boxBlur(heightValues, width, height);
    const GeneratorFactors factors(settings);

    GeneratedSurfaceMaps maps;
    for (const GeneratedMap map : surfaceMaps) {
        maps[map] = opaqueWhite(width, height);
    }
    for (std::int64_t y = 0; y < height; ++y) {
        for (std::int64_t x = 0; x < width; ++x) {
            const auto index = static_cast<std::size_t>(y * width + x);
            const std::size_t offset = index * bytesPerPixel;
            const double red = source.pixels[offset] / 255.0;
            const double green = source.pixels[offset + 1] / 255.0;
            const double blue = source.pixels[offset + 2] / 255.0;
            const double largest = std::max({red, green, blue});
            const double smallest = std::min({red, green, blue});
            const double saturation = largest > 0 ? (largest - smallest) / largest : 0.0;
            const double luminance =
                red * luminanceWeights[0] + green * luminanceWeights[1] + blue * luminanceWeights[2];
            const double contrast = localHeightContrast(heightValues, width, height, x, y);

            const double brightness = smoothStep(formulas::brightnessEdges, luminance);
            // Positive where the pixel is lower than the mean of its neighborhood.
            const double cavity = clamp((blurred[index] - heightValues[index]) * formulas::cavityGain, 0, 1);
            const double smoothness =
                clamp(brightness * formulas::brightnessWeight + contrast * formulas::contrastWeight, 0, 1);
            const double roughness =
                clamp(factors.high - smoothness * factors.span, factors.low, factors.high);
            const double gloss = 1.0 - roughness;
            const double metalTone = smoothStep(formulas::metalEdges, luminance);
            const double metallic = clamp((1.0 - saturation) * metalTone * factors.metallicStrength, 0, 1);
            const double occlusion = clamp(1.0 - cavity * factors.aoStrength, 0, 1);

            const std::uint8_t roughnessByte = byteFromUnit(roughness);
            const std::uint8_t glossByte = byteFromUnit(gloss);
            const std::uint8_t metallicByte = byteFromUnit(metallic);
            const std::uint8_t occlusionByte = byteFromUnit(occlusion);
            writeGray(roughnessByte, maps[GeneratedMap::roughness].pixels, offset);
            writeGray(glossByte, maps[GeneratedMap::gloss].pixels, offset);
            writeGray(metallicByte, maps[GeneratedMap::metallic].pixels, offset);
            writeGray(occlusionByte, maps[GeneratedMap::occlusion].pixels, offset);
            maps[GeneratedMap::orm].pixels[offset] = occlusionByte;
            maps[GeneratedMap::orm].pixels[offset + 1] = roughnessByte;
            maps[GeneratedMap::orm].pixels[offset + 2] = metallicByte;
        }
    }
    return maps;
}

double localHeightContrast(std::span<const double> values, std::int64_t width, std::int64_t height,
                           std::int64_t x, std::int64_t y) {
    const double center = sampleHeight(values, width, height, x, y);
    double largest = 0.0;
    for (std::int64_t yy = std::max<std::int64_t>(0, y - 1); yy <= std::min(height - 1, y + 1); ++yy) {
        for (std::int64_t xx = std::max<std::int64_t>(0, x - 1); xx <= std::min(width - 1, x + 1); ++xx) {
            largest = std::max(largest, std::abs(center - values[static_cast<std::size_t>(yy * width + xx)]));
        }
    }
    return clamp(largest * formulas::contrastGain, 0, 1);
}

double smoothStep(double edge0, double edge1, double value) {
    if (edge0 == edge1) {
        return value >= edge0 ? 1.0 : 0.0;
    }
    const double t = clamp((value - edge0) / (edge1 - edge0), 0, 1);
    return t * t * (3.0 - 2.0 * t);
}

double smoothStep(formulas::StepEdges edges, double value) {
    return smoothStep(edges.edge0, edges.edge1, value);
}

}  // namespace quarlin::reference
