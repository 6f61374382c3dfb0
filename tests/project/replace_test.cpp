#include "project/replace.h"

#include <atomic>
#include <memory_resource>

#include "support/project_test.h"

namespace {

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

TEST_F(Replacing, ModuleThatLosesItsNameToAnotherKeepsNoMark) {
    ReadProject({{"A.bas", "Public a\n"}, {"B.bas", "Sub Unused()\nEnd Sub\n"}});
    Analyse();
    const CodeObject& unused = ObjectAt("b.unused");
    EXPECT_EQ(unused.IsDeath, 1);
    ProjectFiles().WriteWhole("p\\A.bas", "Attribute VB_Name = \"B\"\r\n");
    Replace(*gProjekt, {{0, ModuleSource{ModuleKind::Module, "p\\A.bas"}}});
    EXPECT_EQ(gProjekt->GetObjectFromCodePath("b.unused"), nullptr);
    EXPECT_EQ(unused.IsDeath, 0);
    Replace(*gProjekt, {{0, {}}});
    EXPECT_EQ(gProjekt->GetObjectFromCodePath("b.unused"), &unused);
    EXPECT_EQ(unused.IsDeath, 1);
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
