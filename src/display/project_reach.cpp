#include "display/project_reach.h"

#include "model/clsProjekt.h"

struct ProjectReach::Made {
    Made(const clsProjekt& projekt, const Declared& declared) : reach(projekt, declared), reasons(reach) {}
    Reach reach;
    Reasons reasons;
};

ProjectReach::ProjectReach(Files& files, std::string settingsFile)
    : files_(files), settingsFile_(std::move(settingsFile)) {}
ProjectReach::~ProjectReach() = default;

void ProjectReach::Forget() {
    made_.reset();
    stored_.reset();
}

const Reasons* ProjectReach::Of(const clsProjekt& projekt) {
    if (!projekt.callsKnown)
        return nullptr;
    if (!made_ || &made_->reach.Projekt() != &projekt || made_->reach.Generation() != projekt.Generation())
        made_ = std::make_unique<Made>(projekt, Stored(projekt).declared);
    return &made_->reasons;
}

const StoredDeclared& ProjectReach::Stored(const clsProjekt& projekt) {
    if (!stored_)
        stored_ = ReadDeclared(files_, DeclaredFilesOf(projekt, settingsFile_));
    return *stored_;
}

bool ProjectReach::IsBesideProject(const clsProjekt& projekt) {
    return Stored(projekt).path == DeclaredFilesOf(projekt, settingsFile_).besideProject;
}

std::string ProjectReach::FileFor(const clsProjekt& projekt, bool besideProject) {
    return besideProject ? DeclaredFilesOf(projekt, settingsFile_).besideProject : Stored(projekt).path;
}

FileError ProjectReach::Change(const clsProjekt& projekt, const std::function<void(Declared&)>& change,
                               bool besideProject) {
    // Another program, or a merge, may have written the file since it was read.
    Forget();
    StoredDeclared stored = Stored(projekt);
    if (stored.error != FileError::None)
        return stored.error;
    change(stored.declared);
    const FileError error = WriteDeclared(files_, FileFor(projekt, besideProject), stored.declared);
    Forget();
    return error;
}
