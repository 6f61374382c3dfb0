#include "libraries/project_entry.h"

#include <charconv>
#include <vector>

#include "model/clsProjekt.h"
#include "model/clsTypeLib.h"
#include "platform/ascii.h"
#include "shell/words.h"

namespace {

std::vector<std::string_view> Fields(std::string_view text, char separator) {
    std::vector<std::string_view> fields;
    for (std::size_t from = 0; from <= text.size();) {
        const auto end = std::min(text.find(separator, from), text.size());
        fields.push_back(text.substr(from, end - from));
        from = end + 1;
    }
    return fields;
}

// Name of a library's file without directory and ending. A resource number after the file, as in "vbscript.dll\2", is
// not part of it.
std::string_view LibraryFileStem(std::string_view path) {
    std::string_view file = modMain::DirOrFileName(path, 0);
    if (!file.empty() && file.find_first_not_of("0123456789") == std::string_view::npos)
        file = modMain::DirOrFileName(path.substr(0, path.size() - file.size() - 1), 0);
    return file.substr(0, file.rfind('.'));
}

std::string_view ValueOf(std::string_view line) {
    const auto equals = line.find('=');
    const std::string_view value =
        equals == std::string_view::npos ? std::string_view() : Trim(line.substr(equals + 1));
    return value.size() >= 2 && value.front() == '"' && value.back() == '"' ? value.substr(1, value.size() - 2) : value;
}

// Removes the leading "*\G" mark; the rest begins with the identifier or path.
std::string_view WithoutMark(std::string_view value) {
    return value.size() >= 3 && value.starts_with("*\\") ? value.substr(3) : value;
}

void Name_From_File(clsProjekt& projekt, clsTypeLib& library, std::string_view path) {
    library.InprocServer32 = std::string(path);
    library.SetName(projekt.TheNames().Intern(LibraryFileStem(path)));
}

bool IsProjectMark(std::string_view value) {
    return ascii::SameText(value.substr(0, 3), "*\\A");
}

bool IsProjectFile(std::string_view path) {
    return path.size() > 4 && ascii::SameText(path.substr(path.size() - 4), ".vbp");
}

/// @param fields  identifier, version, language in hexadecimal
void TakeIdentity(clsTypeLib& library, const std::vector<std::string_view>& fields) {
    library.TypeLibID = std::string(fields[0]);
    if (fields.size() >= 2)
        library.Version = std::string(fields[1]);
    if (fields.size() >= 3)
        std::from_chars(fields[2].data(), fields[2].data() + fields[2].size(), library.lcid, 16);
}

}  // namespace

void FillPropertysRef(clsProjekt& projekt, clsTypeLib& library, std::string_view line) {
    library.ProjektEintrag = std::string(line);
    library.LibTyp = LibraryKind::Reference;
    const std::string_view value = ValueOf(line);
    const std::vector<std::string_view> fields = Fields(WithoutMark(value), '#');
    TakeIdentity(library, fields);
    if (fields.size() >= 4)
        library.LineFile = std::string(fields[3]);
    else if (IsProjectMark(value))
        library.LineFile = library.TypeLibID;
    library.isProject = IsProjectMark(value) || IsProjectFile(library.LineFile);
    // A description can contain the separator: everything after the path belongs to it.
    if (fields.size() >= 5)
        library.Description = std::string(fields[4].data(), line.data() + line.size());
    Name_From_File(projekt, library, fields.size() >= 4 ? fields[3] : fields[0]);
}

void FillPropertys(clsProjekt& projekt, clsTypeLib& library, std::string_view line) {
    library.ProjektEintrag = std::string(line);
    library.LibTyp = LibraryKind::Component;
    const std::string_view marked = ValueOf(line);
    const std::string_view value = WithoutMark(marked);
    const auto semicolon = value.find(';');
    const std::vector<std::string_view> fields = Fields(value.substr(0, semicolon), '#');
    TakeIdentity(library, fields);
    if (semicolon != std::string_view::npos)
        library.LineFile = std::string(Trim(value.substr(semicolon + 1)));
    else if (IsProjectMark(marked))
        library.LineFile = library.TypeLibID;
    library.isProject = IsProjectMark(marked) || IsProjectFile(library.LineFile);
    Name_From_File(projekt, library, semicolon == std::string_view::npos ? fields[0] : library.LineFile);
}
