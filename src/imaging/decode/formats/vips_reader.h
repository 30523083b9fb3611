#pragma once

#include "imaging/pixels/row_reader.h"

#include <QByteArray>

#include <functional>
#include <memory>
#include <optional>

namespace quarlin {

/// The profile of samples of 1 (gray), 3 (RGB) or 4 (CMYK) color channels; nothing if there is none for them.
using ProfileOfChannels = std::function<std::optional<QByteArray>(int colorChannels)>;

/// Opens a file of any format that libvips reads and Quarlin supports. `otherProfile` gives the color profile
/// of files without an embedded one that can be used. Throws `DecodeError`.
std::unique_ptr<RowReader> openWithVips(QByteArray bytes, const ProfileOfChannels& otherProfile);

}  // namespace quarlin
