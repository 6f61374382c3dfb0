#include "platform/large_pages.h"

#include <cstdlib>
#include <new>

#ifdef __linux__
#include <sys/mman.h>
#endif

namespace {

constexpr std::size_t kPage = std::size_t{2} << 20;
constexpr std::size_t kStep = 64;  // all blocks are multiples of it, and so are their places

constexpr std::size_t RoundedUp(std::size_t bytes, std::size_t step) {
    return (bytes + step - 1) / step * step;
}

}  // namespace

LargePages::~LargePages() {
    for (void* pages : pages_)
        std::free(pages);
}

void LargePages::NewPages(std::size_t bytes) {
    bytes = RoundedUp(bytes, kPage);
    pages_.reserve(pages_.size() + 1);
    void* const pages = std::aligned_alloc(kPage, bytes);
    if (!pages)
        throw std::bad_alloc();
    pages_.push_back(pages);
#ifdef __linux__
    madvise(pages, bytes, MADV_HUGEPAGE);
#endif
    if (restBytes_ > 0)
        free_.emplace(restBytes_, rest_);
    rest_ = static_cast<char*>(pages);
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
