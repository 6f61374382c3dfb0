#include "console/library_report.h"

#include <nlohmann/json.hpp>
#include <ostream>

#include "libraries/library_loader.h"
#include "model/clsTypeLib.h"
#include "platform/code_page.h"
#include "platform/type_library.h"

namespace {

using Json = nlohmann::ordered_json;
using typelib::TextOf;
namespace param_flag = typelib::param_flag;

// Numbers stay numbers; what JSON has no number for is a text.
Json ValueJson(const typelib::Constant& value) {
    switch (value.type) {
        case typelib::Bstr:
            return value.text;
        case typelib::R4:
        case typelib::R8:
        case typelib::Date:
            return value.real;
        case typelib::Cy:
            return TextOf(value);
        case typelib::Bool:
            return value.number != 0;
        default:
            return value.isKnown ? Json(value.number) : Json();
    }
}

Json ParameterJson(const TypeLibrary& library, const typelib::Parameter& parameter) {
    Json json = {{"name", parameter.name}, {"type", TypeText(library, parameter.type)}};
    constexpr std::pair<std::uint32_t, const char*> kWords[] = {
        {param_flag::kIn, "in"},     {param_flag::kOut, "out"},           {param_flag::kRetVal, "retval"},
        {param_flag::kLcid, "lcid"}, {param_flag::kOptional, "optional"},
    };
    Json flags = Json::array();
    for (const auto& [flag, word] : kWords)
        if (parameter.Has(flag))
            flags.push_back(word);
    json["flags"] = std::move(flags);
    if (parameter.defaultValue)
        json["default"] = ValueJson(*parameter.defaultValue);
    return json;
}

Json MemberJson(const TypeLibrary& library, const typelib::Member& member) {
    Json json = {{"name", member.name}, {"id", member.id}};
    if (member.isFunction) {
        json["invokeKind"] = TextOf(member.invoke);
        json["type"] = TypeText(library, member.type);
        Json parameters = Json::array();
        for (const typelib::Parameter& parameter : member.parameters)
            parameters.push_back(ParameterJson(library, parameter));
        json["parameters"] = std::move(parameters);
    } else {
        json["type"] = TypeText(library, member.type);
        if (member.value)
            json["value"] = ValueJson(*member.value);
    }
    if (member.IsHidden())
        json["hidden"] = true;
    if (member.IsRestricted())
        json["restricted"] = true;
    if (!member.description.empty())
        json["description"] = member.description;
    return json;
}

Json TypeJson(const TypeLibrary& library, const typelib::Type& type) {
    Json json = {{"name", type.name},
                 {"kind", TextOf(type.kind)},
                 {"id", type.id},
                 {"flags", type.flags},
                 {"description", type.description}};
    if (type.aliasOf)
        json["aliasOf"] = TypeText(library, *type.aliasOf);
    if (!type.implemented.empty()) {
        Json interfaces = Json::array();
        for (const typelib::ImplementedType& implemented : type.implemented)
            interfaces.push_back({{"name", ReferenceText(library, implemented.type)},
                                  {"default", implemented.Has(typelib::impl_flag::kDefault)},
                                  {"source", implemented.Has(typelib::impl_flag::kSource)}});
        json["implements"] = std::move(interfaces);
    }
    if (!type.dll.empty())
        json["dll"] = type.dll;
    Json members = Json::array();
    for (const typelib::Member& member : type.members)
        members.push_back(MemberJson(library, member));
    json["members"] = std::move(members);
    return json;
}

Json ImportsJson(const TypeLibrary& library, const clsTypeLib& objects, LibraryLoader& loader) {
    Json imports = Json::array();
    for (const typelib::ImportedLibrary& imported : library.importedLibraries) {
        const std::string found = loader.FileOf(imported);
        imports.push_back({{"name", imported.file},
                           {"id", imported.id},
                           {"version", std::to_string(imported.major) + '.' + std::to_string(imported.minor)},
                           {"lcid", imported.lcid},
                           {"file", found.empty() ? Json() : Json(objects.Utf8(found))}});
    }
    return imports;
}

Json VariableJson(const clsTypeLib& library, const clsVariable& variable) {
    const LibraryDetail& detail = library.DetailOf(variable);
    Json json = {{"name", variable.Utf8(variable.myNameOrg())},
                 {"datenTyp", variable.Utf8(variable.DatenTyp())},
                 {"type", variable.Utf8(detail.shownType.View())}};
    if (!detail.value.Empty())
        json["value"] = variable.Utf8(detail.value.View());
    return json;
}

Json ProcedureJson(const clsTypeLib& library, const clsProzedur& prozedur) {
    const LibraryDetail& detail = library.DetailOf(prozedur);
    Json arguments = Json::array();
    for (const clsVariable* variable : prozedur.MyVars) {
        Json argument = VariableJson(library, *variable);
        argument["optional"] = variable->isOptional;
        argument["byRef"] = variable->isByRef;
        if (variable->isParamArray)
            argument["paramArray"] = true;
        arguments.push_back(std::move(argument));
    }
    return {{"codePath", prozedur.Utf8(prozedur.CodePath())},
            {"name", prozedur.Utf8(prozedur.myNameOrg())},
            {"kind", prozedur.IsEvent ? "event" : TextOf(prozedur.ProzedurTyp)},
            {"datenTyp", prozedur.Utf8(prozedur.DatenTyp())},
            {"type", prozedur.Utf8(detail.shownType.View())},
            {"hidden", detail.isHidden || detail.isRestricted},
            {"arguments", std::move(arguments)}};
}

Json ProceduresJson(const clsTypeLib& library, const clsCollection<clsProzedur>& procedures) {
    Json json = Json::array();
    for (const clsProzedur* prozedur : procedures)
        json.push_back(ProcedureJson(library, *prozedur));
    return json;
}

Json VariablesJson(const clsTypeLib& library, const clsCollection<clsVariable>& variables) {
    Json json = Json::array();
    for (const clsVariable* variable : variables) {
        Json one = {{"codePath", variable->Utf8(variable->CodePath())}};
        one.update(VariableJson(library, *variable));
        json.push_back(std::move(one));
    }
    return json;
}

Json HeadJson(const CodeObject& object) {
    return {{"codePath", object.Utf8(object.CodePath())}, {"name", object.Utf8(object.myNameOrg())}};
}

Json ClassesJson(const clsTypeLib& library) {
    Json classes = Json::array();
    for (const clsModul* modul : library.myCoClasses) {
        Json json = HeadJson(*modul);
        json["kind"] = TextOf(modul->ModulTyp);
        json["hidden"] = library.DetailOf(*modul).isHidden;
        json["members"] = ProceduresJson(library, modul->MyProcs);
        json["events"] = ProceduresJson(library, modul->MyEvents);
        json["constants"] = VariablesJson(library, modul->MyVars);
        classes.push_back(std::move(json));
    }
    return classes;
}

template <class Group>
Json GroupsJson(const clsTypeLib& library, const clsCollection<Group>& groups) {
    Json all = Json::array();
    for (const Group* group : groups) {
        Json json = HeadJson(*group);
        json["members"] = VariablesJson(library, group->MyVars);
        all.push_back(std::move(json));
    }
    return all;
}

}  // namespace

void AddContents(Json& json, const clsTypeLib& library) {
    json["classes"] = ClassesJson(library);
    json["enums"] = GroupsJson(library, library.myEnums);
    json["records"] = GroupsJson(library, library.myTypes);
}

void WriteLibraryJson(std::ostream& out, const TypeLibrary& library, const clsTypeLib& objects, LibraryLoader& loader) {
    Json json = {{"name", library.name},
                 {"id", library.id},
                 {"version", library.Version()},
                 {"lcid", library.lcid},
                 {"format", TextOf(library.format)},
                 {"description", library.description},
                 {"imports", ImportsJson(library, objects, loader)}};
    Json types = Json::array();
    for (const typelib::Type& type : library.types)
        types.push_back(TypeJson(library, type));
    json["types"] = std::move(types);
    AddContents(json, objects);
    json["problems"] = library.problems;
    // A damaged text can hold any bytes; its page makes characters of all of them, and this of what is left.
    out << json.dump(1, ' ', false, Json::error_handler_t::replace) << '\n';
}
