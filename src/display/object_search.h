// The search over all objects of the open project: a part of a name as one types it, or the first letters of its humps.
//
// The index is a copy of all names in one piece, so that a key stroke reads memory from one end to the other. It points
// at the objects but does not own them.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

template <class T>
class clsCollection;
class CodeObject;
class clsProjekt;
class clsTypeLib;

/// How well a name fits, the best first.
enum class HitRank : std::uint8_t { Exact, Prefix, Humps, Inside };

/// Part of a name: characters from `from`, counted from 0.
struct MatchedRange {
    std::size_t from = 0;
    std::size_t length = 0;
    bool operator==(const MatchedRange&) const = default;
};

struct Hit {
    const CodeObject* object = nullptr;
    HitRank rank = HitRank::Inside;
    std::vector<MatchedRange> ranges;  // of myNameOrg, what was typed
};

class ObjectSearch {
public:
    /// Reads the names of all modules, procedures, variables, members, locals, types, enums, controls and libraries,
    /// and of what libraries contain.
    void Build(const clsProjekt& projekt);
    /// To be called before objects become invalid: the project is closed, or modules are read again.
    void Clear();
    [[nodiscard]] bool Built() const { return projekt_ != nullptr; }
    [[nodiscard]] std::size_t Count() const { return entries_.size(); }

    /// The best `limit` hits for what was typed, without regard to case: by rank, those of the project before those of
    /// libraries, then the shorter name, then name and path. Text before a point must be part of the path:
    /// "frmMain.load". Nothing typed finds nothing.
    [[nodiscard]] std::vector<Hit> Find(std::string_view typed, std::size_t limit);
    /// How many there were in all, at the last Find.
    [[nodiscard]] std::size_t Found() const { return found_; }

private:
    struct Entry {
        const CodeObject* object;
        std::uint64_t humps;  // bit n: a hump begins at character n; of the first 64 characters
        std::uint32_t name;   // place in names_
        std::uint32_t length;
    };
    struct Scored {
        std::uint64_t score;
        std::uint32_t entry;
    };

    void Add(const CodeObject& object);
    void AddLibrary(const clsTypeLib& library);
    [[nodiscard]] std::string_view NameOf(const Entry& entry) const {
        return {names_.data() + entry.name, entry.length};
    }
    [[nodiscard]] bool IsBetter(const Scored& a, const Scored& b) const;

    const clsProjekt* projekt_ = nullptr;
    std::string names_;                   // all names in lower case, one after the other
    std::vector<std::uint64_t> letters_;  // of each entry, which characters occur in its name
    std::vector<Entry> entries_;

    // The text typed last and its hits: if letters are appended to it, only these can still fit.
    std::string lastName_;
    std::vector<std::uint32_t> lastCandidates_;
    std::size_t found_ = 0;
};

/// What an object is, in the words of the language: "form", "property get", "declare function", "type member".
[[nodiscard]] std::string ObjectKind(const CodeObject& object);
/// The code path of what holds the object, as spelled; empty for modules and libraries.
[[nodiscard]] std::string ObjectPlace(const CodeObject& object);
