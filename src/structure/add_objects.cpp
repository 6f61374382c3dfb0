#include "structure/add_objects.h"

namespace {

bool IsPrivate(const CodeObject& object) {
    return object.Zugriff == Access::Private;
}

void AddTo_NameSpaces(ModuleReader& reader, CodeObject& object, bool isPublic) {
    if (isPublic)
        reader.modul.publicDeclarations.push_back(&object);
    reader.modul.PrivNameSpace.AddObject(object);
}

}  // namespace

void Add_Var(ModuleReader& reader, clsVariable& variable) {
    clsModul& modul = reader.modul;
    modul.MyVars.AddUnlessPresent(variable.NameKey(), &variable);
    if (IsPrivate(variable)) {
        modul.Private_Variablen.AddUnlessPresent(variable.NameKey(), &variable);
        AddTo_NameSpaces(reader, variable, false);
        return;
    }
    modul.Public_Variablen.AddUnlessPresent(variable.NameKey(), &variable);
    AddTo_NameSpaces(reader, variable, true);
}

void Add_Type(ModuleReader& reader, clsType& type) {
    clsModul& modul = reader.modul;
    const bool isPublic = !IsPrivate(type);
    (isPublic ? modul.Public_Type : modul.Private_Type).AddUnlessPresent(type.NameKey(), &type);
    AddTo_NameSpaces(reader, type, isPublic);
    modul.myTypes.AddUnlessPresent(type.NameKey(), &type);
}

void Add_Enum(ModuleReader& reader, clsEnum& einEnum) {
    clsModul& modul = reader.modul;
    const bool isPublic = !IsPrivate(einEnum);
    (isPublic ? modul.Public_Enum : modul.Private_Enum).AddUnlessPresent(einEnum.NameKey(), &einEnum);
    AddTo_NameSpaces(reader, einEnum, isPublic);
    modul.myEnums.AddUnlessPresent(einEnum.NameKey(), &einEnum);
}

void Add_Proc(ModuleReader& reader, clsProzedur& prozedur) {
    clsModul& modul = reader.modul;
    const Name key = prozedur.LocalKey();
    const bool isPublic = prozedur.Zugriff != Access::Private;
    if (prozedur.IsProperty()) {
        (isPublic ? modul.Public_Property : modul.Private_Property).AddUnlessPresent(key, &prozedur);
    } else if (const bool isSub = prozedur.ProzedurTyp == ProcKind::Sub;
               isSub || prozedur.ProzedurTyp == ProcKind::Function) {
        if (isPublic)
            (isSub ? modul.Public_Sub : modul.Public_Function).AddUnlessPresent(key, &prozedur);
        else
            (isSub ? modul.Private_Sub : modul.Private_Function).AddUnlessPresent(key, &prozedur);
    }
    modul.PrivNameSpace.AddObject(prozedur);
    modul.MyProcs.AddUnlessPresent(key, &prozedur);
    if (!isPublic)
        return;
    if (reader.inProcedures)
        modul.publicProcedures.push_back(&prozedur);
    else
        modul.publicDeclarations.push_back(&prozedur);
}

void Add_Member(ModuleReader& reader, clsVariable& member, bool ownerIsPublic) {
    AddTo_NameSpaces(reader, member, ownerIsPublic);
}
