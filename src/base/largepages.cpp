#include "base/largepages.h"

#include <sys/mman.h>

#include <cstdint>

void preferLargePages(void* memory, std::size_t size)
{
    constexpr std::uintptr_t page = 4096; // bytes
    const auto address = reinterpret_cast<std::uintptr_t>(memory);
    const std::uintptr_t begin = (address + page - 1) / page * page;
    const std::uintptr_t end = (address + size) / page * page;
    if (begin < end)
        madvise(reinterpret_cast<void*>(begin), end - begin, MADV_HUGEPAGE);
}
