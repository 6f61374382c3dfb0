// How a change of the project file is put into words.
#pragma once

#include <string>

#include "project/refresh.h"
#include "shell/text_numbers.h"

/// What has become of it: "added to the project".
[[nodiscard]] Text WordOf(ProjectFileChange::What what);
/// What has changed: the name of a file or library, or what the line of the project file sets. UTF-8.
[[nodiscard]] std::string NameOf(const ProjectFileChange& change);
