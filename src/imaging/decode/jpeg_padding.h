#pragma once

#include <QByteArray>

namespace quarlin {

/// A JPEG file and what may be wrong about the bytes between its parts.
struct JpegParts {
    /// The file without anything that stands between the segments of its header.
    QByteArray clean;
    /// The same without zeros at the end of its scans; equal to `clean` when there are none.
    QByteArray withoutZeros;
};

/// Takes a JPEG file apart; other bytes, and what is no sequence of segments, come back as they are.
JpegParts jpegParts(const QByteArray& bytes);

}  // namespace quarlin
