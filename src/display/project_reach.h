// What reaches the objects of the open project, and what the user declares about them: made when it is first asked for,
// and kept until objects, calls or declarations change.
#pragma once

#include <functional>
#include <memory>
#include <optional>
#include <string>

#include "reach/declared.h"
#include "reach/reasons.h"

class ProjectReach {
public:
    /// @param files         must outlive this object
    /// @param settingsFile  beside which declarations are kept; empty for none
    ProjectReach(Files& files, std::string settingsFile);
    ~ProjectReach();
    ProjectReach(const ProjectReach&) = delete;
    ProjectReach& operator=(const ProjectReach&) = delete;

    /// To be called before objects or calls become invalid.
    void Forget();
    /// Null while the calls are not known.
    [[nodiscard]] const Reasons* Of(const clsProjekt& projekt);

    /// As read from disk.
    [[nodiscard]] const StoredDeclared& Stored(const clsProjekt& projekt);
    [[nodiscard]] bool IsBesideProject(const clsProjekt& projekt);
    /// The file that declarations go to.
    [[nodiscard]] std::string FileFor(const clsProjekt& projekt, bool besideProject);
    /// Changes what is in the file now, and writes it.
    /// @param besideProject  keeps the declarations beside the project from now on; those that are there stay there
    [[nodiscard]] FileError Change(const clsProjekt& projekt, const std::function<void(Declared&)>& change,
                                   bool besideProject);

private:
    struct Made;

    Files& files_;
    std::string settingsFile_;
    std::optional<StoredDeclared> stored_;
    std::unique_ptr<Made> made_;
};
