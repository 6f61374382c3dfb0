// A project consists of modules, libraries and constants. Everything else (the collections, the public name space, the
// graph of calls, the marks of objects) is derived from them, always as a whole.
#pragma once

#include <functional>
#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "model/clsCollection.h"
#include "model/clsModul.h"
#include "model/clsTypeLib.h"
#include "platform/files.h"
#include "platform/large_pages.h"
#include "shell/errors.h"
#include "source/cond_compile.h"

class clsProjekt {
public:
    /// @param files  must outlive the project
    /// @param page   of the sources; decides which names are equal
    explicit clsProjekt(Files& files, const CodePage& page = CodePage::Auto());
    ~clsProjekt();
    clsProjekt(const clsProjekt&) = delete;
    clsProjekt& operator=(const clsProjekt&) = delete;

    [[nodiscard]] Files& TheFiles() const { return files_; }
    [[nodiscard]] Names& TheNames() { return names_; }
    [[nodiscard]] const Names& TheNames() const { return names_; }
    /// Where its names and the arenas of its modules get their blocks.
    [[nodiscard]] std::pmr::memory_resource* Memory() { return &memory_; }

    std::string MyName;             // from the line Name=, as found
    std::string FullPath;           // of the project file, as it was opened
    std::string Type;               // from the line Type=: "Exe"
    std::string Startup;            // from the line Startup=: "Sub Main", the name of a form, or "(None)"
    FileTime DateLastModified = 0;  // of the project file when it was read

    /// Conditional constants, (name, value) in lower case; row 0 stays empty, rows 1 and 2 are win32 and win16.
    std::vector<CondConstant> condComps;
    /// Constants given from outside; they override those of the project file.
    std::vector<CondConstant> definedCondComps;
    /// Sets rows 1 and 2.
    void CondComps_Win32_Win16(bool win32);

    /// All modules in the order of the project file, those that could not be read included.
    [[nodiscard]] const std::vector<std::unique_ptr<clsModul>>& OwnedModules() const { return modules_; }
    [[nodiscard]] const std::vector<std::unique_ptr<clsTypeLib>>& OwnedLibraries() const { return libraries_; }
    /// Creates a library; the next SetModules adds it to the collections.
    clsTypeLib& NewLibrary();
    /// Moves the modules out and drops everything derived from them.
    [[nodiscard]] std::vector<std::unique_ptr<clsModul>> TakeModules();
    /// Sets the modules, and derives the collections and name spaces below from them and the libraries: the first
    /// holder of a key wins, in the order of the project file, procedures in that of AllModules.
    void SetModules(std::vector<std::unique_ptr<clsModul>> modules);

    clsCollection<clsModul> Modules, Klassenmodule, Formulare, UserControls;  // keyed by CodePath
    clsCollection<clsVariable> FormVars;                                      // the default instance of each form
    clsCollection<clsTypeLib> myProjectObjects;                               // of the Object= lines
    clsCollection<clsTypeLib> myProjectReferences;                            // of the Reference= lines
    /// What every module can see of the others.
    [[nodiscard]] const NameSpace& PublicNameSpace() const { return index_->names; }
    int AnzCodeZeilen = 0, AnzCommentZeilen = 0, AnzBlankZeilen = 0;

    CallGraph calls;          // empty until Who_Calls_Who
    bool callsKnown = false;  // the graph is that of all modules
    bool marksKnown = false;  // IsDeath of the objects matches the graph

    ProblemList problems;  // what was reported while it was read

    std::string TimeForStructure, TimeForCalls;

    /// Increases with every change of modules. Code that keeps a pointer to an object keeps this number with it.
    [[nodiscard]] int Generation() const { return generation_; }
    /// Called once after each such change, after everything was derived again.
    void OnReplaced(std::function<void()> listener) { listeners_.push_back(std::move(listener)); }
    /// Increases the generation and calls the listeners.
    void TellReplaced();

    /// Clears the marks of all objects.
    void ClearMarks();

    /// The modules of one kind.
    [[nodiscard]] clsCollection<clsModul>& ModulesOf(ModuleKind kind);
    [[nodiscard]] int CountAllModules() const;
    /// Every module of the four collections: Modules, Formulare, Klassenmodule, UserControls.
    [[nodiscard]] std::vector<clsModul*> AllModules() const;
    /// The same in the order of the reports: Modules, Klassenmodule, Formulare, UserControls.
    [[nodiscard]] std::vector<clsModul*> ModulesInReportOrder() const;
    /// How many objects there are of each class.
    [[nodiscard]] ObjectCounts Counts() const;
    /// Number of all objects; CodeObject::Number is below it.
    [[nodiscard]] std::uint32_t ObjectCount() const { return objects_; }

    /// The module that the first word of `codePath` (lower case) names, or null.
    [[nodiscard]] clsModul* GetModuleFromCodePath(std::string_view codePath) const;
    /// The object of any class at `codePath` (lower case), or null.
    [[nodiscard]] CodeObject* GetObjectFromCodePath(std::string_view codePath) const;

private:
    // The entries of the name space live in its own arena.
    struct PublicIndex {
        explicit PublicIndex(std::pmr::memory_resource* pages) : memory(pages) {}
        Arena memory;
        NameSpace names{&memory};
    };
    void DropDerived();
    void MakeIndex();
    void AddPublicNames(clsTypeLib& library);
    void SettleRedims(const clsCollection<clsVariable>& arrays) const;

    Files& files_;
    LargePages memory_;  // first, as all below lives in it
    Names names_;
    std::vector<std::unique_ptr<clsTypeLib>> libraries_;
    std::vector<std::unique_ptr<clsModul>> modules_;
    std::unique_ptr<PublicIndex> index_;
    std::uint32_t objects_ = 0;
    int generation_ = 0;
    std::vector<std::function<void()>> listeners_;
};
