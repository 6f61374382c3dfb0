#include "model/name_space.h"

#include "support/project_test.h"

namespace {

class NameSpaces : public ProgramState {
protected:
    clsModul& Modul(std::string_view name) {
        clsModul& modul = *modules_.emplace_back(std::make_unique<clsModul>(names_));
        modul.SetName(names_.Intern(name));
        return modul;
    }
    clsVariable& Variable(clsModul& modul, std::string_view name, clsProzedur* prozedur = nullptr) {
        clsVariable& variable = modul.New<clsVariable>();
        variable.Prozedur = prozedur;
        variable.SetName(names_.Intern(name));
        return variable;
    }

    Names names_{CodePage()};
    std::vector<std::unique_ptr<clsModul>> modules_;
    Arena arena_;
    NameSpace nameSpace_{&arena_};
};

TEST_F(NameSpaces, TheSamePathIsStoredOnceAndOthersInTheOrderOfEntry) {
    clsModul& form = Modul("Form1");
    clsModul& modul = Modul("Module1");
    clsProzedur& get = modul.New<clsProzedur>();
    clsProzedur& let = modul.New<clsProzedur>();
    get.ProzedurTyp = ProcKind::PropertyGet;
    let.ProzedurTyp = ProcKind::PropertyLet;
    for (clsProzedur* prozedur : {&get, &let, &get}) {
        prozedur->SetName(names_.Intern("Size"));
        nameSpace_.AddObject(*prozedur);
    }
    EXPECT_THAT(nameSpace_.Item("size")->Objects(), ElementsAre(&get, &let)) << "accessors have paths of their own";
    clsVariable& local = Variable(modul, "x", &get);
    clsVariable& first = Variable(form, "n");
    clsVariable& elsewhere = Variable(modul, "N");
    for (clsVariable* variable :
         {&local, &Variable(modul, "X", &let), &first, &Variable(Modul("FORM1"), "N"), &elsewhere})
        nameSpace_.AddObject(*variable);
    EXPECT_THAT(nameSpace_.Item("x")->Objects(), ElementsAre(&local)) << "their locals share one";
    EXPECT_THAT(nameSpace_.Item("n")->Objects(), ElementsAre(&first, &elsewhere))
        << "two modules of one name do as well";
}

TEST_F(NameSpaces, PathsWithPointsInTheirNamesAreComparedAsAWhole) {
    clsModul& modul = Modul("a");
    clsType& owner = modul.New<clsType>();
    owner.SetName(names_.Intern("B"));
    clsVariable& member = Variable(modul, "x");
    member.MyType = &owner;
    nameSpace_.AddObject(member);
    nameSpace_.AddObject(Variable(Modul("A.B"), "x"));
    EXPECT_THAT(nameSpace_.Item("x")->Objects(), ElementsAre(&member));
}

}  // namespace
