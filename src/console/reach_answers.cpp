#include "console/reach_answers.h"

#include <iostream>

#include "console/did_you_mean.h"
#include "model/clsProjekt.h"

namespace {

Declared DeclaredOf(const clsProjekt& projekt, const std::string& settingsFile) {
    StoredDeclared stored = ReadDeclared(projekt.TheFiles(), DeclaredFilesOf(projekt, settingsFile));
    if (stored.error != FileError::None)
        std::cerr << stored.path << ": " << Describe(stored.error) << '\n';
    return std::move(stored.declared);
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
    const CodePage& page = reach_.Projekt().TheNames().Page();
    const std::string codePath = page.LowerCase(page.FromUtf8(path));
    const CodeObject* found = reach_.Projekt().GetObjectFromCodePath(codePath);
    if (found && !found->myLibrary)
        return found;
    std::cerr << path << ": there is no such object" << DidYouMean(reach_.Projekt(), codePath) << '\n';
    return nullptr;
}
