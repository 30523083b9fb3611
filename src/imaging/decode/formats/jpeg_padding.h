#pragma once

#include <QByteArray>

namespace quarlin {

/// A JPEG file without the bytes that may not belong to it.
struct JpegParts {
    /// The file without any bytes between the segments of its header.
    QByteArray clean;
    /// The same without zeros at the end of its scans; equal to `clean` if there are none.
    QByteArray withoutZeros;
};

/// Finds the parts of a JPEG file. Bytes that are not a sequence of segments are returned unchanged.
JpegParts jpegParts(const QByteArray& bytes);

}  // namespace quarlin
