#pragma once

#include "imaging/decode/formats/bmp/bmp_header.h"

#include <QImage>

namespace quarlin {

/// Decodes a bitmap of run-length codes to an image in `pixelFormat`. Pixels that the codes skip are
/// transparent. A null image if the codes go beyond a row, or stop before the last pixel without saying that
/// this is the end.
QImage decodeBmpRuns(const QByteArray& file, const BmpHeader& header);

}  // namespace quarlin
