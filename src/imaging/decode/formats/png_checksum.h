#pragma once

#include <QByteArray>

namespace quarlin {

/// Whether the pixels of a PNG file inflate to the end, where another checksum than theirs is found. The
/// general decoder does not compare it, and the checksums of chunks are right if a damaged file was written
/// anew.
bool hasWrongPixelChecksum(const QByteArray& png);

}  // namespace quarlin
