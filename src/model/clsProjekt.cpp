#include "model/clsProjekt.h"

#include "model/clsControl.h"
#include "model/clsEnum.h"
#include "model/clsProzedur.h"
#include "model/clsType.h"
#include "model/clsVariable.h"
#include "shell/words.h"

std::unique_ptr<clsProjekt> gProjekt;

clsProjekt::clsProjekt(Files& files) : files_(files) {}

clsProjekt::~clsProjekt() = default;

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
    std::vector<clsModul*> all;
    for (const auto* collection : {&Modules, &Formulare, &Klassenmodule, &UserControls})
        for (clsModul* modul : *collection)
            all.push_back(modul);
    return all;
}

clsModul* clsProjekt::GetModuleFromCodePath(std::string_view codePath) const {
    const std::string head = modMain::GetWortNrAusString(codePath, 1);
    for (const auto* collection : {&Modules, &Formulare, &Klassenmodule, &UserControls})
        if (clsModul* modul = collection->Item(head))
            return modul;
    return nullptr;
}

clsTypeLib* clsProjekt::GetTypeLibFromCodePath(std::string_view codePath) const {
    const std::string head = modMain::GetWortNrAusString(codePath, 1);
    clsTypeLib* library = myProjectReferences.Item(head);
    return library ? library : myProjectObjects.Item(head);
}

CodeObject* clsProjekt::GetObjectFromCodePath(std::string_view codePath) const {
    const std::string_view head = codePath.substr(0, codePath.find('.'));
    for (const std::string_view key : {codePath, head}) {
        for (const auto* libraries : {&myProjectObjects, &myProjectReferences})
            if (clsTypeLib* library = libraries->Item(key))
                return key == codePath ? library : nullptr;
        for (const auto* modules : {&Formulare, &Klassenmodule, &Modules, &UserControls})
            if (clsModul* modul = modules->Item(key))
                return key == codePath ? modul : modul->Get_Object_From_CodePath(codePath);
    }
    return nullptr;
}

clsModul& clsProjekt::Own(std::unique_ptr<clsModul> modul) {
    modules_.push_back(std::move(modul));
    return *modules_.back();
}

clsTypeLib& clsProjekt::Own(std::unique_ptr<clsTypeLib> library) {
    libraries_.push_back(std::move(library));
    return *libraries_.back();
}

clsVariable& clsProjekt::Own(std::unique_ptr<clsVariable> formVariable) {
    formVariables_.push_back(std::move(formVariable));
    return *formVariables_.back();
}

void clsProjekt::DestroyMe() {
    gPublicNameSpace.ClearAll();
}

CodeObject* modMain::GetObjectFromCodePath(std::string_view codePath) {
    return gProjekt ? gProjekt->GetObjectFromCodePath(codePath) : nullptr;
}
