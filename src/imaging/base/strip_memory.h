#pragma once

namespace quarlin {

/// Lets the C library keep what a strip of rows needs from one strip to the next. By itself it gives such
/// amounts back to the system each time and is given them anew, page by page and cleared. To be called once,
/// as a program starts; does nothing where the C library has no such choice.
void keepStripMemory();

}  // namespace quarlin
