#include "imaging/base/strip_memory.h"

#include <cstdlib>

#ifdef __GLIBC__
#include <malloc.h>
#endif

namespace quarlin {

void keepStripMemory() {
#ifdef __GLIBC__
    // Larger blocks are whole images, which are returned to the system as soon as they are freed.
    constexpr int largestStripBuffer = 4 << 20;
    constexpr int mostKept = 64 << 20;
    mallopt(M_MMAP_THRESHOLD, largestStripBuffer);
    mallopt(M_TRIM_THRESHOLD, mostKept);
#endif
}

}  // namespace quarlin
