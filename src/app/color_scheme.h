#pragma once

namespace quarlin {

/// Whether the desktop asks for light text on dark or the other way round.
enum class ColorScheme { unspecified, dark, light };

/// Gives the application a palette of `scheme`. The platform's own palette is kept where it is of that scheme
/// already.
void applyColorScheme(ColorScheme scheme);

}  // namespace quarlin
