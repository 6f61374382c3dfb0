#include "model/nearest_paths.h"

#include <algorithm>
#include <numeric>
#include <tuple>
#include <utility>

#include "model/clsControl.h"
#include "model/clsProjekt.h"
#include "model/clsTypeLib.h"
#include "model/module_walk.h"
#include "platform/code_page.h"

namespace {

// How many characters have to be added, dropped, exchanged, or swapped with the next; `most` and one more stand for all
// that is farther.
std::size_t Distance(std::string_view one, std::string_view other, std::size_t most) {
    const std::size_t shorter = std::min(one.size(), other.size());
    if (std::max(one.size(), other.size()) - shorter > most)
        return most + 1;
    std::vector<std::size_t> row(other.size() + 1);
    std::iota(row.begin(), row.end(), std::size_t{0});
    std::vector<std::size_t> above = row;
    std::vector<std::size_t> twoAbove = row;
    for (std::size_t i = 1; i <= one.size(); ++i) {
        std::swap(twoAbove, above);
        std::swap(above, row);
        row[0] = i;
        for (std::size_t j = 1; j <= other.size(); ++j) {
            const std::size_t exchanged = above[j - 1] + (one[i - 1] == other[j - 1] ? 0 : 1);
            row[j] = std::min({exchanged, row[j - 1] + 1, above[j] + 1});
            if (i > 1 && j > 1 && one[i - 1] == other[j - 2] && one[i - 2] == other[j - 1])
                row[j] = std::min(row[j], twoAbove[j - 2] + 1);
        }
        if (*std::ranges::min_element(row) > most)
            return most + 1;
    }
    return row.back();
}

std::size_t StillNear(std::string_view text) {
    return std::max<std::size_t>(1, text.size() / 4);
}

// After its last point; paths of accessors, types and enumerations have a word in brackets after it.
std::string_view LastName(std::string_view path) {
    const std::size_t bracket = path.find(" [");
    if (bracket != std::string_view::npos)
        path = path.substr(0, bracket);
    return path.substr(path.rfind('.') + 1);
}

class Ranking {
public:
    explicit Ranking(std::string_view codePath)
        : path_(LowerCase(codePath)),
          name_(LastName(path_)),
          mostOfPath_(StillNear(path_)),
          mostOfName_(StillNear(name_)) {}

    // A path with one wrong character comes before the right name at another place.
    void Add(const CodeObject& object) {
        const std::size_t ofName = Distance(name_, object.MyName(), mostOfName_);
        const std::string path = object.CodePath();
        const std::size_t ofPath = Distance(path_, path, mostOfPath_);
        if (ofPath > mostOfPath_ && ofName > mostOfName_)
            return;
        const std::size_t rank = std::min(ofPath <= mostOfPath_ ? 2 * ofPath : 2 * path_.size(), 2 * ofName + 3);
        found_.emplace_back(rank, path, object.CodePathOrg());
    }

    [[nodiscard]] std::vector<std::string> Best(std::size_t most) {
        std::ranges::sort(found_);
        std::vector<std::string> best;
        for (auto& [rank, path, spelled] : found_)
            if (best.size() < most && !spelled.empty() && std::ranges::find(best, spelled) == best.end())
                best.push_back(std::move(spelled));
        return best;
    }

private:
    std::string path_;
    std::string_view name_;
    std::size_t mostOfPath_, mostOfName_;
    std::vector<std::tuple<std::size_t, std::string, std::string>> found_;  // rank, path, path as spelled
};

}  // namespace

std::vector<std::string> NearestCodePaths(const clsProjekt& projekt, std::string_view codePath, std::size_t most) {
    Ranking ranking(codePath);
    for (const clsModul* modul : projekt.AllModules()) {
        ranking.Add(*modul);
        ForEachDeclared(*modul, [&](const CodeObject& object) { ranking.Add(object); });
        for (const clsControl* control : modul->MyControls)
            ranking.Add(*control);
    }
    for (const auto& library : projekt.OwnedLibraries())
        ranking.Add(*library);
    return ranking.Best(most);
}
