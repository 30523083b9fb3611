#pragma once

#include "imaging/decode/opened_image.h"

#include <QByteArray>

#include <memory>

namespace quarlin {

/// Whether the bytes begin as a TIFF file does.
bool isTiff(const QByteArray& bytes);

/// Opens the first page of a TIFF file; throws `DecodeError`.
OpenedImage openTiff(const QByteArray& bytes, ColorHandling handling);

}  // namespace quarlin
