#include "project/replace.h"

#include <algorithm>
#include <array>
#include <atomic>
#include <map>
#include <memory_resource>
#include <random>
#include <set>
#include <sstream>

#include "project/project_file.h"
#include "support/project_dump.h"
#include "support/project_test.h"

namespace {

// The modules of the folder, in a fixed order.
const std::vector<ProjectFile> kFirstModules = [] {
    const std::string folder = OSTRIVANE_SOURCE_DIR "/tests/project/modules/";
    std::vector<ProjectFile> modules;
    for (const char* file :
         {"Base.bas", "Tools.bas", "Worker.cls", "Other.cls", "Form1.frm", "Form2.frm", "Dial.ctl", "Empty.bas"})
        modules.emplace_back(file, DiskFiles().ReadText(folder + file).text);
    return modules;
}();

constexpr std::array kNames = {"Base",  "Tools",  "Worker", "Form1",  "Dial",   "Other", "Fresh",
                               "Start", "gTable", "gOther", "gSpare", "kLimit", "Run",   "Size"};

const std::vector<std::string> kLines = [] {
    std::istringstream all(
        "Public gSpare() As Long|Public gFresh(3)|Public Const gOther = 1|  ReDim gTable(1), gFresh(2), gSpare(3)|"
        "  Start: u.Run: x = u.Size|Dim w As Worker, o As Base.Rec, d As stdole2|Public Enum Shade|End Enum|End Sub|"
        "Private Sub Start()|Public Property Get Size() As Other|' a comment||#If Win16 Then|#End If");
    std::vector<std::string> lines;
    for (std::string line; std::getline(all, line, '|');)
        lines.push_back(line);
    return lines;
}();

struct Kind {
    const char* ending;
    const char* key;  // of the line in the project file
    ModuleKind kind;
};
constexpr std::array kKinds = {Kind{".bas", "Module=m; ", ModuleKind::Module}, Kind{".frm", "Form=", ModuleKind::Form},
                               Kind{".cls", "Class=c; ", ModuleKind::Class},
                               Kind{".ctl", "UserControl=", ModuleKind::UserControl}};

// A project in memory that is edited at random, and refreshed after each edit.
class EditedProject {
public:
    explicit EditedProject(unsigned seed) : random_(seed) {
        for (const auto& [file, text] : kFirstModules) {
            files_.push_back(file);
            texts_[file] = text;
        }
        projekt_ = Open();
        projekt_->OnReplaced([this] { generationsTold_.push_back(projekt_->Generation()); });
    }

    void Analyse() { Analyse(*projekt_); }
    // One refresh with a few changes. Returns how the project differs from one that is opened now.
    std::string Step() {
        edits_.clear();
        std::vector<ModuleChange> changes;
        std::set<std::size_t> changed;
        std::set<std::size_t> gone;
        const std::size_t there = files_.size();
        for (std::size_t count = 1 + Below(3); count > 0; --count) {
            const std::size_t place = Below(there);
            if (Below(12) == 0 && there < 10) {
                const std::string text = texts_[AnyOf(files_)];
                files_.push_back("New" + std::to_string(random_()) + AnyOf(kKinds).ending);
                texts_[files_.back()] = text;
                edits_ += "add " + files_.back() + "; ";
                changes.push_back({{}, SourceOf(files_.back())});
            } else if (!changed.insert(place).second) {
                continue;
            } else if (Below(15) == 0 && there > gone.size() + 5) {
                gone.insert(place);
                edits_ += "remove " + files_[place] + "; ";
                changes.push_back({place, {}});
            } else {
                edits_ += files_[place] + ": " + Edit(files_[place]) + "; ";
                changes.push_back({place, SourceOf(files_[place])});
            }
        }
        for (auto place = gone.rbegin(); place != gone.rend(); ++place)
            files_.erase(files_.begin() + static_cast<std::ptrdiff_t>(*place));
        WriteFiles();

        const int generation = projekt_->Generation() + 1;
        const bool callsKnown = projekt_->callsKnown;
        generationsTold_.clear();
        Replace(*projekt_, changes);
        EXPECT_EQ(projekt_->Generation(), generation);
        EXPECT_THAT(generationsTold_, ElementsAre(generation));

        const std::unique_ptr<clsProjekt> fresh = Open();
        if (callsKnown)
            Analyse(*fresh);
        const std::string difference = DifferenceOf(*projekt_, *fresh);
        return difference.empty() ? "" : edits_ + "\n" + difference;
    }

private:
    static const Kind& KindOf(const std::string& file) {
        return *std::find_if(kKinds.begin(), kKinds.end(),
                             [&file](const Kind& kind) { return file.ends_with(kind.ending); });
    }
    static ModuleSource SourceOf(const std::string& file) { return {KindOf(file).kind, "p\\" + file}; }
    std::unique_ptr<clsProjekt> Open() {
        WriteFiles();
        auto projekt = std::make_unique<clsProjekt>(disk_);
        projekt->FullPath = "p\\P.vbp";
        Projekt_Laden(*projekt);
        return projekt;
    }
    static void Analyse(clsProjekt& projekt) {
        Who_Calls_Who(projekt);
        Tote_Untote_Kennzeichnen(projekt);
    }
    void WriteFiles() {
        disk_ = MemoryFiles();
        std::string lines =
            "Type=Exe\r\nName=\"Project1\"\r\nUsercontrol=counts as a module\r\n"
            "Reference=*\\G{00020430-0000-0000-C000-000000000046}#2.0#0#C:\\w\\stdole2.tlb#OLE Automation\r\n";
        for (const std::string& file : files_) {
            lines.append(KindOf(file).key).append(file).append("\r\n");
            if (texts_[file] != kDeleted)
                disk_.WriteWhole("p\\" + file, texts_[file]);
        }
        disk_.WriteWhole("p\\P.vbp", lines);
    }

    std::size_t Below(std::size_t count) { return random_() % count; }
    template <class Items>
    const typename Items::value_type& AnyOf(const Items& items) {
        return items[Below(std::size(items))];
    }
    // Place and length of the first public procedure; no length when there is none.
    static std::pair<std::size_t, std::size_t> ProcedureIn(const std::string& text) {
        const std::size_t begin = std::min(text.find("\r\nPublic Sub"), text.find("\r\nPublic Function"));
        const std::size_t end = begin == std::string::npos ? begin : text.find("\r\nEnd ", begin);
        return end == std::string::npos ? std::pair(std::size_t{0}, std::size_t{0}) : std::pair(begin, end - begin + 9);
    }
    // Changes one file and returns what it did.
    std::string Edit(const std::string& file) {
        std::string& text = texts_[file];
        if (text == kDeleted)
            text.clear();
        const std::size_t line = std::min(text.find("\r\n", text.empty() ? 0 : Below(text.size())), text.size());
        switch (Below(12)) {
            case 0:
                return text = Below(2) ? "" : kDeleted;
            case 1: {  // names the module, perhaps like another one
                const std::string attribute = std::string("Attribute VB_Name = \"") + AnyOf(kNames) + "\"\r\n";
                text.insert(0, attribute);
                return attribute;
            }
            case 2:
            case 3: {
                const std::string name = AnyOf(kNames);
                const std::string other = AnyOf(kNames);
                text = Replace(text, name, other);
                return name + " is now " + other;
            }
            case 4: {
                const std::size_t end = std::min(text.find("\r\n", std::min(line + 2, text.size())), text.size());
                const std::string removed = text.substr(line, end - line);
                text.erase(line, removed.size());
                return "without" + removed;
            }
            case 5: {
                const auto [begin, length] = ProcedureIn(text);
                text.erase(begin, length);
                return "without its first procedure";
            }
            case 6: {
                const std::string other = texts_[AnyOf(files_)];
                const auto [begin, length] = ProcedureIn(other);
                text += other.substr(begin, length) + "\r\n";
                return "with" + other.substr(begin, length);
            }
            case 7: {  // comes back as it was at first; a module that came later looks like any of them
                std::string first = AnyOf(kFirstModules).second;
                for (const auto& [name, source] : kFirstModules)
                    if (name == file)
                        first = source;
                text = first;
                return "written again";
            }
            case 8:
                return "as it is";
            default: {
                const std::string added = AnyOf(kLines);
                text.insert(line, "\r\n" + added);
                return "with " + added;
            }
        }
    }

    static inline const std::string kDeleted = "(deleted)";
    std::mt19937 random_;
    MemoryFiles disk_;
    std::vector<std::string> files_;  // as the project file lists them
    std::map<std::string, std::string> texts_;
    std::unique_ptr<clsProjekt> projekt_;
    std::string edits_;
    std::vector<int> generationsTold_;
};

using Replacing = ProgramState;

// Counts what the containers of the core hold.
class CountedMemory final : public std::pmr::memory_resource {
public:
    CountedMemory() : before_(std::pmr::set_default_resource(this)) {}
    CountedMemory(const CountedMemory&) = delete;
    CountedMemory& operator=(const CountedMemory&) = delete;
    ~CountedMemory() override { std::pmr::set_default_resource(before_); }
    std::atomic<std::size_t> bytes = 0;

private:
    void* do_allocate(std::size_t size, std::size_t alignment) override {
        bytes += size;
        return std::pmr::new_delete_resource()->allocate(size, alignment);
    }
    void do_deallocate(void* place, std::size_t size, std::size_t alignment) override {
        bytes -= size;
        std::pmr::new_delete_resource()->deallocate(place, size, alignment);
    }
    [[nodiscard]] bool do_is_equal(const memory_resource& other) const noexcept override { return this == &other; }
    std::pmr::memory_resource* before_;
};

}  // namespace

TEST_F(Replacing, GivesTheProjectThatOpeningItWouldGive) {
    const ScriptedQuestions goOn{};
    for (unsigned seed = 1; seed <= 12; ++seed) {
        EditedProject project(seed);
        if (seed % 4 != 0)  // in the others calls are not known, and stay so
            project.Analyse();
        for (int step = 1; step <= 20; ++step)
            ASSERT_EQ(project.Step(), "") << "seed " << seed << " step " << step;
    }
}

TEST_F(Replacing, ModuleThatLosesItsNameToAnotherKeepsNoMark) {
    ReadProject({{"A.bas", "Public a\n"}, {"B.bas", "Sub Unused()\nEnd Sub\n"}});
    Analyse();
    const CodeObject& unused = ObjectAt("b.unused");
    EXPECT_EQ(unused.IsDeath, 1);
    ProjectFiles().WriteWhole("p\\A.bas", "Attribute VB_Name = \"B\"\r\n");
    Replace(*gProjekt, {{0, ModuleSource{ModuleKind::Module, "p\\A.bas"}}});
    EXPECT_EQ(gProjekt->GetObjectFromCodePath("b.unused"), nullptr);
    EXPECT_EQ(unused.IsDeath, 0);
}

TEST_F(Replacing, CancelledCallsLeaveNoMarks) {
    ReadProject({{"A.bas", "Sub Unused()\nEnd Sub\n"}, {"B.bas", "Sub Unused()\nEnd Sub\n"}});
    Analyse();
    const std::vector<ModuleChange> again{{0, ModuleSource{ModuleKind::Module, "p\\A.bas"}}};
    {
        const RecordingProgress cancel("A + ");
        Replace(*gProjekt, again);
    }
    for (int i = 0; i < 2; ++i) {
        EXPECT_FALSE(gProjekt->callsKnown || gProjekt->marksKnown);
        EXPECT_EQ(ObjectAt("a.unused").IsDeath + ObjectAt("b.unused").IsDeath, 0);
        Replace(*gProjekt, again);
    }
}

TEST_F(Replacing, ChangesThatAreNotTakenLeaveTheirModulesAsTheyAre) {
    ReadProject({{"A.bas", "Public a\n"}, {"B.bas", "Public b\n"}, {"C.bas", "Public c\n"}});
    for (const char* path : {"p\\A.bas", "p\\B.bas", "p\\C.bas"})
        ProjectFiles().WriteWhole(path, "Public changed\r\n");
    const auto source = [](const char* path) { return ModuleSource{ModuleKind::Module, path}; };
    std::vector<std::size_t> asked;
    Replace(*gProjekt, {{0, source("p\\A.bas")}, {1, source("p\\B.bas")}, {2, {}}},
            [&asked](std::size_t change, const clsModul&) {
                asked.push_back(change);
                return change == 0 ? Taken::Yes : Taken::NoMore;
            });
    EXPECT_THAT(asked, ElementsAre(0, 1));
    EXPECT_EQ(NamesIn(ModuleOf("a").MyVars) + NamesIn(ModuleOf("b").MyVars) + NamesIn(ModuleOf("c").MyVars),
              "changedbc");
}

TEST_F(Replacing, AModuleGivesAllItsMemoryBack) {
    CountedMemory memory;
    MemoryFiles files;
    std::string text = "Public Type " + std::string(300, 't') + "\r\n";
    for (int i = 0; i < 40; ++i)  // enough for collections with an index
        text += " member" + std::to_string(i) + " As Long\r\n";
    text += "End Type\r\nSub Run()\r\nReDim fresh(1)\r\nEnd Sub\r\n";
    files.WriteWhole("p\\A.bas", text);
    Names names{CodePage()};
    const std::vector<CondConstant> none;
    std::unique_ptr<clsModul> modul = Read_Module({files, names, &memory, none}, {ModuleKind::Module, "p\\A.bas"});
    EXPECT_GT(memory.bytes, text.size());
    modul.reset();
    EXPECT_EQ(memory.bytes, 0U);
}
