#include "structure/read_declare.h"

#include "structure/add_objects.h"
#include "structure/module_reader.h"

void Analyse_ReadDeclare(ModuleReader& reader, int& tokNr) {
    const TokenTable& tokens = reader.tokens;
    const std::string_view first = reader.Word(tokNr);
    const int nameNr = tokNr + (Is(first, "declare") ? 2 : 3);
    if (!reader.Exists(nameNr))
        return;
    clsProzedur& prozedur = reader.modul.New<clsProzedur>();
    prozedur.isDeclare = true;
    prozedur.DeclareStart = tokens.PosOf(tokNr);
    prozedur.Zugriff = first == kPrivate ? Access::Private : Access::Public;
    ProzedurTyp_AusWort(reader.names, prozedur, reader.Word(nameNr - 1));
    reader.NameIt(prozedur, nameNr);
    prozedur.NamePos = tokens.PosOf(nameNr);

    const int last = tokens.LastOfStatement(nameNr);
    TypeText type;
    int depth = 0;
    bool asSeen = false;
    for (int nr = nameNr + 1; nr <= last; ++nr) {
        const std::string_view word = reader.Word(nr);
        if (asSeen) {
            type.Append(word);
        } else {
            depth += Is(word, "(") - Is(word, ")");
            asSeen = depth == 0 && Is(word, "as");
        }
    }
    prozedur.type = type.Empty() ? reader.names.Intern("variant") : type.AsName(reader.names);
    prozedur.DeclareEnd = tokens.PosOf(last);
    Add_Proc(reader, prozedur);
    tokNr = nameNr;
}

void ProzedurTyp_AusWort(Names& names, clsProzedur& prozedur, std::string_view word, std::string_view accessor) {
    const bool isProperty = Is(word, "property");
    const std::string words = accessor.empty() ? std::string(word) : std::string(word) + " " + std::string(accessor);
    for (const ProcKind kind :
         {ProcKind::Sub, ProcKind::Function, ProcKind::PropertyGet, ProcKind::PropertyLet, ProcKind::PropertySet})
        if (words == TextOf(kind)) {
            prozedur.ProzedurTyp = kind;
            return;
        }
    prozedur.ProzedurTyp = isProperty ? ProcKind::OtherProperty : ProcKind::Other;
    prozedur.otherKind = names.Intern(words);
}

bool IsHandler(const clsModul& modul, const clsProzedur& prozedur) {
    const std::string_view name = prozedur.MyName();
    if (modul.ModulTyp == ModuleKind::Class)
        return name == "class_initialize" || name == "class_terminate";
    if (modul.ModulTyp != ModuleKind::Form && modul.ModulTyp != ModuleKind::UserControl)
        return false;
    if (name.starts_with(modul.ModulTyp == ModuleKind::Form ? "form_" : "usercontrol_"))
        return true;
    // The name of a control may contain "_", so each "_" may be its end.
    constexpr std::size_t kLongestName = 1000;  // no control name is as long
    for (auto end = name.find('_'); end < kLongestName; end = name.find('_', end + 1))
        if (modul.MyControls.Contains(name.substr(0, end)))
            return true;
    return false;
}
