#pragma once

#include <QByteArray>

namespace quarlin {

/// Marks the alpha of a TIFF file whose first page holds premultiplied ("associated") colors as straight, so
/// that a decoder leaves the samples as they are instead of dividing them. Returns whether the file was such;
/// any others, damaged ones too, stay unchanged.
bool markPremultipliedTiffAsStraight(QByteArray& bytes);

}  // namespace quarlin
