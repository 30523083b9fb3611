#include "memory_fill.h"

#include <sanitizer/allocator_interface.h>

#include <atomic>
#include <cstddef>
#include <cstring>

namespace quarlin::fuzz {

namespace {

std::atomic<std::uint8_t> fill{0};

void fillBlock(const volatile void* block, std::size_t size) {
    // After this, the sanitizer clears small blocks of calloc, but returns larger ones as they come from the
    // system.
    constexpr std::size_t largestClearedBlock = std::size_t{1} << 16U;
    if (size <= largestClearedBlock) {
        std::memset(const_cast<void*>(block), fill, size);
    }
}

}  // namespace

void fillNewMemoryWith(std::uint8_t value) {
    static const int installed =
        __sanitizer_install_malloc_and_free_hooks(fillBlock, [](const volatile void*) {});
    static_cast<void>(installed);
    fill = value;
}

}  // namespace quarlin::fuzz
