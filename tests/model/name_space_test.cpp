#include "model/name_space.h"

#include "support/project_test.h"

namespace {

class NameSpaces : public ProgramState {
protected:
    NameSpaces() {
        form_.SetName(Name("Form1"));
        modul_.SetName(Name("Module1"));
    }

    static clsVariable& Variable(clsModul& modul, std::string_view name, clsProzedur* prozedur = nullptr) {
        clsVariable& variable = modul.Own(std::make_unique<clsVariable>());
        variable.Modul = &modul;
        variable.Prozedur = prozedur;
        variable.SetName(Name(name));
        return variable;
    }

    clsModul form_;
    clsModul modul_;
    NameSpace names_;
};

TEST_F(NameSpaces, TheSamePathIsStoredOnce) {
    clsProzedur get(modul_);
    clsProzedur let(modul_);
    get.ProzedurTyp = ProcKind::PropertyGet;
    let.ProzedurTyp = ProcKind::PropertyLet;
    clsModul namesake;
    namesake.SetName(Name("FORM1"));
    for (clsProzedur* prozedur : {&get, &let, &get}) {
        prozedur->SetName(Name("Size"));
        names_.AddObject(*prozedur);
    }
    EXPECT_THAT(names_.Item("size")->Objects(), ElementsAre(&get, &let)) << "accessors have paths of their own";
    clsVariable& local = Variable(modul_, "x", &get);
    clsVariable& first = Variable(form_, "n");
    for (clsVariable* variable : {&local, &Variable(modul_, "X", &let), &first, &Variable(namesake, "N")})
        names_.AddObject(*variable);
    EXPECT_THAT(names_.Item("x")->Objects(), ElementsAre(&local)) << "their locals share one";
    EXPECT_THAT(names_.Item("n")->Objects(), ElementsAre(&first)) << "two modules of one name do as well";
}

TEST_F(NameSpaces, RemovedObjectLeavesItsEntry) {
    clsVariable& one = Variable(modul_, "x");
    clsVariable& two = Variable(form_, "x");
    modul_.AddTo_PrivNameSpace(one);
    modul_.AddTo_PrivNameSpace(two);
    modul_.RemoveFrom_PrivNameSpace(Variable(form_, "y"));
    modul_.RemoveFrom_PrivNameSpace(one);
    EXPECT_THAT(modul_.PrivNameSpace.Item("x")->Objects(), ElementsAre(&two));
    modul_.RemoveFrom_PrivNameSpace(two);
    modul_.RemoveFrom_PrivNameSpace(two);
    EXPECT_THAT(modul_.PrivNameSpace.Item("x")->Objects(), ElementsAre());
    modul_.AddTo_PrivNameSpace(two);
    modul_.AddTo_PrivNameSpace(one);
    EXPECT_THAT(modul_.PrivNameSpace.Item("x")->Objects(), ElementsAre(&two, &one));
}

}  // namespace
