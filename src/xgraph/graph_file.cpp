#include "xgraph/graph_file.h"

#include <algorithm>
#include <limits>
#include <unordered_set>
#include <utility>

#include "platform/basic_number.h"
#include "platform/code_page.h"
#include "shell/clsText.h"
#include "shell/errors.h"
#include "shell/operations.h"
#include "shell/vb_text.h"

namespace {

constexpr std::string_view kBegin = "BEGIN:";
constexpr std::string_view kEnd = "END:";

// The number at the start of a text, without its blanks; 0 if it starts with none. The point is the only decimal sign.
double Val(std::string_view text) {
    constexpr std::size_t kMostCharacters = 400;  // a number that fits has fewer
    std::string number(text.substr(0, kMostCharacters));
    std::erase_if(number, [](char c) { return c == ' ' || c == '\t'; });
    std::string_view rest = number;
    const bool isNegative = rest.starts_with('-');
    if (isNegative || rest.starts_with('+'))
        rest.remove_prefix(1);
    const NumberRead read = ReadNumber(rest);
    const double value = read.overflows ? std::numeric_limits<double>::infinity() : read.number;
    return isNegative ? -value : value;
}

// Takes the first line off a text; a line ends in CR LF, LF or CR.
std::string_view TakeLine(std::string_view& text) {
    const std::size_t end = std::min(text.find_first_of("\r\n"), text.size());
    const std::string_view line = text.substr(0, end);
    text.remove_prefix(end);
    text.remove_prefix(text.starts_with(vbCrLf) ? 2 : text.empty() ? 0 : 1);
    return line;
}

struct KeyAndValue {
    std::string_view key;
    std::string_view value;
};

// The place of "=" counts in the line as it is, and the key is cut from the trimmed one: a key with blanks in front
// comes out too long, and is none.
KeyAndValue Split(std::string_view line) {
    const std::size_t sign = line.find('=');
    if (sign == std::string_view::npos)
        return {};
    return {Trim(line).substr(0, sign), line.substr(sign + 1)};
}

class Reader {
public:
    void Line(std::string_view line) {
        if (line == kBegin)
            isInside_ = true;
        if (line == kEnd)
            isInside_ = false;
        const auto [key, value] = Split(line);
        if (key == "CodePath")
            path_ = LowerCase(value);
        else if (key == "Left")
            left_ = Val(value);
        else if (key == "Top" && !path_.empty())
            places.push_back({std::exchange(path_, {}), left_, Val(value)});  // a second one would be ignored anyway
    }
    [[nodiscard]] bool IsInside() const { return isInside_; }

    std::vector<SymbolPlace> places;

private:
    std::string path_;
    double left_ = 0;
    bool isInside_ = false;
};

constexpr std::string_view kOpenTag = "clsModul: GraphOpen";
constexpr std::string_view kSaveTag = "clsModul: GraphSave";

}  // namespace

std::string GraphText(const std::vector<SymbolPlace>& places) {
    std::string text = "Version=1\r\n";
    for (const SymbolPlace& place : places) {
        text.append(kBegin).append("\r\nCodePath=").append(place.CodePath);
        text.append("\r\nLeft=").append(TextOfNumber(place.Left));
        text.append("\r\nTop=").append(TextOfNumber(place.Top));
        text.append("\r\n").append(kEnd).append(vbCrLf);
    }
    return text;
}

GraphFile ReadGraphText(std::string_view bytes) {
    GraphFile file;
    file.whyNot = Text::GraphFileForeign;
    if (bytes.find('\0') != std::string_view::npos)
        return file;
    std::string_view rest = bytes;
    const bool hasVersion = Split(TakeLine(rest)).key == "Version";
    Reader reader;
    std::string_view last;
    while (!rest.empty()) {
        last = TakeLine(rest);
        reader.Line(last);
    }
    if (!hasVersion && reader.places.empty())
        return file;
    const bool endsInLine = !bytes.ends_with('\n') && !bytes.ends_with('\r');
    const bool isTorn = reader.IsInside() || (endsInLine && !last.empty() && kBegin.starts_with(last));
    file.whyNot = isTorn ? Text::GraphFileTorn : Text::None;
    if (!isTorn)
        file.places = std::move(reader.places);
    return file;
}

GraphFile ReadGraphFile(const Files& files, std::string_view path) {
    const FileBytes read = files.ReadBytes(path, kMostGraphBytes);
    if (read.error == FileError::None)
        return ReadGraphText(read.bytes);
    GraphFile file;
    if (read.error == FileError::TooLarge) {
        file.whyNot = Text::GraphFileForeign;
    } else {
        file.error = read.error;
        file.whyNot = CauseAndRemedy(read.error);
    }
    return file;
}

bool GraphSave(const XGraph& graph, Files& files, std::string_view path) {
    const FileError error = files.WriteWhole(path, GraphText(graph.Places()));
    if (error != FileError::None)
        ShowFileError(kSaveTag, error, path);
    return error == FileError::None;
}

GraphOpened GraphOpen(XGraph& graph, const Files& files, std::string_view path) {
    const GraphFile file = ReadGraphFile(files, path);
    if (file.error != FileError::None)
        ShowFileError(kOpenTag, file.error, path);
    else if (!file.IsGraph())
        Tell(gText.TextNr(file.whyNot));
    if (!file.IsGraph())
        return {file.whyNot};
    graph.Clear();
    graph.SetPlaces(file.places);
    std::unordered_set<std::string_view> paths;
    for (const SymbolPlace& place : file.places)
        paths.insert(place.CodePath);
    const int symbols = static_cast<int>(graph.GraphObjects().size());
    return {Text::None, symbols, static_cast<int>(paths.size()) - symbols};
}
