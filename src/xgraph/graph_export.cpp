#include "xgraph/graph_export.h"

#include <algorithm>
#include <array>
#include <unordered_map>
#include <utility>

#include "model/clsModul.h"
#include "model/clsTypeLib.h"
#include "model/kind_of.h"
#include "model/line_numbers.h"
#include "platform/basic_number.h"
#include "xgraph/dot_text.h"
#include "xgraph/graph.h"
#include "xgraph/graph_file.h"
#include "xgraph/pairs.h"

namespace {

constexpr double kTwipsPerPoint = 20;
constexpr double kTwipsPerInch = 1440;

std::string_view TextOf(CallType type) {
    return type == CallType::Really ? "really" : type == CallType::MayBe ? "maybe" : "use";
}

std::string Number(int number) {
    return std::to_string(number);
}

std::string Number(double number) {
    return TextOfNumber(number);
}

std::string ModulePathOf(const CodeObject& object) {
    const CodeObject* const owner = object.Modul       ? static_cast<const CodeObject*>(object.Modul)
                                    : object.myLibrary ? static_cast<const CodeObject*>(object.myLibrary)
                                                       : &object;
    return owner->Utf8(owner->CodePath());
}

// Only control characters, quotes and backslashes need an escape.
std::string JsonQuoted(std::string_view text) {
    constexpr std::string_view kDigits = "0123456789abcdef";
    std::string quoted = "\"";
    for (const char character : text) {
        const auto code = static_cast<unsigned char>(character);
        if (code < ' ')
            quoted.append("\\u00").append(1, kDigits[code >> 4]).append(1, kDigits[code & 15]);
        else if (character == '"' || character == '\\')
            quoted.append(1, '\\').append(1, character);
        else
            quoted += character;
    }
    return quoted + '"';
}

// XML knows no control characters, not even by number.
std::string XmlText(std::string_view text) {
    std::string escaped;
    for (const char character : text)
        switch (character) {
            case '&':
                escaped += "&amp;";
                break;
            case '<':
                escaped += "&lt;";
                break;
            case '>':
                escaped += "&gt;";
                break;
            case '"':
                escaped += "&quot;";
                break;
            default:
                escaped += static_cast<unsigned char>(character) < ' ' ? ' ' : character;
        }
    return escaped;
}

// Writes an object of JSON on one line.
class JsonObject {
public:
    JsonObject& Text(std::string_view key, std::string_view value) { return Raw(key, JsonQuoted(value)); }
    template <class Value>
    JsonObject& Number(std::string_view key, Value value) {
        return Raw(key, ::Number(value));
    }
    JsonObject& Raw(std::string_view key, std::string_view value) {
        text_.append(text_.size() == 1 ? "" : ",").append(JsonQuoted(key)).append(":").append(value);
        return *this;
    }
    [[nodiscard]] std::string End() const { return text_ + '}'; }

private:
    std::string text_ = "{";
};

template <class Elements, class Write>
std::string JsonArray(const Elements& elements, std::string_view before, std::string_view after, const Write& write) {
    std::string text = "[";
    for (const auto& element : elements)
        text.append(text.size() == 1 ? "" : ",").append(before).append(write(element));
    return text.append(elements.empty() ? "" : after).append("]");
}

GraphContent::Symbol Describe(const ctlGraphObj& symbol) {
    const CodeObject& object = *symbol.object;
    return {.codePath = object.Utf8(symbol.CodePath),
            .name = object.Utf8(symbol.MyName),
            .caption = object.Utf8(symbol.MyModul),
            .kind = KindOf(object),
            .module = ModulePathOf(object),
            .isDead = object.IsDeath == 1,
            .frame = symbol.Frame()};
}

std::vector<GraphPair> PairsOf(const XGraph& graph) {
    std::vector<Connector> connectors;
    for (const auto& symbol : graph.GraphObjects())
        GraphVerbindungen_FromObject(graph, *symbol, false, connectors);
    return GraphPairs(connectors);
}

// What an attribute or a datum is called, in GraphML with its type.
struct Key {
    const char* id;
    const char* of;
    const char* name;
    const char* type;
};
constexpr std::array kKeys{
    Key{"path", "node", "codePath", "string"},  Key{"name", "node", "name", "string"},
    Key{"kind", "node", "kind", "string"},      Key{"module", "node", "module", "string"},
    Key{"dead", "node", "dead", "boolean"},     Key{"left", "node", "left", "double"},
    Key{"top", "node", "top", "double"},        Key{"width", "node", "width", "double"},
    Key{"height", "node", "height", "double"},  Key{"certain", "edge", "certain", "int"},
    Key{"possible", "edge", "possible", "int"}, Key{"uses", "edge", "uses", "int"},
    Key{"lines", "edge", "lines", "string"},
};

class GraphMlData {
public:
    GraphMlData& Add(const char* id, std::string_view value) {
        text_.append("<data key=\"").append(id).append("\">").append(XmlText(value)).append("</data>");
        return *this;
    }
    [[nodiscard]] const std::string& Text() const { return text_; }

private:
    std::string text_;
};

// "m.go:12 m.go:15": the places of a pair in one word each.
std::string PlacesOf(const GraphContent::Pair& pair) {
    std::string places;
    for (const GraphContent::Line& line : pair.lines)
        places.append(places.empty() ? "" : " ").append(line.from).append(":").append(Number(line.line));
    return places;
}

}  // namespace

std::optional<GraphFormat> GraphFormatOf(std::string_view path) {
    const std::string lower = LowerCase(path);
    for (const auto& [suffix, format] : {std::pair<std::string_view, GraphFormat>{".ovg", GraphFormat::Ovg},
                                         {".dot", GraphFormat::Dot},
                                         {".gv", GraphFormat::Dot},
                                         {".graphml", GraphFormat::GraphMl},
                                         {".json", GraphFormat::Json}})
        if (lower.ends_with(suffix))
            return format;
    return {};
}

std::string GraphTextAs(GraphFormat format, const XGraph& graph) {
    switch (format) {
        case GraphFormat::Ovg:
            return GraphText(graph.Places());
        case GraphFormat::Dot:
            return DotText(ContentOf(graph));
        case GraphFormat::GraphMl:
            return GraphMlText(ContentOf(graph));
        case GraphFormat::Json:
            return GraphJsonText(ContentOf(graph));
    }
    return {};
}

GraphContent ContentOf(const XGraph& graph) {
    GraphContent content;
    std::unordered_map<const ctlGraphObj*, std::size_t> numbers;
    for (const auto& symbol : graph.GraphObjects()) {
        numbers.emplace(symbol.get(), numbers.size());
        content.symbols.push_back(Describe(*symbol));
    }
    LineNumbers lineNumbers;
    for (const GraphPair& pair : PairsOf(graph)) {
        GraphContent::Pair& described = content.pairs.emplace_back(
            GraphContent::Pair{numbers.at(pair.from), numbers.at(pair.to), pair.certain, pair.possible, pair.uses, {}});
        for (const clsCall* call : pair.calls)
            described.lines.push_back({call->Type(), call->Caller().Utf8(call->Caller().CodePath()),
                                       call->Parent->Utf8(call->Parent->CodePath()),
                                       lineNumbers.Of(call->CallerModule(), call->CallPos)});
    }
    std::ranges::sort(content.pairs, {}, [](const GraphContent::Pair& pair) { return std::pair(pair.from, pair.to); });
    return content;
}

std::string DotText(const GraphContent& content) {
    std::string text =
        "digraph xgraph {\n"
        "  node [shape=box, fixedsize=true, margin=0, fontname=\"Arial\", fontsize=6]\n"
        "  edge [arrowsize=0.6]\n";
    for (const GraphContent::Symbol& symbol : content.symbols) {
        const GraphPoint centre = symbol.frame.Center();
        const std::string caption = symbol.caption.empty() ? symbol.name : symbol.caption + '\n' + symbol.name;
        text.append("  ").append(DotQuoted(symbol.codePath)).append(" [label=").append(DotQuoted(caption));
        text.append(", kind=").append(DotQuoted(symbol.kind)).append(", module=").append(DotQuoted(symbol.module));
        // Points, with the second axis upwards.
        text.append(", pos=\"").append(Number(centre.x / kTwipsPerPoint)).append(",");
        text.append(Number(-centre.y / kTwipsPerPoint)).append("\", width=");
        text.append(Number(symbol.frame.width / kTwipsPerInch)).append(", height=");
        text.append(Number(symbol.frame.height / kTwipsPerInch));
        text.append(symbol.isDead ? ", dead=true, style=dashed]\n" : "]\n");
    }
    for (const GraphContent::Pair& pair : content.pairs) {
        text.append("  ").append(DotQuoted(content.symbols[pair.from].codePath)).append(" -> ");
        text.append(DotQuoted(content.symbols[pair.to].codePath)).append(" [certain=").append(Number(pair.certain));
        text.append(", possible=").append(Number(pair.possible)).append(", uses=").append(Number(pair.uses));
        text.append(pair.certain == 0 && pair.uses == 0 ? ", style=dashed]\n" : "]\n");
    }
    return text + "}\n";
}

std::string GraphMlText(const GraphContent& content) {
    std::string text =
        "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n"
        "<graphml xmlns=\"http://graphml.graphdrawing.org/xmlns\">\n";
    for (const Key& key : kKeys)
        text.append(" <key id=\"")
            .append(key.id)
            .append("\" for=\"")
            .append(key.of)
            .append("\" attr.name=\"")
            .append(key.name)
            .append("\" attr.type=\"")
            .append(key.type)
            .append("\"/>\n");
    text += " <graph id=\"xgraph\" edgedefault=\"directed\">\n";
    for (std::size_t nr = 0; nr < content.symbols.size(); ++nr) {
        const GraphContent::Symbol& symbol = content.symbols[nr];
        GraphMlData data;
        data.Add("path", symbol.codePath).Add("name", symbol.name).Add("kind", symbol.kind);
        data.Add("module", symbol.module).Add("dead", symbol.isDead ? "true" : "false");
        data.Add("left", Number(symbol.frame.left)).Add("top", Number(symbol.frame.top));
        data.Add("width", Number(symbol.frame.width)).Add("height", Number(symbol.frame.height));
        text.append("  <node id=\"n").append(std::to_string(nr + 1)).append("\">").append(data.Text());
        text += "</node>\n";
    }
    for (const GraphContent::Pair& pair : content.pairs) {
        GraphMlData data;
        data.Add("certain", Number(pair.certain)).Add("possible", Number(pair.possible));
        data.Add("uses", Number(pair.uses)).Add("lines", PlacesOf(pair));
        text.append("  <edge source=\"n").append(std::to_string(pair.from + 1)).append("\" target=\"n");
        text.append(std::to_string(pair.to + 1)).append("\">").append(data.Text()).append("</edge>\n");
    }
    return text + " </graph>\n</graphml>\n";
}

std::string GraphJsonText(const GraphContent& content) {
    const std::string nodes = JsonArray(content.symbols, "\n  ", "\n ", [](const GraphContent::Symbol& symbol) {
        JsonObject node;
        node.Text("codePath", symbol.codePath).Text("name", symbol.name).Text("kind", symbol.kind);
        node.Text("module", symbol.module).Raw("dead", symbol.isDead ? "true" : "false");
        node.Number("left", symbol.frame.left).Number("top", symbol.frame.top);
        return node.Number("width", symbol.frame.width).Number("height", symbol.frame.height).End();
    });
    const std::string pairs = JsonArray(content.pairs, "\n  ", "\n ", [&](const GraphContent::Pair& pair) {
        const std::string lines = JsonArray(pair.lines, "", "", [](const GraphContent::Line& line) {
            JsonObject place;
            place.Text("kind", TextOf(line.type)).Text("from", line.from).Number("line", line.line);
            return place.Text("to", line.to).End();
        });
        JsonObject described;
        described.Text("from", content.symbols[pair.from].codePath).Text("to", content.symbols[pair.to].codePath);
        described.Number("certain", pair.certain).Number("possible", pair.possible).Number("uses", pair.uses);
        return described.Raw("lines", lines).End();
    });
    return "{\n \"nodes\": " + nodes + ",\n \"pairs\": " + pairs + "\n}\n";
}
