// What the program is called, which version it is, where it lies, and the record of the version that ran last.
#pragma once

#include <string>
#include <string_view>

#include "platform/registry.h"

inline constexpr std::string_view kProgramTitle = "Ostrivane";
inline constexpr std::string_view kIniFileName = "Ostrivane.ini";

/// Major.Minor.Revision, each without padding.
[[nodiscard]] std::string ProgramVersion();

/// Directory of the running program with one trailing separator. The program's path is asked of the system;
/// where that fails it is the current directory.
[[nodiscard]] std::string GetAppPathWithSlash();

/// Compares the stored version with `version` and stores the running one when they differ. A failed store
/// is told by a plain message, and the program goes on.
void Version_Record(Registry& registry, const std::string& version);
