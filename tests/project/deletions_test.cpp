#include "project/deletions.h"

#include <algorithm>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <random>
#include <set>
#include <sstream>

#include "platform/text_bytes.h"
#include "project/project_file.h"
#include "project/refresh.h"
#include "support/project_dump.h"
#include "support/project_test.h"

namespace {

using Deleting = ProgramState;

constexpr std::string_view kProject = "Type=Exe\r\nModule=A; A.bas\r\nModule=B; B.bas\r\nName=\"P\"\r\n";
constexpr std::string_view kModule =
    "Attribute VB_Name = \"A\"\r\nDim a, b, c\nSub used()\r\nEnd Sub\n\nSub gone()\r  used ' \xE4\r\n  c = 1\nEnd Sub\n"
    "Sub last()\r\nEnd Sub";

/// A disk on which writing can fail.
class FailingFiles final : public MemoryFiles {
public:
    using MemoryFiles::MemoryFiles;
    std::string refuse;  // paths that end so are not written
    FileError with = FileError::NoSpace;

    FileError WriteWhole(std::string_view path, std::string_view bytes) override {
        return !refuse.empty() && path.ends_with(refuse) ? with : MemoryFiles::WriteWhole(path, bytes);
    }
};

std::unique_ptr<clsProjekt> Open(Files& files, const std::string& path) {
    auto projekt = std::make_unique<clsProjekt>(files);
    projekt->FullPath = path;
    projekt->CondComps_Win32_Win16(true);
    Projekt_Laden(*projekt);
    Who_Calls_Who(*projekt);
    Tote_Untote_Kennzeichnen(*projekt);
    return projekt;
}

/// A small project, with a disk that can fail.
struct SmallProject {
    FailingFiles files{{"p\\P.vbp", std::string(kProject)},
                       {"p\\A.bas", std::string(kModule)},
                       {"p\\B.bas", "Attribute VB_Name = \"B\"\r\nSub Main()\r\n  used\r\nEnd Sub\r\n"}};
    std::unique_ptr<clsProjekt> projekt = Open(files, "p\\P.vbp");
    Deletions deletions;

    Deletions::Deleted Delete(std::initializer_list<std::string_view> paths) {
        std::vector<const CodeObject*> objects;
        for (const std::string_view path : paths)
            objects.push_back(projekt->GetObjectFromCodePath(path));
        return deletions.Delete(*projekt, objects);
    }
    [[nodiscard]] int NumberOf(std::string_view codePath) const {
        for (const Deletion& deletion : deletions.All())
            if (deletion.codePath == codePath)
                return deletion.nr;
        return 0;
    }
    bool Undo(std::string_view codePath) { return deletions.Undo(*projekt, {NumberOf(codePath)}); }
    [[nodiscard]] std::string Text() const {
        return std::string(projekt->GetModuleFromCodePath("a")->text->ModulTextOrg());
    }
    [[nodiscard]] std::string Bytes() const { return files.Bytes("p\\A.bas"); }
};

std::string Erased(std::string_view from, std::string_view part) {
    std::string left(from);
    return left.erase(left.find(part), part.size());
}

}  // namespace

TEST_F(Deleting, FilesKeepAllOtherBytesAndGetNothingBeforeSaving) {
    SmallProject project;
    EXPECT_EQ(project.Delete({"a.gone", "a.b"}).objects, 2);
    EXPECT_EQ(project.Bytes(), kModule);
    EXPECT_EQ(project.deletions.Unsaved(), std::vector<std::string>{"p\\A.bas"});
    EXPECT_TRUE(Files_Check(*project.projekt).files.empty());

    const std::string left = Erased(Erased(kModule, "Sub gone()\r  used ' \xE4\r\n  c = 1\nEnd Sub\n"), ", b");
    const std::vector<Deletions::Saved> saved = project.deletions.Save(*project.projekt);
    ASSERT_EQ(saved.size(), 1U);
    EXPECT_TRUE(saved[0].Ok());
    EXPECT_EQ(project.Bytes(), left);
    EXPECT_EQ(project.files.Bytes("p\\A.bas.bak"), kModule);
    EXPECT_THAT(project.deletions.Unsaved(), IsEmpty());
    EXPECT_TRUE(Files_Check(*project.projekt).files.empty());

    // Saved or not, all comes back until the project closes, and no copy is ever overwritten.
    EXPECT_TRUE(project.Undo("A.gone") && project.Undo("A.b"));
    EXPECT_FALSE(project.deletions.Unsaved().empty());
    EXPECT_TRUE(project.deletions.Save(*project.projekt)[0].Ok());
    EXPECT_EQ(project.Bytes(), kModule);
    EXPECT_EQ(project.files.Bytes("p\\A.bas.bak2"), left);
}

TEST_F(Deleting, WhatIsAroundAnObjectComesBackBeforeIt) {
    SmallProject project;
    const std::string whole = project.Text();
    for (const char* name : {"a.a", "a.c", "a.b"})
        EXPECT_EQ(project.Delete({name}).objects, 1) << name;
    EXPECT_EQ(project.Text(), Erased(whole, "Dim a, b, c\r\n"));
    for (const char* inner : {"A.a", "A.c"}) {
        const Deletion* outer = project.deletions.Encloses(*project.deletions.Find(project.NumberOf(inner)));
        ASSERT_NE(outer, nullptr);
        EXPECT_EQ(outer->codePath, "A.b");
        EXPECT_FALSE(project.Undo(inner));
    }
    EXPECT_TRUE(project.Undo("A.b"));
    EXPECT_TRUE(project.Undo("A.c"));
    EXPECT_THAT(project.Text(), HasSubstr("\r\nDim b, c\r\n"));
    EXPECT_TRUE(project.Undo("A.a"));
    EXPECT_EQ(project.Text(), whole);
    EXPECT_THAT(project.deletions.Unsaved(), IsEmpty());
    EXPECT_FALSE(project.projekt->GetModuleFromCodePath("a")->isEdited);
}

TEST_F(Deleting, WhatSeveralDeletionsEncloseComesBackAfterAllOfThem) {
    MemoryFiles files{
        {"p\\P.vbp", std::string(kProject)},
        {"p\\A.bas", "Sub a()\r\n  Dim x, y\r\nEnd Sub\r\nSub b()\r\nEnd Sub\r\nSub c()\r\n  Dim z\r\nEnd Sub\r\n"}};
    const ScriptedQuestions goOn{};
    const auto projekt = Open(files, "p\\P.vbp");
    const std::string whole(projekt->GetModuleFromCodePath("a")->text->ModulTextOrg());
    Deletions deletions;
    for (const char* path : {"a.a.x", "a.c.z", "a.a.y", "a.b", "a.a", "a.c"})
        EXPECT_EQ(deletions.Delete(*projekt, {projekt->GetObjectFromCodePath(path)}).objects, 1) << path;
    std::string around;
    for (const Deletion& deletion : deletions.All())
        around += std::to_string(deletions.Encloses(deletion) ? deletions.Encloses(deletion)->nr : 0) + ' ';
    EXPECT_EQ(around, "3 6 5 0 0 0 ");
    EXPECT_FALSE(deletions.Undo(*projekt, {1, 3}));  // the procedure is not back
    EXPECT_TRUE(deletions.Undo(*projekt, {1, 3, 5, 6}));
    ASSERT_EQ(deletions.All().size(), 2U);  // of which nothing encloses any now
    EXPECT_TRUE(deletions.Undo(*projekt, {2, 4}));
    EXPECT_EQ(projekt->GetModuleFromCodePath("a")->text->ModulTextOrg(), whole);
}

TEST_F(Deleting, ProceduresOfOneLineComeBackInOrder) {
    constexpr std::string_view whole = "Sub x()\r\nEnd Sub: Sub y()\r\nEnd Sub\r\nSub z()\r\nEnd Sub\r\n";
    MemoryFiles files{{"p\\P.vbp", std::string(kProject)}, {"p\\A.bas", std::string(whole)}};
    const ScriptedQuestions goOn{};
    const auto projekt = Open(files, "p\\P.vbp");
    Deletions deletions;
    for (const char* path : {"a.x", "a.y"})
        deletions.Delete(*projekt, {projekt->GetObjectFromCodePath(path)});
    const auto text = [&] { return projekt->GetModuleFromCodePath("a")->text->ModulTextOrg(); };
    EXPECT_EQ(text(), "Sub z()\r\nEnd Sub\r\n");
    EXPECT_FALSE(deletions.Undo(*projekt, {1}));
    EXPECT_TRUE(deletions.Undo(*projekt, {1, 2}));
    EXPECT_EQ(text(), whole);
}

TEST_F(Deleting, FilesAreInTheOrderInWhichTheyWereEdited) {
    SmallProject project;
    EXPECT_FALSE(project.deletions.HasUnsaved());
    EXPECT_EQ(project.Delete({"b.main", "a.gone"}).objects, 2);
    EXPECT_THAT(project.deletions.Unsaved(), testing::ElementsAre("p\\B.bas", "p\\A.bas"));
    EXPECT_TRUE(project.deletions.HasUnsaved());
    const std::vector<Deletions::Saved> saved = project.deletions.Save(*project.projekt);
    ASSERT_EQ(saved.size(), 2U);
    EXPECT_EQ(saved[0].path, "p\\B.bas");
    EXPECT_FALSE(project.deletions.HasUnsaved());
}

TEST_F(Deleting, AFailedSaveHarmsNothing) {
    SmallProject project;
    project.Delete({"a.gone"});
    const std::string text = project.Text();
    for (const auto& [refuse, error] : {std::pair{".bak", FileError::NoPermission}, {".bas", FileError::NoSpace}}) {
        project.files.refuse = refuse;
        project.files.with = error;
        EXPECT_EQ(project.deletions.Save(*project.projekt)[0].error, error);
        EXPECT_EQ(project.Bytes(), kModule);
        EXPECT_EQ(project.Text(), text);
        EXPECT_FALSE(project.deletions.Unsaved().empty());
    }
    project.files.refuse.clear();
    EXPECT_TRUE(project.deletions.Save(*project.projekt)[0].Ok());
}

TEST_F(Deleting, AFileThatOthersChangedIsNotWritten) {
    SmallProject project;
    project.Delete({"a.gone"});
    project.files.WriteWhole("p\\A.bas", "Dim other\r\n");
    EXPECT_TRUE(project.deletions.Save(*project.projekt)[0].fileHasChanged);
    EXPECT_EQ(project.Bytes(), "Dim other\r\n");

    // A refresh leaves the module alone until the user gives its deletions up.
    const ChangedFiles changed = Files_Check(*project.projekt);
    ASSERT_EQ(changed.files.size(), 1u);
    EXPECT_EQ(changed.files[0].path, "p\\A.bas");
    EXPECT_EQ(changed.files[0].what, FileChange::Edited);
    ChangedModule_Regenerieren(*project.projekt);
    EXPECT_NE(project.projekt->GetObjectFromCodePath("a.used"), nullptr);
    EXPECT_EQ(project.Delete({"a.last"}).refused.front().why, Text::RefreshBeforeDeleting);
    project.deletions.Forget(*project.projekt, "p\\A.bas");
    EXPECT_EQ(ChangedModule_Regenerieren(*project.projekt).files, 1);
    EXPECT_NE(project.projekt->GetObjectFromCodePath("a.other"), nullptr);
    EXPECT_THAT(project.deletions.All(), IsEmpty());
}

TEST_F(Deleting, OnlyTextsThatCanBeWrittenBackAreCut) {
    MemoryFiles files{{"p\\P.vbp", std::string(kProject)},
                      {"p\\A.bas", std::string("\xFF\xFE"
                                               "D\0i\0m\0 \0a\0\r\0\n\0",
                                               16)},
                      {"p\\B.bas",
                       "\xEF\xBB\xBF"
                       "Dim b\nDim c\n"}};
    const auto projekt = Open(files, "p\\P.vbp");
    Deletions deletions;
    const Deletions::Deleted deleted =
        deletions.Delete(*projekt, {projekt->GetObjectFromCodePath("a.a"), projekt->GetObjectFromCodePath("b.b"),
                                    projekt->GetModuleFromCodePath("b")});
    EXPECT_EQ(deleted.objects, 1);
    ASSERT_EQ(deleted.refused.size(), 2U);
    EXPECT_EQ(deleted.refused[0].why, Text::FileInUtf16);
    EXPECT_EQ(deleted.refused[1].why, Text::PartOfOther);
    EXPECT_EQ(deletions.Save(*projekt).size(), 1U);
    EXPECT_EQ(files.Bytes("p\\B.bas"),
              "\xEF\xBB\xBF"
              "Dim c\n");
}

TEST_F(Deleting, AProjectLoadedAgainKeepsWhatIsNotSaved) {
    SmallProject project;
    project.Delete({"a.gone"});
    project.projekt = Open(project.files, "p\\P.vbp");
    project.deletions.ModulesRead(*project.projekt);
    EXPECT_EQ(project.projekt->GetObjectFromCodePath("a.gone"), nullptr);
    project.deletions.Save(*project.projekt);
    project.files.WriteWhole("p\\A.bas", "Dim other\r\n");
    ChangedModule_Regenerieren(*project.projekt);
    project.deletions.ModulesRead(*project.projekt);
    EXPECT_THAT(project.deletions.All(), IsEmpty());
}

namespace {

/// Random deletions in a project whose files lie on the disk, kept here in memory with line ends of all kinds.
class RandomDeletions {
public:
    /// @param root  with all sources
    RandomDeletions(const std::filesystem::path& root, const std::filesystem::path& projectFile, unsigned seed)
        : random_(seed) {
        for (const auto& entry : std::filesystem::recursive_directory_iterator(root))
            if (entry.is_regular_file() && IsSource(entry.path().extension().string())) {
                std::ostringstream bytes;
                bytes << std::ifstream(entry.path(), std::ios::binary).rdbuf();
                const std::string name = "p/" + entry.path().lexically_relative(root).string();
                files_.WriteWhole(name, name.ends_with(".vbp") ? bytes.str() : OtherLineEnds(bytes.str()));
            }
        path_ = "p/" + projectFile.lexically_relative(root).string();
        projekt_ = Open(files_, path_);
    }

    /// What is wrong after some deletions, or after some were taken back, and at times saved; empty for nothing.
    std::string Step() {
        if (Below(4) == 0 && !deletions_.All().empty()) {
            std::vector<int> numbers;
            for (const Deletion& deletion : deletions_.All())
                if (Below(3) == 0)
                    numbers.push_back(deletion.nr);
            deletions_.Undo(*projekt_, numbers);
        } else if (const std::string wrong = DeleteSome(); !wrong.empty()) {
            return wrong;
        }
        if (Below(6) == 0)
            deletions_.Save(*projekt_);
        return DifferenceFromRest();
    }
    /// What is wrong once all came back; empty for nothing.
    std::string UndoAll() {
        std::vector<int> numbers;
        for (const Deletion& deletion : deletions_.All())
            numbers.push_back(deletion.nr);
        deletions_.Undo(*projekt_, numbers);
        deletions_.Save(*projekt_);
        return deletions_.All().empty() ? DifferenceFromRest() : "some did not come back";
    }
    [[nodiscard]] ObjectCounts Counts() const { return projekt_->Counts(); }
    int deleted = 0;
    int refused = 0;

private:
    static bool IsSource(std::string suffix) {
        std::transform(suffix.begin(), suffix.end(), suffix.begin(), [](char c) { return c | 0x20; });
        return suffix == ".vbp" || suffix == ".bas" || suffix == ".cls" || suffix == ".frm" || suffix == ".ctl";
    }
    std::size_t Below(std::size_t count) { return random_() % count; }
    std::string OtherLineEnds(const std::string& bytes) {
        FileText file;
        SetText(file, std::string_view(bytes));
        const char* const ends[] = {"\r\n", "\n", "\r"};
        const std::size_t kind = Below(4);
        std::string text;
        ForEachLine(file.text, [&](std::string_view line) {
            text.append(line).append(ends[kind < 2 ? kind : Below(kind == 2 ? 2 : 3)]);
        });
        return text;
    }

    // What is in the text and can be named, by module and path.
    std::multiset<std::string> Names() const {
        std::multiset<std::string> names;
        for (const auto& modul : projekt_->OwnedModules())
            for (const CodeObject* object : modul->Owned())
                names.insert(modul->FullPath + ' ' + object->CodePathOrg());
        return names;
    }
    std::string DeleteSome() {
        std::vector<const CodeObject*> objects;
        std::multiset<std::string> expected = Names();
        std::set<std::string> chosen;
        for (std::size_t count = 1 + Below(Below(3) == 0 ? 40 : 3); count > 0; --count) {
            const clsModul& modul = *projekt_->OwnedModules()[Below(projekt_->OwnedModules().size())];
            if (modul.Owned().empty())
                continue;
            const CodeObject* object = modul.Owned()[Below(modul.Owned().size())];
            if (object->Class() == ObjectClass::Prozedur && Below(2) == 0)
                for (const clsVariable* local : static_cast<const clsProzedur*>(object)->MyVars)
                    if (Below(2) == 0)
                        object = local;
            if (object->Class() == ObjectClass::Control || std::ranges::find(objects, object) != objects.end())
                continue;
            objects.push_back(object);
            const bool isLocal =
                object->Class() == ObjectClass::Variable && static_cast<const clsVariable*>(object)->Prozedur;
            if (!isLocal)
                chosen.insert(modul.FullPath + ' ' + object->CodePathOrg());
        }
        const Deletions::Deleted result = deletions_.Delete(*projekt_, objects);
        deleted += result.objects;
        refused += static_cast<int>(result.refused.size());
        for (const std::string& name : Names())
            if (const auto found = expected.find(name); found != expected.end())
                expected.erase(found);
            else
                return name + " is new";
        for (const std::string& name : expected)
            if (!chosen.contains(name))
                return name + " has gone, too";
        return {};
    }

    // The project must be that which is read from the texts as they are now.
    std::string DifferenceFromRest() {
        MemoryFiles rest = files_;
        for (const auto& modul : projekt_->OwnedModules())
            if (modul->isEdited)
                rest.WriteWhole(modul->FullPath, modul->text->ModulTextOrg());
        return DifferenceOf(*projekt_, *Open(rest, path_));
    }

    std::mt19937 random_;
    MemoryFiles files_;
    std::string path_;
    std::unique_ptr<clsProjekt> projekt_;
    Deletions deletions_;
};

}  // namespace

// Longer, and with a project of one's own: OSTRIVANE_DELETE_IN=…/Project.vbp OSTRIVANE_DELETE_SEEDS=100.
TEST_F(Deleting, TheProjectIsAlwaysThatOfTheTextsThatAreLeft) {
    const ScriptedQuestions goOn{};
    const char* const project = std::getenv("OSTRIVANE_DELETE_IN");
    const char* const seeds = std::getenv("OSTRIVANE_DELETE_SEEDS");
    for (unsigned seed = 1; seed <= (seeds ? std::strtoul(seeds, nullptr, 10) : 6); ++seed) {
        const std::filesystem::path root =
            project ? std::filesystem::path(project).parent_path() : OSTRIVANE_SOURCE_DIR "/samples";
        RandomDeletions session(root, project ? project : root / "ToolHire/ToolHire.vbp", seed);
        const ObjectCounts before = session.Counts();
        for (int step = 1; step <= 20; ++step)
            ASSERT_EQ(session.Step(), "") << "seed " << seed << " step " << step;
        EXPECT_GT(session.deleted, session.refused) << seed;
        ASSERT_EQ(session.UndoAll(), "") << seed;
        const ObjectCounts after = session.Counts();
        EXPECT_EQ(std::tie(before.variable, before.prozedur, before.type, before.einEnum, before.call),
                  std::tie(after.variable, after.prozedur, after.type, after.einEnum, after.call));
    }
}
