// Files what a reader has made in the collections of its module and project. Nothing is overwritten: the first
// holder of a key stays.
#pragma once

#include "structure/module_reader.h"

void Add_Var(ModuleReader& reader, clsVariable& variable);
void Add_Type(ModuleReader& reader, clsType& type);
void Add_Enum(ModuleReader& reader, clsEnum& einEnum);
void Add_Proc(ModuleReader& reader, clsProzedur& prozedur);
/// The part of it that concerns the project.
void Add_Proc_ToProjekt(clsProjekt& projekt, clsProzedur& prozedur);
/// Enters a member of a type or enum in the name spaces: the public one only when its owner is public.
void Add_Member(ModuleReader& reader, clsVariable& member, bool ownerIsPublic);
