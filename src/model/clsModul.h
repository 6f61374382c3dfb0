// One source file: form, standard module, class or user control. It owns the code objects read from it and
// its text; the collections know the objects.
#pragma once

#include <memory>
#include <vector>

#include "model/blocks.h"
#include "model/clsCollection.h"
#include "model/clsVariable.h"
#include "model/name_space.h"
#include "platform/files.h"
#include "source/module_text.h"
#include "source/tokens.h"

class clsModul final : public CodeObject {
public:
    clsModul();
    ~clsModul() override;

    [[nodiscard]] std::string CodePathOrg() const override;
    [[nodiscard]] std::string_view GetImageKey() const override;

    ModuleKind ModulTyp = ModuleKind::Module;
    std::string FullPath;
    FileTime DateLastModified = 0;
    int number = 0;  // running number among the module lines of the project file, from 1

    std::unique_ptr<ModuleText> text;  // null until the file was read; null for empty files
    std::unique_ptr<TokenTable> tokens;

    Pos BeginnVarBereich = 0;  // where the declarations and the procedures begin
    Pos BeginnProcBereich = 0;
    int TokNrBeginnVarBereich = 0;  // the same as token numbers
    int TokNrBeginnProcBereich = 0;
    int LineCount = 0;
    int AnzLineCode = 0;  // physical lines of the whole file, header included
    int AnzLineComment = 0;
    int AnzLineBlank = 0;

    /// Edges that start in the declarations section, uses included.
    [[nodiscard]] const OutgoingEdges& CallsInDeclarations() const { return callsInDeclarations_; }
    [[nodiscard]] OutgoingEdges& OutgoingOfDeclarations() { return callsInDeclarations_; }

    NameSpace PrivNameSpace;  // every object declared here

    clsCollection<clsProzedur> Public_Sub, Private_Sub, Public_Function, Private_Function, Public_Property,
        Private_Property, MyProcs;                                   // keyed by LocalKey: the name and the accessor
    clsCollection<clsVariable> Public_Variablen, Private_Variablen;  // keyed by name
    clsCollection<clsVariable> MyVars;                               // keyed by name; enum members included
    clsCollection<clsType> Public_Type, Private_Type, myTypes;
    clsCollection<clsEnum> Public_Enum, Private_Enum, myEnums;
    clsCollection<clsControl> MyControls;
    clsCollection<clsProzedur> MyEvents;

    void AddTo_PrivNameSpace(CodeObject& object) { PrivNameSpace.AddObject(object); }
    void RemoveFrom_PrivNameSpace(const CodeObject& object) { PrivNameSpace.RemoveObject(object); }

    /// The object of this module, or the module itself, whose CodePath equals `codePath`, or null. Walks the
    /// whole name space: meant for a click, not for loops.
    [[nodiscard]] CodeObject* Get_Object_From_CodePath(std::string_view codePath);

    /// Takes over an object read from this module.
    template <class T>
    T& Own(std::unique_ptr<T> object) {
        T& kept = *object;
        owned_.push_back(std::move(object));
        return kept;
    }
    /// A new variable of one of this module's procedures; whether it joins the procedure's MyVars is the caller's
    /// business.
    [[nodiscard]] clsVariable& NewLocal() { return locals_.New(); }
    /// All objects read from this module, in the order of reading; dropped ones included, members and locals not.
    [[nodiscard]] const std::vector<std::unique_ptr<CodeObject>>& Owned() const { return owned_; }

private:
    OutgoingEdges callsInDeclarations_;
    std::vector<std::unique_ptr<CodeObject>> owned_;
    Blocks<clsVariable> locals_;
    [[no_unique_address]] Counted<&ObjectCounts::modul> counted_;
};
