// Colors that HEIC and AVIF files describe by code points, against values worked out from their definitions.

#include "color_truth.h"
#include "heif_files.h"
#include "temporary_folder.h"

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

using namespace quarlin;
using namespace quarlin::fixtures;

namespace {

constexpr Primaries bt2020Primaries{{{{0.708, 0.292}, {0.170, 0.797}, {0.131, 0.046}}}};

double decodedLinear(double value) { return value; }

double decodedBt709(double value) {
    return value < 0.081 ? value / 4.5 : std::pow((value + 0.0993) / 1.0993, 1 / 0.45);
}

/// SMPTE ST 2084, as a share of the reference white of 203 cd/m².
double decodedPq(double value) {
    const double power = std::pow(value, 32.0 / 2523);
    const double light =
        std::pow(std::max(power - 0.8359375, 0.0) / (18.8515625 - 18.6875 * power), 16384.0 / 2610);
    return std::min(light * 10000 / 203, 1.0);
}

struct CodedSpace {
    const char* name;
    int primaries;
    int transfer;
    Primaries truth;
    double (*decode)(double value);
};

void PrintTo(const CodedSpace& space, std::ostream* out) { *out << space.name; }

class CodedColors : public testing::TestWithParam<CodedSpace> {};

TEST_P(CodedColors, EverySampleIsTheNearestByte) {
    constexpr int steps = 9;
    constexpr int width = steps * steps;
    for (const int bitDepth : {8, 10, 12}) {
        const int largest = (1 << bitDepth) - 1;
        const auto samplesAt = [&](int x, int y) {
            return std::array<int, 3>{x / steps * largest / (steps - 1), x % steps * largest / (steps - 1),
                                      y * largest / (steps - 1)};
        };
        std::vector<std::uint16_t> samples;
        for (int y = 0; y < steps; ++y) {
            for (int x = 0; x < width; ++x) {
                for (const int sample : samplesAt(x, y)) {
                    samples.push_back(static_cast<std::uint16_t>(sample));
                }
            }
        }
        HeifForm form;
        form.bitDepth = bitDepth;
        form.isAvif = bitDepth != 10;
        form.primaries = GetParam().primaries;
        form.transfer = GetParam().transfer;
        const TemporaryFolder folder;
        const QUrl file = folder.url(u"a.avif"_s);
        writeFile(file, heifFile(width, steps, samples, form));
        const auto truth = [&](int x, int y) {
            Color light{};
            for (std::size_t channel = 0; channel < 3; ++channel) {
                light[channel] = GetParam().decode(static_cast<double>(samplesAt(x, y)[channel]) / largest);
            }
            light = inSRGB(GetParam().truth, light);
            return Color{encodedSRGB(light[0]) * 255, encodedSRGB(light[1]) * 255,
                         encodedSRGB(light[2]) * 255};
        };
        EXPECT_TRUE(rendersNear(file, width, steps, truth, 0.65)) << bitDepth;
    }
}

INSTANTIATE_TEST_SUITE_P(
    Heif, CodedColors,
    testing::Values(CodedSpace{"Srgb", 1, 13, srgbPrimaries, decodedSRGB},
                    CodedSpace{"Unspecified", 2, 2, srgbPrimaries, decodedSRGB},
                    CodedSpace{"DisplayP3", 12, 13, p3Primaries, decodedSRGB},
                    CodedSpace{"LinearBt709", 1, 8, srgbPrimaries, decodedLinear},
                    CodedSpace{"Bt709", 1, 1, srgbPrimaries, decodedBt709},
                    CodedSpace{"Bt2020", 9, 14, bt2020Primaries, decodedBt709},
                    CodedSpace{"LinearBt2020", 9, 8, bt2020Primaries, decodedLinear},
                    CodedSpace{"Bt2020WithPq", 9, 16, bt2020Primaries, decodedPq},
                    // Hybrid log-gamma mixes channels, so its samples are left as they are.
                    CodedSpace{"HybridLogGamma", 1, 18, srgbPrimaries, decodedSRGB}),
    [](const auto& instance) { return instance.param.name; });

}  // namespace
