#include "console/reach_answers.h"

#include <algorithm>
#include <iostream>
#include <numeric>

#include "model/clsProjekt.h"
#include "platform/code_page.h"

namespace {

Declared DeclaredOf(const clsProjekt& projekt, const std::string& settingsFile) {
    StoredDeclared stored = ReadDeclared(projekt.TheFiles(), DeclaredFilesOf(projekt, settingsFile));
    if (stored.error != FileError::None)
        std::cerr << stored.path << ": " << Describe(stored.error) << '\n';
    return std::move(stored.declared);
}

std::string_view LastPart(std::string_view path) {
    const auto point = path.rfind('.');
    return point == std::string_view::npos ? path : path.substr(point + 1);
}

// How many letters have to be changed, added or left out to make one text of the other; `limit` if more.
int Difference(std::string_view left, std::string_view right, int limit) {
    if (std::max(left.size(), right.size()) - std::min(left.size(), right.size()) >= static_cast<std::size_t>(limit))
        return limit;
    std::vector<int> row(right.size() + 1);
    std::iota(row.begin(), row.end(), 0);
    for (std::size_t i = 0; i < left.size(); ++i) {
        int diagonal = row[0];
        row[0] = static_cast<int>(i) + 1;
        for (std::size_t j = 0; j < right.size(); ++j) {
            const int changed = diagonal + (left[i] == right[j] ? 0 : 1);
            diagonal = row[j + 1];
            row[j + 1] = std::min({changed, row[j] + 1, row[j + 1] + 1});
        }
    }
    return std::min(row.back(), limit);
}

}  // namespace

ReachAnswers::ReachAnswers(const clsProjekt& projekt, const std::string& settingsFile)
    : reach_(projekt, DeclaredOf(projekt, settingsFile)), reasons_(reach_) {}

std::unique_ptr<ReachPage> ReachAnswers::AnswerTo(const ReachQuestion& question) const {
    std::vector<const CodeObject*> objects;
    for (const std::string& path : question.paths)
        if (const CodeObject* object = ObjectAt(path))
            objects.push_back(object);
        else
            return nullptr;
    switch (question.kind) {
        case ReachQuestion::Kind::Dead:
            return std::make_unique<ReachPage>(DeadPage(reasons_, question.worst));
        case ReachQuestion::Kind::Why:
            return std::make_unique<ReachPage>(WhyPage(reasons_, *objects.at(0)));
        case ReachQuestion::Kind::Path:
            return std::make_unique<ReachPage>(PathsPage(reach_.TheLinks(), *objects.at(0), *objects.at(1)));
        case ReachQuestion::Kind::Impact:
            return std::make_unique<ReachPage>(ImpactPage(reach_, *objects.at(0)));
        case ReachQuestion::Kind::EntryPoints:
            return std::make_unique<ReachPage>(EntryPointsPage(reach_));
        case ReachQuestion::Kind::None:
            break;
    }
    return std::make_unique<ReachPage>();
}

const CodeObject* ReachAnswers::ObjectAt(const std::string& path) const {
    const std::string codePath = LowerCase(ActiveCodePage().FromUtf8(path));
    const CodeObject* found = reach_.Projekt().GetObjectFromCodePath(codePath);
    if (found && !found->myLibrary)
        return found;
    std::cerr << path << ": there is no such object";
    const std::vector<std::string> nearest = NearestPaths(reach_, codePath);
    for (std::size_t nr = 0; nr < nearest.size(); ++nr)
        std::cerr << (nr == 0                    ? "; did you mean "
                      : nr + 1 == nearest.size() ? " or "
                                                 : ", ")
                  << ActiveCodePage().ToUtf8(nearest[nr]);
    std::cerr << (nearest.empty() ? "\n" : "?\n");
    return nullptr;
}

std::vector<std::string> NearestPaths(const Reach& reach, const std::string& path) {
    constexpr std::size_t kMost = 5;
    const std::string sought = LowerCase(path);
    const int limit = std::max(2, static_cast<int>(sought.size()) / 3);
    std::vector<std::pair<int, std::string>> candidates;
    const auto consider = [&](const CodeObject& object) {
        const bool sameName = object.MyName() == LastPart(sought);
        // Making a path costs more than comparing names, and few names are near.
        if (!sameName && Difference(object.MyName(), LastPart(sought), limit) == limit)
            return;
        const std::string codePath = object.CodePath();
        const int difference = Difference(codePath, sought, limit);
        if (difference < limit || sameName)
            candidates.emplace_back(difference, object.CodePathOrg());
    };
    for (const clsModul* modul : reach.Projekt().AllModules())
        consider(*modul);
    reach.ForEachObject(consider);
    std::ranges::stable_sort(candidates, {}, &std::pair<int, std::string>::first);
    std::vector<std::string> nearest;
    for (const auto& [difference, codePath] : candidates)
        if (nearest.size() < kMost && std::ranges::find(nearest, codePath) == nearest.end())
            nearest.push_back(codePath);
    return nearest;
}
