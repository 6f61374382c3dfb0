#include "platform/memory.h"

#include <cstdint>  // tells whose C library this is

#if defined(__linux__) && defined(__GLIBC__) && !defined(__SANITIZE_ADDRESS__)

#include <malloc.h>
#include <sys/mman.h>
#include <unistd.h>

#include <mutex>

namespace {

constexpr std::uintptr_t kLargePage = std::uintptr_t{2} << 20;
constexpr int kStep = 32 << 20;  // the heap grows by this much at least

}  // namespace

void UseLargePages() {
    static std::mutex one;
    const std::lock_guard lock(one);
    static std::uintptr_t done = [] {
        // All blocks of all threads come from the one heap, which is never given back piecemeal.
        mallopt(M_ARENA_MAX, 1);
        mallopt(M_MMAP_THRESHOLD, 32 << 20);
        mallopt(M_TRIM_THRESHOLD, 1 << 30);
        mallopt(M_TOP_PAD, kStep);
        return reinterpret_cast<std::uintptr_t>(sbrk(0));
    }();
    const auto top = reinterpret_cast<std::uintptr_t>(sbrk(0));
    const std::uintptr_t first = (done + kLargePage - 1) / kLargePage * kLargePage;
    if (top < first + kLargePage)
        return;
    madvise(reinterpret_cast<void*>(first), top - first, MADV_HUGEPAGE);
    done = top;
}

#else

void UseLargePages() {}

#endif
