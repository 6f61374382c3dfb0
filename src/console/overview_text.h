// The overview of a project for terminals.
#pragma once

#include <string>

struct ProjectOverview;

/// Lines of text in the language of the program, UTF-8, LF.
[[nodiscard]] std::string OverviewText(const ProjectOverview& overview);
