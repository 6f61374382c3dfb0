#include "reach/reasons.h"

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
    ReadProject(
        {{"P.vbp", "Type=Exe\nModule=M; M.bas\nClass=C; C.cls\nStartup=\"Sub Main\"\n"},
         {"M.bas", R"(
                     Sub Main()
                         Kept
                         Dim v
                         v.Possible
                         s = "Named"
                     End Sub
                     Sub Kept()
                     End Sub
                     Sub Named()
                     End Sub
                     Sub Alone()
                         Follows
                     End Sub
                     Sub Follows()
                         RingA
                     End Sub
                     Sub RingA()
                         RingB
                     End Sub
                     Sub RingB()
                         RingA
                     End Sub
                     Sub Self()
                         Self
                     End Sub
                     Sub PureA()
                         PureB
                         Below
                     End Sub
                     Sub PureB()
                         PureA
                     End Sub
                     Sub Below()
                     End Sub
                 )"},
         {"C.cls",
          "Sub Possible()\nEnd Sub\nPrivate Sub Nobody()\nEnd Sub\nPrivate Sub Class_Initialize()\nEnd Sub\n"}});
    Analyse();
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
