#pragma once

#include "imaging/pixels/row_reader.h"

#include <QString>

#include <memory>
#include <utility>

namespace quarlin {

/// What the color profile, the gamma or the coded colors of a file are good for.
enum class ColorHandling {
    /// Colors are converted to sRGB.
    convert,
    /// The samples stay as they are: they are data, not colors. (Four inks and CIELAB are converted all the
    /// same.)
    keepSamples,
};

/// A decoder that is ready to give rows.
struct OpenedImage {
    std::unique_ptr<RowReader> rows;
    /// The name of what the samples are converted from, such as "Dot Gain 20%"; empty if they count as sRGB.
    QString convertedFrom = {};
};

}  // namespace quarlin
