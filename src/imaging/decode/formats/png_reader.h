#pragma once

#include "imaging/decode/opened_image.h"
#include "imaging/files/byte_source.h"

#include <QByteArray>

#include <memory>

namespace quarlin {

/// Whether the bytes begin as a PNG file does.
bool isPng(const QByteArray& bytes);

/// Opens a PNG file of any kind; throws `DecodeError`.
OpenedImage openPng(const std::shared_ptr<ByteSource>& source, ColorHandling handling);

/// Opens a PNG file by the general decoder, which knows every kind of PNG file and forgives some flaws that
/// harm no pixel.
OpenedImage openAnyPng(const QByteArray& bytes, ColorHandling handling = ColorHandling::convert);

}  // namespace quarlin
