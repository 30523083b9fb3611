#pragma once

#include <string_view>

namespace quarlin {

/// The first bytes of every PNG file.
inline constexpr std::string_view pngSignature("\x89PNG\r\n\x1A\n", 8);

}  // namespace quarlin
