// One source file: form, standard module, class or user control, and the result of reading it. The module owns its
// text, its tokens and the code objects read from it, and points at nothing outside; the names that it shares with
// other modules are those of its project's pool.
#pragma once

#include <memory>
#include <type_traits>
#include <vector>

#include "model/arena.h"
#include "model/clsCollection.h"
#include "model/clsVariable.h"
#include "model/counters.h"
#include "model/name_space.h"
#include "model/passed_words.h"
#include "platform/files.h"
#include "source/module_text.h"
#include "source/tokens.h"

class clsModul final : public CodeObject {
public:
    /// @param names   of the project; they outlive the module
    /// @param memory  of the project, where the module's arena gets its blocks
    /// @param block   bytes of such a block
    explicit clsModul(Names& names, std::pmr::memory_resource* memory = std::pmr::get_default_resource(),
                      std::size_t block = Arena::kBlock)
        : CodeObject(ObjectClass::Modul), names_(names), arena_(memory, block) {}

    [[nodiscard]] Names& TheNames() const { return names_; }

private:
    Names& names_;
    Arena arena_;  // first, as all below lives in it

public:
    /// For everything that lives as long as the module.
    [[nodiscard]] std::pmr::memory_resource* Memory() { return &arena_; }

    ModuleKind ModulTyp = ModuleKind::Module;
    std::string FullPath;
    FileError fileError = FileError::None;     // why there is no text
    FileError staleBecause = FileError::None;  // why the file could not be read again: the module stays as it was read
    FileTime DateLastModified = 0;
    bool isEdited = false;  // the text differs from that of the file, from which something was deleted
    int number = 0;         // running number among the module lines of the project file, from 1

    std::unique_ptr<ModuleText> text;  // null for files that are empty or could not be read
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
    [[nodiscard]] OutgoingEdges CallsInDeclarations() const { return {outgoing, OutgoingEdges::Which::All}; }
    std::span<const clsCall> outgoing;  // the edges in the graph of calls

    /// Known with the edges.
    PassedWords passedWords;

    NameSpace PrivNameSpace{Memory()};  // every object declared here

    clsCollection<clsProzedur> Public_Sub{Memory()}, Private_Sub{Memory()}, Public_Function{Memory()},
        Private_Function{Memory()}, Public_Property{Memory()}, Private_Property{Memory()},
        MyProcs{Memory()};                                                               // keyed by LocalKey
    clsCollection<clsVariable> Public_Variablen{Memory()}, Private_Variablen{Memory()};  // keyed by name
    clsCollection<clsVariable> MyVars{Memory()};  // keyed by name; enum members included
    clsCollection<clsType> Public_Type{Memory()}, Private_Type{Memory()}, myTypes{Memory()};
    clsCollection<clsEnum> Public_Enum{Memory()}, Private_Enum{Memory()}, myEnums{Memory()};
    clsCollection<clsControl> MyControls{Memory()};
    /// Of a library's class. They are apart from its procedures: a control may have a method and an event of one
    /// name.
    clsCollection<clsProzedur> MyEvents{Memory()};

    /// What other modules can see of this one, in the order of reading: the module itself and its declarations with
    /// members and controls; the procedures are separate, as they join the public name space later.
    std::pmr::vector<CodeObject*> publicDeclarations{Memory()};
    std::pmr::vector<clsProzedur*> publicProcedures{Memory()};
    /// The form's default instance, a variable of the form's name; null for other modules.
    clsVariable* FormInstance = nullptr;

    /// A procedure with ReDim statements for names that its module does not declare, and all its arguments and locals
    /// in the order of reading. In Visual Basic such a ReDim declares a local unless another module has a public array
    /// of that name, so it is decided once all modules are known.
    struct RedimLocals {
        clsProzedur* prozedur;
        std::pmr::vector<clsVariable*> candidates;
    };
    std::pmr::vector<RedimLocals> redims{Memory()};

    /// The object of this module, or the module itself, whose CodePath equals `codePath`, or null. Arguments and locals
    /// come last: those of several accessors of a property can have the same path, and the first has it.
    [[nodiscard]] CodeObject* Get_Object_From_CodePath(std::string_view codePath);

    /// Creates an object of this module and lists it among its Owned.
    template <class T>
    [[nodiscard]] T& New() {
        T& object = NewInner<T>();
        owned_.push_back(&object);
        return object;
    }
    /// Creates an object that belongs to another one: a member or a local variable.
    template <class T>
    [[nodiscard]] T& NewInner() {
        T& object = Make<T>();
        object.Modul = this;
        object.numberInModule = ++objects_;
        return object;
    }
    /// All objects read from this module, in the order of reading; including duplicates of a name that no collection
    /// holds, excluding members and locals.
    [[nodiscard]] const std::pmr::vector<CodeObject*>& Owned() const { return owned_; }
    /// Number of objects, including members, locals and the module itself.
    [[nodiscard]] std::uint32_t ObjectCount() const { return objects_ + 1; }
    [[nodiscard]] const ObjectCounts& Counts() const { return counts_; }

    const CallGraph* graph = nullptr;  // of the project that the module has joined
    std::uint32_t firstNumber = 0;     // number of the module itself among the objects of the project

private:
    [[nodiscard]] CodeObject* LocalAt(std::string_view codePath) const;
    template <class T>
    T& Make() {
        if constexpr (std::is_same_v<T, clsVariable>)
            ++counts_.variable;
        else if constexpr (std::is_same_v<T, clsProzedur>)
            ++counts_.prozedur;
        else if constexpr (std::is_same_v<T, clsType>)
            ++counts_.type;
        else if constexpr (std::is_same_v<T, clsEnum>)
            ++counts_.einEnum;
        if constexpr (std::is_same_v<T, clsProzedur>)
            return arena_.New<T>(*this, Memory());
        else if constexpr (std::is_constructible_v<T, std::pmr::memory_resource*>)
            return arena_.New<T>(Memory());
        else
            return arena_.New<T>();
    }

    std::pmr::vector<CodeObject*> owned_{Memory()};
    std::uint32_t objects_ = 0;
    ObjectCounts counts_;
};
