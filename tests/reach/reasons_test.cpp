#include "reach/reasons.h"

#include "support/golden.h"
#include "support/project_test.h"

namespace {

class ReachOfObjects : public ProgramState {
protected:
    // The reason of an object of the project, "Kept", "Ring a b", "DeadCallers a".
    static std::string ReasonAt(std::string_view codePath) {
        static const char* const kNames[] = {"None",     "EntryPoint",  "Kept", "OnlyPossible",
                                             "NoCaller", "DeadCallers", "Ring"};
        const Reach reach(*gProjekt);
        const Reason reason = Reasons(reach).ReasonOf(ObjectAt(codePath));
        std::string text = kNames[static_cast<int>(reason.kind)];
        for (const CodeObject* object : reason.objects)
            text.append(" ").append(object->MyName());
        return text + (reason.keptByRule ? " by rule" : "");
    }
};

}  // namespace

TEST_F(ReachOfObjects, EachReasonOfAProcedure) {
    Analyse(ReadProject(
        {{"P.vbp", "Type=Exe\nModule=M; M.bas\nClass=C; C.cls\nStartup=\"Sub Main\"\n"},
         {"M.bas", R"(
                     Sub Main()
                         Kept
                         Dim v
                         v.Possible
                         s = "Named"
                     End Sub
                     Sub Kept(): End Sub
                     Sub Named(): End Sub
                     Sub Alone(): Follows: End Sub
                     Sub Follows(): RingA: End Sub
                     Sub RingA(): RingB: End Sub
                     Sub RingB(): RingA: End Sub
                     Sub Self(): Self: End Sub
                     Sub PureA(): PureB: Below: End Sub
                     Sub PureB(): PureA: End Sub
                     Sub Below(): End Sub
                 )"},
         {"C.cls",
          "Sub Possible()\nEnd Sub\nPrivate Sub Nobody()\nEnd Sub\nPrivate Sub Class_Initialize()\nEnd Sub\n"}}));
    using Case = std::pair<const char*, const char*>;
    for (const auto& [path, reason] :
         {Case{"m.main", "EntryPoint"}, Case{"m.kept", "Kept"}, Case{"c.possible", "OnlyPossible"},
          Case{"m.named", "OnlyPossible"}, Case{"m.alone", "NoCaller"}, Case{"m.follows", "DeadCallers alone"},
          Case{"m.ringa", "DeadCallers follows ringb"}, Case{"m.self", "Ring self"},
          Case{"m.purea", "Ring purea pureb"}, Case{"m.pureb", "Ring pureb purea"},
          Case{"m.below", "DeadCallers purea"}, Case{"c.nobody", "NoCaller by rule"},
          Case{"c.class_initialize", "EntryPoint"}}) {
        SCOPED_TRACE(path);
        EXPECT_EQ(ReasonAt(path), reason);
    }
}

namespace {

class GradesOfObjects : public ProgramState {
protected:
    // Reads a project of a standard module, a class and a user control.
    static void Read(std::string_view standard, std::string_view type = "Exe", std::string_view classText = "",
                     std::string_view control = "") {
        Analyse(
            ReadProject({{"P.vbp", "Type=" + std::string(type) +
                                       "\nModule=M; M.bas\nClass=C; C.cls\nUserControl=U.ctl\nStartup=\"Sub Main\"\n"},
                         {"M.bas", std::string(standard)},
                         {"C.cls", std::string(classText)},
                         {"U.ctl", std::string(control)}}));
    }
    static Grading GradeAt(std::string_view codePath, Declared declared = {}) {
        reach_ = std::make_unique<Reach>(*gProjekt, std::move(declared));
        return Reasons(*reach_).GradeOf(ObjectAt(codePath));
    }
    static std::unique_ptr<Reach> reach_;
    void TearDown() override {
        reach_.reset();
        ProgramState::TearDown();
    }
};
std::unique_ptr<Reach> GradesOfObjects::reach_;

}  // namespace

TEST_F(GradesOfObjects, WhatTheCodeNamesWithoutACallIsNotSure) {
    Read(R"(
        Private Const Bound = 3, Alone = 4, Length = 5, Default = 6, InSecond = 7, Output = 8, Bracket = 9
        Private list(1 To Bound) As Long
        Public Enum Colour
            red
            green
            [Max]
        End Enum
        Sub Main()
            x = list(1)
            Dim s As String * Length
            Read
            x = Colour.red + Max
            x = Output
            x = Me.Alone
            Dim y As Long, z(1 To [Bracket]) As Long
            #If Never Then
                Hidden
            #End If
        End Sub
        Sub Read(Optional ByVal n As Long = Default)
            Shadow = 1
            Read n:=Argument
            Read Argument:=n
        End Sub
        Sub Hidden(): Below: End Sub
        Sub Below(): End Sub
        Sub Argument(): End Sub
        Sub Twice(): End Sub
        Sub Twice(): x = InSecond: End Sub
        Sub Shadowed(): End Sub
        Sub Other()
            Dim Shadowed
            Shadowed = 1
        End Sub
    )");
    using Case = std::tuple<const char*, Grade, GradeReason>;
    for (const auto& [path, grade, reason] :
         {Case{"m.main", Grade::Living, GradeReason::None}, Case{"m.alone", Grade::Sure, GradeReason::None},
          Case{"m.bound", Grade::CannotTell, GradeReason::NamedInCode},
          Case{"m.length", Grade::CannotTell, GradeReason::NamedInCode},
          Case{"m.default", Grade::CannotTell, GradeReason::NamedInCode},
          Case{"m.insecond", Grade::CannotTell, GradeReason::NamedInCode},
          Case{"m.output", Grade::CannotTell, GradeReason::NamedInCode},
          Case{"m.bracket", Grade::CannotTell, GradeReason::NamedInCode},
          Case{"m.colour.red", Grade::CannotTell, GradeReason::NamedInCode},
          Case{"m.colour.[max]", Grade::CannotTell, GradeReason::NamedInCode},
          Case{"m.colour.green", Grade::Likely, GradeReason::ShiftsMembers},
          Case{"m.hidden", Grade::CannotTell, GradeReason::NotCompiled},
          Case{"m.below", Grade::CannotTell, GradeReason::UsedByUncertain},
          Case{"m.shadowed", Grade::Sure, GradeReason::None}, Case{"m.other", Grade::Sure, GradeReason::None}}) {
        SCOPED_TRACE(path);
        EXPECT_EQ(GradeAt(path).grade, grade);
        EXPECT_EQ(GradeAt(path).reason, reason);
    }
}

TEST_F(GradesOfObjects, AMemberNamedWhereNoCallWasFoundIsNotSure) {
    Read(R"(
        Private Type Load
            Shovel As Long
            Step As Long
            Spade As Long
        End Type
        Private loads(5) As Variant
        Sub Main()
            Dim f As C
            f.Output = 1
            With loads(1)
                .Shovel = 1
                .Dig
            End With
            Say f.Title & f.Version
            f.Stop
        End Sub
        Sub Say(x)
        End Sub
        Sub Plain()
        End Sub
    )",
         "Exe",
         "Public Property Let Output(x)\nWith x\n .Spade = 1\n .Plain\n .Step = 1\nEnd With\nEnd Property\n"
         "Public Sub Dig()\nEnd Sub\nPrivate Sub Shovel()\nEnd Sub\n"
         "Public Property Get Title()\nEnd Property\nPublic Property Let Title(x)\nEnd Property\n"
         "Public Sub [Stop]()\nEnd Sub\n",
         "Public Property Get Title()\nEnd Property\nPublic Property Get Version()\nEnd Property\n");
    using Case = std::pair<const char*, GradeReason>;
    for (const auto& [path, reason] :
         {Case{"c.output [let]", GradeReason::NamedInCode}, Case{"c.dig", GradeReason::NamedInCode},
          Case{"m.load.shovel", GradeReason::NamedInCode}, Case{"c.title [get]", GradeReason::NamedInCode},
          Case{"c.[stop]", GradeReason::NamedInCode}, Case{"c.title [let]", GradeReason::None},
          Case{"u.title [get]", GradeReason::DesignerProperty}, Case{"u.version [get]", GradeReason::DesignerProperty},
          Case{"m.load.spade", GradeReason::ChangesLayout}, Case{"m.load.step", GradeReason::ChangesLayout},
          Case{"m.plain", GradeReason::None}, Case{"c.shovel", GradeReason::None}}) {
        SCOPED_TRACE(path);
        EXPECT_EQ(GradeAt(path).reason, reason);
    }
}

TEST_F(GradesOfObjects, MembersGoWithoutHarmToTheOthersOnly) {
    Read(R"(
        Private Declare Sub Api Lib "x" (p As Passed)
        Private Type Passed
            used As Long
            unused As Long
        End Type
        Private Type Kept
            used As Long
            unused As Inner
        End Type
        Private Type Inner
            a As Long
        End Type
        Private Type Gone
            a As Long
        End Type
        Private Enum Counted
            first
            unused
            last
        End Enum
        Private Enum Numbered
            one = 1
            two
            three = 3
        End Enum
        Sub Main()
            Dim p As Passed, k As Kept
            Api p
            p.used = k.used + first + last + one + three
        End Sub
    )");
    EXPECT_EQ(GradeAt("m.passed.unused").reason, GradeReason::PassedOut);
    EXPECT_EQ(GradeAt("m.kept.unused").reason, GradeReason::ChangesLayout);
    EXPECT_EQ(GradeAt("m.inner [type]").reason, GradeReason::UsedByLikely);
    EXPECT_EQ(GradeAt("m.inner.a").reason, GradeReason::ChangesLayout);
    EXPECT_EQ(GradeAt("m.gone.a").grade, Grade::Sure);
    EXPECT_EQ(GradeAt("m.counted.unused").reason, GradeReason::ShiftsMembers);
    EXPECT_EQ(GradeAt("m.numbered.two").grade, Grade::Sure);
}

TEST_F(GradesOfObjects, MembersOfClassesByWhoMayUseThem) {
    const char* const kClass =
        "VERSION 1.0 CLASS\nBEGIN\n  MultiUse = -1  'True\nEND\nAttribute VB_Name = \"C\"\nAttribute VB_Exposed = "
        "True\n"
        "Option Explicit\nPublic Event Done()\nPublic Sub Open_()\nEnd Sub\nPrivate Sub Inner()\nEnd Sub\n"
        "Public Property Get Item()\nAttribute Item.VB_UserMemId = 0\nEnd Property\n";
    const char* const kControl = "Attribute VB_Name = \"U\"\nPublic Property Let Caption(x)\nEnd Property\n";
    const char* const kMain = "Sub Main()\nEnd Sub\n";
    Read(kMain, "Exe", kClass, kControl);
    EXPECT_EQ(GradeAt("c.open_").grade, Grade::Sure);
    EXPECT_EQ(GradeAt("c.item [get]").reason, GradeReason::DefaultMember);
    EXPECT_EQ(GradeAt("u.caption [let]").reason, GradeReason::DesignerProperty);
    Read(kMain, "OleDll", kClass, kControl);
    EXPECT_EQ(GradeAt("c.open_").grade, Grade::Living);
    EXPECT_EQ(GradeAt("c.done").grade, Grade::Living);
    EXPECT_EQ(GradeAt("c.inner").grade, Grade::Sure);
}

TEST_F(GradesOfObjects, TheUsersWordCounts) {
    Read("Sub Main()\nEnd Sub\nSub Job()\n Part\nEnd Sub\nSub Part()\nEnd Sub\n");
    Declared declared;
    declared.Set({DeclaredKind::EntryPoint, "M.Job", "scheduler"});
    EXPECT_EQ(GradeAt("m.part", declared).grade, Grade::Living);
    declared.Set({DeclaredKind::LeaveAlone, "m.job", "later"});
    EXPECT_EQ(GradeAt("m.job", declared).leftAlone->comment, "later");
    EXPECT_EQ(GradeAt("m.part", declared).reason, GradeReason::UsedByLeftAlone);
}

TEST_F(GradesOfObjects, CallersOfWhatIsSureAreSure) {
    const auto check = [] {
        const Reach reach(*gProjekt);
        const Reasons reasons(reach);
        int sure = 0;
        reach.ForEachObject([&](const CodeObject& object) {
            if (reasons.GradeOf(object).grade != Grade::Sure)
                return;
            ++sure;
            reach.TheLinks().ForEachTo(object, [&](const Link& link) {
                EXPECT_EQ(reasons.GradeOf(*link.from).grade, Grade::Sure) << object.CodePath();
            });
        });
        return sure;
    };
    ReadSample();
    Analyse();
    EXPECT_GT(check(), 10);
}
