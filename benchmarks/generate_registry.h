// Makes registry texts with many classes, for measuring.
#pragma once

#include <string>

/// The identifier of a generated type library; there is one for every twenty classes.
[[nodiscard]] std::string GeneratedTypeLib(int nr);
/// A system.reg of Wine with `classes` classes, their program identifiers and their type libraries.
[[nodiscard]] std::string GenerateWineRegistry(int classes);
/// The same as a registry editor exports it, in UTF-16.
[[nodiscard]] std::string GenerateExportedRegistry(int classes);
