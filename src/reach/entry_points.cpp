#include "reach/entry_points.h"

#include <algorithm>
#include <array>
#include <unordered_map>

#include "calls/module_names.h"
#include "calls/resolve.h"
#include "findings/start_up.h"
#include "model/clsProjekt.h"
#include "model/clsProzedur.h"
#include "model/module_walk.h"
#include "platform/ascii.h"
#include "structure/module_reader.h"

namespace {

bool IsObjectModule(const clsModul& modul) {
    return modul.ModulTyp != ModuleKind::Module;
}

// The value of `key = value` in the header of a class file, without what follows it, or an empty text.
std::string_view HeaderValue(const clsModul& modul, std::string_view key) {
    const std::string_view text = modul.text->ModulTextOrg();
    // The attributes end where the code begins; a class without any code ends there.
    const auto codeBegins = modul.BeginnVarBereich > 0 ? static_cast<std::size_t>(modul.BeginnVarBereich) : text.size();
    const std::string_view head = text.substr(0, std::min(codeBegins, text.size()));
    for (std::size_t at = 0; (at = head.find(key, at)) != std::string_view::npos; at += key.size()) {
        const std::string_view rest = ascii::TrimLeft(head.substr(at + key.size()));
        if (rest.starts_with('='))
            return ascii::Trim(rest.substr(1, rest.find_first_of("'\r\n") - 1));
    }
    return {};
}

bool IsClassEvent(std::string_view name) {
    static constexpr std::string_view kEvents[] = {"class_initialize",      "class_terminate",
                                                   "class_initproperties",  "class_readproperties",
                                                   "class_writeproperties", "class_getdatamember"};
    return std::ranges::find(kEvents, name) != std::end(kEvents);
}

// By the prefixes of the module's own events: a form has those of its window, a class those of its life.
bool HandlesOwnEvent(const clsModul& modul, const clsProzedur& prozedur) {
    const std::string_view name = prozedur.MyName();
    switch (modul.ModulTyp) {
        case ModuleKind::Form:
            return name.starts_with("form_") || name.starts_with("mdiform_");
        case ModuleKind::UserControl:
            return name.starts_with("usercontrol_");
        case ModuleKind::Class:
            return IsClassEvent(name);
        case ModuleKind::Module:
            break;
    }
    return false;
}

// Calls `use` with the two parts of a name, for each "_" that may be between them.
template <class Use>
bool AnySplit(std::string_view name, const Use& use) {
    for (auto at = name.find('_'); at != std::string_view::npos; at = name.find('_', at + 1))
        if (use(name.substr(0, at), name.substr(at + 1)))
            return true;
    return false;
}

bool HasEvent(const clsModul& source, std::string_view name) {
    if (source.myLibrary)
        return source.MyEvents.Contains(name);
    const clsProzedur* const declared = source.MyProcs.Item(name);
    return declared && declared->IsEvent;
}

// A member by that name, with any accessor. A public variable of an interface is implemented by two procedures.
bool HasMember(const clsModul& interface, std::string_view name) {
    return interface.PrivNameSpace.Contains(name);
}

class Finder {
public:
    Finder(const clsProjekt& projekt, const std::vector<CodeMarks>& marks, const Declared& declared)
        : projekt_(projekt), declared_(declared), names_(projekt), marks_(marks), isTaken_(projekt.ObjectCount()) {
        for (const CodeMarks& ofModule : marks_)
            marksOf_[ofModule.modul] = &ofModule;
    }

    std::vector<EntryPoint> Find() {
        StartUp();
        const std::vector<clsModul*> modules = projekt_.AllModules();
        for (const clsModul* modul : modules)
            if (modul->text && IsObjectModule(*modul))
                ObjectModule(*modul);
        for (const CodeMarks& ofModule : marks_)
            for (const NamePlace& place : ofModule.addressOf)
                AddressOf(*ofModule.modul, place);
        for (const Declaration& declaration : declared_.All())
            if (declaration.kind == DeclaredKind::EntryPoint)
                if (const CodeObject* object = projekt_.GetObjectFromCodePath(LowerCase(declaration.codePath)))
                    Add(*object, EntryKind::Declared);
        std::vector<EntryPoint> entries = ByKind();
        for (const CodeMarks& ofModule : marks_)
            for (const NamePlace& place : ofModule.strings)
                NamedInString(*ofModule.modul, place, entries);
        return entries;
    }

private:
    void Add(const CodeObject& object, EntryKind kind, const clsModul* modul = nullptr, Pos pos = 0) {
        found_[static_cast<std::size_t>(kind)].push_back({&object, kind, modul, pos});
    }

    void StartUp() {
        if (const clsProzedur* main = StartUpProcedure(projekt_))
            Add(*main, EntryKind::StartUp);
        const clsModul* const form = projekt_.Formulare.Item(LowerCase(projekt_.Startup));
        if (!form)
            return;
        const clsProzedur* load = form->MyProcs.Item("form_load");
        if (!load)
            load = form->MyProcs.Item("mdiform_load");
        Add(load ? static_cast<const CodeObject&>(*load) : *form, EntryKind::StartUp);
    }

    void ObjectModule(const clsModul& modul) {
        const auto found = marksOf_.find(&modul);
        const CodeMarks none;
        const CodeMarks& marks = found == marksOf_.end() ? none : *found->second;
        for (const clsProzedur* prozedur : modul.MyProcs) {
            if (HandlesOwnEvent(modul, *prozedur))
                Add(*prozedur, EntryKind::ModuleEvent);
            else if (prozedur->IsEvent && !IsEventDeclaration(*prozedur))
                Add(*prozedur, EntryKind::ControlEvent);
            else if (!marks.withEvents.empty() && HandlesVariable(modul, *prozedur, marks))
                Add(*prozedur, EntryKind::VariableEvent);
            else if (!marks.implements.empty() && Implements(*prozedur, marks))
                Add(*prozedur, EntryKind::InterfaceMember);
        }
        if (IsExported(projekt_, modul))
            Exported(modul);
    }

    void Exported(const clsModul& modul) {
        const EntryKind kind =
            modul.ModulTyp == ModuleKind::Class ? EntryKind::ExportedClass : EntryKind::ExportedControl;
        ForEachDeclared(modul, [&](const CodeObject& object) {
            const auto* const member =
                object.Class() == ObjectClass::Variable ? static_cast<const clsVariable*>(&object) : nullptr;
            const CodeObject* owner = member && member->MyType   ? static_cast<const CodeObject*>(member->MyType)
                                      : member && member->MyEnum ? static_cast<const CodeObject*>(member->MyEnum)
                                                                 : &object;
            if (owner->Zugriff == Access::Public)
                Add(object, kind);
        });
    }

    bool HandlesVariable(const clsModul& modul, const clsProzedur& prozedur, const CodeMarks& marks) {
        return AnySplit(prozedur.MyName(), [&](std::string_view variable, std::string_view event) {
            return std::ranges::any_of(marks.withEvents, [&](const NamePlace& place) {
                return place.name.View() == variable && MayHaveEvent(modul, place.name, event);
            });
        });
    }
    // What a class that is not known has stays open.
    bool MayHaveEvent(const clsModul& modul, Name variable, std::string_view event) {
        const clsVariable* const source = modul.MyVars.Item(variable);
        const CodeObject* const type = source ? modMain::Get_Typ_AusName(&modul, source->type, names_) : nullptr;
        return !type || type->Class() != ObjectClass::Modul || HasEvent(static_cast<const clsModul&>(*type), event);
    }

    bool Implements(const clsProzedur& prozedur, const CodeMarks& marks) {
        return AnySplit(prozedur.MyName(), [&](std::string_view interface, std::string_view member) {
            return std::ranges::any_of(marks.implements, [&](const NamePlace& place) {
                return place.name.View() == interface && MayHaveMember(place.name, member);
            });
        });
    }
    bool MayHaveMember(Name interface, std::string_view member) {
        const CodeObject* const type = modMain::Get_Typ_AusName(nullptr, interface, names_);
        return !type || type->Class() != ObjectClass::Modul || HasMember(static_cast<const clsModul&>(*type), member);
    }

    // Only a procedure of a standard module has an address.
    void AddressOf(const clsModul& modul, const NamePlace& place) {
        const auto find = [&](const clsSpaceName* entry) {
            if (entry)
                for (const CodeObject* object : entry->Objects())
                    if (object->Class() == ObjectClass::Prozedur && object->Modul && !object->myLibrary &&
                        object->Modul->ModulTyp == ModuleKind::Module) {
                        Add(*object, EntryKind::AddressOf, &modul, place.pos);
                        return true;
                    }
            return false;
        };
        if (!find(modul.PrivNameSpace.Item(place.name)))
            find(projekt_.PublicNameSpace().Item(place.name));
    }

    // The last kind, so that many literals of one name add it once.
    void NamedInString(const clsModul& modul, const NamePlace& place, std::vector<EntryPoint>& entries) {
        const auto add = [&](const clsSpaceName* entry, bool ownOnly) {
            if (!entry)
                return;
            for (const CodeObject* object : entry->Objects())
                if (object->Class() == ObjectClass::Prozedur && object->Modul && !object->myLibrary &&
                    !static_cast<const clsProzedur*>(object)->isDeclare &&
                    (!ownOnly || object->Zugriff == Access::Private) && !isTaken_[object->Number()] &&
                    !IsEventDeclaration(static_cast<const clsProzedur&>(*object)))
                    Take({object, EntryKind::NamedInString, &modul, place.pos}, entries);
        };
        add(projekt_.PublicNameSpace().Item(place.name), false);
        add(modul.PrivNameSpace.Item(place.name), true);
    }

    // Of an object that was found several times the first kind counts.
    std::vector<EntryPoint> ByKind() {
        std::vector<EntryPoint> entries;
        for (const std::vector<EntryPoint>& found : found_)
            for (const EntryPoint& entry : found)
                Take(entry, entries);
        return entries;
    }
    void Take(const EntryPoint& entry, std::vector<EntryPoint>& entries) {
        const std::uint32_t number = entry.object->Number();
        if (!isTaken_[number])
            entries.push_back(entry);
        isTaken_[number] = true;
    }

    const clsProjekt& projekt_;
    const Declared& declared_;
    ModuleNames names_;
    const std::vector<CodeMarks>& marks_;
    std::unordered_map<const clsModul*, const CodeMarks*> marksOf_;
    static constexpr std::size_t kKinds = static_cast<std::size_t>(EntryKind::NamedInString);
    std::array<std::vector<EntryPoint>, kKinds> found_;  // by kind, without the last one
    std::vector<bool> isTaken_;                          // by number
};

}  // namespace

std::vector<EntryPoint> EntryPointsOf(const clsProjekt& projekt, const std::vector<CodeMarks>& marks,
                                      const Declared& declared) {
    return Finder(projekt, marks, declared).Find();
}

bool IsExported(const clsProjekt& projekt, const clsModul& modul) {
    if (!modul.text || (modul.ModulTyp != ModuleKind::Class && modul.ModulTyp != ModuleKind::UserControl))
        return false;
    const std::string type = LowerCase(projekt.Type);
    if (type != "oledll" && type != "oleexe" && type != "control")
        return false;
    // A class file without attributes, as some tools write it, still says how often it may be created.
    const std::string_view exposed = HeaderValue(modul, "VB_Exposed");
    return exposed.empty() ? HeaderValue(modul, "MultiUse").starts_with("-1") : LowerCase(exposed) == "true";
}

bool IsEventDeclaration(const clsProzedur& prozedur) {
    // Others than the module see every event.
    if (!prozedur.IsEvent || prozedur.Zugriff == Access::Private || !prozedur.Modul || !prozedur.Modul->tokens ||
        prozedur.DeclareStartTNr == 0)
        return false;
    const std::string_view text = prozedur.Modul->text->ModulTextOrg();
    for (const int nr : {0, 1}) {
        const std::string_view word = prozedur.Modul->tokens->Text(text, prozedur.DeclareStartTNr + nr);
        if (word.size() == 5 && ascii::SameText(word, "event"))
            return true;
    }
    return false;
}
