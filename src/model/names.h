// Names are kept once. A Name is a handle on a spelling in the pool; equal spellings have equal handles, and
// each knows its lower-case form, so that keys are compared by one pointer and nothing is allocated to look up.
#pragma once

#include <array>
#include <atomic>
#include <cstdint>
#include <cstring>
#include <memory>
#include <mutex>
#include <string_view>
#include <vector>

#include "platform/memory.h"

class clsSpaceName;

class Name {
public:
    /// The empty name.
    Name() : entry_(&kEmpty) {}
    /// Interns `text` in its spelling.
    explicit Name(std::string_view text);

    /// The name of this spelling if it is in the pool already; else the result's Known() is false.
    [[nodiscard]] static Name Find(std::string_view text);
    /// The same for the lower-case form of `text`.
    [[nodiscard]] static Name FindLower(std::string_view text);

    [[nodiscard]] std::string_view View() const { return {entry_->chars, entry_->length}; }
    [[nodiscard]] Name Lower() const { return Name(entry_->lower); }
    [[nodiscard]] bool Known() const { return entry_ != nullptr; }
    [[nodiscard]] bool Empty() const { return entry_->length == 0; }
    /// Has what View needs fetched.
    void FetchAhead() const { Prefetch(entry_); }
    [[nodiscard]] std::uint32_t Hash() const { return entry_->hash; }
    /// A small number that a stage has given this spelling, as to the words of the language; 0 for all others.
    [[nodiscard]] std::uint8_t Tag() const { return entry_->tag; }
    void SetTag(std::uint8_t tag) const { entry_->tag = tag; }
    /// What the name space of the whole program keeps with this spelling; null unless it was set.
    [[nodiscard]] clsSpaceName* Bearers() const { return entry_->bearers; }
    void SetBearers(clsSpaceName* bearers) const { entry_->bearers = bearers; }
    bool operator==(const Name&) const = default;

private:
    struct Entry {
        const Entry* lower;
        mutable clsSpaceName* bearers;
        std::uint32_t hash;
        std::uint32_t length;
        mutable std::uint8_t tag;
        char chars[7];  // as long as the name is
    };
    static const Entry kEmpty;
    friend class NamePool;
    explicit Name(const Entry* entry) : entry_(entry) {}
    const Entry* entry_;
};

/// The pool behind all names. It only grows; a name stays valid until Reset. Threads may make names and look for them
/// at a time: the pool is parted by hash, each part has its own lock for new names, and looking takes none.
class NamePool {
public:
    static NamePool& Get();
    [[nodiscard]] const Name::Entry* Intern(std::string_view text);
    [[nodiscard]] const Name::Entry* Find(std::string_view text) const;
    /// Forgets all names. Only when no object and no collection that holds one is left, as when another code
    /// page with other lower-case rules begins to rule.
    void Reset();

private:
    NamePool();

    // Addresses of entries by their hash, with some of its bits where an address has none; a free slot is 0. Entries
    // only come, so that who meets a free slot has seen all that were there when he began.
    struct Table {
        explicit Table(std::size_t size) : mask(size - 1), slots(size) {}
        std::size_t mask;
        std::vector<std::atomic<std::uintptr_t>> slots;
    };
    class alignas(64) Part {
    public:
        void Reset();
        [[nodiscard]] const Name::Entry* Find(std::string_view text, std::uint32_t hash) const;
        const Name::Entry* Intern(std::string_view text, std::uint32_t hash);

    private:
        [[nodiscard]] static const Name::Entry* FindIn(const Table& table, std::string_view text, std::uint32_t hash,
                                                       std::size_t& slot);
        Name::Entry* NewEntry(std::string_view text, std::uint32_t hash);
        void Grow();
        std::atomic<const Table*> table_ = nullptr;   // the last of tables_
        std::mutex mutex_;                            // guards all below
        std::vector<std::unique_ptr<Table>> tables_;  // those outgrown stay: somebody may be looking into them
        std::size_t used_ = 0;
        std::vector<std::unique_ptr<char[]>> blocks_;
        char* free_ = nullptr;
        std::size_t freeLeft_ = 0;
    };
    static constexpr std::size_t kParts = 16;
    [[nodiscard]] static std::size_t PartOf(std::uint32_t hash) { return hash >> 28; }
    std::array<Part, kParts> parts_;
};
