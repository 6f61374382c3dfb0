// Generates projects of any size for measurements from copies of the sample's modules. Each copy has its own names for
// what the whole project sees, so that its calls find their way; members of classes have the same names in a few copies
// each, and many private names are the same everywhere, as in real programs.
#pragma once

#include <cstddef>
#include <functional>
#include <string>
#include <string_view>
#include <vector>

struct GeneratedProject {
    std::string projectFile;
    std::vector<std::string> moduleFiles;
    std::size_t lines = 0;  // of the modules
    std::size_t bytes = 0;  // of the modules
};

using WriteText = std::function<void(const std::string& path, std::string_view text)>;

/// Hands `write` a project of `lines` lines, the last module in full, each file with its path in `directory`.
/// The same size and seed give the same bytes. Throws std::runtime_error when the sample can't be read.
GeneratedProject GenerateProject(const std::string& directory, std::size_t lines, unsigned seed,
                                 const WriteText& write);
