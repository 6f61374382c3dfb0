// The input is a module file behind its first byte, which tells the kind: "f" a form, "c" a class, "u" a user
// control, any other a standard module. It is read as the only module of a project.
#include "analysed_project.h"
#include "project/module_file.h"

namespace {

struct Kind {
    const char* line;
    const char* file;
};

Kind KindOf(std::uint8_t letter) {
    switch (letter) {
        case 'f':
            return {"Form=Form1.frm", "p\\Form1.frm"};
        case 'c':
            return {"Class=Class1; Class1.cls", "p\\Class1.cls"};
        case 'u':
            // A user control alone does not make a project that is read.
            return {"UserControl=UserControl1.ctl\r\nModule=Absent; Absent.bas", "p\\UserControl1.ctl"};
        default:
            return {"Module=Module1; Module1.bas", "p\\Module1.bas"};
    }
}

// The map is made again when somebody asks; it has to be the one that the tokens were read with.
void RequireSameMapAgain(clsProjekt& projekt, const clsModul& modul) {
    clsModul& again = projekt.Own(std::make_unique<clsModul>());
    again.FullPath = modul.FullPath;
    Read_MyCodeName(projekt, again);
    Modul_Aufbau_Lesen(projekt, again);
    for (Pos pos = 0; pos <= modul.text->CharCount(); ++pos)
        Require(modul.text->FlagsAt(pos) == again.text->FlagsAt(pos), "a map made again is the first one");
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    if (size == 0)
        return 0;
    const Kind kind = KindOf(data[0]);
    MemoryFiles files{{kind.file, {reinterpret_cast<const char*>(data) + 1, size - 1}},
                      {"p\\P.vbp", std::string("Name=\"P\"\r\n") + kind.line + "\r\n"}};
    clsProjekt& projekt = ReadProjectFrom(files, "p\\P.vbp");
    const clsModul& modul = *projekt.OwnedModules().front();
    Require(modul.FullPath == kind.file, "the module of the line is read");
    Require(projekt.CountAllModules() == (modul.text ? 1 : 0), "a module with a text is in the project");
    RequireSound(projekt);
    if (modul.text)
        RequireSameMapAgain(projekt, modul);
    CloseProject();
    return 0;
}
