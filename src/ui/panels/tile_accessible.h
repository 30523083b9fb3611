#pragma once

namespace quarlin {

/// Lets assistive technology open preview tiles.
void installTileAccessibility();

}  // namespace quarlin
