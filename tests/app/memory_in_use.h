#pragma once

#include <QtGlobal>

#include <cstddef>

#ifdef __SANITIZE_ADDRESS__
// Not every compiler comes with the header that declares it; the sanitizer's library always has it.
extern "C" std::size_t __sanitizer_get_current_allocated_bytes();
#else
#include <malloc.h>
#endif

namespace quarlin::fixtures {

#ifdef __SANITIZE_ADDRESS__
inline constexpr bool isSanitized = true;
/// The bytes that the process has allocated and not freed, whatever it got from the system for them.
inline qint64 memoryInUse() { return static_cast<qint64>(__sanitizer_get_current_allocated_bytes()); }
#else
#ifdef __SANITIZE_THREAD__
inline constexpr bool isSanitized = true;
#else
inline constexpr bool isSanitized = false;
#endif
/// The bytes that the process has allocated and not freed, whatever it got from the system for them.
inline qint64 memoryInUse() {
    // Gives back what only waits to be used again, which would count as used.
    malloc_trim(0);
    const struct mallinfo2 info = mallinfo2();
    return static_cast<qint64>(info.uordblks + info.hblkhd);
}
#endif

}  // namespace quarlin::fixtures
