#pragma once

#include <QByteArray>
#include <QImage>

namespace quarlin {

/// Whether the bytes begin as a JPEG file does.
bool isJpeg(const QByteArray& bytes);

/// Decodes a JPEG file to `pixelFormat`; a null image when it is damaged or cut short.
///
/// Bytes between the segments of the header do no harm, and neither do zeros that pad a scan. But zeros are
/// valid codes, too: the part of a file that was never written (a copy or a download that broke off) decodes
/// to flat color without a word. So a scan that ends in zeros must either need every one of them, as flat
/// pictures do, or none.
QImage decodeJpeg(const QByteArray& bytes);

}  // namespace quarlin
