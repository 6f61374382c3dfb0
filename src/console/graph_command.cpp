#include "console/graph_command.h"

#include <cmath>
#include <ostream>
#include <unordered_map>
#include <utility>

#include "console/did_you_mean.h"
#include "display/node_objects.h"
#include "model/clsProjekt.h"
#include "platform/basic_number.h"
#include "platform/code_page.h"
#include "platform/files.h"
#include "shell/clsText.h"
#include "xgraph/graph_export.h"
#include "xgraph/graph_file.h"
#include "xgraph/placement.h"

namespace {

using Kind = GraphOperation::Kind;

std::string Shown(std::string_view bytes) {
    return ActiveCodePage().ToUtf8(bytes);
}

// A number of twips that a diagram can have.
std::optional<double> Twips(std::string_view text) {
    const std::optional<double> number = NumberOfText(text);
    return number && std::fabs(*number) <= XGraph::FarthestTwips(0) ? number : std::nullopt;
}

bool ReadAdd(std::string_view value, GraphOperation& operation) {
    const std::size_t at = value.rfind('@');
    operation.subject = value.substr(0, at);
    if (at == std::string_view::npos)
        return !operation.subject.empty();
    const std::string_view place = value.substr(at + 1);
    const std::size_t comma = place.find(',');
    if (operation.subject.empty() || comma == std::string_view::npos)
        return false;
    const std::optional<double> left = Twips(place.substr(0, comma));
    const std::optional<double> top = Twips(place.substr(comma + 1));
    if (left && top)
        operation.place = {*left, *top};
    return operation.place.has_value();
}

template <class Value, std::size_t count>
bool Choose(const std::pair<std::string_view, Value> (&choices)[count], std::string_view word, Value& value) {
    for (const auto& [name, choice] : choices)
        if (name == word) {
            value = choice;
            return true;
        }
    return false;
}

bool ReadType(std::string_view value, GraphOperation& operation) {
    static constexpr std::pair<std::string_view, ChainObjectType> kTypes[]{
        {"module", ChainObjectType::Module},     {"procedure", ChainObjectType::Procedure},
        {"variable", ChainObjectType::Variable}, {"type", ChainObjectType::Type},
        {"enum", ChainObjectType::Enum},         {"all", ChainObjectType::All}};
    return Choose(kTypes, value, operation.type);
}

bool ReadChain(std::string_view value, GraphOperation& operation) {
    static constexpr std::pair<std::string_view, GraphChain> kChains[]{{"calledby", GraphChain::CalledBy},
                                                                       {"calledbyall", GraphChain::CalledByAll},
                                                                       {"calls", GraphChain::Calls},
                                                                       {"callsall", GraphChain::CallsAll}};
    const std::size_t equals = value.find('=');
    if (equals == std::string_view::npos || equals + 1 == value.size())
        return false;
    operation.subject = value.substr(equals + 1);
    return Choose(kChains, value.substr(0, equals), operation.chain);
}

// Sizes of symbols that a file has; those of all others follow from their captions.
class SizesOfFile final : public FixedSymbolSizes {
public:
    void Add(std::string codePath, GraphSize size) { sizes_.insert_or_assign(std::move(codePath), size); }
    [[nodiscard]] std::optional<GraphSize> Given(std::string_view codePath) const override {
        const auto found = sizes_.find(std::string(codePath));
        return found == sizes_.end() ? std::nullopt : std::optional(found->second);
    }

private:
    std::unordered_map<std::string, GraphSize> sizes_;
};

// The bytes of the page for a text that is UTF-8, as command lines and our own JSON are.
std::string InPage(std::string_view text) {
    return IsValidUtf8(text) ? ActiveCodePage().FromUtf8(text) : std::string(text);
}

// False for a line that is not "code path TAB width TAB height".
bool ReadSize(std::string_view line, SizesOfFile& sizes) {
    const std::size_t first = line.find('\t');
    const std::size_t second = line.find('\t', first == std::string_view::npos ? first : first + 1);
    if (first == 0 || second == std::string_view::npos)
        return false;
    const std::optional<double> width = Twips(line.substr(first + 1, second - first - 1));
    const std::optional<double> height = Twips(line.substr(second + 1));
    if (!width || !height || *width <= 0 || *height <= 0)
        return false;
    sizes.Add(LowerCase(InPage(line.substr(0, first))), {*width, *height});
    return true;
}

bool ReadSizes(const Files& files, const std::string& path, SizesOfFile& sizes, std::ostream& errors) {
    if (path.empty())
        return true;
    const FileText file = files.ReadText(path);
    if (file.error != FileError::None) {
        errors << path << ": " << Describe(file.error) << '\n';
        return false;
    }
    std::string_view rest = file.text;
    for (int nr = 1; !rest.empty(); ++nr) {
        const std::size_t end = std::min(rest.find("\r\n"), rest.size());
        const std::string_view line = rest.substr(0, end);
        if (!line.empty() && !ReadSize(line, sizes)) {
            errors << path << ", line " << nr << ": a code path, a tab, a width, a tab and a height are needed\n";
            return false;
        }
        rest.remove_prefix(std::min(end + 2, rest.size()));
    }
    return true;
}

class Maker {
public:
    Maker(clsProjekt& projekt, const Files& files, const GraphCommand& command, const SymbolSizes& sizes,
          std::ostream& errors)
        : projekt_(projekt), files_(files), errors_(errors), graph_(sizes, command.canvas), left_(command.limit) {
        graph_.SetProject(&projekt);
    }

    GraphOutcome Run(const std::vector<GraphOperation>& operations) {
        for (const GraphOperation& operation : operations)
            if (!Do(operation))
                return GraphOutcome::Refused;
        return isWhole_ ? GraphOutcome::Written : GraphOutcome::Reported;
    }
    [[nodiscard]] const XGraph& Graph() const { return graph_; }

private:
    bool Do(const GraphOperation& operation) {
        switch (operation.kind) {
            case Kind::Open:
                return Open(operation);
            case Kind::Add:
                return Symbol(operation) != nullptr;
            case Kind::Type:
                type_ = operation.type;
                return true;
            case Kind::Chain:
                return Chain(operation);
        }
        return false;
    }

    bool Refuse(const GraphOperation& operation, std::string_view why) {
        errors_ << operation.option << ": " << why << '\n';
        return false;
    }

    bool Open(const GraphOperation& operation) {
        const GraphFile file = ReadGraphFile(files_, operation.subject);
        if (!file.IsGraph())
            return Refuse(operation,
                          file.error != FileError::None ? std::string(Describe(file.error)) : Utf8TextNr(file.whyNot));
        graph_.Clear();
        graph_.SetPlaces(file.places);
        for (const SymbolPlace& place : file.places)
            if (!graph_.WithPath(place.CodePath)) {
                isWhole_ = false;
                errors_ << operation.option << ": the project has no " << Shown(place.CodePath) << '\n';
            }
        return true;
    }

    CodeObject* Find(const GraphOperation& operation) {
        const std::string codePath = LowerCase(InPage(operation.subject));
        if (CodeObject* const object = ObjectOfNode(projekt_, {NodeKind::Object, codePath}))
            return object;
        Refuse(operation, "the project has no " + operation.subject + DidYouMean(projekt_, codePath));
        return nullptr;
    }

    // That of the operation, made where there is none: where it says, or where the window would put it.
    const ctlGraphObj* Symbol(const GraphOperation& operation) {
        CodeObject* const object = Find(operation);
        if (!object)
            return nullptr;
        if (const ctlGraphObj* const known = graph_.WithPath(object->CodePath())) {
            if (operation.place)
                graph_.MoveTo(known->Index, *operation.place);
            return known;
        }
        const GraphPoint free =
            operation.place ? *operation.place : WholeFreePlace(graph_, graph_.Canvas(), graph_.SizeOf(*object));
        return graph_.GraphObjCreate(object, free.x, free.y, true);
    }

    bool Chain(const GraphOperation& operation) {
        const ctlGraphObj* const start = Symbol(operation);
        if (!start)
            return false;
        if (start->object->Class() != ObjectClass::Prozedur)
            return Refuse(operation, operation.subject + " is no procedure");
        left_ -= RunGraphChain(graph_, *start, operation.chain, {.type = type_, .limit = left_}).created;
        return true;
    }

    clsProjekt& projekt_;
    const Files& files_;
    std::ostream& errors_;
    XGraph graph_;
    ChainObjectType type_ = ChainObjectType::Procedure;
    int left_;  // of the limit
    bool isWhole_ = true;
};

}  // namespace

std::optional<GraphOperation> GraphOperationOf(std::string_view option, std::string_view value) {
    GraphOperation operation;
    operation.option = std::string(option) + ' ' + std::string(value);
    bool isValid = !value.empty();
    if (option == "--open") {
        operation.subject = value;
    } else if (option == "--add") {
        operation.kind = Kind::Add;
        isValid = ReadAdd(value, operation);
    } else if (option == "--type") {
        operation.kind = Kind::Type;
        isValid = ReadType(value, operation);
    } else {
        operation.kind = Kind::Chain;
        isValid = ReadChain(value, operation);
    }
    return isValid ? std::optional(std::move(operation)) : std::nullopt;
}

GraphOutcome RunGraphCommand(clsProjekt& projekt, Files& files, const GraphCommand& command, std::ostream& notes,
                             std::ostream& errors) {
    SizesOfFile sizes;
    if (!ReadSizes(files, command.symbolSizes, sizes, errors))
        return GraphOutcome::Refused;
    Maker maker(projekt, files, command, sizes, errors);
    GraphOutcome outcome = maker.Run(command.operations);
    if (outcome == GraphOutcome::Refused)
        return outcome;
    for (const std::string& path : command.files) {
        const FileError error = files.WriteWhole(path, GraphTextAs(*GraphFormatOf(path), maker.Graph()));
        if (error == FileError::None) {
            notes << path << ": " << maker.Graph().GraphObjects().size() << " symbols\n";
        } else {
            errors << path << ": " << Describe(error) << '\n';
            outcome = GraphOutcome::Reported;
        }
    }
    return outcome;
}
