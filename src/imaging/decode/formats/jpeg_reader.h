#pragma once

#include "imaging/decode/opened_image.h"
#include "imaging/files/byte_source.h"

#include <QByteArray>

#include <memory>

namespace quarlin {

/// Whether the bytes begin as a JPEG file does.
bool isJpeg(const QByteArray& bytes);

/// Opens a JPEG file; throws `DecodeError` and what the source throws. A warning of the decoder counts as
/// damage, except one about unusual parameters. The end marker may be missing.
///
/// Bytes between the segments of the header do no harm, and neither do zeros that pad a scan. But zeros are
/// valid codes, too: the part of a file that was never written (a copy or a download that broke off) decodes
/// to flat color without a warning. So a scan that ends in zeros must need either all of them, as flat
/// pictures do, or none.
OpenedImage openJpeg(const std::shared_ptr<ByteSource>& source, ColorHandling handling);

}  // namespace quarlin
