#pragma once

#include <QByteArray>

#include <optional>

namespace quarlin {

/// A JPEG file without the bytes that belong to no part of the picture: anything between the segments of its
/// header, and zeros between a scan and the next marker. Nothing when there are none, or when the bytes are
/// no JPEG.
///
/// Bytes of the first kind make the decoder speak of damage where there is none. Those of the second hide
/// damage: zeros are valid codes, so that the rest of a file that was never written (a copy or download that
/// broke off) decodes to flat grey without a word. A whole scan can do without them; one that was cut off is
/// found too short once they are gone.
std::optional<QByteArray> withoutJpegPadding(const QByteArray& bytes);

}  // namespace quarlin
