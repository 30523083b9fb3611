#pragma once

#include "imaging/color/color_profile.h"
#include "imaging/decode/opened_image.h"

#include <QByteArray>

#include <functional>
#include <memory>
#include <optional>

namespace quarlin {

/// The profile of samples of 1 (gray), 3 (RGB) or 4 (CMYK) color channels; nothing if there is none for them.
using ProfileOfChannels = std::function<std::optional<NamedProfile>(int colorChannels)>;

/// Opens a file of any format that libvips reads and Quarlin supports. `otherProfile` gives the color profile
/// of files without an embedded one that can be used. Throws `DecodeError`.
OpenedImage openWithVips(QByteArray bytes, const ProfileOfChannels& otherProfile, ColorHandling handling);

}  // namespace quarlin
