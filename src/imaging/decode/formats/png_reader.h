#pragma once

#include "imaging/files/byte_source.h"
#include "imaging/pixels/row_reader.h"

#include <QByteArray>

#include <memory>

namespace quarlin {

/// Whether the bytes begin as a PNG file does.
bool isPng(const QByteArray& bytes);

/// Opens a PNG file of any kind; throws `DecodeError`.
std::unique_ptr<RowReader> openPng(const std::shared_ptr<ByteSource>& source);

/// Opens a PNG file by the general decoder, which knows every kind of PNG file and forgives some flaws that
/// harm no pixel.
std::unique_ptr<RowReader> openAnyPng(const QByteArray& bytes);

}  // namespace quarlin
