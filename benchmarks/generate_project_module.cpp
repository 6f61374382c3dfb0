#include "generate_project_module.h"

#include <algorithm>
#include <utility>

#include "generate_project_body.h"

namespace generate {

namespace {

// The designer's part of a form or user control. It indents by three and aligns the values in its own way.
class DesignerWriter {
public:
    DesignerWriter(Plan& plan, const Module& module, LineWriter& out)
        : random_(plan.random), module_(module), out_(out) {}

    void Write() {
        out_.Raw("VERSION 5.00");
        const bool usesListView = std::any_of(module_.controls.begin(), module_.controls.end(),
                                              [](const Control& c) { return c.className.starts_with("MSComctlLib."); });
        if (usesListView)
            out_.Raw("Object = \"{831FDD16-0C5C-11D2-A9FC-0000F8754DA1}#2.0#0\"; \"MSCOMCTL.OCX\"");
        const bool isForm = module_.kind == ModuleKind::Form;
        Begin(isForm ? "VB.Form" : "VB.UserControl", module_.name);
        if (isForm) {
            Property("BorderStyle", random_.Chance(50) ? "3  'Fixed Dialog" : "2  'Sizable");
            Text("Caption", module_.subject);
        }
        Number("ClientHeight", 2000, 8000);
        Number("ClientLeft", 45, 60);
        Number("ClientTop", 330, 345);
        Number("ClientWidth", 3000, 11000);
        if (isForm) {
            Text("LinkTopic", "Form1");
            Property("MaxButton", "0   'False");
            Property("MinButton", "0   'False");
        }
        Number("ScaleHeight", 2000, 8000);
        Number("ScaleWidth", 3000, 11000);
        if (isForm)
            Property("StartUpPosition", "1  'CenterOwner");
        for (std::size_t i = 0; i < module_.controls.size(); ++i) {
            if (module_.controls[i].container < 0)
                WriteControl(static_cast<int>(i));
        }
        End();
    }

private:
    void Begin(std::string_view className, std::string_view name) {
        Line(Cat({"Begin ", className, " ", name, " "}));
        ++level_;
    }
    void End() {
        --level_;
        Line("End");
    }
    void Line(std::string_view text) { out_.Raw(Cat({std::string(static_cast<std::size_t>(level_) * 3, ' '), text})); }
    void Property(std::string_view name, std::string_view value) {
        const std::size_t pad = name.size() < 16 ? 16 - name.size() : 1;
        Line(Cat({name, std::string(pad, ' '), "=   ", value}));
    }
    void Text(std::string_view name, std::string_view value) { Property(name, Cat({"\"", value, "\""})); }
    void Number(std::string_view name, int low, int high) {
        Property(name, std::to_string(random_.Between(low / 15, high / 15) * 15));
    }

    void Font() {
        Line("BeginProperty Font ");
        ++level_;
        Text("Name", random_.Chance(50) ? "MS Sans Serif" : "Arial");
        Property("Size", random_.Chance(50) ? "8.25" : "9.75");
        Property("Charset", "0");
        Property("Weight", random_.Chance(50) ? "700" : "400");
        Property("Underline", "0   'False");
        Property("Italic", "0   'False");
        Property("Strikethrough", "0   'False");
        --level_;
        Line("EndProperty");
    }

    void WriteControl(int position) {
        const Control& control = module_.controls[static_cast<std::size_t>(position)];
        for (int index = 0; index < control.count; ++index) {
            Begin(control.className, control.name);
            if (control.className == "VB.Menu")
                MenuProperties(control, position);
            else
                Properties(control, index);
            for (std::size_t i = 0; i < module_.controls.size(); ++i) {
                if (module_.controls[i].container == position)
                    WriteControl(static_cast<int>(i));
            }
            End();
        }
    }

    void MenuProperties(const Control& control, int position) {
        Text("Caption", control.caption);
        if (control.container >= 0 && random_.Chance(15))
            Property("Shortcut", Cat({"^", std::string(1, static_cast<char>('A' + position % 26))}));
        if (control.container >= 0 && random_.Chance(15))
            Property("Enabled", "0   'False");
    }

    void Properties(const Control& control, int index) {
        const std::string_view sort = control.className;
        const bool isTimer = sort == "VB.Timer";
        if (sort == "VB.CommandButton" && control.caption.ends_with("Cancel"))
            Property("Cancel", "-1  'True");
        if (sort == "VB.Label" || sort == "VB.CommandButton" || sort == "VB.Frame" || sort == "VB.CheckBox" ||
            sort == "VB.OptionButton")
            Text("Caption", control.caption);
        if (sort == "VB.CommandButton" && control.caption.ends_with("OK"))
            Property("Default", "-1  'True");
        if (!isTimer && random_.Chance(8))
            Font();
        if (!isTimer)
            Number("Height", 195, 1800);
        if (control.count > 1)
            Property("Index", std::to_string(index));
        if (isTimer)
            Property("Interval", std::to_string(random_.Between(1, 20) * 100));
        Number("Left", 120, 7000);
        if (sort == "VB.TextBox" && random_.Chance(25))
            Property("MaxLength", std::to_string(random_.Between(5, 60)));
        if (!isTimer)
            Property("TabIndex", std::to_string(tabIndex_++));
        if (sort == "VB.TextBox" && random_.Chance(60))
            Text("Text", random_.Chance(50) ? std::string_view() : std::string_view(control.name));
        Number("Top", 120, 6000);
        if (!isTimer)
            Number("Width", 600, 4000);
    }

    Random& random_;
    const Module& module_;
    LineWriter& out_;
    int level_ = 0;
    int tabIndex_ = 0;
};

void WriteAttributes(const Module& module, LineWriter& out) {
    out.Raw(Cat({"Attribute VB_Name = \"", module.name, "\""}));
    if (module.kind == ModuleKind::Standard)
        return;
    out.Raw("Attribute VB_GlobalNameSpace = False");
    out.Raw(module.kind == ModuleKind::Form ? "Attribute VB_Creatable = False" : "Attribute VB_Creatable = True");
    out.Raw(module.kind == ModuleKind::Form ? "Attribute VB_PredeclaredId = True"
                                            : "Attribute VB_PredeclaredId = False");
    out.Raw("Attribute VB_Exposed = False");
}

void WriteClassHead(LineWriter& out) {
    out.Raw("VERSION 1.0 CLASS");
    out.Raw("BEGIN");
    out.Raw("  MultiUse = -1  'True");
    out.Raw("  Persistable = 0  'NotPersistable");
    out.Raw("  DataBindingBehavior = 0  'vbNone");
    out.Raw("  DataSourceBehavior  = 0  'vbNone");
    out.Raw("  MTSTransactionMode  = 0  'NotAnMTSObject");
    out.Raw("END");
}

class DeclarationsWriter {
public:
    DeclarationsWriter(Plan& plan, int position, LineWriter& out)
        : plan_(plan),
          random_(plan.random),
          position_(position),
          module_(plan.modules[static_cast<std::size_t>(position)]),
          out_(out) {}

    void Write() {
        out_.depth = 0;
        // Some old modules do without, and their implicit variables are a sore point.
        if (random_.Chance(94))
            out_.Raw("Option Explicit");
        if (module_.kind == ModuleKind::Standard && random_.Chance(8))
            out_.Raw("Option Compare Text");
        Gap();
        Introduction();
        if (position_ == 0 && module_.kind == ModuleKind::Standard) {
            out_.Statement("Public gcnnMain As ADODB.Connection");
            Gap();
        }
        if (random_.Chance(6)) {
            out_.Raw(Cat({"#Const ", Upper(Noun(random_)), "_TEST = ", random_.Chance(50) ? "0" : "-1"}));
            Gap();
        }
        Section(module_.events, " Events", [this](const EventDeclaration& event) {
            out_.Statement(
                Cat({"Public Event ", event.name, "(", ParameterList(plan_, module_.style, event.parameters), ")"}));
        });
        Declares();
        Section(module_.constants, " Constants", [this](const Constant& constant) { WriteConstant(constant); });
        for (const int enumeration : module_.enumerations)
            WriteEnumeration(plan_.enumerations[static_cast<std::size_t>(enumeration)]);
        for (const int record : module_.records)
            WriteRecord(plan_.records[static_cast<std::size_t>(record)]);
        Section(module_.variables, " Variables", [this](const Variable& variable) { WriteVariable(variable); });
    }

private:
    void Gap() {
        if (!out_.EndsWithBlank())
            out_.Blank();
    }

    template <class List, class WriteOne>
    void Section(const List& list, std::string_view title, WriteOne writeOne) {
        if (list.empty())
            return;
        if (random_.Chance(40))
            out_.Comment(title);
        for (const auto& one : list)
            writeOne(one);
        Gap();
    }

    void Introduction() {
        if (random_.Chance(35))
            return;
        const bool hasRules = random_.Chance(50);
        const int width = random_.Between(50, 80);
        const std::string rule(static_cast<std::size_t>(width), random_.Chance(50) ? '*' : '=');
        if (hasRules)
            out_.Comment(rule);
        out_.Comment(Cat({" ", module_.name}));
        out_.Comment(Cat({" All about the ", Spoken(module_.subject), ", and some of the ", Spoken(Noun(random_))}));
        const int remarks = random_.Between(0, 5);
        for (int i = 0; i < remarks; ++i)
            out_.Comment(Cat({" ", std::to_string(random_.Between(10, 28)), ".0", std::to_string(random_.Between(1, 9)),
                              ".", std::to_string(random_.Between(1996, 2004)), "  ", Spoken(Noun(random_)), " ",
                              random_.Chance(50) ? "corrected" : "added"}));
        if (hasRules)
            out_.Comment(rule);
        Gap();
    }

    void Declares() {
        bool hasAny = false;
        for (const Procedure& declare : module_.procedures) {
            if (declare.kind != ProcedureKind::Declare)
                continue;
            hasAny = true;
            const std::string_view kind = declare.isSub ? "Sub " : "Function ";
            const std::string_view result = declare.isSub ? "" : " As Long";
            const std::string_view access = declare.isPublic ? "Public " : "Private ";
            const std::string alias = declare.alias.empty() ? std::string() : Cat({" Alias \"", declare.alias, "\""});
            const std::string list = ParameterList(plan_, Style{}, declare.parameters);
            const std::string line = Cat({access, "Declare ", kind, declare.name, " Lib \"", declare.library, "\"",
                                          alias, " (", list, ")", result});
            const bool hasBoth = declare.library == "user32" && random_.Chance(25);
            if (!hasBoth) {
                out_.Statement(line);
                continue;
            }
            std::string shortList = list;
            for (std::size_t at = shortList.find("As Long"); at != std::string::npos;
                 at = shortList.find("As Long", at))
                shortList.replace(at, 7, "As Integer");
            out_.Raw("#If Win32 Then");
            out_.Statement(line);
            out_.Raw("#Else");
            out_.Statement(Cat({access, "Declare ", kind, declare.name, " Lib \"User\" (", shortList, ")",
                                declare.isSub ? "" : " As Integer"}));
            out_.Raw("#End If");
        }
        if (hasAny)
            Gap();
    }

    void WriteConstant(const Constant& constant) {
        const bool isTyped = random_.Chance(65);
        out_.Statement(Cat({constant.isPublic    ? "Public "
                            : random_.Chance(80) ? "Private "
                                                 : "",
                            "Const ", constant.name, isTyped ? Cat({" As ", plan_.TypeName(constant.type)}) : "", " = ",
                            constant.value}));
    }

    void WriteEnumeration(const Enumeration& enumeration) {
        out_.Statement(Cat({enumeration.isPublic ? "Public " : "Private ", "Enum ", enumeration.name}));
        out_.depth = 1;
        const bool hasValues = random_.Chance(50);
        int value = random_.Chance(70) ? 0 : 1;
        for (const std::string& member : enumeration.members)
            out_.Statement(hasValues ? Cat({member, " = ", std::to_string(value++)}) : member);
        out_.depth = 0;
        out_.Statement("End Enum");
        Gap();
    }

    void WriteRecord(const Record& record) {
        if (random_.Chance(25))
            out_.Comment(Cat({" one ", Spoken(record.name.substr(1)), " as it stands in the file"}));
        out_.Statement(Cat({record.isPublic ? "Public " : "Private ", "Type ", record.name}));
        out_.depth = 1;
        for (const Variable& member : record.members) {
            const bool isFixed = member.type.kind == TypeKind::String && random_.Chance(25);
            const std::string bounds = !member.isArray  ? ""
                                       : member.isFixed ? Cat({"(", std::to_string(random_.Between(2, 40)), ")"})
                                                        : "()";
            const std::string line =
                Cat({member.name, bounds, " As ", plan_.TypeName(member.type),
                     isFixed ? Cat({" * ", std::to_string(random_.Between(1, 8) * 10)}) : std::string(),
                     random_.Chance(8) ? Cat({"   ' ", Spoken(Noun(random_))}) : std::string()});
            out_.Statement(line);
        }
        out_.depth = 0;
        out_.Statement("End Type");
        Gap();
    }

    void WriteVariable(const Variable& variable) {
        const std::string_view access = variable.isPublic    ? (random_.Chance(85) ? "Public " : "Global ")
                                        : random_.Chance(85) ? "Private "
                                                             : "Dim ";
        // Only standard modules know Global.
        const bool isStandard = module_.kind == ModuleKind::Standard;
        const std::string_view said = access == "Global " && !isStandard ? std::string_view("Public ") : access;
        const std::string bounds = !variable.isArray  ? ""
                                   : variable.isFixed ? Cat({"(1 To ", std::to_string(random_.Between(5, 100)), ")"})
                                                      : "()";
        const std::string_view sign = TypeSign(variable.type);
        if (module_.style.notation == 2 && !sign.empty()) {
            out_.Statement(Cat({said, variable.name, sign, bounds}));
            return;
        }
        out_.Statement(Cat({said, variable.withEvents ? "WithEvents " : "", variable.name, bounds, " As ",
                            variable.isNew ? "New " : "", plan_.TypeName(variable.type),
                            random_.Chance(6) ? Cat({"   ' ", Spoken(Noun(random_))}) : std::string()}));
    }

    Plan& plan_;
    Random& random_;
    int position_;
    const Module& module_;
    LineWriter& out_;
};

}  // namespace

ModuleFile WriteModule(Plan& plan, int position) {
    Module& module = plan.modules[static_cast<std::size_t>(position)];
    LineWriter designer(module.style.indent);
    if (module.kind == ModuleKind::Class)
        WriteClassHead(designer);
    else if (module.kind != ModuleKind::Standard)
        DesignerWriter(plan, module, designer).Write();
    WriteAttributes(module, designer);

    // The code is counted apart: comments are a share of what people wrote.
    LineWriter code(module.style.indent);
    DeclarationsWriter(plan, position, code).Write();

    int weights = 0;
    for (const Procedure& procedure : module.procedures)
        weights += procedure.weight;
    for (Procedure& procedure : module.procedures) {
        if (procedure.kind == ProcedureKind::Declare)
            continue;
        // Each takes its share of the lines that are left, so that the module comes out as long as planned.
        const int left = std::max(0, module.lines - designer.Lines() - code.Lines());
        const int share = weights > 0 ? left * procedure.weight / weights : 0;
        const bool isAccessor = procedure.backing >= 0;
        ProcedureWriter(plan, position, procedure, code)
            .Write(isAccessor ? std::clamp(share, 5, 18) : std::clamp(share, 5, 120));
        weights -= procedure.weight;
        if (plan.random.Chance(90))
            code.Blank();
    }
    ModuleFile file;
    file.text = Cat({designer.Text(), code.Text()});
    file.lines = static_cast<std::size_t>(designer.Lines() + code.Lines());
    return file;
}

std::string WriteProjectFile(Plan& plan) {
    LineWriter out(4);
    out.Raw("Type=Exe");
    out.Raw(
        "Reference=*\\G{00020430-0000-0000-C000-000000000046}#2.0#0#..\\..\\WINDOWS\\SYSTEM32\\stdole2.tlb#"
        "OLE Automation");
    out.Raw(
        "Reference=*\\G{2A75196C-D9EB-4129-B803-931327F72D5C}#2.8#0#..\\..\\Common Files\\System\\ado\\msado15.dll#"
        "Microsoft ActiveX Data Objects 2.8 Library");
    out.Raw("Object={831FDD16-0C5C-11D2-A9FC-0000F8754DA1}#2.0#0; MSCOMCTL.OCX");
    for (const Module& module : plan.modules) {
        switch (module.kind) {
            case ModuleKind::Standard:
                out.Raw(Cat({"Module=", module.name, "; ", module.fileName}));
                break;
            case ModuleKind::Class:
                out.Raw(Cat({"Class=", module.name, "; ", module.fileName}));
                break;
            case ModuleKind::Form:
                out.Raw(Cat({"Form=", module.fileName}));
                break;
            case ModuleKind::Control:
                out.Raw(Cat({"UserControl=", module.fileName}));
                break;
        }
    }
    out.Raw("Startup=\"Sub Main\"");
    out.Raw(Cat({"ExeName32=\"", plan.projectName, ".exe\""}));
    out.Raw("Command32=\"\"");
    out.Raw(Cat({"Name=\"", plan.projectName, "\""}));
    out.Raw("HelpContextID=\"0\"");
    out.Raw("CompatibleMode=\"0\"");
    out.Raw("MajorVer=3");
    out.Raw("MinorVer=1");
    out.Raw("RevisionVer=27");
    out.Raw("AutoIncrementVer=0");
    out.Raw("ServerSupportFiles=0");
    out.Raw("CondComp=\"TRACE_ON = 0 : DEMO = -1\"");
    out.Raw("CompilationType=0");
    out.Raw("OptimizationType=0");
    out.Raw("StartMode=0");
    out.Raw("Unattended=0");
    out.Raw("ThreadPerObject=0");
    out.Raw("MaxNumberOfThreads=1");
    return out.Text();
}

}  // namespace generate
