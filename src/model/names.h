// Each project stores a spelling once. A Name is a handle to a spelling in the pool of its project; equal spellings
// have equal handles, and each knows its lower-case form, so that comparing keys compares one pointer and a look-up
// allocates nothing.
#pragma once

#include <atomic>
#include <cstdint>
#include <deque>
#include <memory>
#include <memory_resource>
#include <mutex>
#include <string_view>
#include <vector>

#include "model/arena.h"
#include "platform/code_page.h"

class Name {
public:
    /// The empty name, which is the same in all projects.
    Name() : entry_(&kEmpty) {}

    [[nodiscard]] std::string_view View() const { return {entry_->chars, entry_->length}; }
    [[nodiscard]] Name Lower() const { return Name(entry_->lower); }
    /// False only for the result of a look-up that found nothing.
    [[nodiscard]] bool Known() const { return entry_ != nullptr; }
    [[nodiscard]] bool Empty() const { return entry_->length == 0; }
    [[nodiscard]] std::uint32_t Hash() const { return entry_->hash; }
    /// The hash of a name that is spelled like `text`.
    [[nodiscard]] static std::uint32_t HashOf(std::string_view text);
    /// A small number that a stage assigns to a spelling, such as to keywords; 0 for all others.
    [[nodiscard]] std::uint8_t Tag() const { return entry_->tag; }
    void SetTag(std::uint8_t tag) const { entry_->tag = tag; }
    bool operator==(const Name&) const = default;

private:
    struct Entry {
        const Entry* lower;
        std::uint32_t hash;
        std::uint32_t length;
        mutable std::uint8_t tag;
        char chars[7];  // as long as the name is
    };
    static const Entry kEmpty;
    friend class Names;
    explicit Name(const Entry* entry) : entry_(entry) {}
    const Entry* entry_;
};

/// The pool of names of one project. It only grows and lives as long as the project. Threads may make names and look
/// for them at the same time: the pool is divided by hash, each part has a lock for new names, and looking takes none.
class Names {
public:
    /// @param page  of the project's sources: decides which letters are the same in lower case
    /// @param memory  gives the memory of the names; must outlive the pool
    explicit Names(const CodePage& page, std::pmr::memory_resource* memory = std::pmr::get_default_resource());
    Names(const Names&) = delete;
    Names& operator=(const Names&) = delete;

    [[nodiscard]] const CodePage& Page() const { return page_; }
    /// The name of this spelling; creates it if it is new, and one in brackets without these as well.
    Name Intern(std::string_view text) { return Name(EntryOf(text)); }
    /// The name of this spelling if the pool has it; else the result is not Known().
    [[nodiscard]] Name Find(std::string_view text) const;
    /// Frees tables that were outgrown. No other thread may use the pool at that moment.
    void FreeOutgrown();

private:
    // Entries are never removed, so a reader that finds a free slot has seen all entries that existed when it began.
    struct Slot {
        std::uint32_t hash = 0;  // of the entry, so that entries of other hashes are not looked at
        std::atomic<const Name::Entry*> entry = nullptr;
    };
    struct Table {
        Table(std::size_t size, std::pmr::memory_resource* memory) : mask(size - 1), slots(size, memory) {}
        /// The entry, or null with the slot where it belongs.
        [[nodiscard]] const Name::Entry* Find(std::string_view text, std::uint32_t hash, std::size_t& slot) const;
        std::size_t mask;
        std::pmr::vector<Slot> slots;
    };
    class alignas(64) Part {
    public:
        explicit Part(std::pmr::memory_resource* memory);
        [[nodiscard]] const Name::Entry* Find(std::string_view text, std::uint32_t hash) const;
        /// @param lower  entry of the lower-case form; null when the text is its own
        const Name::Entry* Intern(std::string_view text, std::uint32_t hash, const Name::Entry* lower);
        void FreeOutgrown() { tables_.erase(tables_.begin(), tables_.end() - 1); }

    private:
        Name::Entry* NewEntry(std::string_view text, std::uint32_t hash);
        void Grow();
        std::pmr::memory_resource* memory_;
        std::atomic<const Table*> table_;             // the last of tables_
        std::mutex mutex_;                            // guards all below
        std::vector<std::unique_ptr<Table>> tables_;  // earlier tables stay, as another thread may be reading them
        std::size_t used_ = 0;
        Arena entries_;
    };
    static constexpr std::size_t kParts = 16;
    [[nodiscard]] static std::size_t PartOf(std::uint32_t hash) { return hash >> 28; }
    [[nodiscard]] const Name::Entry* EntryOf(std::string_view text);

    CodePage page_;
    std::deque<Part> parts_;
};
