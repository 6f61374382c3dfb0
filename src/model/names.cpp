#include "model/names.h"

#include <new>
#include <string>

#include "platform/code_page.h"

const Name::Entry Name::kEmpty{&Name::kEmpty, nullptr, 0, 0, 0, {}};

namespace {

constexpr std::size_t kBlockSize = std::size_t{1} << 14;
constexpr std::size_t kFirstSlots = std::size_t{1} << 16;  // enough for half a million lines
constexpr std::size_t kGrowth = 2;                         // no more, as a table is only quick where it is small

// Bits of the hash that the address of an entry leaves room for.
constexpr std::uintptr_t kTagBits = 7;
constexpr std::uintptr_t TagOf(std::uint32_t hash) {
    return hash >> 24 & kTagBits;
}

std::uint64_t Mix(std::uint64_t value) {
    value *= 0x9E3779B97F4A7C15U;
    return value ^ (value >> 29);
}

std::uint64_t EightAt(const char* from) {
    std::uint64_t eight;
    std::memcpy(&eight, from, sizeof eight);
    return eight;
}

std::uint32_t FourAt(const char* from) {
    std::uint32_t four;
    std::memcpy(&four, from, sizeof four);
    return four;
}

// Names are short: they are taken in two or three reads that may overlap, not character by character.
std::uint32_t HashOf(std::string_view text) {
    const char* const from = text.data();
    const std::size_t size = text.size();
    std::uint64_t hash = size * 0x9E3779B97F4A7C15U;
    if (size >= 8) {
        for (std::size_t i = 0; i + 8 <= size; i += 8)
            hash = Mix(hash ^ EightAt(from + i));
        hash = Mix(hash ^ EightAt(from + size - 8));
    } else if (size >= 4) {
        hash = Mix(hash ^ (std::uint64_t{FourAt(from)} << 32 | FourAt(from + size - 4)));
    } else if (size > 0) {
        const auto byte = [from](std::size_t i) { return std::uint64_t{static_cast<unsigned char>(from[i])}; };
        hash = Mix(hash ^ (byte(0) << 16 | byte(size / 2) << 8 | byte(size - 1)));
    }
    return static_cast<std::uint32_t>(hash ^ (hash >> 32));
}

bool SameBytes(const char* one, const char* other, std::size_t size) {
    if (size >= 8) {
        for (std::size_t i = 0; i + 8 <= size; i += 8)
            if (EightAt(one + i) != EightAt(other + i))
                return false;
        return EightAt(one + size - 8) == EightAt(other + size - 8);
    }
    if (size >= 4)
        return FourAt(one) == FourAt(other) && FourAt(one + size - 4) == FourAt(other + size - 4);
    return one[0] == other[0] && one[size / 2] == other[size / 2] && one[size - 1] == other[size - 1];
}

// Lower-case form in a buffer on the stack where it fits, as nearly all names do.
class LowerForm {
public:
    explicit LowerForm(std::string_view text) {
        char* to = short_;
        if (text.size() > sizeof short_) {
            long_.resize(text.size());
            to = long_.data();
        }
        const auto& table = ActiveCodePage().LowerTable();
        for (std::size_t i = 0; i < text.size(); ++i)
            to[i] = static_cast<char>(table[static_cast<unsigned char>(text[i])]);
        view_ = {to, text.size()};
    }
    [[nodiscard]] std::string_view View() const { return view_; }

private:
    char short_[64];
    std::string long_;
    std::string_view view_;
};

}  // namespace

NamePool& NamePool::Get() {
    static NamePool pool;
    return pool;
}

NamePool::NamePool() {
    Reset();
}

void NamePool::Reset() {
    for (Part& part : parts_)
        part.Reset();
}

const Name::Entry* NamePool::Find(std::string_view text) const {
    if (text.empty())
        return &Name::kEmpty;
    const std::uint32_t hash = HashOf(text);
    return parts_[PartOf(hash)].Find(text, hash);
}

const Name::Entry* NamePool::Intern(std::string_view text) {
    if (text.empty())
        return &Name::kEmpty;
    const std::uint32_t hash = HashOf(text);
    Part& part = parts_[PartOf(hash)];
    const Name::Entry* known = part.Find(text, hash);
    return known ? known : part.Intern(text, hash);
}

void NamePool::Part::Reset() {
    tables_.clear();
    table_ = tables_.emplace_back(std::make_unique<Table>(kFirstSlots / kParts)).get();
    used_ = 0;
    blocks_.clear();
    freeLeft_ = 0;
}

// The entry, or null with the slot where it belongs.
const Name::Entry* NamePool::Part::FindIn(const Table& table, std::string_view text, std::uint32_t hash,
                                          std::size_t& slot) {
    for (slot = hash & table.mask;; slot = (slot + 1) & table.mask) {
        const std::uintptr_t place = table.slots[slot].load(std::memory_order_acquire);
        if (place == 0)
            return nullptr;
        if ((place & kTagBits) != TagOf(hash))
            continue;
        const auto* entry = reinterpret_cast<const Name::Entry*>(place & ~kTagBits);
        if (entry->hash == hash && entry->length == text.size() && SameBytes(entry->chars, text.data(), text.size()))
            return entry;
    }
}

const Name::Entry* NamePool::Part::Find(std::string_view text, std::uint32_t hash) const {
    std::size_t slot = 0;
    return FindIn(*table_.load(std::memory_order_acquire), text, hash, slot);
}

const Name::Entry* NamePool::Part::Intern(std::string_view text, std::uint32_t hash) {
    // First, as it may belong to this part too.
    const LowerForm lower(text);
    const Name::Entry* const lowerEntry = lower.View() == text ? nullptr : NamePool::Get().Intern(lower.View());

    const std::lock_guard lock(mutex_);
    Table& table = *tables_.back();
    std::size_t slot = 0;
    if (const Name::Entry* known = FindIn(table, text, hash, slot))
        return known;  // another thread was quicker
    Name::Entry* entry = NewEntry(text, hash);
    if (lowerEntry)
        entry->lower = lowerEntry;
    table.slots[slot].store(reinterpret_cast<std::uintptr_t>(entry) | TagOf(hash), std::memory_order_release);
    if (++used_ * 4 > table.slots.size() * 3)
        Grow();
    return entry;
}

Name::Entry* NamePool::Part::NewEntry(std::string_view text, std::uint32_t hash) {
    constexpr std::size_t kAlign = alignof(Name::Entry);
    static_assert(kAlign > kTagBits);
    const std::size_t size =
        std::max(sizeof(Name::Entry), (offsetof(Name::Entry, chars) + text.size() + kAlign - 1) / kAlign * kAlign);
    if (size > freeLeft_) {
        const std::size_t block = std::max(kBlockSize, size);
        blocks_.push_back(std::make_unique_for_overwrite<char[]>(block));
        free_ = blocks_.back().get();
        freeLeft_ = block;
    }
    char* place = free_;
    free_ += size;
    freeLeft_ -= size;
    auto* entry = new (place) Name::Entry;
    entry->lower = entry;
    entry->bearers = nullptr;
    entry->hash = hash;
    entry->length = static_cast<std::uint32_t>(text.size());
    entry->tag = 0;
    std::memcpy(place + offsetof(Name::Entry, chars), text.data(), text.size());
    return entry;
}

void NamePool::Part::Grow() {
    auto larger = std::make_unique<Table>(tables_.back()->slots.size() * kGrowth);
    for (const auto& slot : tables_.back()->slots) {
        const std::uintptr_t place = slot.load(std::memory_order_relaxed);
        if (place == 0)
            continue;
        std::size_t to = reinterpret_cast<const Name::Entry*>(place & ~kTagBits)->hash & larger->mask;
        while (larger->slots[to].load(std::memory_order_relaxed) != 0)
            to = (to + 1) & larger->mask;
        larger->slots[to].store(place, std::memory_order_relaxed);
    }
    table_.store(larger.get(), std::memory_order_release);
    tables_.push_back(std::move(larger));
}

Name::Name(std::string_view text) : entry_(NamePool::Get().Intern(text)) {}

Name Name::Find(std::string_view text) {
    return Name(NamePool::Get().Find(text));
}

Name Name::FindLower(std::string_view text) {
    return Name(NamePool::Get().Find(LowerForm(text).View()));
}
