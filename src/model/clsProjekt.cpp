#include "model/clsProjekt.h"

#include "model/clsControl.h"
#include "model/clsEnum.h"
#include "model/clsProzedur.h"
#include "model/clsType.h"
#include "model/clsVariable.h"
#include "shell/words.h"

namespace {

// Whether a ReDim of this name in another module resizes this object instead of declaring a local: a public variable of
// a standard module, or a member of a public enumeration, which shares the scope of such variables.
bool IsArrayOfAll(const CodeObject& object) {
    if (object.Class() != ObjectClass::Variable)
        return false;
    const auto& variable = static_cast<const clsVariable&>(object);
    return variable.MyEnum || (!variable.MyType && object.Modul->ModulTyp == ModuleKind::Module);
}

std::vector<clsModul*> Joined(std::initializer_list<const clsCollection<clsModul>*> collections) {
    std::vector<clsModul*> all;
    for (const auto* collection : collections)
        for (clsModul* modul : *collection)
            all.push_back(modul);
    return all;
}

}  // namespace

clsProjekt::clsProjekt(Files& files, const CodePage& page)
    : files_(files), names_(page, Memory()), index_(std::make_unique<PublicIndex>(Memory())) {
    CondComps_Win32_Win16(true);
}

clsProjekt::~clsProjekt() = default;

void clsProjekt::CondComps_Win32_Win16(bool win32) {
    if (condComps.size() < 3)
        condComps.resize(3);
    condComps[1] = {"win32", win32 ? "-1" : "0"};
    condComps[2] = {"win16", win32 ? "0" : "-1"};
}

clsTypeLib& clsProjekt::NewLibrary() {
    return *libraries_.emplace_back(std::make_unique<clsTypeLib>(names_, Memory()));
}

void clsProjekt::DropDerived() {
    calls.Clear();
    for (clsCollection<clsModul>* modules : {&Modules, &Klassenmodule, &Formulare, &UserControls})
        modules->Clear();
    for (clsCollection<clsTypeLib>* libraries : {&myProjectObjects, &myProjectReferences})
        libraries->Clear();
    FormVars.Clear();
    index_ = std::make_unique<PublicIndex>(Memory());
}

std::vector<std::unique_ptr<clsModul>> clsProjekt::TakeModules() {
    DropDerived();
    return std::exchange(modules_, {});
}

void clsProjekt::SetModules(std::vector<std::unique_ptr<clsModul>> modules) {
    DropDerived();
    modules_ = std::move(modules);
    MakeIndex();
}

void clsProjekt::MakeIndex() {
    NameSpace& names = index_->names;
    AnzCodeZeilen = AnzCommentZeilen = AnzBlankZeilen = 0;
    objects_ = 0;

    clsCollection<clsVariable> arrays;
    int number = 0;
    for (const auto& modul : modules_) {
        modul->number = ++number;
        modul->graph = &calls;
        modul->firstNumber = objects_;
        objects_ += modul->ObjectCount();
        AnzCodeZeilen += modul->AnzLineCode;
        AnzCommentZeilen += modul->AnzLineComment;
        AnzBlankZeilen += modul->AnzLineBlank;
        if (!modul->text)
            continue;
        for (CodeObject* object : modul->publicDeclarations) {
            names.AddObject(*object);
            if (IsArrayOfAll(*object))
                arrays.AddUnlessPresent(object->NameKey(), static_cast<clsVariable*>(object));
        }
        ModulesOf(modul->ModulTyp).AddUnlessPresent(modul->NameKey(), modul.get());
        if (modul->FormInstance)
            FormVars.AddUnlessPresent(modul->NameKey(), modul->FormInstance);
    }
    for (const auto& library : libraries_) {
        library->graph = &calls;
        library->number = objects_;
        objects_ += library->ObjectCount();
        auto& libraries = library->LibTyp == LibraryKind::Reference ? myProjectReferences : myProjectObjects;
        libraries.AddUnlessPresent(library->NameKey(), library.get());
    }
    for (const clsModul* modul : AllModules())
        for (clsProzedur* prozedur : modul->publicProcedures)
            names.AddObject(*prozedur);
    // After all names of the project, which win.
    for (const auto& library : libraries_)
        AddPublicNames(*library);
    SettleRedims(arrays);
}

void clsProjekt::AddPublicNames(clsTypeLib& library) {
    if (library.ObjectCount() == 1)
        return;
    index_->names.AddObject(library);
    for (const clsSpaceName* name : library.PrivNameSpace)
        for (CodeObject* object : name->Objects())
            index_->names.AddObject(name->NameKey(), *object);
}

void clsProjekt::SettleRedims(const clsCollection<clsVariable>& arrays) const {
    for (const auto& modul : modules_)
        for (clsModul::RedimLocals& redim : modul->redims) {
            clsCollection<clsVariable>& locals = redim.prozedur->MyVars;
            locals.Clear();
            for (clsVariable* candidate : redim.candidates)
                if (!candidate->isRedim || !arrays.Contains(candidate->NameKey()))
                    locals.AddUnlessPresent(candidate->NameKey(), candidate);
        }
}

void clsProjekt::ClearMarks() {
    const auto clearMembers = [](const clsCollection<clsVariable>& members) {
        for (clsVariable* member : members)
            member->IsDeath = 0;
    };
    for (const auto& modul : modules_)
        for (CodeObject* object : modul->Owned()) {
            object->IsDeath = 0;
            if (object->Class() == ObjectClass::Type)
                clearMembers(static_cast<clsType*>(object)->MyVars);
            else if (object->Class() == ObjectClass::Enum)
                clearMembers(static_cast<clsEnum*>(object)->MyVars);
        }
    marksKnown = false;
}

void clsProjekt::TellReplaced() {
    ++generation_;
    for (const auto& listener : listeners_)
        listener();
}

ObjectCounts clsProjekt::Counts() const {
    ObjectCounts sum;
    for (const auto& modul : modules_) {
        const ObjectCounts& counts = modul->Counts();
        sum.variable += counts.variable;
        sum.type += counts.type;
        sum.einEnum += counts.einEnum;
        sum.prozedur += counts.prozedur;
    }
    sum.modul = static_cast<std::int32_t>(modules_.size());
    sum.call = static_cast<std::int32_t>(calls.Count());
    constexpr std::int32_t kOfModule = 18;
    constexpr std::int32_t kOfProject = 8;
    sum.collection = sum.prozedur + sum.type + sum.einEnum + sum.modul * kOfModule + kOfProject;
    return sum;
}

clsCollection<clsModul>& clsProjekt::ModulesOf(ModuleKind kind) {
    switch (kind) {
        case ModuleKind::Form:
            return Formulare;
        case ModuleKind::Class:
            return Klassenmodule;
        case ModuleKind::UserControl:
            return UserControls;
        case ModuleKind::Module:
            break;
    }
    return Modules;
}

int clsProjekt::CountAllModules() const {
    return Formulare.Count() + Klassenmodule.Count() + Modules.Count() + UserControls.Count();
}

std::vector<clsModul*> clsProjekt::AllModules() const {
    return Joined({&Modules, &Formulare, &Klassenmodule, &UserControls});
}

std::vector<clsModul*> clsProjekt::ModulesInReportOrder() const {
    return Joined({&Modules, &Klassenmodule, &Formulare, &UserControls});
}

clsModul* clsProjekt::GetModuleFromCodePath(std::string_view codePath) const {
    const std::string head = modMain::GetWortNrAusString(codePath, 1);
    for (const auto* collection : {&Modules, &Formulare, &Klassenmodule, &UserControls})
        if (clsModul* modul = collection->Item(head))
            return modul;
    return nullptr;
}

CodeObject* clsProjekt::GetObjectFromCodePath(std::string_view codePath) const {
    const std::string_view head = codePath.substr(0, codePath.find('.'));
    for (const std::string_view key : {codePath, head}) {
        for (const auto* libraries : {&myProjectObjects, &myProjectReferences})
            if (clsTypeLib* library = libraries->Item(key))
                return key == codePath ? library : library->Get_Object_From_CodePath(codePath);
        for (const auto* modules : {&Formulare, &Klassenmodule, &Modules, &UserControls})
            if (clsModul* modul = modules->Item(key))
                return key == codePath ? modul : modul->Get_Object_From_CodePath(codePath);
    }
    return nullptr;
}
