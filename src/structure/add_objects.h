// Enters the objects that a reader creates in the collections of its module. Nothing is overwritten: the first holder
// of a key stays.
#pragma once

#include "structure/module_reader.h"

void Add_Var(ModuleReader& reader, clsVariable& variable);
void Add_Type(ModuleReader& reader, clsType& type);
void Add_Enum(ModuleReader& reader, clsEnum& einEnum);
void Add_Proc(ModuleReader& reader, clsProzedur& prozedur);
/// Enters a member of a type or enum; other modules see it only when its owner is public.
void Add_Member(ModuleReader& reader, clsVariable& member, bool ownerIsPublic);
