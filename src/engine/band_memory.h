#pragma once

namespace quarlin {

/// Lets the C library keep what a band of rows needs from one band to the next. By itself it gives such
/// amounts back to the system each time and is given them anew, page by page and cleared. To be called once,
/// as a program starts; does nothing where the C library has no such choice.
void keepBandMemory();

}  // namespace quarlin
