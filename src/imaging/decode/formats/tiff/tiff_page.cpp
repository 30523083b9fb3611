#include "imaging/decode/formats/tiff/tiff_page.h"

#include "imaging/base/pixel_size.h"
#include "imaging/decode/decode_error.h"

#include <algorithm>
#include <numeric>
#include <optional>

namespace quarlin {

namespace {

[[noreturn]] void refuse() { throw DecodeError(DecodeProblem::damaged); }

bool isFax(std::uint16_t compression) {
    return compression == COMPRESSION_CCITTRLE || compression == COMPRESSION_CCITTRLEW ||
           compression == COMPRESSION_CCITTFAX3 || compression == COMPRESSION_CCITTFAX4;
}

/// Whether the file can hold that many pixels. Fax codes need no more than a bit for a whole blank row.
bool isPlausible(const TiffPage& page, std::uint16_t compression, std::int64_t fileSize) {
    constexpr std::int64_t largestBlankPage = std::int64_t{1} << 28;
    constexpr std::int64_t rowsPerByte = 8;
    return isPlausibleSize(page.width, page.height, fileSize) ||
           (isFax(compression) && isUsableSize(page.width, page.height) &&
            page.width * page.height <= largestBlankPage && page.height / rowsPerByte <= fileSize);
}

std::uint16_t photometricOf(const TiffFile& file, int channels, std::uint16_t compression) {
    const int usual = channels >= 3        ? PHOTOMETRIC_RGB
                      : isFax(compression) ? PHOTOMETRIC_MINISWHITE
                                           : PHOTOMETRIC_MINISBLACK;
    return file.valueOf<std::uint16_t>(TIFFTAG_PHOTOMETRIC, static_cast<std::uint16_t>(usual));
}

TiffColors colorsOf(std::uint16_t photometric, bool isRgbOfJpeg) {
    switch (photometric) {
        case PHOTOMETRIC_MINISWHITE:
            return TiffColors::grayWhereZeroIsWhite;
        case PHOTOMETRIC_MINISBLACK:
            return TiffColors::gray;
        case PHOTOMETRIC_RGB:
            return TiffColors::rgb;
        case PHOTOMETRIC_PALETTE:
            return TiffColors::palette;
        case PHOTOMETRIC_SEPARATED:
            return TiffColors::inks;
        case PHOTOMETRIC_CIELAB:
            return TiffColors::lab;
        case PHOTOMETRIC_ICCLAB:
            return TiffColors::iccLab;
        case PHOTOMETRIC_YCBCR:
            return isRgbOfJpeg ? TiffColors::rgb : TiffColors::convertedByLibrary;
        case PHOTOMETRIC_LOGL:
        case PHOTOMETRIC_LOGLUV:
            return TiffColors::convertedByLibrary;
        default:
            refuse();
    }
}

int colorChannelsOf(TiffColors colors) {
    switch (colors) {
        case TiffColors::gray:
        case TiffColors::grayWhereZeroIsWhite:
        case TiffColors::palette:
            return 1;
        case TiffColors::inks:
            return 4;
        default:
            return 3;
    }
}

/// Sets whether samples are floating point numbers; refuses signed and complex ones.
void readSampleFormat(const TiffFile& file, TiffPage& page) {
    const bool isLab = page.colors == TiffColors::lab || page.colors == TiffColors::iccLab;
    switch (file.valueOf<std::uint16_t>(TIFFTAG_SAMPLEFORMAT, SAMPLEFORMAT_UINT)) {
        case SAMPLEFORMAT_UINT:
        case SAMPLEFORMAT_VOID:
            break;
        case SAMPLEFORMAT_INT:
            if (page.colors != TiffColors::lab) {
                refuse();
            }
            break;
        case SAMPLEFORMAT_IEEEFP:
            page.isFloatingPoint = true;
            break;
        default:
            refuse();
    }
    const auto isOneOf = [&](auto... sizes) { return ((page.bits == sizes) || ...); };
    const bool isKnown = page.isFloatingPoint ? isOneOf(16, 32, 64) && page.colors != TiffColors::palette
                                              : page.bits >= 1 && page.bits <= 64;
    if (!isKnown || (isLab && !(page.isFloatingPoint ? isOneOf(32, 64) : isOneOf(8, 16)))) {
        refuse();
    }
}

/// Finds the alpha among the extra samples. A single one counts as alpha even if the file does not say so;
/// of several, the first that is declared.
void readExtraSamples(const TiffFile& file, TiffPage& page) {
    const int colorChannels = colorChannelsOf(page.colors);
    const int extras = page.fileChannels - colorChannels;
    page.channels.resize(static_cast<std::size_t>(colorChannels));
    std::iota(page.channels.begin(), page.channels.end(), 0);
    std::uint16_t declaredCount = 0;
    const std::uint16_t* declared = nullptr;
    if (TIFFGetField(file.handle(), TIFFTAG_EXTRASAMPLES, &declaredCount, &declared) != 1) {
        declaredCount = 0;
    }
    for (int extra = 0; extra < std::min<int>(extras, declaredCount); ++extra) {
        if (declared[extra] == EXTRASAMPLE_ASSOCALPHA || declared[extra] == EXTRASAMPLE_UNASSALPHA) {
            page.hasAlpha = true;
            page.alpha =
                declared[extra] == EXTRASAMPLE_ASSOCALPHA ? FileAlpha::premultiplied : FileAlpha::straight;
            page.channels.push_back(colorChannels + extra);
            return;
        }
    }
    if (extras == 1) {
        page.hasAlpha = true;
        page.channels.push_back(colorChannels);
    }
}

/// Some writers give palettes of 8 bits although the format asks for 16.
void readPalette(const TiffFile& file, TiffPage& page) {
    constexpr int largestIndexBits = 16;
    std::array<const std::uint16_t*, 3> maps{};
    if (page.bits > largestIndexBits ||
        TIFFGetField(file.handle(), TIFFTAG_COLORMAP, &maps[0], &maps[1], &maps[2]) != 1) {
        refuse();
    }
    const std::size_t size = std::size_t{1} << page.bits;
    constexpr std::uint16_t largestByte = 255;
    const bool isOfBytes = std::all_of(maps.begin(), maps.end(), [&](const std::uint16_t* map) {
        return std::all_of(map, map + size, [](std::uint16_t value) { return value <= largestByte; });
    });
    page.palette.resize(size);
    for (std::size_t index = 0; index < size; ++index) {
        for (std::size_t channel = 0; channel < 3; ++channel) {
            page.palette[index][channel] =
                static_cast<std::uint8_t>(isOfBytes ? maps[channel][index] : maps[channel][index] >> 8);
        }
    }
}

QByteArray profileOf(const TiffFile& file) {
    std::uint32_t size = 0;
    const void* profile = nullptr;
    if (TIFFGetField(file.handle(), TIFFTAG_ICCPROFILE, &size, &profile) != 1) {
        return {};
    }
    return {static_cast<const char*>(profile), static_cast<qsizetype>(size)};
}

void expectInksOfPrint(const TiffFile& file) {
    if (file.valueOf<std::uint16_t>(TIFFTAG_INKSET, INKSET_CMYK) != INKSET_CMYK) {
        refuse();
    }
}

}  // namespace

SampleForm TiffPage::sampleForm() const {
    const int colorChannels = colors == TiffColors::palette ? 3 : colorChannelsOf(colors);
    const bool isLab = colors == TiffColors::lab || colors == TiffColors::iccLab;
    const bool hasBytes = colors == TiffColors::palette || (bits <= 8 && !isLab);
    return {.channels = colorChannels + (hasAlpha ? 1 : 0),
            .hasAlpha = hasAlpha,
            .bits = hasBytes ? 8 : 16,
            .alpha = alpha};
}

TiffPage readTiffPage(const TiffFile& file) {
    TIFF* tiff = file.handle();
    TiffPage page;
    page.width = file.valueOf<std::uint32_t>(TIFFTAG_IMAGEWIDTH, 0);
    page.height = file.valueOf<std::uint32_t>(TIFFTAG_IMAGELENGTH, 0);
    const auto compression = file.valueOf<std::uint16_t>(TIFFTAG_COMPRESSION, COMPRESSION_NONE);
    if (!isPlausible(page, compression, file.size()) || compression == COMPRESSION_OJPEG) {
        refuse();
    }
    page.bits = file.valueOf<std::uint16_t>(TIFFTAG_BITSPERSAMPLE, 1);
    page.fileChannels = file.valueOf<std::uint16_t>(TIFFTAG_SAMPLESPERPIXEL, 1);
    page.hasSeparatePlanes =
        page.fileChannels > 1 &&
        file.valueOf<std::uint16_t>(TIFFTAG_PLANARCONFIG, PLANARCONFIG_CONTIG) == PLANARCONFIG_SEPARATE;
    page.isBigEndian = TIFFIsBigEndian(tiff) != 0;
    const std::uint16_t photometric = photometricOf(file, page.fileChannels, compression);
    const bool isRgbOfJpeg =
        compression == COMPRESSION_JPEG && photometric == PHOTOMETRIC_YCBCR && !page.hasSeparatePlanes;
    if (isRgbOfJpeg) {
        TIFFSetField(tiff, TIFFTAG_JPEGCOLORMODE, JPEGCOLORMODE_RGB);
    }
    page.colors = colorsOf(photometric, isRgbOfJpeg);
    page.profile = profileOf(file);
    if (page.colors == TiffColors::convertedByLibrary) {
        return page;
    }
    if (page.fileChannels < colorChannelsOf(page.colors)) {
        refuse();
    }
    readSampleFormat(file, page);
    readExtraSamples(file, page);
    if (page.colors == TiffColors::palette) {
        readPalette(file, page);
    } else if (page.colors == TiffColors::inks) {
        expectInksOfPrint(file);
    }
    return page;
}

}  // namespace quarlin
