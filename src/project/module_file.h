// Reads one source file into a module.
#pragma once

#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "model/clsModul.h"
#include "platform/files.h"
#include "source/cond_compile.h"

/// What the reading of a project's modules shares. It must outlive the reading.
struct ReadingContext {
    const Files& files;
    Names& names;
    std::pmr::memory_resource* memory;  // of the project
    const std::vector<CondConstant>& condComps;
};

/// A module as the project file lists it.
struct ModuleSource {
    ModuleKind kind = ModuleKind::Module;
    std::string path;
    /// In place of what the file contains.
    std::optional<FileText> text = {};
    bool isEdited = false;  // the text differs from that of the file
};

/// Reads a file completely: text, tokens, controls, line counts, declarations, procedures. The result depends on the
/// text, the constants and the kind alone. Several threads may read at the same time.
/// A file that cannot be read gives a module with its fileError and nothing else, an empty file one without a text.
[[nodiscard]] std::unique_ptr<clsModul> Read_Module(const ReadingContext& context, const ModuleSource& source);
