#include "platform/path_names.h"

#include <algorithm>

#include "platform/ascii.h"
#include "platform/code_page.h"
#include "platform/unicode.h"

namespace {

template <class IsSeparator>
PathParts SplitWhere(std::string_view path, const IsSeparator& isSeparator) {
    path = ascii::TrimRight(path);
    PathParts parts;
    std::size_t begin = 0;
    for (std::size_t i = 0; i <= path.size(); ++i) {
        if (i < path.size() && !isSeparator(path, i))
            continue;
        if (i == 0 && !path.empty())
            parts.isAbsolute = true;
        const std::string_view name = path.substr(begin, i - begin);
        if (!name.empty() && name != ".")
            parts.names.emplace_back(name);
        begin = i + 1;
    }
    return parts;
}

bool IsSlash(char c) {
    return c == '/' || c == '\\';
}

PathParts SplitInPage(std::string_view path, const CodePage& page) {
    std::size_t secondByte = std::string_view::npos;
    return SplitWhere(path, [&](std::string_view text, std::size_t i) {
        if (i == secondByte)
            return false;
        if (page.IsLeadByte(static_cast<unsigned char>(text[i])))
            secondByte = i + 1;
        return IsSlash(text[i]);
    });
}

constexpr std::string_view kReplacementInUtf8 = "\xEF\xBF\xBD";

}  // namespace

std::string WithSlashes(std::string_view path) {
    constexpr std::size_t kMaxPathLength = 8192;  // beyond the limit of every supported system
    if (path.size() > kMaxPathLength || path.find('\0') != std::string_view::npos)
        return {};
    std::string slashed(ascii::TrimRight(path));
    std::replace(slashed.begin(), slashed.end(), '\\', '/');
    return slashed;
}

std::string NameInUtf8(std::string_view name) {
    return IsValidUtf8(name) ? std::string(name) : ActiveCodePage().ToUtf8(name);
}

std::string NameKey(std::string_view name) {
    const std::string utf8 = NameInUtf8(name);
    std::string key;
    key.reserve(utf8.size());
    for (std::size_t pos = 0; pos < utf8.size();)
        AppendUtf8(key, LowerCodePoint(TakeUtf8(utf8, pos).value_or(kReplacementCharacter)));
    return key;
}

PathParts SplitPath(std::string_view path) {
    return SplitWhere(path, [](std::string_view text, std::size_t i) { return IsSlash(text[i]); });
}

PathParts SplitDoubleBytePath(std::string_view path) {
    return SplitInPage(path, ActiveCodePage());
}

std::vector<PathParts> PartsInOtherPages(std::string_view path) {
    std::vector<PathParts> all;
    if (IsValidUtf8(path))
        return all;
    for (const CodePageName& known : SupportedCodePages()) {
        const CodePage page(known.number);
        PathParts parts = WithoutParents(SplitInPage(path, page));
        bool isDefined = page.Setting() == known.number;
        for (std::string& name : parts.names) {
            if (!IsValidUtf8(name))
                name = page.ToUtf8(name);
            isDefined = isDefined && name.find(kReplacementInUtf8) == std::string::npos;
        }
        if (isDefined && std::find(all.begin(), all.end(), parts) == all.end())
            all.push_back(std::move(parts));
    }
    return all;
}

PathParts WithoutParents(const PathParts& parts) {
    PathParts plain{parts.isAbsolute, {}};
    for (const std::string& name : parts.names) {
        if (name == ".." && !plain.names.empty() && plain.names.back() != "..")
            plain.names.pop_back();
        else if (name != ".." || !plain.isAbsolute)
            plain.names.push_back(name);
    }
    return plain;
}

std::string JoinPath(const PathParts& parts) {
    std::string path = parts.isAbsolute ? "/" : "";
    for (const std::string& name : parts.names) {
        if (!path.empty() && path.back() != '/')
            path += '/';
        path += name;
    }
    return path.empty() ? "." : path;
}
