#include "app/desktop_color_scheme.h"

namespace quarlin {

// Here Qt's palette is the desktop's, and follows it.
std::unique_ptr<QObject> followDesktopColorScheme() { return nullptr; }

}  // namespace quarlin
