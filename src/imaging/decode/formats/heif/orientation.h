#pragma once

#include <QByteArray>

#include <optional>

namespace quarlin {

/// A HEIC or AVIF file whose images are not rotated or mirrored when they are decoded. Nothing if the boxes
/// that describe the images are not well-formed: a decoder should not be given them.
std::optional<QByteArray> withoutOrientation(QByteArray file);

}  // namespace quarlin
