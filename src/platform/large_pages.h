// Memory for the arenas of a project, in large pages where the system has them.
#pragma once

#include <cstddef>
#include <map>
#include <memory_resource>
#include <mutex>
#include <utility>
#include <vector>

/// Hands out blocks that are cut from large pages, to several threads at the same time. A project's texts and objects
/// are tens of megabytes that are all touched once: making them in small pages costs more than a tenth of the whole
/// analysis of a million lines, measured. Blocks that come back serve again; the pages go with this object.
class LargePages final : public std::pmr::memory_resource {
public:
    LargePages() = default;
    ~LargePages() override;
    LargePages(const LargePages&) = delete;
    LargePages& operator=(const LargePages&) = delete;

private:
    void* do_allocate(std::size_t bytes, std::size_t alignment) override;
    void do_deallocate(void* block, std::size_t bytes, std::size_t alignment) override;
    [[nodiscard]] bool do_is_equal(const memory_resource& other) const noexcept override { return this == &other; }
    void NewPages(std::size_t bytes);

    std::mutex mutex_;                                  // guards all below
    std::vector<std::pair<void*, std::size_t>> pages_;  // with their bytes
    char* rest_ = nullptr;                              // of the last page
    std::size_t restBytes_ = 0;
    std::multimap<std::size_t, char*> free_;  // blocks that came back, by size
};

/// Gives freed memory back to the system. The C library of Linux keeps what many small objects leave, tree nodes and
/// edges above all: after closing a project of 100,000 lines some 25 MB. Elsewhere it does nothing.
void ReturnFreedMemory();
