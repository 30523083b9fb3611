#include "imaging/decode/formats/tiff/tiff_samples.h"

#include "imaging/decode/formats/tiff/sample_bits.h"

#include <algorithm>

namespace quarlin {

namespace {

constexpr std::uint32_t fullByte = 255;
constexpr std::uint32_t fullWord = 65535;

/// Whether the samples of the file need no conversion: all of them count, and they have their final size.
bool isPlain(const TiffPage& page) {
    const bool isMeant =
        page.colors == TiffColors::gray || page.colors == TiffColors::rgb || page.colors == TiffColors::inks;
    return isMeant && !page.isFloatingPoint && !page.hasSeparatePlanes &&
           (page.bits == 8 || page.bits == 16) && static_cast<int>(page.channels.size()) == page.fileChannels;
}

/// The samples of one channel of a row.
class ChannelSamples {
public:
    ChannelSamples(const TiffPage& page, const TiffRows& rows, int channel)
        : m_row(rows.plane(channel)),
          m_first(page.hasSeparatePlanes ? 0 : channel),
          m_step(page.hasSeparatePlanes ? 1 : page.fileChannels),
          m_packing{page.bits, page.isBigEndian} {}

    std::uint64_t at(std::int64_t pixel) const {
        return sampleBits(m_row, m_first + pixel * m_step, m_packing);
    }

private:
    const std::uint8_t* m_row;
    std::int64_t m_first;
    std::int64_t m_step;
    SamplePacking m_packing;
};

/// Writes `converted(sample)` for each pixel, `channels` samples apart.
template <typename Sample, typename Convert>
void convertChannel(const TiffPage& page, const ChannelSamples& input, Sample* output, int channels,
                    const Convert& converted) {
    for (std::int64_t pixel = 0; pixel < page.width; ++pixel) {
        output[pixel * channels] = static_cast<Sample>(converted(input.at(pixel)));
    }
}

template <typename Sample>
void convertNumbers(const TiffPage& page, const TiffRows& rows, Sample* output) {
    constexpr std::uint32_t full = sizeof(Sample) == 1 ? fullByte : fullWord;
    const auto channels = static_cast<int>(page.channels.size());
    for (int index = 0; index < channels; ++index) {
        const ChannelSamples input(page, rows, page.channels[static_cast<std::size_t>(index)]);
        const bool isAlpha = page.hasAlpha && index == channels - 1;
        const bool isInverted = page.colors == TiffColors::grayWhereZeroIsWhite && !isAlpha;
        convertChannel(page, input, output + index, channels, [&](std::uint64_t sample) {
            const std::uint32_t scaled = page.isFloatingPoint ? scaledUnit(floatingPointOf(sample, page.bits))
                                                              : scaledSample(sample, page.bits, full);
            return isInverted ? full - scaled : scaled;
        });
    }
}

void convertPalette(const TiffPage& page, const TiffRows& rows, std::uint8_t* output) {
    const int channels = page.hasAlpha ? 4 : 3;
    const ChannelSamples indices(page, rows, page.channels.front());
    for (std::size_t channel = 0; channel < 3; ++channel) {
        convertChannel(page, indices, output + channel, channels,
                       [&](std::uint64_t index) { return page.palette[index][channel]; });
    }
    if (page.hasAlpha) {
        const ChannelSamples alphas(page, rows, page.channels.back());
        convertChannel(page, alphas, output + 3, channels,
                       [&](std::uint64_t sample) { return scaledSample(sample, page.bits, fullByte); });
    }
}

/// A number of CIELAB in the units of `labProfile()`: L of 0...100 takes all 16 bits, and so do a and b of
/// -128...127.
std::uint32_t labSample(const TiffPage& page, bool isLightness, std::uint64_t sample) {
    constexpr double largestLightness = 100;
    constexpr double offset = 128;
    constexpr std::uint32_t wordsOfByte = 257;
    if (page.isFloatingPoint) {
        const double number = floatingPointOf(sample, page.bits);
        return scaledUnit(isLightness ? number / largestLightness : (number + offset) / fullByte);
    }
    const auto number = static_cast<std::uint32_t>(sample);
    const bool isSigned = page.colors == TiffColors::lab && !isLightness;
    if (page.bits == 8) {
        return (isSigned ? number ^ 0x80U : number) * wordsOfByte;
    }
    if (page.colors == TiffColors::lab && isLightness) {
        return number;
    }
    // 256 steps for each unit of a and b, or for each 255th of L.
    const std::uint32_t steps = isSigned ? number ^ 0x8000U : number;
    return std::min((steps * wordsOfByte + 128) / 256, fullWord);
}

void convertLab(const TiffPage& page, const TiffRows& rows, std::uint16_t* output) {
    const auto channels = static_cast<int>(page.channels.size());
    for (int index = 0; index < channels; ++index) {
        const ChannelSamples input(page, rows, page.channels[static_cast<std::size_t>(index)]);
        const bool isAlpha = index == 3;
        convertChannel(page, input, output + index, channels, [&](std::uint64_t sample) {
            if (isAlpha) {
                return std::uint32_t{page.isFloatingPoint ? scaledUnit(floatingPointOf(sample, page.bits))
                                                          : scaledSample(sample, page.bits, fullWord)};
            }
            return labSample(page, index == 0, sample);
        });
    }
}

}  // namespace

void convertTiffRow(const TiffPage& page, const TiffRows& rows, std::uint8_t* samples) {
    const SampleForm form = page.sampleForm();
    // Rows of 16-bit samples begin at even addresses.
    auto* words = reinterpret_cast<std::uint16_t*>(samples);
    if (isPlain(page)) {
        std::copy_n(rows.plane(0), page.width * form.bytesPerPixel(), samples);
    } else if (page.colors == TiffColors::palette) {
        convertPalette(page, rows, samples);
    } else if (page.colors == TiffColors::lab || page.colors == TiffColors::iccLab) {
        convertLab(page, rows, words);
    } else if (form.bits == 8) {
        convertNumbers(page, rows, samples);
    } else {
        convertNumbers(page, rows, words);
    }
}

}  // namespace quarlin
