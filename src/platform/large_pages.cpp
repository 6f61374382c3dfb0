#include "platform/large_pages.h"

#include <cstdint>
#include <new>

#ifdef __GLIBC__
#include <malloc.h>
#endif

#ifdef __linux__
#include <sys/mman.h>
#endif

namespace {

constexpr std::size_t kPage = std::size_t{2} << 20;
constexpr std::size_t kStep = 64;  // all blocks are multiples of it, and so are their places

constexpr std::size_t RoundedUp(std::size_t bytes, std::size_t step) {
    return (bytes + step - 1) / step * step;
}

#ifdef __linux__

// Pages come from the system and go back to it: the heap would keep them when a project is closed.
void* TakePages(std::size_t bytes) {
    void* const mapped = mmap(nullptr, bytes + kPage, PROT_READ | PROT_WRITE, MAP_PRIVATE | MAP_ANONYMOUS, -1, 0);
    if (mapped == MAP_FAILED)
        throw std::bad_alloc();
    // Only what begins at a multiple of its size becomes a large page; the rest on both sides goes back.
    char* const begin = static_cast<char*>(mapped);
    const std::size_t before = (kPage - reinterpret_cast<std::uintptr_t>(begin) % kPage) % kPage;
    if (before > 0)
        munmap(begin, before);
    if (before < kPage)
        munmap(begin + before + bytes, kPage - before);
    madvise(begin + before, bytes, MADV_HUGEPAGE);
    return begin + before;
}

void GivePages(void* pages, std::size_t bytes) {
    munmap(pages, bytes);
}

#else

void* TakePages(std::size_t bytes) {
    return ::operator new(bytes, std::align_val_t(kStep));
}

void GivePages(void* pages, std::size_t /*bytes*/) {
    ::operator delete(pages, std::align_val_t(kStep));
}

#endif

}  // namespace

LargePages::~LargePages() {
    for (const auto& [pages, bytes] : pages_)
        if (pages)
            GivePages(pages, bytes);
}

void LargePages::NewPages(std::size_t bytes) {
    bytes = RoundedUp(bytes, kPage);
    pages_.emplace_back(nullptr, 0);
    pages_.back() = {TakePages(bytes), bytes};
    if (restBytes_ > 0)
        free_.emplace(restBytes_, rest_);
    rest_ = static_cast<char*>(pages_.back().first);
    restBytes_ = bytes;
}

void* LargePages::do_allocate(std::size_t bytes, std::size_t /*alignment*/) {
    bytes = RoundedUp(bytes, kStep);
    const std::lock_guard lock(mutex_);
    if (const auto found = free_.lower_bound(bytes); found != free_.end()) {
        const auto [size, block] = *found;
        free_.erase(found);
        if (size > bytes)
            free_.emplace(size - bytes, block + bytes);
        return block;
    }
    if (bytes > restBytes_)
        NewPages(bytes);
    char* const block = rest_;
    rest_ += bytes;
    restBytes_ -= bytes;
    return block;
}

void LargePages::do_deallocate(void* block, std::size_t bytes, std::size_t /*alignment*/) {
    const std::lock_guard lock(mutex_);
    free_.emplace(RoundedUp(bytes, kStep), static_cast<char*>(block));
}

void ReturnFreedMemory() {
#ifdef __GLIBC__
    malloc_trim(0);
#endif
}
