#include "model/name_space.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "model/clsModul.h"
#include "model/clsProzedur.h"
#include "model/clsVariable.h"
#include "support/program_state.h"

namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class NameSpaces : public ProgramState {
protected:
    NameSpaces() {
        form_.SetName(Name("Form1"));
        modul_.SetName(Name("Module1"));
    }

    clsVariable& Variable(clsModul& modul, std::string_view name) {
        clsVariable& variable = modul.Own(std::make_unique<clsVariable>());
        variable.Modul = &modul;
        variable.SetName(Name(name));
        return variable;
    }

    clsModul form_;
    clsModul modul_;
    NameSpace names_;
};

TEST_F(NameSpaces, AllBearersOfANameStandInOrderOfEntry) {
    clsVariable& second = Variable(modul_, "Total");
    clsVariable& first = Variable(form_, "TOTAL");
    clsVariable& other = Variable(form_, "Other");
    names_.AddObject(second);
    names_.AddObject(other);
    names_.AddObject(first);
    EXPECT_EQ(names_.Count(), 2);
    EXPECT_EQ(names_.ItemNr(1)->MyName(), "total");
    EXPECT_THAT(names_.Item("tOtAl")->Objects(), ElementsAre(&second, &first));
    EXPECT_THAT(names_.Item("other")->Objects(), ElementsAre(&other));
    EXPECT_EQ(names_.Item("none"), nullptr);
}

TEST_F(NameSpaces, TheSamePathIsStoredOnce) {
    clsProzedur get(modul_);
    get.SetName(Name("Size"));
    get.kind = "property get";
    clsProzedur let(modul_);
    let.SetName(Name("Size"));
    let.kind = "property let";
    clsVariable ofGet;
    clsVariable ofLet;
    clsVariable third;
    for (const auto& [variable, prozedur] : {std::pair{&ofGet, &get}, {&ofLet, &let}, {&third, &let}}) {
        variable->Modul = &modul_;
        variable->Prozedur = prozedur;
        variable->SetName(Name("x"));
    }
    third.SetName(Name("X"));
    for (CodeObject* object : std::initializer_list<CodeObject*>{&get, &let, &ofGet, &ofLet, &third, &get, &ofGet})
        names_.AddObject(*object);
    EXPECT_THAT(names_.Item("size")->Objects(), ElementsAre(&get, &let)) << "accessors have paths of their own";
    EXPECT_THAT(names_.Item("x")->Objects(), ElementsAre(&ofGet)) << "their locals share one";

    clsModul namesake;
    namesake.SetName(Name("FORM1"));
    clsVariable& first = Variable(form_, "n");
    names_.AddObject(first);
    names_.AddObject(Variable(namesake, "N"));
    EXPECT_THAT(names_.Item("n")->Objects(), ElementsAre(&first)) << "two modules of one name do as well";
}

TEST_F(NameSpaces, RemovedObjectLeavesItsEntry) {
    clsVariable& one = Variable(modul_, "x");
    clsVariable& two = Variable(form_, "x");
    clsVariable& stranger = Variable(form_, "y");
    modul_.AddTo_PrivNameSpace(one);
    modul_.AddTo_PrivNameSpace(one);
    modul_.AddTo_PrivNameSpace(two);
    modul_.RemoveFrom_PrivNameSpace(stranger);
    modul_.RemoveFrom_PrivNameSpace(one);
    EXPECT_THAT(modul_.PrivNameSpace.Item("x")->Objects(), ElementsAre(&two));
    modul_.RemoveFrom_PrivNameSpace(two);
    modul_.RemoveFrom_PrivNameSpace(two);
    ASSERT_NE(modul_.PrivNameSpace.Item("x"), nullptr);
    EXPECT_THAT(modul_.PrivNameSpace.Item("x")->Objects(), IsEmpty());
    modul_.AddTo_PrivNameSpace(two);
    modul_.AddTo_PrivNameSpace(one);
    EXPECT_THAT(modul_.PrivNameSpace.Item("x")->Objects(), ElementsAre(&two, &one));
}

}  // namespace
