#include "structure/read_vars.h"

#include <array>
#include <vector>

#include "structure/add_objects.h"
#include "structure/module_reader.h"

std::string_view DatenTyp_AusZeichen(std::string_view sign) {
    if (sign.size() != 1)
        return {};
    switch (sign[0]) {
        case '$':
            return "string";
        case '%':
            return "integer";
        case '!':
            return "single";
        case '#':
            return "double";
        case '@':
            return "currency";
        case '&':
            return "long";
        default:
            return {};
    }
}

namespace {

clsVariable& NewVariable(ModuleReader& reader, int nameNr, Access zugriff) {
    clsVariable& variable = reader.modul.New<clsVariable>();
    variable.Zugriff = zugriff;
    reader.NameIt(variable, nameNr);
    variable.DeclareStart = reader.tokens.PosOf(nameNr);
    variable.DeclareEnd = reader.tokens.EndOf(nameNr);
    return variable;
}

// Type of a variable from the tokens of its declaration: the first is the name, the second a type sign or "as".
Name TypeOf(const ModuleReader& reader, const std::vector<int>& list) {
    if (list.size() == 1)
        return reader.names.Intern("variant");
    TypeText type;
    type.Set(DatenTyp_AusZeichen(reader.Word(list[1])));
    if (type.Empty())
        for (std::size_t entry = 2; entry < list.size(); ++entry)
            if (!Is(reader.Word(list[entry]), "new"))
                type.Append(reader.Word(list[entry]));
    return type.AsName(reader.names);
}

}  // namespace

void Analyse_ReadVars(ModuleReader& reader, int& tokNr) {
    const std::string_view first = reader.Word(tokNr);
    const Access zugriff = Is(first, "dim") || first == kPrivate ? Access::Private : Access::Public;
    const int last = reader.tokens.LastOfStatement(tokNr);
    std::vector<int> list;  // tokens of the current variable, beginning with its name
    int depth = 0;
    const auto close = [&] {
        if (!list.empty()) {
            clsVariable& variable = NewVariable(reader, list[0], zugriff);
            variable.type = TypeOf(reader, list);
            Add_Var(reader, variable);
        }
        list.clear();
    };
    for (int nr = tokNr + 1; nr <= last; ++nr) {
        const std::string_view word = reader.Word(nr);
        if (Is(word, "("))
            ++depth;
        else if (Is(word, ")"))
            --depth;
        else if (Is(word, ",") && depth == 0)
            close();
        else if (depth <= 0 && !Is(word, "withevents"))
            list.push_back(nr);
    }
    close();
    tokNr = last;
}

void Analyse_ReadConst(ModuleReader& reader, int& tokNr) {
    const std::string_view first = reader.Word(tokNr);
    const Access zugriff = first == kPrivate ? Access::Private : Access::Public;
    const int start = tokNr + (Is(first, "const") ? 1 : 2);
    const int last = reader.tokens.LastOfStatement(tokNr);
    int depth = 0;
    int before = 0;  // name of the previous constant; a second "=" after the same name makes no second constant
    int listStart = start;
    for (int nr = start; nr <= last; ++nr) {
        const std::string_view word = reader.Word(nr);
        depth += Is(word, "(") - Is(word, ")");
        if (Is(word, ","))
            listStart = nr + 1;
        const int name = listStart;
        if (!Is(word, "=") || depth != 0 || name == nr || name == before)
            continue;
        before = name;
        clsVariable& constant = NewVariable(reader, name, zugriff);
        constant.IsConst = true;
        TypeText type;
        for (int part = name; part < nr && !Is(reader.Word(part), ","); ++part) {
            if (const std::string_view sign = DatenTyp_AusZeichen(reader.Word(part)); !sign.empty()) {
                type.Set(sign);
                break;
            }
            if (part >= name + 2)
                type.Append(reader.Word(part));
        }
        constant.type = type.Empty() ? reader.names.Intern("variant") : type.AsName(reader.names);
        Add_Var(reader, constant);
    }
    tokNr = last;
}
