#pragma once

#include <QByteArray>

namespace quarlin {

/// Whether the coded images of a HEIC or AVIF file (HEVC and AV1 only) are all there. The decoders behind
/// fill in what is missing without a word, but the structure shows it:
///
/// - The places that the file declares for an image are inside the file.
/// - The units of an image fill its places exactly.
/// - HEVC: no unit contains three zeros in a row, which the format excludes, or ends in a zero.
/// - AV1: no frame ends in many zeros. An encoder ends its codes with a one.
///
/// The boxes must be well-formed.
bool hasWholeCodedImages(const QByteArray& file);

}  // namespace quarlin
