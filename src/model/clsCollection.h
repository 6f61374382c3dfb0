// The one container of the model: references in insertion order under keys without regard to case.
// Positions count from 1. It owns nothing. Look-ups compare name handles and allocate nothing, and several threads may
// make them at a time.
#pragma once

#include <atomic>
#include <cstdint>
#include <memory>
#include <mutex>
#include <string_view>
#include <vector>

#include "model/counters.h"
#include "model/names.h"
#include "platform/memory.h"
#include "shell/vb_text.h"

template <class T>
class clsCollection {
    struct Entry {
        Name key;  // lower case
        T* value;
    };

public:
    clsCollection() = default;
    clsCollection(const clsCollection&) = delete;
    clsCollection& operator=(const clsCollection&) = delete;
    clsCollection& operator=(clsCollection&& other) noexcept {
        Clear();
        entries_.swap(other.entries_);
        other.DropIndex();
        return *this;
    }
    ~clsCollection() { DropIndex(); }

    /// Appends. Throws VbError 457 when the key is present.
    void Add(Name key, T* value) {
        if (!AddUnlessPresent(key, value))
            throw VbError{457, "This key is already associated with an element of this collection"};
    }
    void Add(std::string_view key, T* value) { Add(Name(key), value); }

    /// Appends and returns true; returns false and changes nothing when the key is present.
    bool AddUnlessPresent(Name key, T* value) {
        key = key.Lower();
        if (PositionOf(key) != kNone)
            return false;
        AddNew(key, value);
        return true;
    }

    void Reserve(std::size_t entries) { entries_.reserve(entries); }
    [[nodiscard]] int Count() const { return static_cast<int>(entries_.size()); }
    [[nodiscard]] bool Contains(Name key) const { return PositionOf(key.Lower()) != kNone; }
    [[nodiscard]] bool Contains(std::string_view key) const { return Item(key) != nullptr; }

    /// The object under `key`, or null.
    [[nodiscard]] T* Item(Name key) const {
        const std::uint32_t position = PositionOf(key.Lower());
        return position == kNone ? nullptr : entries_[position].value;
    }
    [[nodiscard]] T* Item(std::string_view key) const {
        const Name name = Name::FindLower(key);
        return name.Known() ? Item(name) : nullptr;
    }
    /// The object at position `nr`, from 1. Throws VbError 9 out of range.
    [[nodiscard]] T* ItemNr(int nr) const {
        if (nr < 1 || nr > Count())
            ThrowSubscriptOutOfRange();
        return entries_[static_cast<std::size_t>(nr) - 1].value;
    }
    /// The key at position `nr`.
    [[nodiscard]] Name KeyNr(int nr) const {
        if (nr < 1 || nr > Count())
            ThrowSubscriptOutOfRange();
        return entries_[static_cast<std::size_t>(nr) - 1].key;
    }

    /// Takes the entry out and keeps the order of the others. Returns false for a missing key.
    bool Remove(Name key) {
        const std::uint32_t position = PositionOf(key.Lower());
        if (position == kNone)
            return false;
        entries_.erase(entries_.begin() + position);
        DropIndex();
        return true;
    }
    bool Remove(std::string_view key) {
        const Name name = Name::FindLower(key);
        return name.Known() && Remove(name);
    }
    void Clear() {
        entries_.clear();
        DropIndex();
    }

    /// Has the table and the entries fetched, for many look-ups that will follow.
    void PrefetchAll() const {
        Prefetch(entries_.data(), entries_.size() * sizeof(Entry));
        if (const Index* const index = index_.load(std::memory_order_acquire))
            Prefetch(index->slots.data(), index->slots.size() * sizeof(std::uint32_t));
    }

    // Iteration over the objects in order; removing meanwhile is not allowed.
    class Iterator {
    public:
        explicit Iterator(const Entry* entry) : entry_(entry) {}
        T* operator*() const { return entry_->value; }
        Iterator& operator++() {
            ++entry_;
            return *this;
        }
        bool operator==(const Iterator&) const = default;

    private:
        const Entry* entry_;
    };
    [[nodiscard]] Iterator begin() const { return Iterator(entries_.data()); }
    [[nodiscard]] Iterator end() const { return Iterator(entries_.data() + entries_.size()); }

protected:
    /// Appends under a key, in lower case, that is known not to be present.
    void AddNew(Name key, T* value) {
        entries_.push_back({key, value});
        if (Index* const index = index_.load(std::memory_order_relaxed))
            Enter(*index, static_cast<std::uint32_t>(entries_.size() - 1));
    }

private:
    static constexpr std::uint32_t kNone = UINT32_MAX;
    // Below this many entries a walk over the handles is quicker than a table and needs no memory.
    static constexpr std::size_t kIndexFrom = 17;

    struct Index {
        std::vector<std::uint32_t> slots;  // position + 1, or 0
    };

    [[nodiscard]] std::uint32_t PositionOf(Name key) const {
        if (entries_.size() < kIndexFrom) {
            for (std::uint32_t i = 0; i < entries_.size(); ++i)
                if (entries_[i].key == key)
                    return i;
            return kNone;
        }
        const Index* index = index_.load(std::memory_order_acquire);
        if (!index)
            index = IndexMadeOnce();
        const std::size_t mask = index->slots.size() - 1;
        for (std::size_t slot = key.Hash() & mask;; slot = (slot + 1) & mask) {
            const std::uint32_t position = index->slots[slot];
            if (position == 0)
                return kNone;
            if (entries_[position - 1].key == key)
                return position - 1;
        }
    }

    void Enter(Index& index, std::uint32_t position) const {
        if (entries_.size() * 2 > index.slots.size())
            Build(index);
        else
            Place(index, position);
    }
    void Place(Index& index, std::uint32_t position) const {
        const std::size_t mask = index.slots.size() - 1;
        std::size_t slot = entries_[position].key.Hash() & mask;
        while (index.slots[slot])
            slot = (slot + 1) & mask;
        index.slots[slot] = position + 1;
    }
    void Build(Index& index) const {
        std::size_t size = 64;
        while (size < entries_.size() * 3)
            size *= 2;
        index.slots.assign(size, 0);
        for (std::uint32_t i = 0; i < entries_.size(); ++i)
            Place(index, i);
    }
    // The first look-up makes the table, also when two come at a time.
    const Index* IndexMadeOnce() const {
        static std::mutex one;
        const std::lock_guard lock(one);
        if (const Index* const index = index_.load(std::memory_order_relaxed))
            return index;
        auto index = std::make_unique<Index>();
        Build(*index);
        index_.store(index.get(), std::memory_order_release);
        return index.release();
    }
    void DropIndex() { delete index_.exchange(nullptr, std::memory_order_relaxed); }

    std::vector<Entry> entries_;
    mutable std::atomic<Index*> index_ = nullptr;
    [[no_unique_address]] Counted<&ObjectCounts::collection> counted_;
};
