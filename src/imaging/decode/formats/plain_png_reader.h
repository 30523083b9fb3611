#pragma once

#include "imaging/files/byte_source.h"
#include "imaging/pixels/row_reader.h"

#include <memory>

namespace quarlin {

/// Opens the most common kind of PNG file, several times as fast as the general decoder and with the same
/// pixels: 8 bits per sample, gray or RGB with or without alpha, not interlaced, without a palette, a color
/// key or colors other than sRGB. A null pointer if the file is of another kind or damaged before its pixels.
/// The rows throw `DecodeError` for any flaw after that, also for one that the general decoder forgives. Both
/// throw what the source throws.
std::unique_ptr<RowReader> openPlainPng(const std::shared_ptr<ByteSource>& source);

}  // namespace quarlin
