// A line scan finds what the sample declares, and who shares each name. Then the modules are cut into pieces, each of
// which ends in a name or is plain text, and a copy of a module consists of these pieces with a number after each name.
#include "generate_project.h"

#include <algorithm>
#include <initializer_list>
#include <map>
#include <random>
#include <stdexcept>
#include <string_view>
#include <utility>

#include "platform/files.h"

namespace {

constexpr std::size_t kGroup = 3;                // copies that share the names of members
constexpr unsigned kSharedPrivatesPerCent = 50;  // private names of modules that all copies share
constexpr unsigned kElsewherePerCent = 27;  // calls of another standard module that lead to another copy: with these,
                                            // one call in twenty does

// Who has the same name: all copies, a group of them, or nobody else. Where a word names several things, the last of
// these counts.
enum class Sharing { All, Private, Group, Copy };

struct Declared {
    Sharing sharing = Sharing::All;
    std::size_t module = 0;
    bool isGlobalProcedure = false;
};

struct Piece {
    std::string text;
    Sharing sharing = Sharing::All;
    bool mayLeadElsewhere = false;
};

struct SampleModule {
    std::string entry;   // "Form=" and the like
    std::string name;    // of the file
    std::string ending;  // of the file
    std::string text;
    std::vector<Piece> pieces;
    std::size_t lines = 0;
};

bool IsWordSign(char c) {
    return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || (c >= '0' && c <= '9') || c == '_';
}

// The next word from `pos` on, which moves to its end; empty when there is none.
std::string_view NextWord(std::string_view text, std::size_t& pos) {
    while (pos < text.size() && !IsWordSign(text[pos]))
        ++pos;
    const std::size_t begin = pos;
    while (pos < text.size() && IsWordSign(text[pos]))
        ++pos;
    return text.substr(begin, pos - begin);
}

bool IsOneOf(std::string_view word, std::initializer_list<std::string_view> words) {
    return std::find(words.begin(), words.end(), word) != words.end();
}

template <class Handle>
void ForEachLine(std::string_view text, Handle handle) {
    for (std::size_t begin = 0, end = 0; begin < text.size(); begin = end) {
        end = std::min(text.find('\n', begin), text.size() - 1) + 1;
        handle(text.substr(begin, end - begin));
    }
}

std::string ReadFile(const Files& files, const std::string& path) {
    FileText file = files.ReadText(path);
    if (file.error != FileError::None)
        throw std::runtime_error(path + ": " + std::string(Describe(file.error)));
    return std::move(file.text);
}

class Sample {
public:
    explicit Sample(std::mt19937& random) : random_(random) {
        const DiskFiles files;
        const std::string path = OSTRIVANE_SAMPLE;
        projectFile = ReadFile(files, path);
        ForEachLine(projectFile, [&](std::string_view line) {
            if (!IsModuleLine(line))
                return;
            const std::size_t end = std::min(line.find_first_of("\r\n"), line.size());
            const std::size_t begin = line.find_last_of("= \\", end) + 1;
            const std::size_t point = line.rfind('.');
            SampleModule& module = modules.emplace_back();
            module.entry = line.substr(0, line.find('=') + 1);
            module.name = line.substr(begin, point - begin);
            module.ending = line.substr(point, end - point);
            const std::size_t pathBegin = line.find_last_of("= ", end) + 1;
            module.text =
                ReadFile(files, path.substr(0, path.rfind('/') + 1).append(line.substr(pathBegin, end - pathBegin)));
            module.lines = static_cast<std::size_t>(std::count(module.text.begin(), module.text.end(), '\n'));
        });
        for (std::size_t i = 0; i < modules.size(); ++i)
            FindNames(i);
        for (std::size_t i = 0; i < modules.size(); ++i)
            Cut(i);
    }

    static bool IsModuleLine(std::string_view line) {
        return line.starts_with("Module=") || line.starts_with("Form=") || line.starts_with("Class=") ||
               line.starts_with("UserControl=");
    }

    std::string projectFile;
    std::vector<SampleModule> modules;

private:
    void FindNames(std::size_t number) {
        const bool isStandard = modules[number].entry == "Module=";
        bool isInBlock = false, blockIsType = false, blockIsPublic = false;
        const auto declare = [&](std::string_view name, Sharing sharing, bool isGlobalProcedure = false) {
            const auto [place, isNew] = names_.try_emplace(std::string(name));
            if (sharing == Sharing::Private && (!isNew || random_() % 100 < kSharedPrivatesPerCent))
                sharing = Sharing::All;
            if (sharing > place->second.sharing)
                place->second = {sharing, number, isGlobalProcedure};
        };
        ForEachLine(modules[number].text, [&](std::string_view line) {
            std::size_t pos = 0;
            std::string_view word = NextWord(line, pos);
            if (line.starts_with("Attribute VB_Name")) {
                NextWord(line, pos);
                declare(NextWord(line, pos), Sharing::Copy);
            } else if (line.starts_with("End")) {
                isInBlock = false;
            } else if (isInBlock && !word.empty()) {
                declare(word, !blockIsPublic ? Sharing::Private : blockIsType ? Sharing::Group : Sharing::Copy);
            } else if (line.starts_with(word) && IsOneOf(word, {"Public", "Friend", "Private", "Dim"})) {
                const bool isPublic = IsOneOf(word, {"Public", "Friend"});
                bool isProcedure = false, isEvent = false;
                for (word = NextWord(line, pos);; word = NextWord(line, pos)) {
                    if (IsOneOf(word, {"Enum", "Type"})) {
                        isInBlock = true;
                        blockIsType = word == "Type";
                        blockIsPublic = isPublic;
                    } else if (IsOneOf(word, {"Sub", "Function", "Property", "Get", "Let", "Set"})) {
                        isProcedure = true;
                    } else if (word == "Event") {
                        isEvent = true;
                    } else if (!IsOneOf(word, {"Declare", "Const", "WithEvents"})) {
                        break;
                    }
                }
                // Names of handlers are made of others, and libraries have events called Click too.
                if ((isProcedure && word.find('_') != std::string_view::npos) || word == "Click")
                    return;
                const bool isOfProject = isStandard || isInBlock;
                const Sharing sharing = !isPublic ? Sharing::Private : isOfProject ? Sharing::Copy : Sharing::Group;
                declare(word, sharing, isPublic && isStandard && isProcedure);
                if (!isProcedure && !isEvent)
                    while ((pos = line.find(',', pos)) != std::string_view::npos)
                        declare(NextWord(line, pos), sharing);
            }
        });
    }

    void Cut(std::size_t number) {
        bool isDesigner = true;
        SampleModule& module = modules[number];
        module.pieces.emplace_back();
        ForEachLine(module.text, [&](std::string_view line) {
            isDesigner = isDesigner && !line.starts_with("Attribute VB_Name");
            std::size_t pos = 0, done = 0;
            // Left of "=" a designer's line names a property of a control.
            while (!isDesigner || line.find("Begin ") != std::string_view::npos) {
                const std::string_view word = NextWord(line, pos);
                if (word.empty())
                    break;
                module.pieces.back().text += line.substr(done, pos - word.size() - done);
                AddWord(module.pieces, word, number);
                done = pos;
            }
            module.pieces.back().text += line.substr(done);
        });
    }

    // "mBook_HireOpened" has the names of two things in it, "ERR_DESK" is one.
    void AddWord(std::vector<Piece>& pieces, std::string_view word, std::size_t number) {
        const std::size_t underscore = word.rfind('_');
        if (const auto found = names_.find(word); found != names_.end()) {
            pieces.back().text += word;
            if (found->second.sharing == Sharing::All)
                return;
            pieces.back().sharing = found->second.sharing;
            pieces.back().mayLeadElsewhere = found->second.isGlobalProcedure && found->second.module != number;
            pieces.emplace_back();
        } else if (underscore != std::string_view::npos) {
            AddWord(pieces, word.substr(0, underscore), number);
            pieces.back().text += '_';
            AddWord(pieces, word.substr(underscore + 1), number);
        } else {
            pieces.back().text += word;
        }
    }

    std::mt19937& random_;
    std::map<std::string, Declared, std::less<>> names_;
};

// The suffix of names in a copy or group; the first keeps the names of the sample.
std::string Suffix(std::size_t number) {
    return number == 0 ? std::string() : std::to_string(number);
}

}  // namespace

GeneratedProject GenerateProject(const std::string& directory, std::size_t lines, unsigned seed,
                                 const WriteText& write) {
    std::mt19937 random(seed);
    const Sample sample(random);
    std::size_t linesOfCopy = 0;
    for (const SampleModule& module : sample.modules)
        linesOfCopy += module.lines;
    const std::size_t copies = (lines + linesOfCopy - 1) / linesOfCopy;

    GeneratedProject project;
    std::string entries;
    for (std::size_t copy = 0; project.lines < lines; ++copy) {
        for (const SampleModule& module : sample.modules) {
            if (project.lines >= lines)
                break;
            std::string text;
            for (const Piece& piece : module.pieces) {
                text += piece.text;
                if (piece.mayLeadElsewhere && random() % 100 < kElsewherePerCent)
                    text += Suffix(random() % copies);
                else if (piece.sharing != Sharing::All)
                    text += Suffix(piece.sharing == Sharing::Group ? copy / kGroup : copy);
            }
            const std::string name = module.name + Suffix(copy);
            entries.append(module.entry);
            if (module.entry == "Module=" || module.entry == "Class=")
                entries.append(name).append("; ");
            entries.append(name).append(module.ending).append("\r\n");
            project.moduleFiles.push_back(directory + '/' + name + module.ending);
            write(project.moduleFiles.back(), text);
            project.lines += module.lines;
            project.bytes += text.size();
        }
    }

    std::string projectText;
    ForEachLine(sample.projectFile, [&](std::string_view line) {
        if (!Sample::IsModuleLine(line))
            projectText += line;
        else
            projectText += std::exchange(entries, {});  // in place of the first
    });
    project.projectFile = directory + "/Generated.vbp";
    write(project.projectFile, projectText);
    return project;
}
