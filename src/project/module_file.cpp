#include "project/module_file.h"

#include "model/clsControl.h"
#include "model/clsProjekt.h"
#include "model/clsVariable.h"
#include "platform/memory.h"
#include "shell/errors.h"
#include "shell/operations.h"
#include "shell/settings.h"
#include "shell/words.h"
#include "source/char_map.h"
#include "source/comments.h"
#include "source/cond_compile.h"
#include "source/lines.h"
#include "source/module_text.h"
#include "source/statement.h"
#include "source/tokens.h"
#include "source/words.h"
#include "structure/module_reader.h"
#include "structure/sections.h"

namespace {

std::string_view NameFromAttribute(const ModuleText& text, Pos pos) {
    static constexpr Pos kKeyLength = 20;  // "attribute vb_name = "
    std::string_view name;
    Attempt("clsModul: Read_MyCodeName", [&] {
        // The cut counts from the start of the line.
        name = text.Get_StringOrg(text.Get_VBZeilenBeginn_Safe(pos), text.Get_VBZeilenEnde(pos));
        name.remove_prefix(std::min<std::size_t>(kKeyLength, name.size()));
    });
    name = modMain::GetCodeAusString(name);
    if (name.ends_with(gQuote))
        name.remove_suffix(1);
    if (name.starts_with(gQuote))
        name.remove_prefix(1);
    return name;
}

std::string_view NameFromFile(std::string_view path) {
    const std::string_view file = modMain::DirOrFileName(path, 0);
    return file.substr(0, file.size() - std::min<std::size_t>(4, file.size()));
}

// `Me` of a module that is no standard module.
void AddMe(clsModul& modul) {
    clsVariable& me = modul.Own(std::make_unique<clsVariable>());
    me.Modul = &modul;
    me.SetName(Name("Me"));
    me.Zugriff = Access::Private;
    me.type = modul.NameKey();
    me.DeclareStart = modul.BeginnVarBereich;
    modul.MyVars.AddUnlessPresent(me.NameKey(), &me);
    modul.Private_Variablen.AddUnlessPresent(me.NameKey(), &me);
    modul.AddTo_PrivNameSpace(me);
}

// The user control itself, as its procedures see it.
void AddUserControl(clsModul& modul) {
    clsControl& control = modul.Own(std::make_unique<clsControl>());
    control.Modul = &modul;
    control.SetName(Name("UserControl"));
    control.Zugriff = Access::Private;
    control.type = Name("usercontrol");
    control.DeclareStart = modul.BeginnVarBereich;
    modul.MyControls.AddUnlessPresent(control.NameKey(), &control);
    modul.AddTo_PrivNameSpace(control);
}

// The global variable that stands for the form's own instance.
void AddFormVariable(clsProjekt& projekt, clsModul& form) {
    clsVariable& variable = projekt.Own(std::make_unique<clsVariable>());
    variable.Modul = &form;
    variable.isFormInstance = true;
    variable.SetNameOf(form);
    variable.Zugriff = Access::Public;
    variable.type = form.NameKey();
    projekt.FormVars.AddUnlessPresent(variable.NameKey(), &variable);
}

}  // namespace

ModuleFile Read_ModuleFile(const Files& files, std::string_view path, ModuleKind kind) {
    UseLargePages();
    FileText read = files.ReadText(path);
    ModuleFile file;
    file.error = read.error;
    file.dateLastModified = read.dateLastModified;
    file.name = NameFromFile(path);
    if (read.text.empty())
        return file;
    file.text = std::make_unique<ModuleText>(std::move(read.text));
    ModuleText& text = *file.text;
    if (const Pos attribute = InStr(text.ModulText(), "attribute vb_name = "); attribute >= 1)
        file.name = NameFromAttribute(text, attribute);
    file.lines = ScanLines(text.ModulText());
    Comments_Initialisieren(text);
    Strings_Initialisieren(text);
    CondCompile_Initialisieren(text, file.lines, gCondComps, std::string(TextOf(kind)) + " " + file.name);
    file.tokens = std::make_unique<TokenTable>(Analyse_Parsen(text));
    text.SetMapSource(MakeCharMapAgain);
    return file;
}

void Read_MyCodeName(clsProjekt& projekt, clsModul& modul, const ModuleFile& file,
                     const std::function<int()>& moreMissing) {
    if (file.error != FileError::None) {
        if (projekt.TheFiles().FileExists(modul.FullPath)) {
            ShowError("clsModul: Read_MyCodeName", 75, Describe(file.error));
            return;
        }
        NoteProblem("clsModul: Read_MyCodeName", "File not found: " + modul.FullPath);
        if (AskMissingFile("File not found: " + modul.FullPath + "\r\n\r\nLaden abbrechen?",
                           moreMissing ? moreMissing() : 0))
            gAbort = true;
        return;
    }
    modul.DateLastModified = file.dateLastModified;
    modul.SetName(Name(file.name));
}

void Modul_Einlesen(clsProjekt& projekt, clsModul& modul, ModuleFile& file) {
    if (!file.text)
        return;
    Modul_Aufbau_Lesen(projekt, modul, file);
    gPublicNameSpace.AddObject(modul);
    if (modul.ModulTyp != ModuleKind::Module)
        AddMe(modul);
    if (modul.ModulTyp == ModuleKind::UserControl)
        AddUserControl(modul);
    ModuleReader reader(projekt, modul);
    Analyse_BereichVar(reader);
    projekt.ModulesOf(modul.ModulTyp).AddUnlessPresent(modul.CodePathKey(), &modul);
    if (modul.ModulTyp == ModuleKind::Form)
        AddFormVariable(projekt, modul);
    modul.text->ReleaseModulText();
}

void Modul_Aufbau_Lesen(clsProjekt& projekt, clsModul& modul, ModuleFile& file) {
    modul.text = std::move(file.text);
    modul.tokens = std::move(file.tokens);
    const ModuleText& text = *modul.text;
    ModuleReader reader(projekt, modul);
    Analyse_GetBeginnProcBereich(reader);
    Analyse_GetBeginnVarBereich(reader);
    if (text.Get_VBZeilenEnde(2) < 2)
        return;
    if (modul.ModulTyp == ModuleKind::Form || modul.ModulTyp == ModuleKind::UserControl)
        Controls_Lesen(modul);
    Modul_Zeilen_Lesen(modul, file.lines);
}

void Controls_Lesen(clsModul& modul) {
    const ModuleText& text = *modul.text;
    Pos behind = 0;  // end of the statement looked at last: a second "begin" in it tells nothing new
    for (Pos pos = Suche_CallWort_Im_Code(text, 1, "begin"); pos != 0;
         pos = Suche_CallWort_Im_Code(text, std::max(pos + 1, behind), "begin")) {
        clsStatement statement(text);
        statement.Initialisieren(pos);
        behind = statement.StatementPos() + statement.StatementLen();
        if (statement.SplitCount() < 3 || statement.SplitStr(1) != "begin" || statement.SplitStr(2) == "vb.form")
            continue;
        const std::string_view name = statement.SplitStr(3);
        if (modul.MyControls.Contains(name))
            continue;  // a further member of a control array
        clsControl& control = modul.Own(std::make_unique<clsControl>());
        control.Modul = &modul;
        control.Zugriff = Access::Public;
        // Several blanks in front move the name to the right of where the splits are told to be.
        const Pos namePos = InStr(statement.StatementPos() + statement.SplitPos(3) - 1, text.ModulText(), name);
        control.SetName(Name(Mid(text.ModulTextOrg(), std::max(namePos, 1), Len(name))));
        control.type = Name(statement.SplitStr(2));
        control.DeclareStart = pos;
        modul.MyControls.AddUnlessPresent(control.NameKey(), &control);
        modMain::AddTo_NameSpace(control);
        modul.AddTo_PrivNameSpace(control);
    }
}

void Modul_Zeilen_Lesen(clsModul& modul, const LineScan& lines) {
    modul.LineCount = 1 + lines.lineBreaks;
    modul.AnzLineBlank = lines.blank;
    modul.AnzLineComment = lines.comment;
    modul.AnzLineCode = lines.code;
}
