#include "display/project_file_words.h"

#include "display/shown_text.h"
#include "shell/clsText.h"

Text WordOf(ProjectFileChange::What what) {
    using enum ProjectFileChange::What;
    switch (what) {
        case ModuleAdded:
        case LibraryAdded:
            return Text::WordAdded;
        case ModuleRemoved:
        case LibraryRemoved:
            return Text::WordRemoved;
        case ModuleMoved:
            return Text::WordMoved;
        case ModuleRenamed:
            return Text::WordRenamed;
        case Constants:
        case StartUp:
            return Text::WordChanged;
    }
    return Text::None;
}

std::string NameOf(const ProjectFileChange& change) {
    switch (change.what) {
        case ProjectFileChange::What::Constants:
            return Utf8TextNr(Text::ProjectConstants);
        case ProjectFileChange::What::StartUp:
            return Utf8TextNr(Text::StartUpObject);
        default:
            return Utf8Of(nullptr, change.name);
    }
}
