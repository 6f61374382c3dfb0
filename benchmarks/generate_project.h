// Writes projects to measure with: they have the shapes and the proportions of systems that people inherit, and any
// size. Nothing in them means anything, but nearly all of it refers to something that is there.
#pragma once

#include <cstddef>
#include <filesystem>
#include <string>

struct GeneratedProject {
    std::string projectFile;  // path of the .vbp
    std::size_t modules = 0;
    std::size_t lines = 0;  // of the modules
    std::size_t bytes = 0;  // of the modules
};

/// Writes a project of about `lines` lines into `directory`, which is made when it isn't there; files of the same names
/// are replaced. The same size and seed give the same bytes.
/// Throws std::runtime_error (std::filesystem::filesystem_error is one) when a file can't be written.
GeneratedProject GenerateProject(const std::filesystem::path& directory, std::size_t lines, unsigned seed = 1);
