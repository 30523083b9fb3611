#pragma once

#include "imaging/decode/opened_image.h"

#include <QByteArray>

#include <memory>

namespace quarlin {

/// Whether the bytes begin as a HEIC or AVIF file does.
bool isHeif(const QByteArray& bytes);

/// Opens the primary image of a HEIC or AVIF file, which decodes it whole; throws `DecodeError`. Rotation and
/// mirroring are ignored, cropping is not. Colors are converted from the ICC profile, or else from the coded
/// colors ("nclx") of the file.
OpenedImage openHeif(const QByteArray& bytes, ColorHandling handling);

}  // namespace quarlin
