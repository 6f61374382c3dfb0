// Where the names, the words and the chances of a generated project come from.
// Nothing here depends on the library's own distributions, whose results differ between implementations: a seed gives
// the same project everywhere.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <initializer_list>
#include <string>
#include <string_view>
#include <unordered_map>
#include <unordered_set>

namespace generate {

class Random {
public:
    explicit Random(std::uint64_t seed) : state_(seed * 0x9E3779B97F4A7C15u + 0x2545F4914F6CDD1Du) {}

    std::uint64_t Next();
    /// A number from 0 to `count` - 1.
    int Below(int count) { return static_cast<int>(Next() % static_cast<std::uint64_t>(count)); }
    /// Both ends are possible.
    int Between(int low, int high) { return low + Below(high - low + 1); }
    bool Chance(int percent) { return Below(100) < percent; }
    /// The position drawn from `weights`, none of which is negative; their sum is above 0.
    int Weighted(std::initializer_list<int> weights);

    template <class List>
    const auto& Of(const List& list) {
        return list[static_cast<std::size_t>(Below(static_cast<int>(std::size(list))))];
    }

private:
    std::uint64_t state_;
};

/// Puts parts together. A braced list is evaluated from left to right, operands of + in any order; with parts that
/// draw from a Random only the list gives the same text with every compiler.
std::string Cat(std::initializer_list<std::string_view> parts);

std::string Lower(std::string_view text);
std::string Upper(std::string_view text);
/// "OrderLine" becomes "order line".
std::string Spoken(std::string_view camelCase);

std::string_view Noun(Random& random);
/// Two different nouns in one word, such as "InvoiceTotal".
std::string NounPair(Random& random);
std::string_view Quality(Random& random);
/// Verbs of procedures that do something, and of functions that answer.
std::string_view DoingVerb(Random& random);
std::string_view AskingVerb(Random& random);
/// Names such as Load, Count or Caption, which many classes of one system have.
std::string_view CommonMethod(Random& random);
std::string_view CommonProperty(Random& random);

/// Lower-case names that are taken in one module.
using NameSet = std::unordered_set<std::string>;

// Counts how many members of the project hold a name. In real systems a few names recur in many modules and most in
// none, and a thousand modules have no Caption each: beyond a number of holders people say OrderCaption.
class NamePool {
public:
    NamePool(Random& random, int mostHolders) : random_(random), mostHolders_(mostHolders) {}

    /// Takes `wanted`, or a compound of it when it is taken in `scope` or has too many holders in the project.
    std::string Take(NameSet& scope, const std::string& wanted) { return Take(scope, wanted, mostHolders_); }
    /// The same for a name that no other member of the project shall have.
    std::string TakeUnique(NameSet& scope, const std::string& wanted) { return Take(scope, wanted, 1); }
    /// Another member gets the name of one that Take has named, as the second accessor of a property.
    void AddHolder(const std::string& name) { ++holders_[Lower(name)]; }
    [[nodiscard]] int Holders(const std::string& lowerName) const;
    [[nodiscard]] bool IsFree(const NameSet& scope, const std::string& wanted) const;

private:
    std::string Take(NameSet& scope, const std::string& wanted, int mostHolders);

    Random& random_;
    int mostHolders_;
    std::unordered_map<std::string, int> holders_;
};

}  // namespace generate
