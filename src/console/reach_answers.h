// The questions of the command line about the reach of objects.
#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <vector>

#include "reach/reach_page.h"

class Files;
class clsProjekt;

struct ReachQuestion {
    enum class Kind : std::uint8_t { None, Dead, Why, Path, Impact, EntryPoints };
    Kind kind = Kind::None;
    Grade worst = Grade::CannotTell;  // of Dead
    std::vector<std::string> paths;   // code paths: of Path from and to, of Why and Impact one
};

/// Reach and reasons of a project together.
class ReachAnswers {
public:
    /// With what the user declares in the file beside the project or beside the settings; a file that cannot be read is
    /// reported on standard error.
    ReachAnswers(const clsProjekt& projekt, const std::string& settingsFile);

    [[nodiscard]] const Reasons& TheReasons() const { return reasons_; }
    /// The answer; null if a code path is none of the project, which is said on standard error with the nearest ones.
    [[nodiscard]] std::unique_ptr<ReachPage> AnswerTo(const ReachQuestion& question) const;

private:
    [[nodiscard]] const CodeObject* ObjectAt(const std::string& path) const;
    Reach reach_;
    Reasons reasons_;
};
