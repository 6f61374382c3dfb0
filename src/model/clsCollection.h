// The one container of the model: references in insertion order under keys without regard to case.
// Positions count from 1. It owns nothing. Look-ups compare name handles and allocate nothing, and several threads may
// make them at the same time.
#pragma once

#include <cstdint>
#include <memory_resource>
#include <string_view>
#include <vector>

#include "model/names.h"
#include "shell/vb_text.h"

template <class T>
class clsCollection {
    struct Entry {
        Name key;  // lower case
        T* value;
    };

public:
    /// @param memory  where the entries live; it outlives the collection
    explicit clsCollection(std::pmr::memory_resource* memory = std::pmr::get_default_resource())
        : entries_(memory), slots_(memory) {}

    /// Appends. Throws VbError 457 when the key is present.
    void Add(Name key, T* value) {
        if (!AddUnlessPresent(key, value))
            throw VbError{457, "This key is already associated with an element of this collection"};
    }

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
    [[nodiscard]] bool Contains(std::string_view lowerKey) const { return Item(lowerKey) != nullptr; }

    /// The object under `key`, or null.
    [[nodiscard]] T* Item(Name key) const { return ValueAt(PositionOf(key.Lower())); }
    /// The same by a text in lower case, which need not be in the pool.
    [[nodiscard]] T* Item(std::string_view lowerKey) const {
        return ValueAt(Find(Name::HashOf(lowerKey), [lowerKey](Name key) { return key.View() == lowerKey; }));
    }
    /// The object at position `nr`, from 1. Throws VbError 9 out of range.
    [[nodiscard]] T* ItemNr(int nr) const { return EntryNr(nr).value; }
    /// The key at position `nr`.
    [[nodiscard]] Name KeyNr(int nr) const { return EntryNr(nr).key; }

    /// Removes the entry and keeps the order of the others. Returns false for a missing key.
    bool Remove(Name key) {
        const std::uint32_t position = PositionOf(key.Lower());
        if (position == kNone)
            return false;
        entries_.erase(entries_.begin() + position);
        slots_.clear();
        if (entries_.size() >= kIndexFrom)
            BuildIndex();
        return true;
    }
    void Clear() {
        entries_.clear();
        slots_.clear();
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
        if (entries_.size() < kIndexFrom)
            return;
        if (entries_.size() * 2 > slots_.size())
            BuildIndex();
        else
            Place(static_cast<std::uint32_t>(entries_.size() - 1));
    }

private:
    static constexpr std::uint32_t kNone = UINT32_MAX;
    // Below this many entries a walk over the handles is faster than a table and needs no memory.
    static constexpr std::size_t kIndexFrom = 17;

    [[nodiscard]] const Entry& EntryNr(int nr) const {
        if (nr < 1 || nr > Count())
            ThrowSubscriptOutOfRange();
        return entries_[static_cast<std::size_t>(nr) - 1];
    }
    [[nodiscard]] T* ValueAt(std::uint32_t position) const {
        return position == kNone ? nullptr : entries_[position].value;
    }
    [[nodiscard]] std::uint32_t PositionOf(Name key) const {
        return Find(key.Hash(), [key](Name other) { return other == key; });
    }
    template <class IsKey>
    [[nodiscard]] std::uint32_t Find(std::uint32_t hash, IsKey isKey) const {
        if (slots_.empty()) {
            for (std::uint32_t i = 0; i < entries_.size(); ++i)
                if (isKey(entries_[i].key))
                    return i;
            return kNone;
        }
        const std::size_t mask = slots_.size() - 1;
        for (std::size_t slot = hash & mask;; slot = (slot + 1) & mask) {
            const std::uint32_t position = slots_[slot];
            if (position == 0)
                return kNone;
            if (isKey(entries_[position - 1].key))
                return position - 1;
        }
    }
    void Place(std::uint32_t position) {
        const std::size_t mask = slots_.size() - 1;
        std::size_t slot = entries_[position].key.Hash() & mask;
        while (slots_[slot])
            slot = (slot + 1) & mask;
        slots_[slot] = position + 1;
    }
    void BuildIndex() {
        std::size_t size = 64;
        while (size < entries_.size() * 3)
            size *= 2;
        slots_.assign(size, 0);
        for (std::uint32_t i = 0; i < entries_.size(); ++i)
            Place(i);
    }

    std::pmr::vector<Entry> entries_;
    std::pmr::vector<std::uint32_t> slots_;  // position + 1, or 0; empty while there are few entries
};
