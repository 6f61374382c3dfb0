#include "libraries/library_contents.h"

#include <algorithm>
#include <optional>
#include <set>

#include "libraries/type_names.h"
#include "platform/ascii.h"
#include "platform/stdole_types.h"

using typelib::InvokeKind;
using typelib::Member;
using typelib::Parameter;
using typelib::Type;
using typelib::TypeKind;
using typelib::TypeReference;
using typelib::ValueType;
namespace param_flag = typelib::param_flag;
namespace type_flag = typelib::type_flag;

namespace {

constexpr int kMaxBases = 64;

bool IsHidden(const Type& type) {
    return type.Has(type_flag::kHidden | type_flag::kRestricted);
}

// The run-time library has functions in pairs, one for texts and one for variants: Left$ and Left.
std::string SpokenName(const std::string& name) {
    constexpr std::string_view kText = "_B_str_";
    constexpr std::string_view kVariant = "_B_var_";
    if (name.starts_with(kText))
        return name.substr(kText.size()) + '$';
    return name.starts_with(kVariant) ? name.substr(kVariant.size()) : name;
}

ValueType WithoutPointer(ValueType type) {
    if (!type.levels.empty() && type.levels[0].kind == typelib::Ptr)
        type.levels.erase(type.levels.begin());
    return type;
}

std::optional<std::size_t> ResultParameter(const Member& function) {
    for (std::size_t i = function.parameters.size(); i-- > 0;)
        if (function.parameters[i].Has(param_flag::kRetVal))
            return i;
    return std::nullopt;
}

class ContentsReader {
public:
    ContentsReader(const TypeLibrary& library, const ImportedLibraryFinder& find)
        : library_(library), find_(find), names_(library, find_) {}

    LibraryContents Read() {
        FindClassInterfaces();
        for (std::size_t i = 0; i < library_.types.size(); ++i)
            ReadType(i);
        contents_.missing = names_.Missing();
        return std::move(contents_);
    }

private:
    // Interfaces that code sees as a class only, or as its events.
    void FindClassInterfaces() {
        for (const Type& type : library_.types) {
            if (type.kind != TypeKind::CoClass)
                continue;
            const FoundType interface = names_.Find(library_, DefaultInterface(type));
            if (interface.library == &library_ && names_.ClassOf(interface.index) != TypeReference::kNone)
                ofClasses_.insert(interface.index);
            if (const FoundType source = names_.Find(library_, DefaultSource(type)); source.library == &library_)
                ofClasses_.insert(source.index);
        }
    }

    void ReadType(std::size_t index) {
        const Type& type = library_.types[index];
        switch (type.kind) {
            case TypeKind::Enum:
                contents_.enums.push_back(Group(index));
                break;
            case TypeKind::Record:
            case TypeKind::Union:
                contents_.records.push_back(Group(index));
                break;
            case TypeKind::Module:
                contents_.classes.push_back(Module(index));
                break;
            case TypeKind::Interface:
            case TypeKind::Dispatch:
                if (!ofClasses_.contains(index))
                    contents_.classes.push_back(Class(index, ModuleKind::Class, {&library_, index}, {}));
                break;
            case TypeKind::CoClass:
                contents_.classes.push_back(
                    Class(index, type.Has(type_flag::kControl) ? ModuleKind::UserControl : ModuleKind::Class,
                          names_.Find(library_, DefaultInterface(type)), names_.Find(library_, DefaultSource(type))));
                break;
            case TypeKind::Alias:
                if (type.aliasOf && !names_.IsPlainAlias(index))
                    contents_.aliases.push_back({names_.NameOf(index), names_.TypeOf(*type.aliasOf)});
                break;
        }
    }

    LibraryVariable Variable(const Member& member) {
        LibraryVariable variable;
        variable.name = SpokenName(member.name);
        variable.type = names_.TypeOf(member.type);
        variable.value = member.value ? TextOf(*member.value) : std::string();
        variable.isHidden = member.IsHidden() || member.IsRestricted();
        variable.description = member.description;
        return variable;
    }

    LibraryGroup Group(std::size_t index) {
        const Type& type = library_.types[index];
        LibraryGroup group{names_.NameOf(index), type.id, type.description, IsHidden(type), {}};
        for (const Member& member : type.members)
            group.members.push_back(Variable(member));
        return group;
    }

    LibraryClass Head(std::size_t index, ModuleKind kind) {
        const Type& type = library_.types[index];
        return {names_.NameOf(index), kind, type.id, type.description, type.dll, IsHidden(type), {}, {}, {}};
    }

    LibraryClass Module(std::size_t index) {
        LibraryClass module = Head(index, ModuleKind::Module);
        for (const Member& member : library_.types[index].members) {
            if (member.isFunction)
                module.procedures.push_back(Procedure(member));
            else
                module.constants.push_back(Variable(member));
        }
        return module;
    }

    LibraryClass Class(std::size_t index, ModuleKind kind, FoundType interface, FoundType source) {
        LibraryClass result = Head(index, kind);
        ForEachMember(interface, [&](ContentsReader& reader, const Member& member) {
            if (member.isFunction)
                AddUnlessPresent(result.procedures, reader.Procedure(member));
            else
                for (LibraryProcedure& accessor : reader.Accessors(member))
                    AddUnlessPresent(result.procedures, std::move(accessor));
        });
        ForEachMember(source, [&](ContentsReader& reader, const Member& member) {
            if (!member.isFunction)
                return;
            LibraryProcedure event = reader.Procedure(member);
            event.kind = ProcKind::Sub;
            AddUnlessPresent(result.events, std::move(event));
        });
        return result;
    }

    // Members of an interface, then those of its bases. Each is read by the reader of its own library, where its types
    // are.
    template <class Use>
    void ForEachMember(FoundType interface, const Use& use) {
        present_.clear();
        for (int depth = 0; interface.library && depth < kMaxBases; ++depth) {
            const Type& type = *interface.Get();
            const bool isBasic = type.id == kIUnknownId || type.id == kIDispatchId;
            ContentsReader* const reader = ReaderOf(*interface.library);
            for (const Member& member : type.members)
                if (!isBasic || !member.IsRestricted())
                    use(*reader, member);
            if (type.kind == TypeKind::CoClass || type.implemented.empty())
                return;
            interface = reader->names_.Find(*interface.library, type.implemented[0].type);
        }
    }

    ContentsReader* ReaderOf(const TypeLibrary& library) {
        if (&library == &library_)
            return this;
        std::unique_ptr<ContentsReader>& reader = others_[&library];
        if (!reader)
            reader = std::make_unique<ContentsReader>(library, find_);
        return reader.get();
    }

    // One path is given once: the innermost interface comes first.
    void AddUnlessPresent(std::vector<LibraryProcedure>& procedures, LibraryProcedure procedure) {
        if (present_
                .emplace(ascii::LowerCase(procedure.name), IsAccessor(procedure.kind) ? procedure.kind : ProcKind::Sub)
                .second)
            procedures.push_back(std::move(procedure));
    }

    static bool IsAccessor(ProcKind kind) { return kind != ProcKind::Sub && kind != ProcKind::Function; }

    // A variable of a dispatch interface is a property.
    std::vector<LibraryProcedure> Accessors(const Member& variable) {
        LibraryProcedure get;
        get.name = variable.name;
        get.kind = ProcKind::PropertyGet;
        get.type = names_.TypeOf(variable.type);
        get.id = variable.id;
        get.isHidden = variable.IsHidden();
        get.isRestricted = variable.IsRestricted();
        get.description = variable.description;
        std::vector<LibraryProcedure> accessors{get};
        if ((variable.flags & typelib::var_flag::kReadOnly) == 0) {
            accessors.push_back(get);
            accessors.back().kind = names_.IsObject(variable.type) ? ProcKind::PropertySet : ProcKind::PropertyLet;
        }
        return accessors;
    }

    LibraryProcedure Procedure(const Member& function) {
        LibraryProcedure procedure;
        procedure.name = SpokenName(function.name);
        procedure.id = function.id;
        procedure.isHidden = function.IsHidden();
        procedure.isRestricted = function.IsRestricted();
        procedure.description = function.description;
        procedure.entry = function.entry;
        const std::optional<std::size_t> result = ResultParameter(function);
        const bool hasResult = result || HasResult(function.type);
        if (result)
            procedure.type = names_.TypeOf(WithoutPointer(function.parameters[*result].type));
        else if (hasResult)
            procedure.type = names_.TypeOf(function.type);
        ReadArguments(function, result, procedure);
        switch (function.invoke) {
            case InvokeKind::PropertyGet:
                procedure.kind = ProcKind::PropertyGet;
                break;
            case InvokeKind::PropertyPut:
            case InvokeKind::PropertyPutRef:
                procedure.kind =
                    function.invoke == InvokeKind::PropertyPut ? ProcKind::PropertyLet : ProcKind::PropertySet;
                TakeValue(procedure);
                break;
            case InvokeKind::Func:
                procedure.kind = hasResult ? ProcKind::Function : ProcKind::Sub;
                break;
        }
        if (function.hasParamArray && !procedure.arguments.empty()) {
            procedure.arguments.back().isParamArray = true;
            procedure.arguments.back().isOptional = false;
        }
        return procedure;
    }

    static bool HasResult(const ValueType& type) {
        const bool isNone = type.base == typelib::HResult || type.base == typelib::Void || type.base == typelib::Empty;
        return !isNone || !type.levels.empty();
    }

    // The value that a Let or Set gives comes last and is no argument; its type is that of the property.
    static void TakeValue(LibraryProcedure& procedure) {
        if (procedure.arguments.empty())
            return;
        procedure.type = std::move(procedure.arguments.back().type);
        procedure.arguments.pop_back();
    }

    void ReadArguments(const Member& function, std::optional<std::size_t> result, LibraryProcedure& procedure) {
        for (std::size_t i = 0; i < function.parameters.size(); ++i) {
            const Parameter& parameter = function.parameters[i];
            if (i == result || parameter.Has(param_flag::kLcid))
                continue;
            LibraryArgument argument;
            argument.name =
                parameter.name.empty() ? "Arg" + std::to_string(procedure.arguments.size() + 1) : parameter.name;
            argument.type = names_.TypeOf(parameter.type);
            argument.isOptional = parameter.Has(param_flag::kOptional | param_flag::kHasDefault);
            argument.isByRef = names_.IsByRef(parameter.type);
            if (parameter.defaultValue)
                argument.defaultValue = TextOf(*parameter.defaultValue);
            procedure.arguments.push_back(std::move(argument));
        }
    }

    const TypeLibrary& library_;
    const ImportedLibraryFinder& find_;
    TypeNames names_;
    LibraryContents contents_;
    std::set<std::size_t> ofClasses_;
    std::set<std::pair<std::string, ProcKind>> present_;
    std::map<const TypeLibrary*, std::unique_ptr<ContentsReader>> others_;
};

}  // namespace

LibraryContents ContentsOf(const TypeLibrary& library, const ImportedLibraryFinder& find) {
    return ContentsReader(library, find).Read();
}
