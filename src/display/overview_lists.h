// The list that each number of the overview opens.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

class clsProjekt;

enum class OverviewList : std::uint8_t {
    AllModules,
    StandardModules,
    Forms,
    ClassModules,
    UserControls,
    FilesMissing,
    CodeLines,
    CommentLines,
    BlankLines,
    Procedures,
    Dead,
    Undead,
    Libraries,
    LibrariesMissing,
    Changes,  // of the last refresh: no list of a project by itself
};

struct ListedObject {
    std::string key;          // of its node in the project tree; empty without one
    std::string name;         // UTF-8, as spelled
    std::string kind;         // UTF-8
    std::string place;        // UTF-8: the file of a module or library, the module of any other object
    int lines = 0;            // those that the list counts; for an object those of its declaration
    std::string change = {};  // UTF-8: what a refresh did to it
    bool operator==(const ListedObject&) const = default;
};

/// Lists of lines begin with the module that has most of them; all others are in the order of the project.
[[nodiscard]] std::vector<ListedObject> ListOf(const clsProjekt& projekt, OverviewList list);
