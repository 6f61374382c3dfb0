// The input is a project file. It can refer to a few small modules, an empty file and a directory.

#include "analysed_project.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    MemoryFiles files{
        {"p\\P.vbp", {reinterpret_cast<const char*>(data), size}},
        {"p\\A.bas",
         "Attribute VB_Name = \"A\"\r\n#If X = 1 Then\r\nPublic n As Long\r\n#Else\r\nSub S()\r\nEnd Sub\r\n"
         "#End If\r\nFunction F(a) As T: ReDim m(a): End Function\r\n"},
        {"p\\B.frm", "Begin VB.Form B\r\nBegin VB.Label lbl\r\nEnd\r\nEnd\r\nPrivate Sub lbl_Click(): End Sub\r\n"},
        {"p\\C.cls",
         "BEGIN\r\nEND\r\nAttribute VB_Name = \"A\"\r\nEvent E(x)\r\nPublic Type T\r\na As Long\r\nEnd Type\r\n"},
        {"p\\D.ctl", "Begin VB.UserControl D\r\nEnd\r\nPublic Enum E: x: y: End Enum\r\n"},
        {"shared\\A.bas", "Const c = 1\r\nDeclare Sub S Lib \"s\" ()\r\n"},
        {"p\\empty.bas", ""},
        {"p\\sub\\inside.bas", "Dim a"}};
    RequireSound(ReadProjectFrom(files, "p\\P.vbp"));
    CloseProject();
    return 0;
}
