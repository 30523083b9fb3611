#include "app/desktop_color_scheme.h"

namespace quarlin {

// Here the toolkit's palette is the desktop's, also when that changes.
std::unique_ptr<QObject> followDesktopColorScheme() { return nullptr; }

}  // namespace quarlin
