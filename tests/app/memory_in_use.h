#pragma once

#include <QtGlobal>

#include <cstddef>

#ifdef __SANITIZE_ADDRESS__
// Declared here because not every compiler has the header; the sanitizer's library always has the function.
extern "C" std::size_t __sanitizer_get_current_allocated_bytes();
#else
#include <malloc.h>
#endif

namespace quarlin::fixtures {

#ifdef __SANITIZE_ADDRESS__
inline constexpr bool isSanitized = true;
/// The bytes that the process has allocated and not freed, however much the allocator took from the system.
inline qint64 memoryInUse() { return static_cast<qint64>(__sanitizer_get_current_allocated_bytes()); }
#else
#ifdef __SANITIZE_THREAD__
inline constexpr bool isSanitized = true;
#else
inline constexpr bool isSanitized = false;
#endif
/// The bytes that the process has allocated and not freed, however much the allocator took from the system.
inline qint64 memoryInUse() {
    // Freed memory that the allocator keeps for reuse would count as used.
    malloc_trim(0);
    const struct mallinfo2 info = mallinfo2();
    return static_cast<qint64>(info.uordblks + info.hblkhd);
}
#endif

}  // namespace quarlin::fixtures
