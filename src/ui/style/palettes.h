#pragma once

#include <QPalette>

namespace quarlin {

/// The program's own palettes, for desktops whose palette does not follow the color scheme they ask for.
QPalette lightPalette();
QPalette darkPalette();

}  // namespace quarlin
