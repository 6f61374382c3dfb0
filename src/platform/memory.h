// Memory of the process as a whole.
#pragma once

#include <cstddef>

/// Asks the system to back the heap with large pages: a project's texts and objects are tens of megabytes that are
/// all touched once, and making them page by page would cost as much as reading them. Cheap to call again as the heap
/// grows, on any thread; without effect where the system has no such thing.
void UseLargePages();

/// Tells the processor that this place will be needed soon. Harmless for any address.
inline void Prefetch(const void* place) {
#ifdef __GNUC__
    __builtin_prefetch(place);
#else
    (void)place;
#endif
}

/// The same for all of a stretch.
inline void Prefetch(const void* begin, std::size_t bytes) {
    constexpr std::size_t kLine = 64;
    const char* const first = static_cast<const char*>(begin);
    for (std::size_t at = 0; at < bytes; at += kLine)
        Prefetch(first + at);
}
