#include "console/graph_options.h"

#include <CLI/CLI.hpp>
#include <array>
#include <map>

#include "platform/basic_number.h"
#include "xgraph/graph_export.h"

namespace {

constexpr const char* kGraph = "--graph";

struct Operation {
    const char* option;
    const char* about;
    const char* value;
};
constexpr std::array kOperations{
    Operation{"--open", "Begin the diagram with that of a file", "FILE.ovg"},
    Operation{"--add", "Put a symbol of an object on the diagram, at a place in twips or at a free one",
              "CODEPATH[@LEFT,TOP]"},
    Operation{"--type",
              "What the chains of callees after it take: module, procedure, variable, type, enum or all; without it "
              "procedures",
              "TYPE"},
    Operation{
        "--chain",
        "Add what calls a procedure or what it calls, one level or all: calledby, calledbyall, calls or callsall, "
        "\"=\" and its code path",
        "CHAIN=CODEPATH"},
};

CLI::Option* OncePerValue(CLI::Option* option, const char* value) {
    return option->type_name(value)->take_all()->allow_extra_args(false)->expected(1);
}

}  // namespace

GraphOptions::GraphOptions(CLI::App& app) : app_(app) {
    auto* const graph = OncePerValue(
        app.add_option(kGraph, command_.files,
                       "Make a diagram of the operations below, in their order, and write it to FILE: .ovg, .dot, "
                       ".graphml or .json; no reports unless a kind is named"),
        "FILE");
    graph->check([](const std::string& path) {
        return GraphFormatOf(path) ? std::string() : path + " must end in .ovg, .dot, .graphml or .json";
    });
    for (std::size_t nr = 0; nr < kOperations.size(); ++nr) {
        const Operation& operation = kOperations[nr];
        OncePerValue(app.add_option(operation.option, values_[nr], operation.about), operation.value)
            ->needs(graph)
            ->check([name = operation.option](const std::string& value) {
                return GraphOperationOf(name, value) ? std::string() : value + " does not fit";
            });
    }
    app.add_option("--canvas", command_.canvas, "Width and height of the canvas in twips; without it 60000")
        ->type_name("TWIPS")
        ->check(CLI::Range(1.0, XGraph::FarthestTwips(0)))
        ->needs(graph);
    app.add_option("--symbol-sizes", command_.symbolSizes,
                   "Sizes of symbols in twips: lines of code path, tab, width, tab, height")
        ->type_name("FILE")
        ->needs(graph);
    app.add_option("--limit", command_.limit, "Symbols that the chains create at most")
        ->type_name("N")
        ->check(CLI::NonNegativeNumber)
        ->needs(graph);
}

const GraphCommand& GraphOptions::Parsed() {
    std::map<std::string, std::size_t> next;  // value of each option
    for (const CLI::Option* option : app_.parse_order()) {
        const std::string name = option->get_name();
        for (std::size_t nr = 0; nr < kOperations.size(); ++nr)
            if (name == kOperations[nr].option)
                command_.operations.push_back(*GraphOperationOf(name, values_[nr].at(next[name]++)));
    }
    if (!command_.IsEmpty() && command_.operations.empty())
        throw CLI::RequiresError(kGraph, "--open, --add or --chain");
    return command_;
}
