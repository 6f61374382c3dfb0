#include "console/json_report.h"

#include <algorithm>
#include <nlohmann/json.hpp>
#include <ostream>
#include <unordered_set>

#include "console/library_report.h"
#include "findings/dead_objects.h"
#include "findings/library_use.h"
#include "findings/module_statistics.h"
#include "model/clsControl.h"
#include "model/clsEnum.h"
#include "model/clsProjekt.h"
#include "model/clsProzedur.h"
#include "model/clsType.h"
#include "model/clsVariable.h"
#include "model/kind_of.h"
#include "model/line_numbers.h"
#include "platform/code_page.h"
#include "reach/reasons.h"
#include "shell/errors.h"
#include "source/module_text.h"

namespace {

using Json = nlohmann::ordered_json;

// Elements are written one by one, each on a line, so that a large project is not in memory a second time as JSON.
class ArrayWriter {
public:
    ArrayWriter(std::ostream& out, std::string_view key) : out_(out) { out_ << ",\n \"" << key << "\": ["; }
    ~ArrayWriter() { out_ << (empty_ ? "]" : "\n ]"); }
    ArrayWriter(const ArrayWriter&) = delete;
    ArrayWriter& operator=(const ArrayWriter&) = delete;
    void Add(const Json& element) {
        out_ << (empty_ ? "\n  " : ",\n  ") << element.dump();
        empty_ = false;
    }

private:
    std::ostream& out_;
    bool empty_ = true;
};

// Numbers that come from calls are there only if those were looked for.
Json ModuleJson(const clsProjekt& projekt, const clsModul& modul) {
    const ModuleStatistics of = StatisticsOf(projekt, modul);
    Json json{{"codePath", modul.Utf8(modul.CodePath())},
              {"name", modul.Utf8(modul.myNameOrg())},
              {"kind", TextOf(modul.ModulTyp)},
              {"path", modul.Utf8(modul.FullPath)},
              {"code", of.code},
              {"comment", of.comment},
              {"blank", of.blank},
              {"procedures", of.procedures},
              {"variables", of.variables}};
    if (of.life)
        json.update({{"calledByOthers", of.calledBy},
                     {"callsToOthers", of.calls},
                     {"dead", of.life->dead},
                     {"undead", of.life->undead},
                     {"living", of.life->living},
                     {"deadLines", of.life->deadLines}});
    return json;
}

// The uses of arguments and locals come after all edges of the project.
void WriteEdges(std::ostream& out, const clsProjekt& projekt, const std::vector<LocalUse>& localUses) {
    ArrayWriter edges(out, "edges");
    LineNumbers lines;
    int nr = 0;
    const auto add = [&](std::string_view kind, const CodeObject& caller, const clsModul& modul, Pos pos,
                         const CodeObject& target) {
        edges.Add({{"nr", ++nr},
                   {"kind", kind},
                   {"from", caller.Utf8(caller.CodePath())},
                   {"pos", pos},
                   {"line", lines.Of(modul, pos)},
                   {"to", target.Utf8(target.CodePath())}});
    };
    projekt.calls.ForEach([&](const clsCall& call) {
        add(call.Type() == CallType::Really  ? "really"
            : call.Type() == CallType::MayBe ? "maybe"
                                             : "use",
            call.Caller(), call.CallerModule(), call.CallPos, *call.Parent);
    });
    for (const LocalUse& use : localUses)
        add("really", *use.variable->Prozedur, *use.variable->Modul, use.pos, *use.variable);
}

std::vector<LocalUse> LocalUsesOf(const clsProjekt& projekt) {
    std::vector<LocalUse> uses;
    for (const clsModul* modul : projekt.AllModules()) {
        for (const clsProzedur* prozedur : modul->MyProcs) {
            const std::vector<LocalUse> ofProcedure = Check_ProcVars_Calls(*prozedur);
            uses.insert(uses.end(), ofProcedure.begin(), ofProcedure.end());
        }
        modul->text->ReleaseModulText();
    }
    return uses;
}

Json UseJson(const LibraryUse& use) {
    return {{"modules", use.modules}, {"places", use.places}, {"controls", use.controls}, {"variables", use.variables}};
}

/// @param withFile  with the file, or the places where it was sought
Json LibraryJson(const clsTypeLib& library, bool withFile) {
    Json json = {{"kind", TextOf(library.LibTyp)},
                 {"name", library.Utf8(library.myNameOrg())},
                 {"description", library.Utf8(library.Description)},
                 {"typeLibID", library.Utf8(library.TypeLibID)},
                 {"version", library.Utf8(library.Version)},
                 {"entry", library.Utf8(library.ProjektEintrag)}};
    if (!withFile || !library.file.IsSought())
        return json;
    json["project"] = library.isProject;
    json["file"] = library.file.IsFound() ? Json(library.Utf8(library.file.path)) : Json();
    json["fileVersion"] = library.Utf8(library.file.version);
    json["class"] = library.Utf8(library.CLSID);
    json["sought"] = Json::array();
    for (const LibraryPlace& place : library.file.places)
        json["sought"].push_back(
            {{"step", TextOf(place.step)}, {"place", library.Utf8(place.place)}, {"outcome", TextOf(place.outcome)}});
    if (!library.format.empty()) {
        json["format"] = library.format;
        AddContents(json, library);
    }
    return json;
}

Json ObjectJson(const CodeObject& object, std::string_view type) {
    Json json = {{"codePath", object.Utf8(object.CodePath())},
                 {"name", object.Utf8(object.myNameOrg())},
                 {"kind", KindOf(object)},
                 {"access", TextOf(object.Zugriff)},
                 {"type", object.Utf8(type)}};
    if (object.Class() == ObjectClass::Prozedur)
        json["procedureKind"] = object.Utf8(static_cast<const clsProzedur&>(object).ProzedurTypText());
    json["module"] = object.Utf8(object.Modul->CodePath());
    json["start"] = object.DeclareStart;
    json["end"] = object.DeclareEnd;
    json["dead"] = object.IsDeath;
    return json;
}

std::string_view WordOf(ReachState state) {
    return state == ReachState::Certain ? "certain" : state == ReachState::Possible ? "possible" : "none";
}

std::string_view WordOf(Grade grade) {
    static constexpr std::string_view kWords[] = {"living", "sure", "likely", "cannot tell"};
    return kWords[static_cast<std::size_t>(grade)];
}

std::string_view WordOf(ReasonKind kind) {
    static constexpr std::string_view kWords[] = {"none",      "entry point",  "kept", "only possible",
                                                  "no caller", "dead callers", "ring"};
    return kWords[static_cast<std::size_t>(kind)];
}

std::string_view WordOf(DoubtKind kind) {
    static constexpr std::string_view kWords[] = {"none", "variant",    "any object",   "unknown type",   "not in type",
                                                  "with", "expression", "unknown name", "named in string"};
    return kWords[static_cast<std::size_t>(kind)];
}

std::string_view WordOf(GradeReason reason) {
    static constexpr std::string_view kWords[] = {"none",
                                                  "shifts members",
                                                  "changes layout",
                                                  "interface member",
                                                  "designer property",
                                                  "foreign types",
                                                  "used by likely",
                                                  "possible calls",
                                                  "named in string",
                                                  "default member",
                                                  "passed out",
                                                  "not compiled",
                                                  "named in code",
                                                  "unread modules",
                                                  "used by left alone",
                                                  "used by uncertain"};
    return kWords[static_cast<std::size_t>(reason)];
}

std::string_view WordOf(EntryKind kind) {
    static constexpr std::string_view kWords[] = {
        "start-up",       "module event",     "control event", "variable event", "interface member",
        "exported class", "exported control", "addressof",     "declared",       "named in string"};
    return kWords[static_cast<std::size_t>(kind)];
}

Json ReasonJson(const CodeObject& of, const Reason& reason) {
    Json json{{"kind", WordOf(reason.kind)}};
    if (reason.chain.entry) {
        json["entry"] = reason.chain.entry->object->Utf8(reason.chain.entry->object->CodePath());
        json["steps"] = Json::array();
        for (const Link& link : reason.chain.links)
            json["steps"].push_back({{"from", link.from->Utf8(link.from->CodePath())},
                                     {"pos", link.pos},
                                     {"certain", link.IsCertain()},
                                     {"to", link.to->Utf8(link.to->CodePath())}});
    }
    if (reason.doubt.kind != DoubtKind::None) {
        json["firstPossible"] = reason.firstPossible;
        json["doubt"] = WordOf(reason.doubt.kind);
        json["receiver"] = of.Utf8(reason.doubt.receiver);
        json["type"] = of.Utf8(reason.doubt.type);
    }
    if (!reason.objects.empty()) {
        json["objects"] = Json::array();
        for (const CodeObject* object : reason.objects)
            json["objects"].push_back(object->Utf8(object->CodePath()));
    }
    if (reason.keptByRule)
        json["keptByRule"] = true;
    return json;
}

void AddReach(Json& json, const Reasons& reasons, const CodeObject& object) {
    if (!Reach::Covers(object) || &Answering(object) != &object)
        return;
    const Grading grading = reasons.GradeOf(object);
    json["reach"] = WordOf(reasons.TheReach().StateOf(object));
    json["reason"] = ReasonJson(object, reasons.ReasonOf(object));
    json["grade"] = WordOf(grading.grade);
    if (grading.reason != GradeReason::None)
        json["gradeReason"] = WordOf(grading.reason);
    if (grading.leftAlone)
        json["leftAlone"] = object.Utf8(grading.leftAlone->comment);
}

void WriteEntryPoints(std::ostream& out, const Reach& reach) {
    ArrayWriter entries(out, "entryPoints");
    for (const EntryPoint& entry : reach.EntryPoints()) {
        Json json{{"codePath", entry.object->Utf8(entry.object->CodePath())},
                  {"kind", WordOf(entry.kind)},
                  {"certain", entry.IsCertain()}};
        if (entry.modul)
            json.update({{"module", entry.modul->Utf8(entry.modul->CodePath())}, {"pos", entry.pos}});
        entries.Add(json);
    }
}

class ObjectWriter {
public:
    /// @param used     the arguments and locals that are used; null if their uses were not determined
    /// @param reasons  null if they are not included
    ObjectWriter(ArrayWriter& objects, const std::unordered_set<const clsVariable*>* used, const Reasons* reasons)
        : objects_(objects), used_(used), reasons_(reasons) {}

    // Objects of a module that its collections hold: of two with the same key the second is in none.
    void Modul(const clsModul& modul) {
        for (CodeObject* object : modul.Owned()) {
            switch (object->Class()) {
                case ObjectClass::Control:
                    if (modul.MyControls.Item(object->NameKey()) == object)
                        objects_.Add(ObjectJson(*object, static_cast<clsControl*>(object)->DatenTyp()));
                    break;
                case ObjectClass::Variable:
                    if (modul.MyVars.Item(object->NameKey()) == object)
                        Variable(*static_cast<clsVariable*>(object));
                    break;
                case ObjectClass::Type: {
                    const auto* type = static_cast<clsType*>(object);
                    if (modul.myTypes.Item(object->NameKey()) == object) {
                        Add(*object, ObjectJson(*object, ""));
                        Variables(type->MyVars);
                    }
                    break;
                }
                case ObjectClass::Enum: {
                    const auto* einEnum = static_cast<clsEnum*>(object);
                    const bool isFiled = modul.myEnums.Item(object->NameKey()) == object;
                    if (isFiled)
                        Add(*object, ObjectJson(*object, ""));
                    // Members of an enum that was dropped as a duplicate are still variables of the module.
                    for (const clsVariable* member : einEnum->MyVars)
                        if (isFiled || modul.MyVars.Item(member->NameKey()) == member)
                            Variable(*member);
                    break;
                }
                case ObjectClass::Prozedur:
                    if (modul.MyProcs.Item(object->LocalKey()) == object)
                        Prozedur(*static_cast<clsProzedur*>(object));
                    break;
                case ObjectClass::Modul:
                case ObjectClass::TypeLib:
                    break;
            }
        }
    }

private:
    void Prozedur(const clsProzedur& prozedur) {
        Json json = ObjectJson(prozedur, prozedur.DatenTyp());
        json["event"] = prozedur.IsEvent;
        json["declare"] = prozedur.isDeclare;
        Add(prozedur, std::move(json));
        Variables(prozedur.MyVars);
    }

    void Variables(const clsCollection<clsVariable>& variables) {
        for (const clsVariable* variable : variables)
            Variable(*variable);
    }

    void Variable(const clsVariable& variable) {
        Json json = ObjectJson(variable, variable.DatenTyp());
        json["const"] = variable.IsConst;
        if (variable.isResult)
            json["result"] = true;
        else if (used_ && variable.Prozedur && !variable.Prozedur->isDeclare)
            json["unused"] = !used_->contains(&variable);
        Add(variable, std::move(json));
    }

    void Add(const CodeObject& object, Json json) {
        if (reasons_)
            AddReach(json, *reasons_, object);
        objects_.Add(json);
    }

    ArrayWriter& objects_;
    const std::unordered_set<const clsVariable*>* used_;
    const Reasons* reasons_;
};

// Calls `use` for every module in the project's collections, in the order of the project file.
template <class Use>
void ForEachModule(clsProjekt& projekt, Use use) {
    for (const auto& modul : projekt.OwnedModules())
        if (projekt.ModulesOf(modul->ModulTyp).Item(modul->NameKey()) == modul.get())
            use(*modul);
}

}  // namespace

void WriteJson(std::ostream& out, clsProjekt& projekt, const JsonParts& parts) {
    const std::vector<LocalUse> localUses = parts.localsChecked ? LocalUsesOf(projekt) : std::vector<LocalUse>();
    const CodePage& page = projekt.TheNames().Page();
    const Json head = {{"name", page.ToUtf8(projekt.MyName)},
                       {"path", page.ToUtf8(projekt.FullPath)},
                       {"code", projekt.AnzCodeZeilen},
                       {"comment", projekt.AnzCommentZeilen},
                       {"blank", projekt.AnzBlankZeilen}};
    out << "{\n \"project\": " << head.dump();
    {
        ArrayWriter modules(out, "modules");
        ForEachModule(projekt, [&](const clsModul& modul) { modules.Add(ModuleJson(projekt, modul)); });
    }
    {
        ArrayWriter objects(out, "objects");
        std::unordered_set<const clsVariable*> used;
        for (const LocalUse& use : localUses)
            used.insert(use.variable);
        ObjectWriter writer(objects, parts.localsChecked ? &used : nullptr, parts.reasons);
        ForEachModule(projekt, [&](const clsModul& modul) { writer.Modul(modul); });
    }
    if (parts.edges)
        WriteEdges(out, projekt, localUses);
    if (parts.reasons)
        WriteEntryPoints(out, parts.reasons->TheReach());
    {
        ArrayWriter libraries(out, "libraries");
        const bool withUses = parts.libraryFiles && parts.edges;
        const std::vector<LibraryUse> uses = withUses ? UsesOfLibraries(projekt) : std::vector<LibraryUse>();
        for (std::size_t nr = 0; nr < projekt.OwnedLibraries().size(); ++nr) {
            Json json = LibraryJson(*projekt.OwnedLibraries()[nr], parts.libraryFiles);
            if (withUses)
                json["use"] = UseJson(uses[nr]);
            libraries.Add(json);
        }
    }
    {
        ArrayWriter problems(out, "problems");
        for (const Problem& problem : projekt.problems.All())
            if (!problem.isHint)
                problems.Add({{"tag", page.ToUtf8(problem.tag)},
                              {"text", page.ToUtf8(problem.text)},
                              {"path", page.ToUtf8(problem.subject)}});
    }
    out << "\n}\n";
}
