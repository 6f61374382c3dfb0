// Resources of a PE file (DLL, OCX, EXE), 32 and 64 bit.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

#include "platform/files.h"

/// A resource type or name is a number, or a text that is compared without regard to case.
using PeResourceKey = std::variant<std::uint32_t, std::string>;

struct PeResource {
    std::uint32_t number = 0;  // 0 for one that has a text as its name
    std::string_view bytes;    // in the file
};

struct PeResources {
    std::vector<PeResource> resources;  // the first language of each, in the order of the file
    std::string problem;                // why nothing, or not all, could be read; empty if all is well
};

/// True if the file begins like a program of DOS or Windows.
[[nodiscard]] bool IsProgramFile(std::string_view file);
/// Reads a file for ReadPeResources: whole, or of a program only its headers and the section with its resources, as a
/// program of its own. Programs can be many times as large as that. Resources that lie elsewhere are missing then.
/// @param most  bytes; a larger file, or section, is TooLarge
[[nodiscard]] FileBytes ReadForResources(const Files& files, std::string_view path, std::size_t most);
/// All resources of a type, such as "TYPELIB".
[[nodiscard]] PeResources ReadPeResources(std::string_view file, const PeResourceKey& type);
