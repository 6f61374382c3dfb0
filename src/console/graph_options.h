// The options of the diagram: their order on the command line is that of its operations.
#pragma once

#include "console/graph_command.h"

namespace CLI {
class App;
}

class GraphOptions {
public:
    /// @param app  is parsed before the options go
    explicit GraphOptions(CLI::App& app);
    /// What was parsed. Throws CLI::ParseError for options without --graph.
    [[nodiscard]] const GraphCommand& Parsed();

private:
    CLI::App& app_;
    GraphCommand command_;
    std::vector<std::string> values_[4];
};
