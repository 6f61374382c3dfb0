// Name, version and directory of the program, and the record of the version that ran last.
#pragma once

#include <string>
#include <string_view>

#include "platform/registry.h"

inline constexpr std::string_view kProgramTitle = "Ostrivane";
inline constexpr std::string_view kIniFileName = "Ostrivane.ini";

/// "Major.Minor.Revision" without padding.
[[nodiscard]] std::string ProgramVersion();

/// Directory of the running program with one trailing separator; the current directory if the system does not report
/// the program's path.
[[nodiscard]] std::string GetAppPathWithSlash();

/// Stores the running version in the registry if the stored version differs from `version`. If storing fails, shows a
/// message and continues.
void Version_Record(Registry& registry, const std::string& version);
