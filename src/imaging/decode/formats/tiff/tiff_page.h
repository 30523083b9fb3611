#pragma once

#include "imaging/decode/formats/tiff/tiff_file.h"
#include "imaging/decode/row_conversion.h"

#include <QByteArray>

#include <array>
#include <cstdint>
#include <vector>

namespace quarlin {

/// What the color samples of a page mean.
enum class TiffColors {
    gray,
    grayWhereZeroIsWhite,
    rgb,
    /// One sample, the number of a color in the page's palette.
    palette,
    /// Four inks: cyan, magenta, yellow, black.
    inks,
    /// CIELAB with signed a and b.
    lab,
    /// CIELAB as ICC profiles code it.
    iccLab,
    /// Brightness and color differences, or light itself: the library converts them to 8-bit RGB.
    convertedByLibrary,
};

/// The form in which the first page of a TIFF file keeps its samples.
struct TiffPage {
    std::int64_t width = 0;
    std::int64_t height = 0;
    TiffColors colors = TiffColors::gray;
    /// Samples are floating point numbers, else unsigned integers (of CIELAB, a and b are signed).
    bool isFloatingPoint = false;
    /// Bits of a sample in the file, 1...64.
    int bits = 8;
    /// Samples of a pixel in the file.
    int fileChannels = 1;
    /// Each channel has strips or tiles of its own.
    bool hasSeparatePlanes = false;
    /// Bytes of a sample of more than 32 bits are in the order of a big-endian file.
    bool isBigEndian = false;
    /// Where the samples that count are among those of a pixel: the colors, then alpha if there is one.
    std::vector<int> channels;
    bool hasAlpha = false;
    FileAlpha alpha = FileAlpha::straight;
    /// Colors of 8 bits.
    std::vector<std::array<std::uint8_t, 3>> palette;
    /// The embedded profile; empty if there is none.
    QByteArray profile;

    /// The form of the samples that `TiffSamples` makes of them.
    SampleForm sampleForm() const;
};

/// Reads the tags of the page at which `file` is open, and has the library decode JPEG data to RGB. Throws
/// `DecodeError` if the size is not plausible or the samples have no clear meaning: signed or complex
/// numbers, more or fewer colors than there should be, color models for cameras and printers.
TiffPage readTiffPage(const TiffFile& file);

}  // namespace quarlin
