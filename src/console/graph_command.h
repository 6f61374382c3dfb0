// The diagram without a screen: the operations of the command line in their order, and the files that are written.
#pragma once

#include <cstdint>
#include <iosfwd>
#include <limits>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "xgraph/call_chains.h"

class Files;
class clsProjekt;

struct GraphOperation {
    enum class Kind : std::uint8_t { Open, Add, Type, Chain };
    Kind kind = Kind::Open;
    std::string option;               // as on the command line, for messages
    std::string subject;              // file, or code path in the page of the sources
    std::optional<GraphPoint> place;  // of what is added
    ChainObjectType type = ChainObjectType::Procedure;
    GraphChain chain = GraphChain::CalledBy;
};
/// The operation of an option and its value in UTF-8: "--add" and "m.go@3000,450". Nothing for a value that is none.
[[nodiscard]] std::optional<GraphOperation> GraphOperationOf(std::string_view option, std::string_view value);

struct GraphCommand {
    std::vector<std::string> files;  // written at the end, in the formats of their suffixes
    std::vector<GraphOperation> operations;
    double canvas = kCanvasTwips;                 // width and height
    std::string symbolSizes;                      // file with sizes in place of the fixed ones; empty for none
    int limit = std::numeric_limits<int>::max();  // symbols that chains create at most, all of them together
    [[nodiscard]] bool IsEmpty() const { return files.empty(); }
};

enum class GraphOutcome : std::uint8_t { Written, Reported, Refused };

/// Makes the diagram and writes its files. The calls of the project have been read. Refused: an operation or the file
/// of sizes makes no sense, and nothing is written. Reported: something is missing in the diagram, or a file could not
/// be written. `errors` has a line for each of these, and `notes` one for each file written.
[[nodiscard]] GraphOutcome RunGraphCommand(clsProjekt& projekt, Files& files, const GraphCommand& command,
                                           std::ostream& notes, std::ostream& errors);
