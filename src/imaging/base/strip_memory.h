#pragma once

namespace quarlin {

/// Lets the C library keep freed memory for the next strip of rows. By default it returns buffers of that
/// size to the system; each new one then costs a page fault per page. To be called once at the start of a
/// program; does nothing where the C library has no such setting.
void keepStripMemory();

}  // namespace quarlin
