#include "reach/declared.h"

#include <algorithm>
#include <filesystem>
#include <unordered_set>

#include "model/clsProjekt.h"
#include "platform/ascii.h"
#include "shell/words.h"

namespace {

constexpr std::string_view kEntry = "entry";
constexpr std::string_view kLeave = "leave";

std::string OneLine(std::string_view text) {
    std::string line(ascii::Trim(text));
    std::ranges::replace_if(
        line, [](char c) { return c == '\r' || c == '\n' || c == '\t'; }, ' ');
    return line;
}

// Nothing for a line that declares nothing.
bool ReadLine(std::string_view line, Declaration& declaration) {
    const auto firstTab = line.find('\t');
    const std::string_view word = ascii::Trim(line.substr(0, firstTab));
    if (firstTab == std::string_view::npos || (word != kEntry && word != kLeave))
        return false;
    const std::string_view rest = line.substr(firstTab + 1);
    const auto secondTab = std::min(rest.find('\t'), rest.size());
    declaration.kind = word == kEntry ? DeclaredKind::EntryPoint : DeclaredKind::LeaveAlone;
    declaration.codePath = ascii::Trim(rest.substr(0, secondTab));
    declaration.comment = OneLine(rest.substr(std::min(secondTab + 1, rest.size())));
    return !declaration.codePath.empty();
}

// The order of the file.
bool IsBefore(const Declaration& left, const Declaration& right) {
    return LowerCase(left.codePath) < LowerCase(right.codePath);
}

template <class Use>
void ForEachLineOf(std::string_view text, const Use& use) {
    for (std::size_t from = 0; from < text.size();) {
        const std::size_t end = std::min(text.find('\n', from), text.size());
        std::string_view line = text.substr(from, end - from);
        if (line.ends_with('\r'))
            line.remove_suffix(1);
        use(line);
        from = end + 1;
    }
}

// Differs for projects of one name in different folders.
std::string HashOf(std::string_view text) {
    std::uint32_t hash = 2166136261U;
    for (const char c : text)
        hash = (hash ^ static_cast<unsigned char>(c)) * 16777619U;
    std::string digits;
    for (int shift = 28; shift >= 0; shift -= 4)
        digits += "0123456789abcdef"[hash >> shift & 15U];
    return digits;
}

}  // namespace

Declared Declared::FromText(std::string_view text) {
    Declared declared;
    std::unordered_set<std::string> paths;
    ForEachLineOf(text, [&](std::string_view line) {
        Declaration declaration;
        if (!ReadLine(line, declaration)) {
            if (!ascii::Trim(line).empty())
                declared.otherLines_.emplace_back(line);
        } else if (paths.insert(LowerCase(declaration.codePath)).second) {
            declared.all_.push_back(std::move(declaration));
        }
    });
    std::ranges::stable_sort(declared.all_, IsBefore);
    return declared;
}

std::string Declared::ToText() const {
    std::string text;
    for (const std::string& line : otherLines_)
        text.append(line).append(vbCrLf);
    for (const Declaration& declaration : all_) {
        text.append(declaration.kind == DeclaredKind::EntryPoint ? kEntry : kLeave).append("\t");
        text.append(declaration.codePath);
        if (!declaration.comment.empty())
            text.append("\t").append(declaration.comment);
        text.append(vbCrLf);
    }
    return text;
}

const Declaration* Declared::Of(std::string_view codePath) const {
    const auto found = std::ranges::lower_bound(all_, Declaration{{}, std::string(codePath), {}}, IsBefore);
    return found != all_.end() && LowerCase(found->codePath) == LowerCase(codePath) ? &*found : nullptr;
}

void Declared::Set(Declaration declaration) {
    declaration.codePath = OneLine(declaration.codePath);
    declaration.comment = OneLine(declaration.comment);
    Remove(declaration.codePath);
    all_.insert(std::ranges::lower_bound(all_, declaration, IsBefore), std::move(declaration));
}

bool Declared::Remove(std::string_view codePath) {
    const Declaration* const found = Of(codePath);
    if (found)
        all_.erase(all_.begin() + (found - all_.data()));
    return found != nullptr;
}

std::vector<Declaration> Orphaned(const Declared& declared, const clsProjekt& projekt) {
    std::vector<Declaration> orphaned;
    for (const Declaration& declaration : declared.All())
        if (!projekt.GetObjectFromCodePath(LowerCase(declaration.codePath)))
            orphaned.push_back(declaration);
    return orphaned;
}

DeclaredFiles DeclaredFilesOf(const clsProjekt& projekt, std::string_view settingsFile) {
    DeclaredFiles files;
    files.besideProject = projekt.FullPath + " Declared.txt";
    if (settingsFile.empty())
        return files;
    // The same file whether the project was given by a relative path or not.
    std::error_code ignored;
    const std::string path = projekt.TheFiles().SystemPath(projekt.FullPath);
    const std::string whole = std::filesystem::absolute(path, ignored).lexically_normal().string();
    files.besideSettings = std::string(modMain::DirOrFileName(settingsFile, 1))
                               .append(modMain::DirOrFileName(projekt.FullPath, 0))
                               .append(" " + HashOf(whole) + " Declared.txt");
    return files;
}

StoredDeclared ReadDeclared(const Files& files, const DeclaredFiles& paths) {
    StoredDeclared stored;
    stored.path = paths.besideSettings.empty() || files.FileExists(paths.besideProject) ? paths.besideProject
                                                                                        : paths.besideSettings;
    if (!files.FileExists(stored.path))
        return stored;
    const FileText file = files.ReadText(stored.path);
    stored.error = file.error;
    stored.declared = Declared::FromText(file.text);
    return stored;
}

FileError WriteDeclared(Files& files, const std::string& path, const Declared& declared) {
    return files.WriteWhole(path, declared.ToText());
}
