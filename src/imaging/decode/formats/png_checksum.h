#pragma once

#include <QByteArray>

namespace quarlin {

/// Whether the chunks of pixels end before their zlib stream does, or the stream ends with another checksum
/// than theirs. Not every version of the general decoder notices, and the checksums of chunks are right if a
/// damaged file was written anew.
bool hasDamagedPixelStream(const QByteArray& png);

}  // namespace quarlin
