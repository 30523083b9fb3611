#pragma once

#include "imaging/files/byte_source.h"

#include <vector>

namespace quarlin {

/// A JPEG file without the bytes that may not belong to it.
struct JpegParts {
    /// The file without any bytes between the segments of its header.
    std::vector<ByteRange> clean;
    /// The same without zeros at the end of its scans; equal to `clean` if there are none.
    std::vector<ByteRange> withoutZeros;
};

/// Finds the parts of a JPEG file. If the bytes are not a sequence of segments, both are the whole file.
/// Throws what the source throws.
JpegParts jpegParts(ByteSource& source);

}  // namespace quarlin
