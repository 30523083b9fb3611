#pragma once

#include <QByteArray>
#include <QImage>

namespace quarlin {

/// Whether the bytes begin as a Windows bitmap does.
bool isBmp(const QByteArray& bytes);

/// Decodes a Windows bitmap to `pixelFormat`; a null image when it is damaged or cut short.
QImage decodeBmp(const QByteArray& bytes);

}  // namespace quarlin
