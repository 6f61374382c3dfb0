// Includes what most tests of a project need: the fixture, snippets and projects in memory, the ports of the program,
// and the model with its analyses.
#pragma once

#include <gmock/gmock.h>

#include <functional>

#include "calls/driver.h"
#include "findings/dead_objects.h"
#include "model/clsControl.h"
#include "model/clsEnum.h"
#include "model/clsProzedur.h"
#include "model/clsType.h"
#include "model/clsVariable.h"
#include "source/module_text.h"
#include "support/joined.h"
#include "support/marked.h"
#include "support/ports.h"
#include "support/program_state.h"
#include "support/read_project.h"

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::Pair;

/// Finds all calls of the open project and marks dead objects.
inline void Analyse() {
    Who_Calls_Who(*gProjekt);
    Tote_Untote_Kennzeichnen(*gProjekt);
}
/// Same for a project, or the one of a module, that was read just now; returns what was read.
template <class Read>
Read& Analyse(Read& read) {
    Analyse();
    return read;
}

/// The object of the open project at `codePath`; throws if there is none.
inline CodeObject& ObjectAt(std::string_view codePath) {
    if (CodeObject* object = gProjekt->GetObjectFromCodePath(codePath))
        return *object;
    throw std::invalid_argument("no object " + std::string(codePath));
}
inline clsProzedur& ProcedureAt(std::string_view codePath) {
    CodeObject& object = ObjectAt(codePath);
    if (object.Class() != ObjectClass::Prozedur)
        throw std::invalid_argument("no procedure " + std::string(codePath));
    return static_cast<clsProzedur&>(object);
}

/// The names as spelled, separated by blanks.
template <class T>
std::string NamesIn(const clsCollection<T>& objects) {
    return Joined(objects, " ", std::mem_fn(&CodeObject::myNameOrg));
}
