#pragma once

namespace quarlin {

/// Makes the settings of this process that decoding and encoding rely on. To be called at the start of a
/// program; what relies on them calls it, too, and only the first call counts. (libvips, which takes some 50
/// milliseconds to start, is started by the first file that needs it.)
void startImaging();

}  // namespace quarlin
