// A project that is edited on disk, also at random, is after each refresh the project that opening it would give.
//
// Each seed is a session of its own. OSTRIVANE_RANDOM_EDITS=5000 makes so many edits in place of a few hundred within
// some seconds; OSTRIVANE_RANDOM_SEED=7 replays one session; OSTRIVANE_RANDOM_PROJECT=FILE.vbp takes another project
// than the sample and the small modules of the folder `modules`, with those modules that it has first.
#include "project/refresh.h"

#include <chrono>
#include <cstring>
#include <random>
#include <set>

#include "platform/temp_directory.h"
#include "project/project_file.h"
#include "shell/words.h"
#include "support/project_dump.h"
#include "support/project_test.h"

namespace {

constexpr int kEdits = 500;
constexpr int kSeconds = 5;
constexpr int kEditsOfASession = 30;
constexpr std::size_t kModules = 14;  // the first ones of a project
constexpr int kSpare = 2;             // of them come later
constexpr std::string_view kProjectFile = "p\\P.vbp";

// Names in the folder `modules`, which edits exchange: of modules, public and local variables, procedures.
constexpr const char* kNames[] = {"Base",  "Tools",  "Worker", "Form1",  "Dial",   "Other", "Fresh",
                                  "Start", "gTable", "gOther", "gSpare", "kLimit", "Run",   "Size"};
// Declarations that change what other modules mean, blocks that do not end, and ends of blocks that never began.
constexpr const char* kLines[] = {"Public gSpare() As Long",
                                  "Public gFresh(3)",
                                  "Public Const gOther = 1",
                                  "  ReDim gTable(1), gFresh(2), gSpare(3)",
                                  "  Start: u.Run: x = u.Size",
                                  "Dim w As Worker, o As Base.Rec, d As stdole2",
                                  "Public Enum Shade",
                                  "Private Sub Start()",
                                  "Public Property Get Size() As Other",
                                  "Public Type Torn",
                                  "End Sub",
                                  "End Enum",
                                  "#If deep Then",
                                  "#If Win16 Then",
                                  "#Const deep = 2",
                                  "#End If",
                                  "If x Then _",
                                  "Private Enum",
                                  "' a comment",
                                  "\""};

int FromEnvironment(const char* name, int fallback) {
    const char* const value = std::getenv(name);
    return value ? std::atoi(value) : fallback;
}

struct Source {
    std::string key;   // of the line in the project file, up to the path
    std::string path;  // below the project's directory
    std::string text;
};

// The modules of a project on disk under short paths.
std::vector<Source> SourcesOf(const std::string& projectFile) {
    const DiskFiles disk;
    clsProjekt projekt(const_cast<DiskFiles&>(disk));
    projekt.FullPath = projectFile;
    std::vector<Source> sources;
    for (const ModuleSource& modul : ModulesListed(projekt, disk.ReadText(projectFile).text)) {
        const std::string file(modMain::DirOrFileName(modul.path, 0));
        const std::string name = file.substr(0, file.size() - 4);
        const std::string key = modul.kind == ModuleKind::Form          ? "Form="
                                : modul.kind == ModuleKind::UserControl ? "UserControl="
                                : modul.kind == ModuleKind::Class       ? "Class=" + name + "; "
                                                                        : "Module=" + name + "; ";
        if (sources.size() < kModules)
            sources.push_back({key, file, disk.ReadText(modul.path).text});
    }
    return sources;
}

class Session {
public:
    Session(unsigned seed, std::vector<Source> sources) : random_(seed), sources_(std::move(sources)) {
        spare_.assign(sources_.end() - kSpare, sources_.end());
        sources_.resize(sources_.size() - kSpare);
        for (const Source& source : sources_)
            Save(source);
        SaveProject();
        projekt_ = Open(disk_);
        if (seed % 4 != 0)  // in the others calls are not known, and stay so
            Analyse(*projekt_);
        projekt_->OnReplaced([this] { ++notified_; });
    }

    // A few edits and a refresh. Returns how the project differs from one that is opened now.
    std::string Step() {
        edits_.clear();
        saved_.clear();
        projectSaved_ = false;
        for (std::size_t count = 1 + Below(3); count > 0; --count)
            EditAny();
        const int generation = projekt_->Generation();
        const bool callsKnown = projekt_->callsKnown;
        notified_ = 0;
        const FilesRead read = ChangedModule_Regenerieren(*projekt_);
        EXPECT_LE(notified_, 1);
        EXPECT_TRUE(notified_ == 1 || read.files - read.unreadable == (projectSaved_ ? 1 : 0)) << edits_;
        EXPECT_EQ(projekt_->Generation(), generation + notified_);
        const std::unique_ptr<clsProjekt> fresh = Open(good_);
        if (callsKnown)
            Analyse(*fresh);
        const std::string difference = DifferenceOf(*projekt_, *fresh);
        return difference.empty() ? "" : edits_ + "\n" + difference;
    }
    // Everything is again as it was at first.
    void BringBack() {
        sources_.assign(first_.begin(), first_.end() - kSpare);
        lines_ = kFirstLines;
        for (const Source& source : sources_)
            Save(source);
        SaveProject();
        ChangedModule_Regenerieren(*projekt_);
    }
    [[nodiscard]] ObjectCounts Counts() const { return projekt_->Counts(); }

private:
    static void Analyse(clsProjekt& projekt) {
        Who_Calls_Who(projekt);
        Tote_Untote_Kennzeichnen(projekt);
    }
    static std::unique_ptr<clsProjekt> Open(Files& files) {
        auto projekt = std::make_unique<clsProjekt>(files);
        projekt->FullPath = kProjectFile;
        Projekt_Laden(*projekt);
        return projekt;
    }
    std::size_t Below(std::size_t count) { return random_() % count; }

    // Both the files on disk and those that the project has last read well.
    void Save(const Source& source) {
        missing_.erase(source.path);
        saved_.insert(source.path);
        for (MemoryFiles* files : {&disk_, &good_})
            files->WriteWhole("p\\" + source.path, source.text);
    }
    void SaveProject() {
        projectSaved_ = true;
        std::string text = "Type=Exe\r\nName=\"P\"\r\n";
        for (const Source& source : sources_)
            text += source.key + source.path + "\r\n";
        for (const std::string& line : lines_)
            text += line + "\r\n";
        for (MemoryFiles* files : {&disk_, &good_})
            files->WriteWhole(kProjectFile, text);
    }

    void EditAny() {
        if (Below(6) == 0)
            return EditProject();
        Source& source = sources_[Below(sources_.size())];
        if (Below(12) == 0 && !saved_.contains(source.path)) {
            edits_ += "remove " + source.path + "; ";
            disk_.Remove("p\\" + source.path);
            missing_.insert(source.path);
            return;
        }
        edits_ += source.path + " " + EditText(source) + "; ";
        Save(source);
    }

    void EditProject() {
        // A module whose file is missing cannot follow other constants, and has no text at another place.
        for (const Source& source : sources_)
            if (missing_.contains(source.path))
                Save(source);
        const std::size_t place = Below(sources_.size());
        switch (Below(6)) {
            case 0:
                if (sources_.size() > 4) {
                    edits_ += "without " + sources_[place].path + "; ";
                    spare_.push_back(sources_[place]);
                    sources_.erase(sources_.begin() + static_cast<std::ptrdiff_t>(place));
                }
                break;
            case 1:
                if (!spare_.empty()) {
                    edits_ += "with " + spare_.back().path + "; ";
                    Save(spare_.back());
                    sources_.insert(sources_.begin() + static_cast<std::ptrdiff_t>(place), spare_.back());
                    spare_.pop_back();
                }
                break;
            case 2:
                edits_ += "move " + sources_[place].path + "; ";
                sources_[place].path = "d" + std::to_string(Below(100)) + "\\" +
                                       std::string(modMain::DirOrFileName(sources_[place].path, 0));
                Save(sources_[place]);
                break;
            case 3:
                edits_ += "exchange lines; ";
                std::swap(sources_[place], sources_[Below(sources_.size())]);
                break;
            case 4:
                lines_[0] =
                    "CondComp=\"deep = " + std::to_string(Below(3)) + ": win16 = " + std::to_string(Below(2)) + "\"";
                edits_ += lines_[0] + "; ";
                break;
            default:
                lines_[1] = Below(2) == 0 ? "Startup=\"(None)\"" : "Startup=\"Sub Main\"";
                edits_ += lines_[1] + "; ";
        }
        SaveProject();
    }

    struct Stretch {
        std::size_t begin = 0;
        std::size_t length = 0;
    };
    template <class Items>
    const auto& AnyOf(const Items& items) {
        return items[Below(std::size(items))];
    }
    // The begin of the line end after any place of a text.
    std::size_t LineEndIn(const std::string& text) {
        return std::min(text.find("\r\n", text.empty() ? 0 : Below(text.size())), text.size());
    }
    // Any procedure of a text; nothing without one.
    Stretch ProcedureIn(const std::string& text) {
        const std::size_t from = text.empty() ? 0 : Below(text.size());
        std::size_t end = text.find("\r\nEnd Sub\r\n", from);
        if (end == std::string::npos)
            end = text.find("\r\nEnd Sub\r\n");
        if (end == std::string::npos)
            return {};
        std::size_t begin = text.rfind("Sub ", end);
        begin = begin == std::string::npos ? begin : text.rfind("\r\n", begin);
        return begin == std::string::npos ? Stretch() : Stretch{begin + 2, end + 11 - begin - 2};
    }
    std::string EditText(Source& source) {
        std::string& text = source.text;
        const Stretch at = ProcedureIn(text);
        const std::string procedure = text.substr(at.begin, at.length);
        switch (Below(13)) {
            case 0:
                text.clear();
                return "empty";
            case 1:
            case 2: {
                text += "Public Sub Fresh" + std::to_string(Below(9)) + "()\r\n  Main\r\n  Dim x As New " +
                        modMain::GetWortNrAusString(sources_[Below(sources_.size())].path, 1) +
                        "\r\n  x.Load\r\nEnd Sub\r\n";
                return "with a new procedure";
            }
            case 3:
                text.erase(at.begin, at.length);
                return "without " + procedure.substr(0, 40);
            case 4: {  // its callers know it no more, or again
                const std::size_t name = procedure.find("Sub ");
                if (name != std::string::npos)
                    text.insert(at.begin + name + 4, Below(2) == 0 ? "X" : "New");
                return "renamed " + procedure.substr(0, 40);
            }
            case 5: {
                text.erase(at.begin, at.length);
                Source& other = sources_[Below(sources_.size())];
                other.text += procedure;
                if (&other != &source)
                    Save(other);
                return "moved to " + other.path + ": " + procedure.substr(0, 40);
            }
            case 6:
            case 7: {
                const std::string line = AnyOf(kLines);
                text.insert(LineEndIn(text), "\r\n" + line);
                return "with " + line;
            }
            case 8: {
                const std::size_t line = LineEndIn(text);
                const std::size_t end = std::min(text.find("\r\n", std::min(line + 2, text.size())), text.size());
                const std::string removed = text.substr(line, end - line);
                text.erase(line, removed.size());
                return "without" + removed;
            }
            case 9: {  // names the module, perhaps like another one
                const std::string attribute = std::string("Attribute VB_Name = \"") + AnyOf(kNames) + "\"\r\n";
                text.insert(0, attribute);
                return attribute;
            }
            case 10: {
                const std::string name = AnyOf(kNames);
                const std::string other = AnyOf(kNames);
                text = Replace(text, name, other);
                return name + " is now " + other;
            }
            case 11:
                text = Replace(text, "Private Sub", "Public Sub");
                return "all public";
            default:
                for (const Source& first : first_)
                    if (modMain::DirOrFileName(first.path, 0) == modMain::DirOrFileName(source.path, 0))
                        text = first.text;
                return "as at first";
        }
    }

    std::mt19937 random_;
    std::vector<Source> sources_;  // as the project file lists them
    const std::vector<Source> first_ = sources_;
    std::vector<Source> spare_;
    static inline const std::vector<std::string> kFirstLines = {
        "CondComp=\"deep = 1\"", "Startup=\"Sub Main\"",
        "Reference=*\\G{00020430-0000-0000-C000-000000000046}#2.0#0#C:\\w\\stdole2.tlb#OLE Automation"};
    std::vector<std::string> lines_ = kFirstLines;  // further ones of the project file
    std::set<std::string> missing_;
    std::set<std::string> saved_;  // since the last refresh: the project has not read them
    MemoryFiles disk_, good_;
    std::unique_ptr<clsProjekt> projekt_;
    std::string edits_;
    int notified_ = 0;
    bool projectSaved_ = false;  // since the last refresh
};

bool operator==(const ObjectCounts& one, const ObjectCounts& other) {
    return std::memcmp(&one, &other, sizeof one) == 0;
}

using Refreshing = ProgramState;

clsProjekt& Read(std::string_view vbp) {
    return ReadProject({{"P.vbp", std::string(vbp)},
                        {"A.bas", "Public Sub Go()\nEnd Sub\n"},
                        {"B.frm", "Dim b\n"},
                        {"C.cls", "Public Sub Run()\n  Go\nEnd Sub\n"}});
}

}  // namespace

TEST_F(Refreshing, RandomEditsGiveTheProjectThatOpeningItWouldGive) {
    const char* const file = std::getenv("OSTRIVANE_RANDOM_PROJECT");
    const std::vector<Source> sample = SourcesOf(file ? file : OSTRIVANE_SOURCE_DIR "/samples/ToolHire/ToolHire.vbp");
    const std::vector<Source> small =
        file ? sample : SourcesOf(OSTRIVANE_SOURCE_DIR "/tests/project/modules/Modules.vbp");
    const int edits = FromEnvironment("OSTRIVANE_RANDOM_EDITS", 0);
    const int seed = FromEnvironment("OSTRIVANE_RANDOM_SEED", 0);
    const auto begin = std::chrono::steady_clock::now();
    const auto isTime = [&](int done) {
        return edits > 0 ? done < edits
                         : done < kEdits && std::chrono::steady_clock::now() - begin < std::chrono::seconds(kSeconds);
    };
    int done = 0;
    for (unsigned own = seed > 0 ? static_cast<unsigned>(seed) : 1; isTime(done); ++own) {
        Session session(own, own % 2 == 0 ? small : sample);
        const ObjectCounts counts = session.Counts();
        for (int step = 1; step <= kEditsOfASession && isTime(done); ++step, ++done)
            ASSERT_EQ(session.Step(), "") << "seed " << own << " step " << step;
        session.BringBack();
        EXPECT_TRUE(session.Counts() == counts) << "seed " << own;
        if (seed > 0)
            break;
    }
    RecordProperty("edits", done);
}

TEST_F(Refreshing, AFileThatCannotBeReadLeavesItsModuleAsItWas) {
    Read("Type=Exe\nModule=A; A.bas\nForm=B.frm\nClass=C; C.cls\nClass=X; X.cls");
    Analyse();
    EXPECT_THAT(Files_Check(*gProjekt).files, IsEmpty()) << "a missing file that is still missing";
    const std::string text = ProjectFiles().Bytes("p/A.bas");
    ProjectFiles().Remove("p/A.bas");
    ProjectFiles().WriteWhole("p/X.cls", "Public x\r\n");
    const ChangedFiles changed = Files_Check(*gProjekt);
    ASSERT_EQ(changed.files.size(), 2U);
    EXPECT_EQ(changed.files[0].what, FileChange::Gone);
    EXPECT_EQ(changed.files[1].what, FileChange::Changed);
    const FilesRead read = ChangedModule_Regenerieren(*gProjekt);
    EXPECT_EQ(read.files, 2);
    EXPECT_EQ(read.unreadable, 1);
    EXPECT_EQ(ObjectAt("a.go").CalledByAll().Count(), 1);
    EXPECT_EQ(NamesIn(gProjekt->Klassenmodule), "C X");
    EXPECT_THAT(Files_Check(*gProjekt).files, IsEmpty());
    EXPECT_EQ(gProjekt->problems.All().back().subject, "p\\A.bas");
    const int generation = gProjekt->Generation();
    EXPECT_EQ(ChangedModule_Regenerieren(*gProjekt).files, 0);
    EXPECT_EQ(gProjekt->Generation(), generation);
    ProjectFiles().WriteWhole("p/A.bas", text);
    EXPECT_EQ(ChangedModule_Regenerieren(*gProjekt).unreadable, 0);
    EXPECT_THAT(gProjekt->problems.All(), IsEmpty()) << "what it said is not so any more";
}

TEST_F(Refreshing, ChangesOfTheProjectFileHaveNames) {
    using enum ProjectFileChange::What;
    using testing::UnorderedElementsAre;
    Read("Type=Exe\nReference=*\\G{1}#1.0#0#C:\\w\\old.tlb#Old Library\nModule=A; A.bas\nForm=B.frm\nClass=C; C.cls");
    const auto changesIn = [](const std::string& lines) {
        std::vector<std::pair<ProjectFileChange::What, std::string>> changes;
        for (const ProjectFileChange& change : ChangesOfProjectFile(*gProjekt, Replace(lines, "\n", "\r\n")))
            changes.emplace_back(change.what, change.name);
        return changes;
    };
    const std::string head = "Type=Exe\nReference=*\\G{1}#1.0#0#C:\\w\\old.tlb#Old Library\n";
    EXPECT_THAT(changesIn(head + "Class=C; C.cls\nModule=A; sub\\A.bas\nForm=N.frm\nModule=N; N.bas\n"),
                UnorderedElementsAre(Pair(ModuleMoved, "A.bas"), Pair(ModuleAdded, "N.frm"), Pair(ModuleAdded, "N.bas"),
                                     Pair(ModuleRemoved, "B.frm")));
    EXPECT_THAT(
        changesIn(head + "Module=A; A.bas\nForm=Other.frm\nClass=C; C.cls\nCondComp=\"x = 1\"\nStartup=\"Other\"\n"),
        UnorderedElementsAre(Pair(ModuleRenamed, "Other.frm"), Pair(Constants, ""), Pair(StartUp, "Other")));
    const std::string other = "Type=Exe\nObject={2}#1.0#0; NEW.OCX\nModule=A; A.bas\nForm=B.frm\nClass=C; C.cls\n";
    EXPECT_THAT(changesIn(other),
                UnorderedElementsAre(Pair(LibraryAdded, "NEW.OCX"), Pair(LibraryRemoved, "Old Library")));
    EXPECT_TRUE(NeedsWholeLoad(*gProjekt, Replace(other, "\n", "\r\n")));
    const int generation = gProjekt->Generation();
    ProjectFiles().WriteWhole("p/P.vbp", other);
    ChangedModule_Regenerieren(*gProjekt);
    EXPECT_EQ(gProjekt->Generation(), generation) << "left to whoever loads it as a whole";
}

TEST_F(Refreshing, AFileThatIsBeingWrittenWaits) {
    const TempDirectory directory;
    DiskFiles files;
    directory.Write("A.bas", "Public a\r\n");
    clsProjekt projekt(files);
    projekt.FullPath = directory.Write("P.vbp", "Type=Exe\r\nModule=A; A.bas\r\n");
    Projekt_Laden(projekt);
    const auto writtenBefore = [&](std::chrono::milliseconds age) {
        directory.Write("A.bas", "Public b\r\n");
        std::filesystem::last_write_time(directory.Path("A.bas"), std::filesystem::file_time_type::clock::now() - age);
        return Files_Check(projekt).files.at(0).what;
    };
    EXPECT_EQ(writtenBefore(std::chrono::milliseconds(0)), FileChange::BeingWritten);
    EXPECT_EQ(ChangedModule_Regenerieren(projekt).files, 0);
    EXPECT_EQ(writtenBefore(std::chrono::milliseconds(1500)), FileChange::Changed);
    EXPECT_EQ(writtenBefore(std::chrono::milliseconds(-60000)), FileChange::Changed) << "dated by another clock";
    EXPECT_EQ(ChangedModule_Regenerieren(projekt).files, 1);
    EXPECT_TRUE(Files_Check(projekt).files.empty());
}
