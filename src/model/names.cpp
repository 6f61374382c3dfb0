#include "model/names.h"

#include <cstddef>
#include <cstring>
#include <new>
#include <string>

const Name::Entry Name::kEmpty{&Name::kEmpty, 0, 0, 0, {}};

namespace {

constexpr std::size_t kFirstSlots = std::size_t{1} << 15;  // of all parts; enough for a quarter of a million lines

std::uint64_t Mix(std::uint64_t value) {
    value *= 0x9E3779B97F4A7C15U;
    return value ^ (value >> 29);
}

template <class T>
T At(const char* from) {
    T value;
    std::memcpy(&value, from, sizeof value);
    return value;
}

// Lower-case form in a buffer on the stack where it fits, as nearly all names do.
class LowerForm {
public:
    LowerForm(std::string_view text, const CodePage& page) {
        char* to = short_;
        if (text.size() > sizeof short_) {
            long_.resize(text.size());
            to = long_.data();
        }
        page.LowerCase(text, to);
        view_ = {to, text.size()};
    }
    [[nodiscard]] std::string_view View() const { return view_; }

private:
    char short_[64];
    std::string long_;
    std::string_view view_;
};

}  // namespace

// Names are short, so they are hashed in a few pieces that may overlap, not character by character.
std::uint32_t Name::HashOf(std::string_view text) {
    const char* const from = text.data();
    const std::size_t size = text.size();
    std::uint64_t hash = size * 0x9E3779B97F4A7C15U;
    if (size >= 8) {
        for (std::size_t i = 0; i + 8 <= size; i += 8)
            hash = Mix(hash ^ At<std::uint64_t>(from + i));
        hash = Mix(hash ^ At<std::uint64_t>(from + size - 8));
    } else if (size >= 4) {
        hash = Mix(hash ^ (std::uint64_t{At<std::uint32_t>(from)} << 32 | At<std::uint32_t>(from + size - 4)));
    } else if (size > 0) {
        const auto byte = [from](std::size_t i) { return std::uint64_t{static_cast<unsigned char>(from[i])}; };
        hash = Mix(hash ^ (byte(0) << 16 | byte(size / 2) << 8 | byte(size - 1)));
    } else {
        return 0;
    }
    return static_cast<std::uint32_t>(hash ^ (hash >> 32));
}

Names::Names(const CodePage& page, std::pmr::memory_resource* memory) : page_(page) {
    for (std::size_t part = 0; part < kParts; ++part)
        parts_.emplace_back(memory);
}

Name Names::Find(std::string_view text) const {
    if (text.empty())
        return {};
    const std::uint32_t hash = Name::HashOf(text);
    return Name(parts_[PartOf(hash)].Find(text, hash));
}

const Name::Entry* Names::EntryOf(std::string_view text) {
    if (text.empty())
        return &Name::kEmpty;
    const std::uint32_t hash = Name::HashOf(text);
    Part& part = parts_[PartOf(hash)];
    if (const Name::Entry* known = part.Find(text, hash))
        return known;
    const LowerForm lower(text, page_);
    // Before the part is locked: the lower-case form can belong to the same part.
    const Name::Entry* const lowerEntry = lower.View() == text ? nullptr : EntryOf(lower.View());
    // What is declared as [Stop] can be called as Stop.
    if (text.size() > 2 && text.front() == '[' && text.back() == ']')
        (void)EntryOf(text.substr(1, text.size() - 2));
    return part.Intern(text, hash, lowerEntry);
}

void Names::FreeOutgrown() {
    for (Part& part : parts_)
        part.FreeOutgrown();
}

Names::Part::Part(std::pmr::memory_resource* memory) : memory_(memory), entries_(memory) {
    table_ = tables_.emplace_back(std::make_unique<Table>(kFirstSlots / kParts, memory)).get();
}

const Name::Entry* Names::Table::Find(std::string_view text, std::uint32_t hash, std::size_t& slot) const {
    for (slot = hash & mask;; slot = (slot + 1) & mask) {
        const Name::Entry* const entry = slots[slot].entry.load(std::memory_order_acquire);
        if (!entry)
            return nullptr;
        if (slots[slot].hash == hash && std::string_view(entry->chars, entry->length) == text)
            return entry;
    }
}

const Name::Entry* Names::Part::Find(std::string_view text, std::uint32_t hash) const {
    std::size_t slot = 0;
    return table_.load(std::memory_order_acquire)->Find(text, hash, slot);
}

const Name::Entry* Names::Part::Intern(std::string_view text, std::uint32_t hash, const Name::Entry* lower) {
    const std::lock_guard lock(mutex_);
    Table& table = *tables_.back();
    std::size_t slot = 0;
    if (const Name::Entry* known = table.Find(text, hash, slot))
        return known;  // another thread has added it meanwhile
    Name::Entry* entry = NewEntry(text, hash);
    if (lower)
        entry->lower = lower;
    table.slots[slot].hash = hash;
    table.slots[slot].entry.store(entry, std::memory_order_release);
    if (++used_ * 4 > table.slots.size() * 3)
        Grow();
    return entry;
}

Name::Entry* Names::Part::NewEntry(std::string_view text, std::uint32_t hash) {
    const std::size_t size = std::max(sizeof(Name::Entry), offsetof(Name::Entry, chars) + text.size());
    auto* const place = static_cast<char*>(entries_.allocate(size, alignof(Name::Entry)));
    auto* entry = new (place) Name::Entry;
    entry->lower = entry;
    entry->hash = hash;
    entry->length = static_cast<std::uint32_t>(text.size());
    entry->tag = 0;
    std::memcpy(place + offsetof(Name::Entry, chars), text.data(), text.size());
    return entry;
}

void Names::Part::Grow() {
    auto larger = std::make_unique<Table>(tables_.back()->slots.size() * 2, memory_);
    for (const Slot& slot : tables_.back()->slots) {
        const Name::Entry* const entry = slot.entry.load(std::memory_order_relaxed);
        if (!entry)
            continue;
        std::size_t to = slot.hash & larger->mask;
        while (larger->slots[to].entry.load(std::memory_order_relaxed))
            to = (to + 1) & larger->mask;
        larger->slots[to].hash = slot.hash;
        larger->slots[to].entry.store(entry, std::memory_order_relaxed);
    }
    table_.store(larger.get(), std::memory_order_release);
    tables_.push_back(std::move(larger));
}
