// Nodes live in blocks and never move. They are found through a table of hashes over the lower-case keys, with linear
// probing; a key is lowered while it is hashed and compared, so that a look-up allocates nothing.
#include "display/baum.h"

#include <algorithm>
#include <array>
#include <cassert>
#include <utility>

#include "platform/code_page.h"

namespace {

using LowerTable = std::array<unsigned char, 256>;

unsigned char LowerOf(const LowerTable& lower, char c) {
    return lower[static_cast<unsigned char>(c)];
}

std::uint32_t HashOf(const LowerTable& lower, std::string_view key, NodeKind kind) {
    std::uint64_t hash = 1469598103934665603u + static_cast<std::uint64_t>(kind);
    for (const char c : key)
        hash = (hash ^ LowerOf(lower, c)) * 1099511628211u;
    return static_cast<std::uint32_t>(hash ^ (hash >> 32));
}

bool SameKey(const LowerTable& lower, std::string_view one, std::string_view other) {
    if (one.size() != other.size())
        return false;
    if (one == other)
        return true;
    return std::equal(one.begin(), one.end(), other.begin(),
                      [&](char a, char b) { return LowerOf(lower, a) == LowerOf(lower, b); });
}

// The first eight letters as one number, which decides most comparisons.
std::uint64_t SortHead(const LowerTable& lower, std::string_view text) {
    std::uint64_t head = 0;
    for (std::size_t i = 0; i < 8; ++i)
        head = head << 8 | (i < text.size() ? LowerOf(lower, text[i]) : 0);
    return head;
}

bool ComesBefore(const LowerTable& lower, std::string_view one, std::string_view other) {
    return std::lexicographical_compare(one.begin(), one.end(), other.begin(), other.end(),
                                        [&](char a, char b) { return LowerOf(lower, a) < LowerOf(lower, b); });
}

}  // namespace

BaumNode* BaumNode::Next() const {
    const auto next = static_cast<std::size_t>(row_) + 1;
    return next < siblings_->size() ? (*siblings_)[next] : nullptr;
}

BaumNode* BaumNode::FirstSibling() const {
    return siblings_->front();
}

struct Baum::State {
    struct Slot {
        std::uint32_t hash;
        BaumNode* node;
    };
    static constexpr std::size_t kBlock = 512;

    std::vector<std::unique_ptr<BaumNode[]>> blocks;
    std::size_t usedOfBlock = kBlock;
    std::vector<BaumNode*> free;
    std::vector<Slot> slots;
    std::size_t count = 0;
    LowerTable lower = ActiveCodePage().LowerTable();
    std::vector<BaumNode*> roots;
    BaumNode* selected = nullptr;

    BaumListener silent;
    BaumListener* listener = &silent;
    int fillings = 0;
    bool isReset = false;      // BeginReset was sent, EndReset is due
    bool manyChanged = false;  // Changed was held back
    std::vector<BaumNode*> unsorted;
    BaumNode* toBeVisible = nullptr;

    [[nodiscard]] std::vector<BaumNode*>& SiblingsBelow(BaumNode* parent) { return parent ? parent->children_ : roots; }

    [[nodiscard]] std::size_t SlotOf(std::string_view key, NodeKind kind, std::uint32_t hash) const {
        const std::size_t mask = slots.size() - 1;
        std::size_t slot = hash & mask;
        while (slots[slot].node && (slots[slot].hash != hash || slots[slot].node->kind_ != kind ||
                                    !SameKey(lower, slots[slot].node->key_, key)))
            slot = (slot + 1) & mask;
        return slot;
    }

    void Grow() {
        std::vector<Slot> old(std::max<std::size_t>(64, slots.size() * 4), Slot{0, nullptr});
        old.swap(slots);
        const std::size_t mask = slots.size() - 1;
        for (const Slot& entry : old) {
            if (!entry.node)
                continue;
            std::size_t slot = entry.hash & mask;
            while (slots[slot].node)
                slot = (slot + 1) & mask;
            slots[slot] = entry;
        }
    }

    // Later entries of the run move up, so that no probing meets a gap.
    void Forget(const BaumNode& node) {
        const std::size_t mask = slots.size() - 1;
        std::size_t gap = SlotOf(node.key_, node.kind_, HashOf(lower, node.key_, node.kind_));
        for (std::size_t slot = (gap + 1) & mask; slots[slot].node; slot = (slot + 1) & mask)
            if (((slot - slots[slot].hash) & mask) >= ((slot - gap) & mask)) {
                slots[gap] = slots[slot];
                gap = slot;
            }
        slots[gap].node = nullptr;
        --count;
    }

    BaumNode& NewNode() {
        if (!free.empty()) {
            BaumNode& node = *free.back();
            free.pop_back();
            return node;
        }
        if (usedOfBlock == kBlock) {
            blocks.emplace_back(new BaumNode[kBlock]);
            usedOfBlock = 0;
        }
        return blocks.back()[usedOfBlock++];
    }

    void Recycle(BaumNode& node) {
        node.key_.clear();
        node.text_.clear();
        node.expandedImage_ = {};
        node.children_.clear();
        node.foreColor_ = NodeColour::Ordinary;
        node.sorted_ = node.waitsForSorting_ = node.bold_ = node.expanded_ = node.checked_ = node.unfolds_ = false;
        free.push_back(&node);
    }

    /// Whether single steps are reported: not within a reset. A large change starts one here.
    bool TellsSteps() {
        if (fillings > 0 && !isReset) {
            isReset = true;
            listener->BeginReset();
        }
        return !isReset;
    }

    void Changed(const BaumNode& node) {
        if (fillings > 0)
            manyChanged = true;
        else
            listener->Changed(node);
    }

    static void Renumber(std::vector<BaumNode*>& siblings, std::size_t from) {
        for (std::size_t row = from; row < siblings.size(); ++row)
            siblings[row]->row_ = static_cast<int>(row);
    }

    // True when the order has changed.
    bool Sort(BaumNode& parent) {
        struct Entry {
            std::uint64_t head;
            BaumNode* node;
        };
        std::vector<Entry> entries;
        entries.reserve(parent.children_.size());
        for (BaumNode* child : parent.children_)
            entries.push_back({SortHead(lower, child->text_), child});
        const auto before = [this](const Entry& one, const Entry& other) {
            return one.head != other.head ? one.head < other.head
                                          : ComesBefore(lower, one.node->text_, other.node->text_);
        };
        if (std::is_sorted(entries.begin(), entries.end(), before))
            return false;
        std::stable_sort(entries.begin(), entries.end(), before);
        for (std::size_t row = 0; row < entries.size(); ++row)
            parent.children_[row] = entries[row].node;
        Renumber(parent.children_, 0);
        return true;
    }

    void SortLater(BaumNode& parent) {
        if (parent.waitsForSorting_)
            return;
        parent.waitsForSorting_ = true;
        unsorted.push_back(&parent);
    }

    void EndFilling() {
        for (BaumNode* parent : unsorted) {
            parent->waitsForSorting_ = false;
            Sort(*parent);
        }
        unsorted.clear();
        if (isReset) {
            isReset = false;
            listener->EndReset();
        } else if (manyChanged) {
            listener->ManyChanged();
        }
        manyChanged = false;
        if (BaumNode* node = std::exchange(toBeVisible, nullptr))
            listener->EnsureVisible(*node);
    }
};

Baum::Baum() : state_(std::make_unique<State>()) {}

Baum::~Baum() = default;

BaumNode* Baum::Add(BaumNode* parent, std::string key, std::string text, std::string_view image, NodeKind kind) {
    State& state = *state_;
    if (state.count == 0)
        state.lower = ActiveCodePage().LowerTable();
    if ((state.count + 1) * 2 > state.slots.size())
        state.Grow();
    const std::uint32_t hash = HashOf(state.lower, key, kind);
    State::Slot& slot = state.slots[state.SlotOf(key, kind, hash)];
    if (slot.node)
        return nullptr;
    const bool tells = state.TellsSteps();
    std::vector<BaumNode*>& siblings = state.SiblingsBelow(parent);
    auto place = siblings.end();
    if (parent && parent->sorted_) {
        if (state.fillings > 0)
            state.SortLater(*parent);
        else
            place = std::upper_bound(
                siblings.begin(), siblings.end(), text,
                [&](const std::string& one, BaumNode* other) { return ComesBefore(state.lower, one, other->text_); });
    }
    const auto row = static_cast<std::size_t>(place - siblings.begin());
    if (tells)
        state.listener->BeginInsert(parent, static_cast<int>(row));
    BaumNode& node = state.NewNode();
    node.kind_ = kind;
    node.key_ = std::move(key);
    node.text_ = std::move(text);
    node.image_ = image;
    node.parent_ = parent;
    node.siblings_ = &siblings;
    siblings.insert(place, &node);
    State::Renumber(siblings, row);
    slot = {hash, &node};
    ++state.count;
    if (tells)
        state.listener->EndInsert();
    return &node;
}

BaumNode* Baum::Item(std::string_view key, NodeKind kind) const {
    const State& state = *state_;
    return state.count == 0 ? nullptr : state.slots[state.SlotOf(key, kind, HashOf(state.lower, key, kind))].node;
}

int Baum::Count() const {
    return static_cast<int>(state_->count);
}

const std::vector<BaumNode*>& Baum::Roots() const {
    return state_->roots;
}

void Baum::Remove(BaumNode& node) {
    State& state = *state_;
    const bool tells = state.TellsSteps();
    const auto isBelow = [&](const BaumNode* other) {
        while (other && other != &node)
            other = other->parent_;
        return other != nullptr;
    };
    if (isBelow(state.selected))
        Select(nullptr);
    if (isBelow(state.toBeVisible))
        state.toBeVisible = nullptr;
    std::erase_if(state.unsorted, isBelow);
    if (tells)
        state.listener->BeginRemove(node.parent_, node.row_);
    std::vector<BaumNode*>& siblings = state.SiblingsBelow(node.parent_);
    const auto row = static_cast<std::size_t>(node.row_);
    siblings.erase(siblings.begin() + node.row_);
    State::Renumber(siblings, row);
    std::vector<BaumNode*> open{&node};
    while (!open.empty()) {
        BaumNode& gone = *open.back();
        open.pop_back();
        open.insert(open.end(), gone.children_.begin(), gone.children_.end());
        state.Forget(gone);
        state.Recycle(gone);
    }
    if (tells)
        state.listener->EndRemove();
}

void Baum::Clear() {
    State& state = *state_;
    if (state.count == 0)
        return;
    const Filling whole(*this);
    state.TellsSteps();
    Select(nullptr);
    state.toBeVisible = nullptr;
    state.unsorted.clear();
    state.roots.clear();
    state.slots = std::vector<State::Slot>();  // clear() would keep the megabytes of a large project
    state.free.clear();
    state.blocks.clear();
    state.usedOfBlock = State::kBlock;
    state.count = 0;
}

void Baum::SetText(BaumNode& node, std::string text) {
    if (node.text_ == text)
        return;
    node.text_ = std::move(text);
    state_->Changed(node);
}

void Baum::SetImage(BaumNode& node, std::string_view image) {
    if (node.image_ == image)
        return;
    node.image_ = image;
    state_->Changed(node);
}

void Baum::SetExpandedImage(BaumNode& node, std::string_view image) {
    if (node.expandedImage_ == image)
        return;
    node.expandedImage_ = image;
    state_->Changed(node);
}

void Baum::SetForeColor(BaumNode& node, NodeColour color) {
    if (node.foreColor_ == color)
        return;
    node.foreColor_ = color;
    state_->Changed(node);
}

void Baum::SetBold(BaumNode& node, bool bold) {
    if (node.bold_ == bold)
        return;
    node.bold_ = bold;
    state_->Changed(node);
}

void Baum::SetSorted(BaumNode& node, bool sorted) {
    node.sorted_ = sorted;
    if (!sorted || node.children_.size() < 2)
        return;
    const Filling whole(*this);
    state_->TellsSteps();
    state_->SortLater(node);
}

void Baum::SetExpanded(BaumNode& node, bool expanded) {
    if (node.expanded_ == expanded)
        return;
    node.expanded_ = expanded;
    if (!state_->isReset)
        state_->listener->ExpandedChanged(node);
}

void Baum::SetChecked(BaumNode& node, bool checked) {
    if (node.checked_ == checked)
        return;
    node.checked_ = checked;
    state_->Changed(node);
}

void Baum::CollapseAll() {
    std::vector<BaumNode*> open = state_->roots;
    while (!open.empty()) {
        BaumNode& node = *open.back();
        open.pop_back();
        node.expanded_ = false;
        open.insert(open.end(), node.children_.begin(), node.children_.end());
    }
    if (!state_->isReset)
        state_->listener->AllCollapsed();
}

BaumNode* Baum::Selected() const {
    return state_->selected;
}

void Baum::Select(BaumNode* node) {
    if (state_->selected == node)
        return;
    state_->selected = node;
    if (!state_->isReset)
        state_->listener->SelectedChanged(node);
}

void Baum::EnsureVisible(BaumNode& node) {
    for (BaumNode* parent = node.parent_; parent; parent = parent->parent_)
        SetExpanded(*parent, true);
    if (state_->isReset)
        state_->toBeVisible = &node;
    else
        state_->listener->EnsureVisible(node);
}

void Baum::SetListener(BaumListener* listener) {
    assert(!state_->isReset);
    state_->listener = listener ? listener : &state_->silent;
}

Baum::Filling::Filling(Baum& baum) : baum_(baum) {
    ++baum_.state_->fillings;
}

Baum::Filling::~Filling() {
    if (--baum_.state_->fillings == 0)
        baum_.state_->EndFilling();
}
