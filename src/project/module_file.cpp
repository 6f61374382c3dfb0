#include "project/module_file.h"

#include "model/clsControl.h"
#include "model/clsModul.h"
#include "model/clsVariable.h"
#include "shell/errors.h"
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
        // The key is cut off at the start of the line, even if blanks precede it.
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

// `Me`, which exists in every module but standard modules.
void AddMe(clsModul& modul) {
    clsVariable& me = modul.New<clsVariable>();
    me.SetName(modul.TheNames().Intern("Me"));
    me.Zugriff = Access::Private;
    me.type = modul.NameKey();
    me.DeclareStart = modul.BeginnVarBereich;
    modul.MyVars.AddUnlessPresent(me.NameKey(), &me);
    modul.Private_Variablen.AddUnlessPresent(me.NameKey(), &me);
    modul.PrivNameSpace.AddObject(me);
}

// The user control itself, which its procedures call `UserControl`.
void AddUserControl(clsModul& modul) {
    clsControl& control = modul.New<clsControl>();
    control.SetName(modul.TheNames().Intern("UserControl"));
    control.Zugriff = Access::Private;
    control.type = control.NameKey();
    control.DeclareStart = modul.BeginnVarBereich;
    modul.MyControls.AddUnlessPresent(control.NameKey(), &control);
    modul.PrivNameSpace.AddObject(control);
}

// The global variable of the form's name: Visual Basic gives each form a default instance that code can use without
// New.
void AddFormVariable(clsModul& form) {
    clsVariable& variable = form.NewInner<clsVariable>();
    variable.isFormInstance = true;
    variable.SetNameOf(form);
    variable.Zugriff = Access::Public;
    variable.type = form.NameKey();
    form.FormInstance = &variable;
}

void Controls_Lesen(clsModul& modul) {
    const ModuleText& text = *modul.text;
    Names& names = modul.TheNames();
    Pos next = 0;  // after the last statement: a second "begin" in it is no further control
    for (Pos pos = Suche_CallWort_Im_Code(text, 1, "begin"); pos != 0;
         pos = Suche_CallWort_Im_Code(text, std::max(pos + 1, next), "begin")) {
        clsStatement statement(text);
        statement.Initialisieren(pos);
        next = statement.StatementPos() + statement.StatementLen();
        if (statement.SplitCount() < 3 || statement.SplitStr(1) != "begin" || statement.SplitStr(2) == "vb.form")
            continue;
        const std::string_view name = statement.SplitStr(3);
        if (modul.MyControls.Contains(name))
            continue;  // another element of a control array
        clsControl& control = modul.New<clsControl>();
        control.Zugriff = Access::Public;
        // clsStatement counts several blanks as one, so the name can be further right than its split.
        const Pos namePos = InStr(statement.StatementPos() + statement.SplitPos(3) - 1, text.ModulText(), name);
        control.SetName(names.Intern(Mid(text.ModulTextOrg(), std::max(namePos, 1), Len(name))));
        control.type = names.Intern(statement.SplitStr(2));
        control.DeclareStart = pos;
        modul.MyControls.AddUnlessPresent(control.NameKey(), &control);
        modul.publicDeclarations.push_back(&control);
        modul.PrivNameSpace.AddObject(control);
    }
}

// Text with its map, lines and tokens; the name.
LineScan ReadText(clsModul& modul, std::string_view bytes, const std::vector<CondConstant>& condComps) {
    modul.text = std::make_unique<ModuleText>(bytes, modul.TheNames().Page(), modul.Memory());
    ModuleText& text = *modul.text;
    if (const Pos attribute = InStr(text.ModulText(), "attribute vb_name = "); attribute >= 1)
        modul.SetName(modul.TheNames().Intern(NameFromAttribute(text, attribute)));
    LineScan lines = ScanLines(text.ModulText());
    Comments_Initialisieren(text);
    Strings_Initialisieren(text);
    CondCompile_Initialisieren(text, lines, condComps,
                               std::string(TextOf(modul.ModulTyp)).append(" ").append(modul.myNameOrg()));
    modul.tokens = std::make_unique<TokenTable>(Analyse_Parsen(text, modul.Memory()));
    text.SetMapSource(MakeCharMapAgain);
    return lines;
}

// Where the sections begin, controls, line counts.
void Modul_Aufbau_Lesen(clsModul& modul, const LineScan& lines) {
    const ModuleText& text = *modul.text;
    ModuleReader reader(modul);
    Analyse_GetBeginnProcBereich(reader);
    Analyse_GetBeginnVarBereich(reader);
    if (text.Get_VBZeilenEnde(2) < 2)
        return;
    if (modul.ModulTyp == ModuleKind::Form || modul.ModulTyp == ModuleKind::UserControl)
        Controls_Lesen(modul);
    modul.LineCount = 1 + lines.lineBreaks;
    modul.AnzLineBlank = lines.blank;
    modul.AnzLineComment = lines.comment;
    modul.AnzLineCode = lines.code;
}

}  // namespace

std::unique_ptr<clsModul> Read_Module(const ReadingContext& context, const ModuleSource& source) {
    auto read = std::make_unique<clsModul>(context.names, context.memory);
    clsModul& modul = *read;
    modul.ModulTyp = source.kind;
    modul.FullPath = source.path;
    modul.isEdited = source.isEdited;
    const FileText file = source.text ? *source.text : context.files.ReadText(source.path);
    modul.fileError = file.error;
    if (file.error != FileError::None)
        return read;
    modul.DateLastModified = file.dateLastModified;
    modul.SetName(context.names.Intern(NameFromFile(source.path)));
    if (file.text.empty())
        return read;
    const LineScan lines = ReadText(modul, file.text, context.condComps);
    Modul_Aufbau_Lesen(modul, lines);
    modul.publicDeclarations.push_back(&modul);
    if (modul.ModulTyp != ModuleKind::Module)
        AddMe(modul);
    if (modul.ModulTyp == ModuleKind::UserControl)
        AddUserControl(modul);
    ModuleReader reader(modul);
    Analyse_BereichVar(reader);
    if (modul.ModulTyp == ModuleKind::Form)
        AddFormVariable(modul);
    Analyse_BereichProc(reader);
    modul.text->ReleaseModulText();
    return read;
}
