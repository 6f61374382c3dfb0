// Diagrams as files (.ovg): a text with the code path and the place of each symbol. It has meaning only for the project
// that it was made of; what the project does not have is left out.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

#include "platform/files.h"
#include "shell/text_numbers.h"
#include "xgraph/graph.h"

/// A larger file is no diagram.
inline constexpr std::size_t kMostGraphBytes = std::size_t{32} << 20;

/// The text of a file with these symbols: bytes, lines that end in CR LF.
[[nodiscard]] std::string GraphText(const std::vector<SymbolPlace>& places);

/// What a file has to say.
struct GraphFile {
    std::vector<SymbolPlace> places;    // paths in lower case; the order and duplicates of the file
    FileError error = FileError::None;  // why it could not be read
    Text whyNot = Text::None;           // why it is none: the text for the user; None for a diagram
    [[nodiscard]] bool IsGraph() const { return whyNot == Text::None; }
};
/// A file is a diagram if it begins with a line "Version=" or has a record; it must not be binary, nor end within a
/// record.
[[nodiscard]] GraphFile ReadGraphText(std::string_view bytes);
[[nodiscard]] GraphFile ReadGraphFile(const Files& files, std::string_view path);

/// Writes the diagram; an existing file is replaced as a whole, and stays as it is if that fails. A failure is
/// reported.
[[nodiscard]] bool GraphSave(const XGraph& graph, Files& files, std::string_view path);

struct GraphOpened {
    Text whyNot = Text::None;  // None if it was opened; else the graph is unchanged, and the failure was reported
    int symbols = 0;           // on the graph now
    int missing = 0;           // records whose object the project does not have
};
/// Replaces the diagram by that of a file. Symbols that were there before go.
GraphOpened GraphOpen(XGraph& graph, const Files& files, std::string_view path);
