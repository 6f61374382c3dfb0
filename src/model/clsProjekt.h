// The open project: the root of the model. It owns the modules and libraries.
#pragma once

#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "model/clsCollection.h"
#include "model/clsModul.h"
#include "model/clsTypeLib.h"
#include "platform/files.h"

class clsProjekt {
public:
    /// `files` must outlive the project.
    explicit clsProjekt(Files& files);
    ~clsProjekt();
    clsProjekt(const clsProjekt&) = delete;
    clsProjekt& operator=(const clsProjekt&) = delete;

    [[nodiscard]] Files& TheFiles() const { return files_; }

    std::string MyName;    // from the line Name=, as found
    std::string FullPath;  // of the project file, as it was opened

    clsCollection<clsModul> Modules, Klassenmodule, Formulare, UserControls;  // keyed by CodePath
    // By lower-case name, the first holder stays.
    clsCollection<clsProzedur> Public_Function, Public_Sub, MyProcs;
    clsCollection<clsVariable> Public_Variable, MyVars;
    clsCollection<clsType> Public_Type, myTypes;
    clsCollection<clsEnum> myEnums;
    clsCollection<clsVariable> FormVars;            // one for each form: its implicit instance
    clsCollection<clsTypeLib> myProjectObjects;     // of the Object= lines
    clsCollection<clsTypeLib> myProjectReferences;  // of the Reference= lines

    EdgeStore calls;  // owns every edge

    std::string TimeForStructure, TimeForCalls, TimeForTree;
    int AnzCodeZeilen = 0, AnzCommentZeilen = 0, AnzBlankZeilen = 0;

    /// Conditional constants given from outside, (name, value), which win over those of the project file.
    std::vector<std::pair<std::string, std::string>> definedCondComps;

    /// The modules of one kind.
    [[nodiscard]] clsCollection<clsModul>& ModulesOf(ModuleKind kind);
    [[nodiscard]] int CountAllModules() const;
    /// Every module of the four collections: Modules, Formulare, Klassenmodule, UserControls.
    [[nodiscard]] std::vector<clsModul*> AllModules() const;

    /// The module that the first word of `codePath` names, or null.
    [[nodiscard]] clsModul* GetModuleFromCodePath(std::string_view codePath) const;
    /// The library that the first word of `codePath` names, or null.
    [[nodiscard]] clsTypeLib* GetTypeLibFromCodePath(std::string_view codePath) const;
    /// The object of any class at `codePath`, or null.
    [[nodiscard]] CodeObject* GetObjectFromCodePath(std::string_view codePath) const;

    clsModul& Own(std::unique_ptr<clsModul> modul);
    clsTypeLib& Own(std::unique_ptr<clsTypeLib> library);
    clsVariable& Own(std::unique_ptr<clsVariable> formVariable);
    /// All modules in the order of the project file, those that could not be read included.
    [[nodiscard]] const std::vector<std::unique_ptr<clsModul>>& OwnedModules() const { return modules_; }
    [[nodiscard]] const std::vector<std::unique_ptr<clsTypeLib>>& OwnedLibraries() const { return libraries_; }

    /// Takes all references to this project's objects out of the program-wide name space.
    void DestroyMe();

private:
    Files& files_;
    std::vector<std::unique_ptr<clsTypeLib>> libraries_;
    std::vector<std::unique_ptr<clsModul>> modules_;
    std::vector<std::unique_ptr<clsVariable>> formVariables_;
};

/// The open project, or null.
extern std::unique_ptr<clsProjekt> gProjekt;

namespace modMain {
/// GetObjectFromCodePath of the open project; null when none is open.
[[nodiscard]] CodeObject* GetObjectFromCodePath(std::string_view codePath);
}  // namespace modMain
