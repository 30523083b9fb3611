#include "band_memory.h"

#include <cstdlib>

#ifdef __GLIBC__
#include <malloc.h>
#endif

namespace quarlin {

void keepBandMemory() {
#ifdef __GLIBC__
    // Larger blocks are whole images, which go back to the system as soon as they are done with.
    constexpr int largestBandBuffer = 4 << 20;
    constexpr int mostKept = 64 << 20;
    mallopt(M_MMAP_THRESHOLD, largestBandBuffer);
    mallopt(M_TRIM_THRESHOLD, mostKept);
#endif
}

}  // namespace quarlin
