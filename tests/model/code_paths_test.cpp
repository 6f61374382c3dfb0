#include <gtest/gtest.h>

#include "model/clsControl.h"
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
        form_.ModulTyp = "form";
        Call(form_, "Form1");
        Call(library_, "MSComctlLib");
        Call(prozedur_, "Sum", &form_);
        Call(type_, "Point", &form_);
        Call(enum_, "Colour", &form_);
        Call(control_, "cmdOK", &form_);
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
    clsControl control_;
    clsVariable variable_;
};

TEST_F(CodePaths, EveryKindOfObjectHasItsForm) {
    EXPECT_EQ(form_.CodePathOrg(), "Form1");
    EXPECT_EQ(library_.CodePathOrg(), "MSComctlLib");
    EXPECT_EQ(control_.CodePathOrg(), "Form1.cmdOK");
    EXPECT_EQ(variable_.CodePathOrg(), "Form1.Count");
    EXPECT_EQ(type_.CodePathOrg(), "Form1.Point [Type]");
    EXPECT_EQ(enum_.CodePathOrg(), "Form1.Colour [Enum]");
    EXPECT_EQ(type_.CodePath(), "form1.point [type]");
    EXPECT_EQ(type_.CodePathKey().View(), "form1.point [type]");

    prozedur_.kind = "function";
    EXPECT_EQ(prozedur_.CodePathOrg(), "Form1.Sum");
    EXPECT_EQ(prozedur_.LocalKey().View(), "sum");
    for (const auto& [kind, path] : {std::pair{"property get", "Form1.Sum [Get]"},
                                     {"property let", "Form1.Sum [Let]"},
                                     {"property set", "Form1.Sum [Set]"}}) {
        prozedur_.kind = kind;
        EXPECT_EQ(prozedur_.CodePathOrg(), path);
        EXPECT_EQ(prozedur_.MyName(), "sum");
    }
    EXPECT_EQ(prozedur_.LocalKey().View(), "sum [set]");
}

TEST_F(CodePaths, MembersAndLocalsStandBelowTheBareNameOfTheirOwner) {
    prozedur_.kind = "property let";
    variable_.Prozedur = &prozedur_;
    EXPECT_EQ(variable_.CodePathOrg(), "Form1.Sum.Count");
    variable_.Prozedur = nullptr;
    variable_.MyType = &type_;
    EXPECT_EQ(variable_.CodePathOrg(), "Form1.Point.Count");
    variable_.MyType = nullptr;
    variable_.MyEnum = &enum_;
    EXPECT_EQ(variable_.CodePathOrg(), "Form1.Colour.Count");
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

TEST_F(CodePaths, FollowARenamedOwnerInLowerCaseOfTheCodePage) {
    variable_.Prozedur = &prozedur_;
    form_.SetName(Name("Desk"));
    prozedur_.SetName(Name("\xC4nderung"));
    EXPECT_EQ(variable_.CodePathOrg(), "Desk.\xC4nderung.Count");
    EXPECT_EQ(variable_.CodePath(), "desk.\xE4nderung.count");
}

TEST_F(CodePaths, ImagesTellKindAndDeath) {
    for (const auto& [typ, key] :
         {std::pair{"module", "module"}, {"class", "class"}, {"form", "form"}, {"usercontrol", "control"}}) {
        form_.ModulTyp = typ;
        EXPECT_EQ(form_.GetImageKey(), key);
    }
    EXPECT_EQ(control_.GetImageKey(), "control");

    struct Case {
        const char* kind;
        bool isDeclare, isEvent, isUserEvent;
        const char* key;
        const char* dead;
    };
    for (const Case& c : {Case{"property set", true, true, true, "property", "PropertyDeath"},
                          Case{"sub", true, true, true, "declare", "DeclareDeath"},
                          Case{"function", false, true, true, "event", "event"},
                          Case{"sub", false, false, true, "userevent", "UserEventDeath"},
                          Case{"sub", false, false, false, "procedure", "ProcedureDeath"}}) {
        SCOPED_TRACE(c.key);
        prozedur_.kind = c.kind;
        prozedur_.isDeclare = c.isDeclare;
        prozedur_.IsEvent = c.isEvent;
        prozedur_.IsUserEvent = c.isUserEvent;
        for (const auto& [death, key] : {std::pair{0, c.key}, {1, c.dead}, {2, c.key}}) {
            prozedur_.IsDeath = static_cast<std::int16_t>(death);
            EXPECT_EQ(prozedur_.GetImageKey(), key);
        }
    }

    const auto ofVariable = [this] {
        variable_.IsDeath = 0;
        const std::string alive(variable_.GetImageKey());
        variable_.IsDeath = 1;
        return alive + " " + std::string(variable_.GetImageKey());
    };
    EXPECT_EQ(ofVariable(), "variable VariableDeath");
    variable_.IsConst = true;
    EXPECT_EQ(ofVariable(), "const ConstDeath");
    variable_.MyEnum = &enum_;
    EXPECT_EQ(ofVariable(), "enum EnumDeath");
    variable_.MyType = &type_;
    EXPECT_EQ(ofVariable(), "type TypeDeath");
    type_.IsDeath = enum_.IsDeath = 1;
    EXPECT_EQ(type_.GetImageKey(), "TypeDeath");
    EXPECT_EQ(enum_.GetImageKey(), "EnumDeath");
}

TEST_F(CodePaths, ObjectsAreCountedWhileTheyLive) {
    const auto counters = [] {
        return std::vector{gCountModul, gCountProzedur, gCountVariable, gCountType, gCountEnum};
    };
    const std::vector<std::int32_t> before = counters();
    {
        clsModul modul;
        modul.Own(std::make_unique<clsType>()).Own(std::make_unique<clsVariable>());
        modul.Own(std::make_unique<clsEnum>()).Own(std::make_unique<clsVariable>());
        for (int i = 0; i < 3; ++i)
            modul.Own(std::make_unique<clsProzedur>(modul));
        EXPECT_EQ(counters(), (std::vector{before[0] + 1, before[1] + 3, before[2] + 2, before[3] + 1, before[4] + 1}));
    }
    EXPECT_EQ(counters(), before);
}

// Of a project that was read: from the path back to the object.
class ObjectFromCodePath : public ProgramState {
protected:
    ObjectFromCodePath() {
        ReadProject({{"App.vbp",
                      "Form=Form1.frm\r\nModule=Tools; Tools.bas\r\nModule=A; A.B.bas\r\n"
                      "Class=List; List.cls\r\nUserControl=Bar.ctl\r\n"
                      "Reference=*\\G{00020430-0000-0000-C000-000000000046}#2.0#0#C:\\w\\stdole2.tlb#OLE Automation\r\n"
                      "Object={831FDD16-0C5C-11D2-A9FC-0000F8754DA1}#2.0#0; Tools.OCX\r\n"},
                     {"Form1.frm",
                      "Begin VB.Form Form1\r\n  Begin VB.CommandButton Command1\r\n  End\r\nEnd\r\n"
                      "Dim x As Long\r\nPublic Type T\r\n a As Long\r\nEnd Type\r\n"
                      "Public Property Get P()\r\nEnd Property\r\n"
                      "Public Property Let P(v)\r\nEnd Property\r\n"
                      "Sub Form1()\r\n Dim q\r\nEnd Sub\r\n"},
                     {"Tools.bas", "Public Total\r\n"},
                     {"A.B.bas", "Public c\r\n"},
                     {"List.cls", "Dim n\r\n"},
                     {"Bar.ctl", "Begin VB.UserControl Bar\r\nEnd\r\nDim n\r\n"}});
    }

    // Class and path of what is found, or "none".
    static std::string Find(std::string_view path) {
        static constexpr const char* kClasses[] = {"modul", "prozedur", "variable", "type", "enum", "control", "lib"};
        const CodeObject* object = modMain::GetObjectFromCodePath(path);
        return object ? std::string(kClasses[static_cast<int>(object->Class())]) + " " + object->CodePathOrg() : "none";
    }
};

TEST_F(ObjectFromCodePath, LeadsToObjectsOfEveryKind) {
    EXPECT_EQ(Find("form1"), "modul Form1");
    EXPECT_EQ(Find("list"), "modul List");
    EXPECT_EQ(Find("a.b"), "modul A.B");  // named after its file
    EXPECT_EQ(Find("form1.command1"), "control Form1.Command1");
    EXPECT_EQ(Find("form1.x"), "variable Form1.x");
    EXPECT_EQ(Find("form1.me"), "variable Form1.Me");
    EXPECT_EQ(Find("form1.t [type]"), "type Form1.T [Type]");
    EXPECT_EQ(Find("form1.t.a"), "variable Form1.T.a");
    EXPECT_EQ(Find("form1.p [get]"), "prozedur Form1.P [Get]");
    EXPECT_EQ(Find("form1.p [let]"), "prozedur Form1.P [Let]");
    EXPECT_EQ(Find("form1.form1"), "prozedur Form1.Form1");
    EXPECT_EQ(Find("bar.usercontrol"), "control Bar.UserControl");
    EXPECT_EQ(Find("list.n"), "variable List.n");
    EXPECT_EQ(Find("stdole2"), "lib stdole2");
}

TEST_F(ObjectFromCodePath, FindsNothingWhereNothingIs) {
    for (const char* path :
         {"", ".", "form2", "form1.", "form1.y", "form1.p", "form1.controls[]", "x", "form1.form1.q.z"})
        EXPECT_EQ(Find(path), "none") << path;
    EXPECT_EQ(gProjekt->GetModuleFromCodePath("tools.total")->CodePathOrg(), "Tools");
    EXPECT_EQ(gProjekt->GetModuleFromCodePath("nothing.total"), nullptr);
    EXPECT_EQ(gProjekt->GetTypeLibFromCodePath("stdole2.x")->CodePathOrg(), "stdole2");
    CloseProject();
    EXPECT_EQ(Find("form1"), "none");
}

TEST_F(ObjectFromCodePath, ComponentGoesBeforeTheModuleOfItsName) {
    EXPECT_EQ(Find("tools"), "lib Tools");
    EXPECT_EQ(Find("tools.total"), "none") << "the component has no such object, and the module is not asked";
}

}  // namespace
