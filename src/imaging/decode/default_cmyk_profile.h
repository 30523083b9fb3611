#pragma once

#include "imaging/color/color_profile.h"

#include <optional>

namespace quarlin {

/// The ICC profile that libvips brings along for four inks (cyan, magenta, yellow, black); nothing if that
/// can't be loaded.
std::optional<NamedProfile> defaultCmykProfile();

}  // namespace quarlin
