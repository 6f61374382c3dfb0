// Memory for objects that are freed together, such as those of one module.
#pragma once

#include <cstddef>
#include <memory_resource>
#include <new>
#include <utility>
#include <vector>

class Arena final : public std::pmr::memory_resource {
public:
    static constexpr std::size_t kBlock = std::size_t{8} << 10;

    /// @param upstream  gives the blocks; must outlive the arena
    /// @param block     bytes of a block, as many as the arena needs at least
    explicit Arena(std::pmr::memory_resource* upstream = std::pmr::get_default_resource(), std::size_t block = kBlock)
        : block_(block), upstream_(upstream) {}
    ~Arena() override {
        for (const Block& block : blocks_)
            upstream_->deallocate(block.begin, block.bytes);
    }
    Arena(const Arena&) = delete;
    Arena& operator=(const Arena&) = delete;

    /// Creates an object. Its destructor never runs: all memory that it holds must come from this arena as well.
    template <class T, class... Arguments>
    [[nodiscard]] T& New(Arguments&&... arguments) {
        return *new (allocate(sizeof(T), alignof(T))) T(std::forward<Arguments>(arguments)...);
    }

private:
    void* do_allocate(std::size_t bytes, std::size_t alignment) override {
        if (bytes >= block_ / 4)  // large ones get their own blocks
            return NewBlock(bytes);
        std::size_t skipped = (alignment - reinterpret_cast<std::size_t>(free_) % alignment) % alignment;
        if (bytes + skipped > left_) {
            free_ = static_cast<char*>(NewBlock(block_));
            left_ = block_;
            skipped = 0;
        }
        char* const place = free_ + skipped;
        free_ += skipped + bytes;
        left_ -= skipped + bytes;
        return place;
    }
    void do_deallocate(void* /*place*/, std::size_t /*bytes*/, std::size_t /*alignment*/) override {}
    [[nodiscard]] bool do_is_equal(const memory_resource& other) const noexcept override { return this == &other; }

    void* NewBlock(std::size_t bytes) {
        if (blocks_.size() == blocks_.capacity())
            blocks_.reserve(blocks_.size() * 2 + 4);
        void* const block = upstream_->allocate(bytes);
        blocks_.push_back({block, bytes});
        return block;
    }

    struct Block {
        void* begin;
        std::size_t bytes;
    };
    std::size_t block_;
    std::pmr::memory_resource* upstream_;
    std::vector<Block> blocks_;
    char* free_ = nullptr;
    std::size_t left_ = 0;
};
