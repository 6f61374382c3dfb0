#include "support/read_project.h"

#include <stdexcept>

#include "model/clsControl.h"
#include "project/project_file.h"
#include "project/start.h"
#include "support/joined.h"
#include "support/marked.h"

namespace {

const std::string kDirectory = "p\\";

std::string ProjectLine(const std::string& file) {
    const std::string stem = file.substr(0, file.rfind('.'));
    if (file.ends_with(".frm"))
        return "Form=" + file;
    // The second line is only counted: a project with only user controls counts as empty and is not read.
    if (file.ends_with(".ctl"))
        return "UserControl=" + file + "\r\nUsercontrol=none";
    return (file.ends_with(".cls") ? "Class=" : "Module=") + stem + "; " + file;
}

std::string NameAndType(const CodeObject& object, std::string_view type) {
    std::string text(object.myNameOrg());
    if (!type.empty())
        text.append(" as ").append(type);
    return text;
}

std::string Role(const clsVariable& variable) {
    if (variable.MyType || variable.MyEnum)
        return {};
    std::string role = variable.isResult                      ? "result "
                       : !variable.Prozedur                   ? std::string(TextOf(variable.Zugriff)) + " "
                       : variable.Zugriff == Access::Argument ? "argument "
                                                              : "local ";
    return variable.IsConst ? role + "const " : role;
}

std::string List(const clsCollection<clsVariable>& variables) {
    return "(" +
           Joined(variables, ", ",
                  [](const clsVariable* variable) {
                      return Role(*variable) + NameAndType(*variable, variable->DatenTyp());
                  }) +
           ")";
}

// One object of the module, or an empty text if no collection contains it.
std::string DumpObject(const clsModul& modul, const CodeObject& object) {
    const std::string access = std::string(TextOf(object.Zugriff)) + " ";
    const std::string name(object.myNameOrg());
    switch (object.Class()) {
        case ObjectClass::Variable: {
            const auto& variable = static_cast<const clsVariable&>(object);
            if (modul.MyVars.Item(object.NameKey()) != &object || object.MyName() == "me")
                return {};
            return Role(variable) + NameAndType(object, variable.DatenTyp());
        }
        case ObjectClass::Type:
            if (modul.myTypes.Item(object.NameKey()) != &object)
                return {};
            return access + "type " + name + List(static_cast<const clsType&>(object).MyVars);
        case ObjectClass::Enum:
            if (modul.myEnums.Item(object.NameKey()) != &object)
                return {};
            return access + "enum " + name + List(static_cast<const clsEnum&>(object).MyVars);
        case ObjectClass::Control:
            if (modul.MyControls.Item(object.NameKey()) != &object || object.MyName() == "usercontrol")
                return {};
            return access + "control " + NameAndType(object, static_cast<const clsControl&>(object).DatenTyp());
        case ObjectClass::Prozedur: {
            const auto& proc = static_cast<const clsProzedur&>(object);
            if (modul.MyProcs.Item(proc.LocalKey()) != &proc)
                return {};
            std::string text = access + (proc.isDeclare ? "declare " : "") + (proc.IsEvent ? "event " : "");
            text.append(proc.ProzedurTypText()).append(" ").append(name).append(List(proc.MyVars));
            return proc.DatenTyp().empty() ? text : text.append(" as ").append(proc.DatenTyp());
        }
        case ObjectClass::Modul:
        case ObjectClass::TypeLib:
            break;
    }
    return {};
}

clsProjekt& ReadFiles(const std::vector<ProjectFile>& files) {
    CloseProject();
    MemoryFiles& there = ProjectFiles();
    there = MemoryFiles();
    std::string project;
    std::string lines = "Type=Exe\r\nName=\"Project1\"\r\n";
    for (const auto& [name, text] : files) {
        there.WriteWhole(kDirectory + name, text);
        if (project.empty() && name.ends_with(".vbp"))
            project = name;
        lines += ProjectLine(name) + "\r\n";
    }
    if (project.empty()) {
        project = "Project1.vbp";
        there.WriteWhole(kDirectory + project, lines);
    }
    NewProject(there, kDirectory + project);
    Projekt_Laden(*gProjekt);
    return *gProjekt;
}

}  // namespace

MemoryFiles& ProjectFiles() {
    static MemoryFiles files;
    return files;
}

clsProjekt& ReadProject(std::initializer_list<ProjectFile> files) {
    std::vector<ProjectFile> texts(files);
    for (auto& [name, text] : texts)
        if (!text.empty() && text.find('\r') == std::string::npos)
            text = Vb(text).text;
    return ReadFiles(texts);
}

clsModul& ReadModule(std::string_view snippet, std::string_view fileName) {
    return ReadModuleAsItIs(Vb(snippet).text, fileName);
}

clsModul& ReadModuleAsItIs(std::string text, std::string_view fileName) {
    return *ReadFiles({{std::string(fileName), std::move(text)}}).OwnedModules().at(0);
}

clsModul& ModuleOf(std::string_view codePath) {
    for (const auto* modules :
         {&gProjekt->Modules, &gProjekt->Formulare, &gProjekt->Klassenmodule, &gProjekt->UserControls})
        if (clsModul* modul = modules->Item(codePath))
            return *modul;
    throw std::invalid_argument("no module " + std::string(codePath));
}

std::string DumpObjects(const clsModul& modul) {
    std::string dump;
    for (const CodeObject* owned : modul.Owned())
        if (const std::string object = DumpObject(modul, *owned); !object.empty())
            dump.append(dump.empty() ? "" : "; ").append(object);
    return dump;
}
