#include "platform/sltg_tables.h"

#include <algorithm>

namespace {

constexpr std::size_t kFrameBytes = 0x24;
constexpr std::size_t kBlockEntryBytes = 8;
constexpr std::size_t kGapBeforeBlocks = 9;
constexpr std::size_t kGuidBytes = 16;
constexpr int kMaxWords = 1000;

// A text that ends with a NUL.
std::optional<std::string_view> TextAt(const ByteView& bytes, std::size_t at) {
    const std::string_view rest = bytes.From(at).Text();
    const std::size_t end = rest.find('\0');
    return end == std::string_view::npos ? std::nullopt : std::optional(rest.substr(0, end));
}

}  // namespace

// Reads one thing after the other.
class SltgTables::Cursor {
public:
    explicit Cursor(ByteView bytes) : bytes_(bytes) {}
    [[nodiscard]] std::size_t At() const { return at_; }
    /// False once something was read past the end.
    [[nodiscard]] bool IsInside() const { return at_ <= bytes_.Size(); }
    std::uint16_t U16() { return bytes_.U16(Step(2)); }
    std::uint32_t U32() { return bytes_.U32(Step(4)); }
    void Skip(std::size_t bytes) { Step(bytes); }
    std::string Guid() { return GuidText(bytes_, Step(kGuidBytes)); }
    /// A text after its length.
    std::string_view Counted() {
        const std::uint16_t length = U16();
        if (length == kNone)
            return {};
        const std::optional<ByteView> text = bytes_.Cut(at_, length);
        Step(length);
        return text ? text->Text() : std::string_view();
    }

private:
    std::size_t Step(std::size_t bytes) {
        const std::size_t at = at_;
        at_ += bytes;
        return at;
    }
    ByteView bytes_;
    std::size_t at_ = 0;
};

bool SltgTables::Open() {
    if (!file_.Holds(0, kFrameBytes) || !FindBlocks()) {
        reading_.Broken("The chain of the library's blocks is damaged.");
        return false;
    }
    if (!ReadLibraryBlock()) {
        reading_.Broken("The head of the library is damaged.");
        return false;
    }
    return true;
}

// The blocks lie in the order of their chain, and the last one is that of the library.
bool SltgTables::FindBlocks() {
    const std::size_t count = file_.U16(4) > 0 ? file_.U16(4) - 1U : 0;
    const std::size_t index = kFrameBytes + count * kBlockEntryBytes;
    const std::size_t indexBytes = file_.U16(8);
    const std::optional<ByteView> names = file_.Cut(index, indexBytes);
    if (!names)
        return false;
    std::size_t place = index + indexBytes + kGapBeforeBlocks;
    std::size_t number = file_.U16(0xA);
    for (std::size_t step = 0; step < count; ++step) {
        if (number == 0 || number > count)
            return false;
        const std::size_t entry = kFrameBytes + (number - 1) * kBlockEntryBytes;
        const std::size_t bytes = file_.U32(entry);
        const std::optional<ByteView> block = file_.Cut(place, bytes);
        number = file_.U16(entry + 6);
        if (!block)
            return false;
        if (number == 0) {
            libraryBlock_ = *block;
            return true;
        }
        if (const auto name = TextAt(*names, file_.U16(entry + 4)))
            blocks_.emplace(*name, *block);
        place += bytes;
    }
    return false;
}

bool SltgTables::ReadLibraryBlock() {
    constexpr std::uint16_t kMark = 0x51CC;
    constexpr std::size_t kGuidHashBytes = 0x40;
    constexpr std::size_t kSmallestEntry = 20;
    Cursor cursor(libraryBlock_);
    if (cursor.U16() != kMark)
        return false;
    // Names are needed for all that follows, and their place is at its end: a first pass looks for it.
    Cursor ahead = cursor;
    ReadHead(ahead);
    ahead.Skip(kGuidHashBytes);
    const std::size_t types = std::min<std::size_t>(ahead.U16(), libraryBlock_.Size() / kSmallestEntry);
    for (std::size_t i = 0; i < types && ahead.IsInside(); ++i)
        directory_.emplace_back();
    Cursor places = ahead;
    ReadDirectory(places);
    const std::size_t table = places.U32();
    if (!places.IsInside() || places.At() > table || table > libraryBlock_.Size())
        return false;
    constexpr std::size_t kDictionaryHead = 6;
    if (const ByteView head = libraryBlock_.From(places.At()); table - places.At() >= kDictionaryHead)
        if (const auto tree = head.Cut(kDictionaryHead, head.U32(2));
            tree && table - places.At() >= kDictionaryHead + tree->Size())
            dictionary_ = *tree;
    FindNames(table);
    ReadHead(cursor);
    ReadDirectory(ahead);
    return true;
}

void SltgTables::ReadHead(Cursor& cursor) {
    constexpr std::uint32_t kNeutral = 0x400;
    TypeLibrary& library = reading_.Library();
    cursor.Skip(2);
    const std::uint16_t name = cursor.U16();
    static_cast<void>(cursor.Counted());
    const std::string_view description = cursor.Counted();
    const std::string_view helpFile = cursor.Counted();
    library.helpContext = cursor.U32();
    library.sysKind = cursor.U16();
    const std::uint32_t lcid = cursor.U16();
    cursor.Skip(4);
    library.flags = cursor.U16();
    library.major = cursor.U16();
    library.minor = cursor.U16();
    library.id = cursor.Guid();
    library.lcid = lcid < kNeutral ? lcid : 0;
    if (names_.Size() == 0)
        return;
    reading_.SetLanguage(lcid);
    library.description = reading_.Text(description);
    library.helpFile = reading_.Text(helpFile);
    library.name = Name(name);
}

void SltgTables::ReadDirectory(Cursor& cursor) {
    constexpr std::string_view kNoGuid = "{00000000-0000-0000-0000-000000000000}";
    for (Entry& entry : directory_) {
        entry.block = cursor.Counted();
        static_cast<void>(cursor.Counted());
        cursor.Skip(2);
        const std::uint16_t name = cursor.U16();
        const std::string_view coded = cursor.Counted();
        cursor.Skip(2);
        entry.type.helpContext = cursor.U32();
        cursor.Skip(2);
        entry.type.id = cursor.Guid();
        if (entry.type.id == kNoGuid)
            entry.type.id.clear();
        const auto kind = TypeKindOf(cursor.U16());
        if (names_.Size() == 0)
            continue;
        entry.type.name = Name(name);
        entry.type.description = HelpText(ByteView(coded));
        if (kind)
            entry.type.kind = *kind;
        else
            reading_.Broken("The kind of the type \"" + entry.type.name + "\" is unknown.");
    }
}

void SltgTables::FindNames(std::size_t table) {
    const ByteView head = libraryBlock_.From(table);
    // One writer leaves anything after the hash table; a mark at the beginning says so.
    const std::size_t further = head.U16(0) == kNone ? 0 : head.U16(0x207);
    const std::size_t begin = 0x210 + further;
    if (const std::optional<ByteView> names = head.Cut(begin, head.U32(begin - 4))) {
        names_ = *names;
        return;
    }
    reading_.Broken("The table of names leaves the file.");
    names_ = head.From(begin);
}

std::optional<ByteView> SltgTables::Block(const std::string& name) const {
    const auto found = blocks_.find(name);
    return found == blocks_.end() ? std::nullopt : std::optional(found->second);
}

std::optional<std::string_view> SltgTables::RawName(std::size_t offset) const {
    constexpr std::size_t kHashBytes = 8;
    return TextAt(names_, offset + kHashBytes);
}

std::string SltgTables::Name(std::size_t offset) {
    if (offset == kNone)
        return {};
    if (const std::optional<std::string_view> name = RawName(offset))
        return reading_.Text(*name);
    reading_.Broken("A name is outside of the table of names.");
    return {};
}

// Each bit, from the highest of the first byte on, is a step in the tree. A leaf is a word, and an empty word the end.
std::string SltgTables::HelpText(const ByteView& coded) {
    constexpr unsigned kInner = 0x80;
    std::string words;
    std::size_t node = 0;
    int count = 0;
    for (std::size_t bit = 0; bit < coded.Size() * 8 && count < kMaxWords; ++bit) {
        // The tree of a damaged library may never come to a leaf.
        if ((dictionary_.U8(node) & kInner) == 0 || (bit % 8 == 0 && !reading_.TakeFromTable(1)))
            break;
        const bool isOne = (coded.U8(bit / 8) >> (7 - bit % 8) & 1) != 0;
        node = isOne ? node + 3 : std::size_t{dictionary_.U8(node + 1)} << 8 | dictionary_.U8(node + 2);
        if (node >= dictionary_.Size())
            break;
        if ((dictionary_.U8(node) & kInner) != 0)
            continue;
        const std::optional<std::string_view> word = TextAt(dictionary_, node + 1);
        if (!word || word->empty() || !reading_.TakeFromTable(word->size()))
            break;
        words.append(words.empty() ? "" : " ").append(*word);
        ++count;
        node = 0;
    }
    return reading_.Text(words);
}
