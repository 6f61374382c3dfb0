// Shared by the harnesses of whole projects: reads one from memory and checks the result.
#pragma once

#include <algorithm>
#include <memory>
#include <nlohmann/json.hpp>
#include <sstream>
#include <string>

#include "console/json_report.h"
#include "findings/structure_report.h"
#include "fuzz_driver.h"
#include "model/clsControl.h"
#include "model/clsEnum.h"
#include "model/clsProjekt.h"
#include "model/clsProzedur.h"
#include "model/clsType.h"
#include "model/clsVariable.h"
#include "platform/code_page.h"
#include "project/project_file.h"
#include "project/start.h"
#include "shell/errors.h"
#include "source/module_text.h"
#include "source/tokens.h"

/// Reads the project at `path`. Resets all state first.
inline clsProjekt& ReadProjectFrom(MemoryFiles& files, const std::string& path) {
    InitGlobals();
    NewProject(files, path);
    Projekt_Laden(*gProjekt);
    return *gProjekt;
}

inline void RequirePlaced(const CodeObject& object, Pos textEnd) {
    for (const Pos pos : {object.DeclareStart, object.DeclareEnd})
        Require(pos >= 0 && pos <= textEnd, "positions lie inside the text");
    Require(object.DeclareEnd == 0 || object.DeclareStart <= object.DeclareEnd, "an object ends behind its start");
    Require(object.CodePath().find(object.MyName()) != std::string::npos, "a path holds the name");
}

inline void RequireSound(const clsModul& modul) {
    const ModuleText& text = *modul.text;
    const Pos end = text.CharCount() + 1;
    Require(text.ModulText() == LowerCase(text.ModulTextOrg()), "both spellings have one length and the same letters");
    Require(modul.BeginnVarBereich <= end && modul.BeginnProcBereich <= end, "sections lie inside the text");
    const TokenTable& tokens = *modul.tokens;
    Require(modul.TokNrBeginnVarBereich <= tokens.Count() + 1 && modul.TokNrBeginnProcBereich <= tokens.Count() + 1,
            "sections begin at a token or behind the last");
    int statementNr = 1;
    for (const Token& token : tokens.All()) {
        Require(token.statementNr == statementNr || token.statementNr == statementNr + 1, "no statement is left out");
        statementNr = token.statementNr;
    }
    for (int nr = 1; nr <= tokens.Count(); ++nr)
        Require(
            tokens.PosOf(nr) >= std::max(tokens.PosOf(nr - 1), 1) && tokens.LenOf(nr) > 0 && tokens.EndOf(nr) <= end,
            "tokens have a text and stand in order");
    for (const CodeObject* object : modul.Owned()) {
        RequirePlaced(*object, end);
        const clsCollection<clsVariable>* members = nullptr;
        if (object->Class() == ObjectClass::Type) {
            members = &static_cast<const clsType*>(object)->MyVars;
        } else if (object->Class() == ObjectClass::Enum) {
            members = &static_cast<const clsEnum*>(object)->MyVars;
        } else if (object->Class() == ObjectClass::Prozedur) {
            const auto& proc = *static_cast<const clsProzedur*>(object);
            members = &proc.MyVars;
            Require(std::max({proc.NamePos, proc.ArgListStart, proc.ArgListEnd}) <= end, "heads lie inside the text");
            Require(std::max(proc.DeclareStartTNr, proc.DeclareEndTNr) <= tokens.Count() + 1,
                    "procedures are made of tokens");
        }
        if (members)
            for (const clsVariable* member : *members)
                RequirePlaced(*member, end);
    }
    Require(modul.AnzLineCode + modul.AnzLineComment + modul.AnzLineBlank <= modul.LineCount, "no line counts twice");
}

/// Checks the project and writes every report of it.
inline void RequireSound(clsProjekt& projekt) {
    for (const clsModul* modul : projekt.AllModules())
        RequireSound(*modul);
    AnalyseErgebnisStructure(projekt);
    for (const clsModul* modul : projekt.AllModules())
        Require(projekt.TheFiles().FileExists(StructureReportPath(*modul)), "every module has a report");
    std::ostringstream out;
    WriteJson(out, projekt);
    const auto json = nlohmann::json::parse(out.str());
    Require(json["modules"].size() == static_cast<std::size_t>(projekt.CountAllModules()),
            "the JSON lists all modules");
    Require(json["problems"].size() == projekt.problems.All().size(), "the JSON lists all problems");
}
