// Objects of one class that live and die together, side by side in blocks: they cost no heap block each and stay where
// they are.
#pragma once

#include <algorithm>
#include <cstddef>
#include <memory>
#include <utility>
#include <vector>

template <class T>
class Blocks {
public:
    Blocks() = default;
    Blocks(const Blocks&) = delete;
    Blocks& operator=(const Blocks&) = delete;
    ~Blocks() {
        for (Block& block : blocks_)
            std::destroy_n(block.first, block.used);
        for (const Block& block : blocks_)
            std::allocator<T>().deallocate(block.first, block.size);
    }

    template <class... Arguments>
    T& New(Arguments&&... arguments) {
        if (blocks_.empty() || blocks_.back().used == blocks_.back().size)
            AddBlock();
        Block& block = blocks_.back();
        T* const object = std::construct_at(block.first + block.used, std::forward<Arguments>(arguments)...);
        ++block.used;
        return *object;
    }

private:
    struct Block {
        T* first = nullptr;
        std::size_t size = 0;
        std::size_t used = 0;
    };
    void AddBlock() {
        constexpr std::size_t kFirst = 8;
        constexpr std::size_t kLargest = 32;
        const std::size_t size = blocks_.empty() ? kFirst : std::min(blocks_.back().size * 2, kLargest);
        blocks_.push_back({});
        blocks_.back().first = std::allocator<T>().allocate(size);
        blocks_.back().size = size;
    }
    std::vector<Block> blocks_;
};
