#pragma once

#include <cstddef>

/// Asks the system to hold a stretch of memory, which may lie anywhere, in large pages. Those are faster to
/// fill at first. A hint that may have no effect.
void preferLargePages(void* memory, std::size_t size);
