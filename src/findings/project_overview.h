// The numbers of a project at a glance: what it is made of, what nothing calls, what could not be read.
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "model/kinds.h"

class clsProjekt;

struct ProjectOverview {
    struct Module {
        std::string path;  // its CodePath
        std::string name;
        ModuleKind kind = ModuleKind::Module;
        int codeLines = 0;
        bool operator==(const Module&) const = default;
    };
    struct Deaths {
        int dead = 0;
        int undead = 0;
        int of = 0;  // all objects that can be dead
        bool operator==(const Deaths&) const = default;
    };

    // Texts are bytes as in the source.
    std::string name;
    std::string_view type;    // what the project is compiled to; empty where the project file does not say
    std::string startUp;      // "Sub Main" or the name of a form; empty for none
    std::string startUpPath;  // CodePath of that object; empty if the project has none

    int standardModules = 0, forms = 0, classModules = 0, userControls = 0;
    int filesMissing = 0;  // modules of which there is no text
    int codeLines = 0, commentLines = 0, blankLines = 0;
    int procedures = 0;
    std::optional<Deaths> deaths;  // nothing before all calls are read
    int problems = 0;
    int libraries = 0, librariesMissing = 0;
    std::vector<Module> largest;  // by lines of code, at most ten

    [[nodiscard]] int AllModules() const { return standardModules + forms + classModules + userControls; }
    [[nodiscard]] int AllLines() const { return codeLines + commentLines + blankLines; }
    bool operator==(const ProjectOverview&) const = default;
};

[[nodiscard]] ProjectOverview OverviewOf(const clsProjekt& projekt);
