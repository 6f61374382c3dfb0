#include <gtest/gtest.h>

#include "model/clsEnum.h"
#include "model/clsModul.h"
#include "model/clsProjekt.h"
#include "model/clsProzedur.h"
#include "model/clsType.h"
#include "model/clsTypeLib.h"
#include "model/clsVariable.h"
#include "support/program_state.h"
#include "support/read_project.h"

namespace {

// A form with one object of each kind, none of them filed anywhere.
class CodePaths : public ProgramState {
protected:
    CodePaths() : prozedur_(form_) {
        Call(form_, "Form1");
        Call(library_, "MSComctlLib");
        Call(prozedur_, "Sum", &form_);
        Call(type_, "Point", &form_);
        Call(enum_, "Colour", &form_);
        Call(variable_, "Count", &form_);
    }

    static void Call(CodeObject& object, std::string_view name, clsModul* modul = nullptr) {
        object.SetName(Name(name));
        object.Modul = modul;
    }

    clsModul form_;
    clsTypeLib library_;
    clsProzedur prozedur_;
    clsType type_;
    clsEnum enum_;
    clsVariable variable_;
};

TEST_F(CodePaths, AccessorsAndTypesHaveASuffix) {
    EXPECT_EQ(enum_.CodePathOrg(), "Form1.Colour [Enum]");
    EXPECT_EQ(type_.CodePath(), "form1.point [type]");
    EXPECT_EQ(type_.CodePathKey().View(), "form1.point [type]");
    for (const auto& [kind, path, local] : {std::tuple{"function", "Form1.Sum", "sum"},
                                            {"property get", "Form1.Sum [Get]", "sum [get]"},
                                            {"property let", "Form1.Sum [Let]", "sum [let]"},
                                            {"property set", "Form1.Sum [Set]", "sum [set]"}}) {
        prozedur_.kind = kind;
        EXPECT_EQ(prozedur_.CodePathOrg(), path);
        EXPECT_EQ(prozedur_.LocalKey().View(), local);
        EXPECT_EQ(prozedur_.MyName(), "sum");
    }
}

TEST_F(CodePaths, MembersAndLocalsStandBelowTheBareNameOfTheirOwner) {
    prozedur_.kind = "property let";
    variable_.Prozedur = &prozedur_;
    EXPECT_EQ(variable_.CodePathOrg(), "Form1.Sum.Count");
    form_.SetName(Name("Desk"));  // the paths follow, in lower case of the code page
    prozedur_.SetName(Name("\xC4nderung"));
    EXPECT_EQ(variable_.CodePathOrg(), "Desk.\xC4nderung.Count");
    EXPECT_EQ(variable_.CodePath(), "desk.\xE4nderung.count");
    variable_.Prozedur = nullptr;
    variable_.MyType = &type_;
    EXPECT_EQ(variable_.CodePathOrg(), "Desk.Point.Count");
    variable_.MyType = nullptr;
    variable_.MyEnum = &enum_;
    EXPECT_EQ(variable_.CodePathOrg(), "Desk.Colour.Count");
    variable_.MyEnum = nullptr;
    variable_.Modul = nullptr;
    EXPECT_EQ(variable_.CodePathOrg(), "") << "it belongs nowhere";
}

TEST_F(CodePaths, LibraryStandsInFrontOfItsOwnObjects) {
    prozedur_.kind = "property get";
    prozedur_.myLibrary = variable_.myLibrary = &library_;
    EXPECT_EQ(prozedur_.CodePathOrg(), "MSComctlLib.Form1.Sum [Get]");
    EXPECT_EQ(variable_.CodePathOrg(), "MSComctlLib.Form1.Count");
    variable_.Prozedur = &prozedur_;
    EXPECT_EQ(variable_.CodePathOrg(), "MSComctlLib.Form1.Sum.Count");
}

TEST_F(CodePaths, ImagesTellKindAndDeath) {
    using Case = std::tuple<const char*, int, const char*, const char*>;
    // From the number on, 1 to 3, the procedure is also declare, event, event of the user.
    for (const auto& [kind, from, key, dead] :
         {Case{"property set", 1, "property", "PropertyDeath"}, Case{"sub", 1, "declare", "DeclareDeath"},
          Case{"function", 2, "event", "event"}, Case{"sub", 3, "userevent", "UserEventDeath"},
          Case{"sub", 4, "procedure", "ProcedureDeath"}}) {
        prozedur_.kind = kind;
        prozedur_.isDeclare = from <= 1;
        prozedur_.IsEvent = from <= 2;
        prozedur_.IsUserEvent = from <= 3;
        prozedur_.IsDeath = 0;
        EXPECT_EQ(prozedur_.GetImageKey(), key);
        prozedur_.IsDeath = 1;
        EXPECT_EQ(prozedur_.GetImageKey(), dead);
    }
    EXPECT_EQ(variable_.GetImageKey(), "variable");
    variable_.IsDeath = type_.IsDeath = enum_.IsDeath = 1;
    EXPECT_EQ(variable_.GetImageKey(), "VariableDeath");
    variable_.IsConst = true;
    EXPECT_EQ(variable_.GetImageKey(), "ConstDeath");
    variable_.MyEnum = &enum_;
    EXPECT_EQ(variable_.GetImageKey(), "EnumDeath");
    variable_.MyType = &type_;
    EXPECT_EQ(variable_.GetImageKey(), "TypeDeath");
    EXPECT_EQ(type_.GetImageKey(), "TypeDeath");
    EXPECT_EQ(enum_.GetImageKey(), "EnumDeath");
}

// Class and path of what is found in the project that was read, or "none".
std::string Find(std::string_view path) {
    static constexpr const char* kClasses[] = {"modul", "prozedur", "variable", "type", "enum", "control", "lib"};
    const CodeObject* object = modMain::GetObjectFromCodePath(path);
    return object ? std::string(kClasses[static_cast<int>(object->Class())]) + " " + object->CodePathOrg() : "none";
}

TEST_F(CodePaths, LeadBackToTheirObject) {
    ReadProject({{"App.vbp",
                  "Form=Form1.frm\r\nModule=Tools; Tools.bas\r\nModule=A; A.B.bas\r\nUserControl=Bar.ctl\r\n"
                  "Reference=*\\G{00020430-0000-0000-C000-000000000046}#2.0#0#C:\\w\\stdole2.tlb#OLE Automation\r\n"
                  "Object={831FDD16-0C5C-11D2-A9FC-0000F8754DA1}#2.0#0; Tools.OCX\r\n"},
                 {"Form1.frm",
                  "Begin VB.Form Form1\r\n  Begin VB.CommandButton Command1\r\n  End\r\nEnd\r\n"
                  "Dim x As Long\r\nPublic Type T\r\n a As Long\r\nEnd Type\r\n"
                  "Public Property Get P()\r\nEnd Property\r\nPublic Property Let P(v)\r\nEnd Property\r\n"
                  "Sub Form1()\r\n Dim q\r\nEnd Sub\r\n"},
                 {"Tools.bas", "Public Total\r\n"},
                 {"A.B.bas", "Public c\r\n"},
                 {"Bar.ctl", "Begin VB.UserControl Bar\r\nEnd\r\nDim n\r\n"}});
    using Case = std::pair<const char*, const char*>;
    for (const auto& [path, object] : {Case{"form1", "modul Form1"},
                                       Case{"a.b", "modul A.B"},  // named after its file
                                       Case{"form1.command1", "control Form1.Command1"},
                                       Case{"form1.x", "variable Form1.x"},
                                       Case{"form1.me", "variable Form1.Me"},
                                       Case{"form1.t [type]", "type Form1.T [Type]"},
                                       Case{"form1.t.a", "variable Form1.T.a"},
                                       Case{"form1.p [get]", "prozedur Form1.P [Get]"},
                                       Case{"form1.p [let]", "prozedur Form1.P [Let]"},
                                       Case{"form1.form1", "prozedur Form1.Form1"},
                                       Case{"bar.usercontrol", "control Bar.UserControl"},
                                       Case{"stdole2", "lib stdole2"},
                                       Case{"tools", "lib Tools"},
                                       Case{"tools.total", "none"},  // the component goes before the module
                                       Case{"", "none"},
                                       Case{".", "none"},
                                       Case{"form2", "none"},
                                       Case{"form1.", "none"},
                                       Case{"form1.y", "none"},
                                       Case{"form1.p", "none"},
                                       Case{"form1.controls[]", "none"},
                                       Case{"x", "none"},
                                       Case{"form1.form1.q.z", "none"}})
        EXPECT_EQ(Find(path), object) << path;
    EXPECT_EQ(gProjekt->GetModuleFromCodePath("tools.total")->CodePathOrg(), "Tools");
    EXPECT_EQ(gProjekt->GetModuleFromCodePath("nothing.total"), nullptr);
    EXPECT_EQ(gProjekt->GetTypeLibFromCodePath("stdole2.x")->CodePathOrg(), "stdole2");
    CloseProject();
    EXPECT_EQ(Find("form1"), "none");
}

}  // namespace
