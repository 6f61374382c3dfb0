#include "support/project_test.h"

namespace {

class DeadObjects : public ProgramState {
protected:
    // Marked objects of the open project, "dead a b undead c": procedures, variables, and types and enumerations with
    // their members.
    static std::string Marks() {
        Analyse();
        std::string names[3];
        const auto add = [&](const CodeObject& object) { names[object.IsDeath].append(" ").append(object.MyName()); };
        for (const clsModul* modul : gProjekt->AllModules()) {
            for (const clsProzedur* prozedur : modul->MyProcs)
                add(*prozedur);
            for (const clsVariable* variable : modul->MyVars)
                add(*variable);
            for (const clsType* type : modul->myTypes) {
                add(*type);
                for (const clsVariable* member : type->MyVars)
                    add(*member);
            }
            for (const clsEnum* einEnum : modul->myEnums)
                add(*einEnum);
        }
        return (names[1].empty() ? "" : "dead" + names[1]) + (names[2].empty() ? "" : " undead" + names[2]);
    }
    static std::string Of(std::string_view snippet, std::string_view file = "M.bas") {
        ReadModule(snippet, file);
        return Marks();
    }
    // Makes a procedure for each part between commas, which calls the further words of its part: "a b c, b" is a, which
    // calls b and c, and b.
    static std::string Procedures(std::string_view words) {
        std::string text = "Sub " + Replace(Replace(words, ", ", "\r\nEnd Sub\r\nSub "), " ", "\r\n");
        return Replace(text + "\r\nEnd Sub\r\n", "Sub\r\n", "Sub ");
    }
};

}  // namespace

TEST_F(DeadObjects, ProcedureWithoutCallerIsDeadAndWhatItAloneCallsUndead) {
    using Case = std::pair<const char*, const char*>;
    for (const auto& [procedures, marks] :
         {Case{"a b, b c, c", "dead a undead b c"}, Case{"c, b c, a b", "dead a undead c b"},
          Case{"a c, b c, c", "dead a b undead c"}, Case{"main", "dead main"},
          // rings and self-calls: there is a caller, but no caller is alive
          Case{"a b, b a", " undead a b"}, Case{"a a", " undead a"}, Case{"a b, b c, c b", "dead a undead b c"},
          Case{"Form_Load b, a b, b c, c", "dead a"}, Case{"a b, b a, Form_Load a", ""},
          Case{"Form_Load x.m, m k, k", ""},  // a possible call is enough
          Case{"Other_Load b, b", "dead other_load undead b"}}) {
        SCOPED_TRACE(procedures);
        ReadProject({{"F.frm", Procedures(procedures)}});
        EXPECT_EQ(Marks(), marks);
    }
}

TEST_F(DeadObjects, TypesAndEnumerationsDieWithTheirLastMember) {
    EXPECT_EQ(Of("Type Half\n  u As Long\n  w As Long\nEnd Type\nType Hollow\n  noType\nEnd Type\n"
                 "Enum Some\n  k\n  l\nEnd Enum\nEnum Nothing_\n  m\nEnd Enum\n"
                 "Private Sub Form_Load()\n  Dim h As Half\n  h.u = k\nEnd Sub",
                 "F.frm"),
              "dead l m w nothing_");
}

TEST_F(DeadObjects, LongChainsDoNotTouchTheStack) {
    constexpr int kLength = 100'000;
    std::string chain;
    for (int i = 1; i <= kLength; ++i)
        chain += "Sub s" + std::to_string(i) + "\r\ns" + std::to_string(i + 1) + "\r\nEnd Sub\r\n";
    for (const auto& [head, mark] : {std::pair("Form_Load", 0), std::pair("Nobody", 2)}) {
        const std::string first = std::string("Sub ") + head + "()\r\ns1\r\nEnd Sub\r\n";
        const clsModul& modul = Analyse(ReadModuleAsItIs(Replace(first + chain, "\r\ns", "()\r\ns"), "F.frm"));
        ASSERT_EQ(modul.MyProcs.Count(), kLength + 1);
        EXPECT_EQ(modul.MyProcs.Item("s" + std::to_string(kLength))->IsDeath, mark);
    }
}

TEST_F(DeadObjects, ArgumentsAndLocalsAreUsedWhereTheBodyNamesThem) {
    const Marked vb = Vb(R"(
        Sub Other(named)
        End Sub
        Sub Run(named, inText, inName, afterSign, byName)
            Dim never As Long, used As Long
            {{used}} = 1
            x = "inText" ' inText
            inName1 = inText_x & {{named}} + y.{{named}}
            x=afterSign
            Other {{named}}:={{byName}}, x:={{named}}
        End Sub
        Sub After(inText)
        End Sub
    )");
    ReadModuleAsItIs(vb.text);
    std::vector<std::pair<std::string_view, Pos>> uses;
    for (const LocalUse& use : Check_ProcVars_Calls(*ModuleOf("module1").MyProcs.Item("run")))
        uses.emplace_back(use.variable->MyName(), use.pos);
    EXPECT_THAT(uses, ElementsAre(Pair("named", vb.pos(2)), Pair("named", vb.pos(3)), Pair("named", vb.pos(4)),
                                  Pair("named", vb.pos(6)), Pair("byname", vb.pos(5)), Pair("used", vb.pos(1))));
}
