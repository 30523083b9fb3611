#pragma once

#include "imaging/color/color_profile.h"

#include <optional>

namespace quarlin {

/// Starts libvips and makes its settings, once for the process, which takes some 50 milliseconds. Throws
/// `DecodeError` if it can't be started.
void startVips();

/// The ICC profile that libvips brings along for four inks (cyan, magenta, yellow, black); nothing if that
/// can't be loaded.
std::optional<NamedProfile> defaultCmykProfile();

}  // namespace quarlin
