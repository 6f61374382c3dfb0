#include "display/handled_event.h"

#include "calls/module_names.h"
#include "calls/resolve.h"
#include "display/shown_text.h"
#include "model/clsControl.h"
#include "model/clsProjekt.h"
#include "model/clsProzedur.h"
#include "model/clsVariable.h"
#include "platform/code_page.h"
#include "source/module_text.h"

namespace {

bool IsWithEvents(const clsVariable& variable) {
    const std::string_view text = variable.Modul->text->ModulTextOrg();
    return LowerCase(JoinedLine(text, variable.DeclareStart)).find("withevents ") != std::string::npos;
}

// The class whose events a control or variable of this name brings.
const CodeObject* SourceOfEvents(const clsProjekt& projekt, const clsModul& modul, std::string_view name) {
    if (const clsControl* const control = modul.MyControls.Item(name))
        return modMain::Get_Typ_VonControl(projekt, *control);
    const clsVariable* const variable = modul.MyVars.Item(name);
    if (!variable || !IsWithEvents(*variable))
        return nullptr;
    ModuleNames names(projekt);
    return modMain::Get_Typ_AusName(&modul, variable->type, names);
}

const clsProzedur* EventOf(const clsModul& oneClass, std::string_view name) {
    if (const clsProzedur* const event = oneClass.MyEvents.Item(name))
        return event;
    const clsProzedur* const declared = oneClass.myLibrary ? nullptr : oneClass.MyProcs.Item(name);
    return declared && declared->IsEvent ? declared : nullptr;
}

}  // namespace

const clsProzedur* HandledEvent(const clsProjekt& projekt, const clsProzedur& prozedur) {
    const clsModul& modul = *prozedur.Modul;
    if (modul.myLibrary || !modul.text || prozedur.ProzedurTyp != ProcKind::Sub)
        return nullptr;
    const std::string_view name = prozedur.MyName();
    // Both names may contain "_".
    for (auto end = name.find('_'); end != std::string_view::npos; end = name.find('_', end + 1)) {
        const CodeObject* const source = SourceOfEvents(projekt, modul, name.substr(0, end));
        if (!source || source->Class() != ObjectClass::Modul)
            continue;
        if (const clsProzedur* const event = EventOf(static_cast<const clsModul&>(*source), name.substr(end + 1)))
            return event;
    }
    return nullptr;
}
