#include "plain_generator.h"

#include <algorithm>
#include <cmath>

namespace quarlin::plain {

namespace {

std::size_t pixelCount(std::int64_t width, std::int64_t height) {
    return static_cast<std::size_t>(width) * static_cast<std::size_t>(height);
}

PixelImage whiteImage(std::int64_t width, std::int64_t height) {
    return {width, height, PixelBuffer(pixelCount(width, height) * bytesPerPixel, 255)};
}

}  // namespace

HeightField smoothedHeightValues(const PixelImage& image, const NormalGeneratorSettings& settings) {
    HeightField values(pixelCount(image.width, image.height));
    for (std::size_t index = 0; index < values.size(); ++index) {
        values[index] =
            TextureProcessor::grayscale(&image, index * bytesPerPixel, 0, settings.invertHeight) / 255.0;
    }
    for (int pass = 0; pass < settings.smoothing; ++pass) {
        values = boxBlur(values, image.width, image.height);
    }
    return values;
}

HeightField boxBlur(std::span<const double> values, std::int64_t width, std::int64_t height) {
    HeightField result(values.size());
    for (std::int64_t y = 0; y < height; ++y) {
        for (std::int64_t x = 0; x < width; ++x) {
            double sum = 0.0;
            double count = 0.0;
            for (std::int64_t yy = std::max<std::int64_t>(0, y - 1); yy <= std::min(height - 1, y + 1); ++yy) {
                for (std::int64_t xx = std::max<std::int64_t>(0, x - 1); xx <= std::min(width - 1, x + 1); ++xx) {
                    sum += values[static_cast<std::size_t>(yy * width + xx)];
                    count += 1.0;
                }
            }
            result[static_cast<std::size_t>(y * width + x)] = sum / count;
        }
    }
    return result;
}

PixelImage heightImage(std::span<const double> values, std::int64_t width, std::int64_t height) {
    PixelImage image = whiteImage(width, height);
    for (std::size_t index = 0; index < pixelCount(width, height); ++index) {
        TextureProcessor::writeGray(TextureProcessor::byteFromUnit(values[index]), image.pixels,
                                    index * bytesPerPixel);
    }
    return image;
}

PixelImage normalImage(std::span<const double> values, std::int64_t width, std::int64_t height,
                       const NormalGeneratorSettings& settings) {
    PixelImage image = whiteImage(width, height);
    const double strength = std::max(0.05, settings.strength);
    const auto sample = [&](std::int64_t x, std::int64_t y) {
        return TextureProcessor::sampleHeight(values, width, height, x, y);
    };
    for (std::int64_t y = 0; y < height; ++y) {
        for (std::int64_t x = 0; x < width; ++x) {
            const double dx = (sample(x + 1, y) - sample(x - 1, y)) * strength;
            double dy = (sample(x, y + 1) - sample(x, y - 1)) * strength;
            if (settings.flipGreen) {
                dy = -dy;
            }
            const auto [nx, ny, nz] = TextureProcessor::normalized(-dx, -dy, 1.0);
            const auto offset = static_cast<std::size_t>((y * width + x) * bytesPerPixel);
            image.pixels[offset] = TextureProcessor::byteFromSignedUnit(nx);
            image.pixels[offset + 1] = TextureProcessor::byteFromSignedUnit(ny);
            image.pixels[offset + 2] = TextureProcessor::byteFromSignedUnit(nz);
        }
    }
    return image;
}

GeneratedSurfaceMaps generatedSurfaceMaps(const PixelImage& source, std::span<const double> heightValues,
                                          const NormalGeneratorSettings& settings) {
    using Engine = TextureProcessor;
    const std::int64_t width = source.width;
    const std::int64_t height = source.height;
    const HeightField blurred = boxBlur(heightValues, width, height);
    const double low = std::min(settings.roughnessMin, settings.roughnessMax);
    const double high = std::max(settings.roughnessMin, settings.roughnessMax);
    // A range narrower than 0.02 is widened for the formula; the clamp still keeps the result inside it.
    const double span = std::max(0.02, high - low);

    GeneratedSurfaceMaps maps{whiteImage(width, height), whiteImage(width, height), whiteImage(width, height),
                              whiteImage(width, height), whiteImage(width, height)};
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
            const double contrast = Engine::localHeightContrast(heightValues, width, height, x, y);

            // Bright surfaces turn from rough to smooth over this band of luminance.
            const double brightness = Engine::smoothStep(0.42, 0.92, luminance);
            // Positive where the pixel lies below the mean of its neighbourhood; 3.0 amplifies the depth.
            const double cavity = Engine::clamp((blurred[index] - heightValues[index]) * 3.0, 0, 1);
            // High local contrast makes a pixel smoother, which is intended.
            const double smoothness = Engine::clamp(brightness * 0.75 + contrast * 1.6, 0, 1);
            const double roughness = Engine::clamp(high - smoothness * span, low, high);
            const double gloss = 1.0 - roughness;
            // Unsaturated surfaces turn metallic over this band of luminance.
            const double metalTone = Engine::smoothStep(0.18, 0.78, luminance);
            const double metallic =
                Engine::clamp((1.0 - saturation) * metalTone * settings.metallicStrength, 0, 1);
            const double occlusion = Engine::clamp(1.0 - cavity * settings.aoStrength, 0, 1);

            const std::uint8_t roughnessByte = Engine::byteFromUnit(roughness);
            const std::uint8_t glossByte = Engine::byteFromUnit(gloss);
            const std::uint8_t metallicByte = Engine::byteFromUnit(metallic);
            const std::uint8_t occlusionByte = Engine::byteFromUnit(occlusion);
            Engine::writeGray(roughnessByte, maps.roughness.pixels, offset);
            Engine::writeGray(glossByte, maps.gloss.pixels, offset);
            Engine::writeGray(metallicByte, maps.metallic.pixels, offset);
            Engine::writeGray(occlusionByte, maps.occlusion.pixels, offset);
            maps.orm.pixels[offset] = occlusionByte;
            maps.orm.pixels[offset + 1] = roughnessByte;
            maps.orm.pixels[offset + 2] = metallicByte;
        }
    }
    return maps;
}

}  // namespace quarlin::plain
