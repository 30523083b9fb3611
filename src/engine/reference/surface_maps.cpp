#include "engine/texture_processor.h"

#include <algorithm>
#include <cmath>

namespace quarlin {

GeneratedSurfaceMaps TextureProcessor::generatedSurfaceMaps(const PixelImage& source,
                                                            std::span<const double> heightValues,
                                                            const NormalGeneratorSettings& settings) {
    const std::int64_t width = source.width;
    const std::int64_t height = source.height;
    const HeightField blurred = boxBlur(heightValues, width, height);
    const double low = std::min(settings.roughnessMin, settings.roughnessMax);
    const double high = std::max(settings.roughnessMin, settings.roughnessMax);
    // A range narrower than 0.02 is widened for the formula; the clamp still keeps the result inside it.
    const double span = std::max(0.02, high - low);

    GeneratedSurfaceMaps maps{opaqueWhite(width, height), opaqueWhite(width, height),
                              opaqueWhite(width, height), opaqueWhite(width, height),
                              opaqueWhite(width, height)};
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
            const double luminance = red * 0.2126 + green * 0.7152 + blue * 0.0722;
            const double contrast = localHeightContrast(heightValues, width, height, x, y);

            // Bright surfaces turn from rough to smooth over this band of luminance.
            const double brightness = smoothStep(0.42, 0.92, luminance);
            // Positive where the pixel lies below the mean of its neighborhood; 3.0 amplifies the depth.
            const double cavity = clamp((blurred[index] - heightValues[index]) * 3.0, 0, 1);
            // High local contrast makes a pixel smoother, which is intended.
            const double smoothness = clamp(brightness * 0.75 + contrast * 1.6, 0, 1);
            const double roughness = clamp(high - smoothness * span, low, high);
            const double gloss = 1.0 - roughness;
            // Unsaturated surfaces turn metallic over this band of luminance.
            const double metalTone = smoothStep(0.18, 0.78, luminance);
            const double metallic = clamp((1.0 - saturation) * metalTone * settings.metallicStrength, 0, 1);
            const double occlusion = clamp(1.0 - cavity * settings.aoStrength, 0, 1);

            const std::uint8_t roughnessByte = byteFromUnit(roughness);
            const std::uint8_t glossByte = byteFromUnit(gloss);
            const std::uint8_t metallicByte = byteFromUnit(metallic);
            const std::uint8_t occlusionByte = byteFromUnit(occlusion);
            writeGray(roughnessByte, maps.roughness.pixels, offset);
            writeGray(glossByte, maps.gloss.pixels, offset);
            writeGray(metallicByte, maps.metallic.pixels, offset);
            writeGray(occlusionByte, maps.occlusion.pixels, offset);
            maps.orm.pixels[offset] = occlusionByte;
            maps.orm.pixels[offset + 1] = roughnessByte;
            maps.orm.pixels[offset + 2] = metallicByte;
        }
    }
    return maps;
}

double TextureProcessor::localHeightContrast(std::span<const double> values, std::int64_t width,
                                             std::int64_t height, std::int64_t x, std::int64_t y) {
    const double center = sampleHeight(values, width, height, x, y);
    double largest = 0.0;
    for (std::int64_t yy = std::max<std::int64_t>(0, y - 1); yy <= std::min(height - 1, y + 1); ++yy) {
        for (std::int64_t xx = std::max<std::int64_t>(0, x - 1); xx <= std::min(width - 1, x + 1); ++xx) {
            largest = std::max(largest, std::abs(center - values[static_cast<std::size_t>(yy * width + xx)]));
        }
    }
    return clamp(largest * 6.0, 0, 1);
}

double TextureProcessor::smoothStep(double edge0, double edge1, double value) {
    if (edge0 == edge1) {
        return value >= edge0 ? 1.0 : 0.0;
    }
    const double t = clamp((value - edge0) / (edge1 - edge0), 0, 1);
    return t * t * (3.0 - 2.0 * t);
}

}  // namespace quarlin
