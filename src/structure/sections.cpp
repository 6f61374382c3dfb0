#include "structure/sections.h"

#include "structure/module_reader.h"
#include "structure/read_declare.h"
#include "structure/read_proc.h"
#include "structure/read_types.h"
#include "structure/read_vars.h"

namespace {

bool IsProcedureWord(std::string_view word) {
    return Is(word, "sub") || Is(word, "function") || Is(word, "property");
}

bool IsAccessWord(std::string_view word) {
    return Is(word, "public") || Is(word, "global") || Is(word, "private");
}

}  // namespace

void Analyse_GetBeginnProcBereich(ModuleReader& reader) {
    const TokenTable& tokens = reader.tokens;
    clsModul& modul = reader.modul;
    const int last = tokens.Count();
    int brackets = 0;
    int nesting = 0;
    bool inEnum = false;
    bool inType = false;
    for (int nr = 1; nr <= last; ++nr) {
        const std::string_view word = reader.Word(nr);
        const bool first = tokens.StartsStatement(nr);
        const std::string_view before = first ? std::string_view() : reader.Word(nr - 1);
        if (Is(word, "(")) {
            ++brackets;
        } else if (Is(word, ")")) {
            --brackets;
        } else if (Is(word, "begin")) {
            nesting += first;
        } else if (Is(word, "end")) {
            nesting -= first && tokens.StartsStatement(nr + 1);
        } else if (nesting >= 1 || brackets > 0) {
            continue;
        } else if (Is(word, "enum") || Is(word, "type")) {
            bool& inside = Is(word, "enum") ? inEnum : inType;
            if (first || IsAccessWord(before))
                inside = true;
            else if (Is(before, "end"))
                inside = false;
        } else if (IsProcedureWord(word) && !inEnum && !inType && !Is(before, "declare") && !Is(before, "end") &&
                   !Is(before, "exit")) {
            modul.TokNrBeginnProcBereich = IsAccessWord(before) ? nr - 1 : nr;
            modul.BeginnProcBereich = tokens.PosOf(modul.TokNrBeginnProcBereich);
            return;
        }
    }
    modul.TokNrBeginnProcBereich = last;
    modul.BeginnProcBereich = reader.modul.text->CharCount();
}

void Analyse_GetBeginnVarBereich(ModuleReader& reader) {
    const TokenTable& tokens = reader.tokens;
    clsModul& modul = reader.modul;
    const auto beginAt = [&](int nr) {
        modul.TokNrBeginnVarBereich = nr;
        modul.BeginnVarBereich = reader.Exists(nr) ? tokens.PosOf(nr) : tokens.EndOf(nr - 1);
    };
    modul.TokNrBeginnVarBereich = 0;
    modul.BeginnVarBereich = 0;
    const bool hasHeader = modul.ModulTyp != ModuleKind::Module;
    int nesting = 0;
    for (int nr = 1; nr <= modul.TokNrBeginnProcBereich; ++nr) {
        const std::string_view word = reader.Word(nr);
        if (Is(word, "attribute")) {
            nr = tokens.LastOfStatement(nr);
            beginAt(nr + 1);
        } else if (hasHeader && (Is(word, "begin") || Is(word, "end"))) {
            nesting += Is(word, "begin") ? 1 : -1;
            if (nesting == 0) {
                beginAt(nr + 1);
                break;
            }
        }
    }
    if (modul.TokNrBeginnVarBereich < 1) {
        modul.TokNrBeginnVarBereich = 1;
        modul.BeginnVarBereich = tokens.PosOf(1);
    }
    if (modul.BeginnVarBereich == 0)
        modul.BeginnVarBereich = 1;
}

void Analyse_BereichVar(ModuleReader& reader) {
    const TokenTable& tokens = reader.tokens;
    clsModul& modul = reader.modul;
    const auto isKind = [](std::string_view word) {
        return Is(word, "const") || Is(word, "type") || Is(word, "enum") || Is(word, "declare") || Is(word, "event") ||
               Is(word, "withevents");
    };
    for (int nr = 1; nr < modul.TokNrBeginnProcBereich; ++nr) {
        if (tokens.PosOf(nr) < modul.BeginnVarBereich) {
            modul.TokNrBeginnVarBereich = nr + 1;
            continue;
        }
        const std::string_view word = reader.Word(nr);
        std::string_view kind;
        if (Is(word, "dim") || IsAccessWord(word)) {
            const std::string_view next = reader.Word(nr + 1);
            kind = tokens.ContinuesStatement(nr + 1) && isKind(next) ? next : "variable";
        } else if (isKind(word)) {
            kind = word;
        } else {
            continue;
        }
        if (Is(kind, "variable") || Is(kind, "withevents"))
            Analyse_ReadVars(reader, nr);
        else if (Is(kind, "const"))
            Analyse_ReadConst(reader, nr);
        else if (Is(kind, "type"))
            Analyse_ReadType(reader, nr);
        else if (Is(kind, "enum"))
            Analyse_ReadEnum(reader, nr);
        else if (Is(kind, "declare"))
            Analyse_ReadDeclare(reader, nr);
        else
            Analyse_ReadProc(reader, nr);
    }
}

void Analyse_BereichProc(ModuleReader& reader) {
    reader.inProcedures = true;
    const TokenTable& tokens = reader.tokens;
    const auto isKind = [](std::string_view word) { return IsProcedureWord(word) || Is(word, "event"); };
    if (reader.modul.TokNrBeginnProcBereich == 0)
        return;
    for (int nr = reader.modul.TokNrBeginnProcBereich; nr <= tokens.Count(); ++nr) {
        const std::string_view word = reader.Word(nr);
        const bool found = IsAccessWord(word)
                               ? tokens.ContinuesStatement(nr + 1) && isKind(reader.Word(nr + 1))
                               : isKind(word) && !Is(reader.Word(nr - 1), "end") && !Is(reader.Word(nr - 1), "exit");
        if (found)
            Analyse_ReadProc(reader, nr);
    }
}
