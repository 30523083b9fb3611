#pragma once

#include "imaging/decode/opened_image.h"

#include <QByteArray>

#include <memory>

namespace quarlin {

/// Whether the bytes begin as a WebP file does.
bool isWebp(const QByteArray& bytes);

/// Opens a WebP file, of an animation the first frame; throws `DecodeError`.
///
/// Zeros are valid codes: the part of a file that was never written (a copy or a download that broke off)
/// decodes to flat color without an error. So a picture whose codes end in zeros must need either all of
/// them, as flat pictures do, or none.
OpenedImage openWebp(const QByteArray& bytes, ColorHandling handling);

}  // namespace quarlin
