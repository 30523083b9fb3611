#pragma once

#include <QByteArray>

namespace quarlin {

/// Marks the alpha of a TIFF whose first page holds premultiplied ("associated") colors as straight, so that
/// a decoder hands the samples over as they stand instead of dividing them. Returns whether it was marked
/// so; leaves anything else, damaged files too, as it is.
bool markPremultipliedTiffAsStraight(QByteArray& bytes);

}  // namespace quarlin
