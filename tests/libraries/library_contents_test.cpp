#include "libraries/library_contents.h"

#include <gmock/gmock.h>

#include "libraries/library_page.h"
#include "platform/stdole_types.h"

using testing::ElementsAre;
using testing::IsEmpty;
using namespace typelib;
using Kind = typelib::TypeKind;

namespace {

ValueType Simple(VarType type, std::size_t pointers = 0) {
    return {std::vector<TypeLevel>(pointers), type, {}};
}

ValueType Own(std::size_t type, std::size_t pointers = 0) {
    return {std::vector<TypeLevel>(pointers), UserDefined, {type, TypeReference::kNone}};
}

ValueType Imported(std::size_t type, std::size_t pointers = 0) {
    return {std::vector<TypeLevel>(pointers), UserDefined, {TypeReference::kNone, type}};
}

Member Function(std::string name, ValueType result = Simple(HResult), std::vector<Parameter> parameters = {},
                InvokeKind invoke = InvokeKind::Func) {
    Member member;
    member.isFunction = true;
    member.name = std::move(name);
    member.type = std::move(result);
    member.parameters = std::move(parameters);
    member.invoke = invoke;
    return member;
}

Parameter In(std::string name, ValueType type, std::uint32_t flags = 0) {
    return {std::move(name), std::move(type), flags | param_flag::kIn, std::nullopt};
}

Type MakeType(std::string name, Kind kind, std::vector<Member> members = {}) {
    Type type;
    type.name = std::move(name);
    type.kind = kind;
    type.members = std::move(members);
    return type;
}

Type Interface(std::string name, std::vector<Member> members, std::optional<std::size_t> base = std::nullopt) {
    Type type = MakeType(std::move(name), Kind::Interface, std::move(members));
    if (base)
        type.implemented.push_back({{*base, TypeReference::kNone}, 0});
    return type;
}

Type CoClass(std::string name, std::size_t interface, std::optional<std::size_t> source = std::nullopt) {
    Type type = MakeType(std::move(name), Kind::CoClass);
    type.implemented.push_back({{interface, TypeReference::kNone}, impl_flag::kDefault});
    if (source)
        type.implemented.push_back({{*source, TypeReference::kNone}, impl_flag::kDefault | impl_flag::kSource});
    return type;
}

TypeLibrary Library(std::vector<Type> types) {
    TypeLibrary library;
    library.name = "Lib";
    library.types = std::move(types);
    return library;
}

// "Class Shape: Sub Draw(), Event Click(); Module ..."
std::vector<std::string> Classes(const LibraryContents& contents) {
    std::vector<std::string> classes;
    for (const LibraryClass& oneClass : contents.classes) {
        std::string text = std::string(TextOf(oneClass.kind)) + ' ' + oneClass.name + ':';
        for (const LibraryProcedure& procedure : oneClass.procedures)
            text += ' ' + Signature(procedure);
        for (const LibraryProcedure& event : oneClass.events)
            text += " Event " + event.name;
        classes.push_back(text);
    }
    return classes;
}

std::string OneSignature(Member function, std::vector<Type> others = {}) {
    others.push_back(Interface("I", {std::move(function)}));
    return Signature(ContentsOf(Library(std::move(others))).classes.back().procedures.at(0));
}

}  // namespace

TEST(LibraryClasses, DefaultInterfacesAndEventSourcesAreNone) {
    Type control = CoClass("Grid", 0, 1);
    control.flags = type_flag::kControl;
    EXPECT_THAT(Classes(ContentsOf(Library({Interface("_Grid", {Function("Draw")}),
                                            Interface("__Grid", {Function("Click")}), Interface("ICell", {}), control,
                                            MakeType("Tools", Kind::Module, {Function("Beep", Simple(I4))})}))),
                ElementsAre("class ICell:", "usercontrol Grid: Sub Draw() Event Click",
                            "module Tools: Function Beep() As Long"));
}

TEST(LibraryClasses, AnInterfaceOfTwoClassesIsAClassItself) {
    const TypeLibrary library =
        Library({Interface("IBoth", {Function("Twin", Simple(HResult), {In("other", Own(0, 1))})}), CoClass("A", 0),
                 CoClass("B", 0)});
    EXPECT_THAT(Classes(ContentsOf(library)),
                ElementsAre("class IBoth: Sub Twin(ByVal other As IBoth)", "class A: Sub Twin(ByVal other As IBoth)",
                            "class B: Sub Twin(ByVal other As IBoth)"));
}

TEST(LibraryClasses, HaveTheInnermostOfMembersWithOnePath) {
    Type unknown = Interface("IUnknown", {Function("AddRef"), Function("Open")});
    unknown.id = kIUnknownId;
    unknown.members[0].flags = func_flag::kRestricted;
    Member hidden = Function("Secret");
    hidden.flags = func_flag::kRestricted;
    EXPECT_THAT(
        Classes(ContentsOf(Library(
            {unknown, Interface("IBase", {Function("Go", Simple(I2)), Function("Stay"), hidden}, 0),
             Interface("IMore", {Function("go", Simple(I4)), Function("GO", Simple(R8))}, 1), CoClass("C", 2)}))),
        ElementsAre("class IUnknown: Sub Open()",
                    "class IBase: Function Go() As Integer Sub Stay() Sub Secret() Sub Open()",
                    "class C: Function go() As Long Sub Stay() Sub Secret() Sub Open()"));
}

TEST(LibraryClasses, OfARingOfBasesHaveEachMemberOnce) {
    EXPECT_THAT(
        Classes(ContentsOf(Library({Interface("IOne", {Function("A")}, 1), Interface("ITwo", {Function("B")}, 0)}))),
        ElementsAre("class IOne: Sub A() Sub B()", "class ITwo: Sub B() Sub A()"));
}

TEST(LibraryMembers, BecomeProceduresOfVisualBasic) {
    const Parameter result{"r", Simple(Bstr, 1), param_flag::kOut | param_flag::kRetVal, std::nullopt};
    Parameter withDefault = In("n", Simple(I2), param_flag::kHasDefault);
    withDefault.defaultValue = Constant{I2, 7, 0, {}, true};
    Member many = Function("Many", Simple(Void), {In("args", {{{SafeArray, {}}}, Variant, {}})});
    many.hasParamArray = true;
    for (const auto& [function, signature] : std::initializer_list<std::pair<Member, std::string_view>>{
             {Function("F", Simple(HResult), {In("a", Simple(I4)), In("l", Simple(I4), param_flag::kLcid), result}),
              "Function F(ByVal a As Long) As String"},
             {Function("F", Simple(Void), {withDefault}), "Sub F(Optional ByVal n As Integer = 7)"},
             {Function("F", Simple(Void, 1), {In("", Simple(Void, 1))}), "Function F(ByRef Arg1 As Any) As Any"},
             {Function("P", Simple(HResult), {In("i", Simple(Variant)), result}, InvokeKind::PropertyGet),
              "Property Get P(ByVal i As Variant) As String"},
             {Function("P", Simple(HResult), {In("i", Simple(Variant)), In("", Simple(Cy))}, InvokeKind::PropertyPut),
              "Property Let P(ByVal i As Variant) As Currency"},
             {Function("P", Simple(HResult), {In("", Simple(Dispatch))}, InvokeKind::PropertyPutRef),
              "Property Set P() As Object"},
             {many, "Sub Many(ParamArray args() As Variant)"},
             {Function("_B_str_Left", Simple(Bstr)), "Function Left$() As String"},
             {Function("_B_var_Left", Simple(Variant)), "Function Left() As Variant"},
             {Function("F", Simple(Void), {In("a", {{{Ptr, {}}, {SafeArray, {}}}, I4, {}})}),
              "Sub F(ByRef a() As Long)"}})
        EXPECT_EQ(OneSignature(function), signature);
}

TEST(LibraryMembers, PassAnInterfaceByValueBehindOnePointer) {
    const std::vector<Type> others{Interface("IShape", {}), MakeType("Rec", Kind::Record), CoClass("Shape", 0)};
    EXPECT_EQ(OneSignature(Function("F", Simple(Void),
                                    {In("a", Own(0, 1)), In("b", Own(0, 2)), In("c", Own(1, 1)),
                                     In("d", Simple(Unknown)), In("e", Simple(Unknown, 1))}),
                           others),
              "Sub F(ByVal a As Shape, ByRef b As Shape, ByRef c As Rec, ByVal d As IUnknown, ByRef e As IUnknown)");
}

TEST(LibraryMembers, VariablesOfADispatchInterfaceAreProperties) {
    Member speed;
    speed.name = "Speed";
    speed.type = Simple(I4);
    Member label = speed;
    label.name = "Label";
    label.flags = var_flag::kReadOnly;
    Member font = speed;
    font.name = "Font";
    font.type = Simple(Dispatch);
    EXPECT_THAT(
        Classes(ContentsOf(Library({MakeType("D", Kind::Dispatch, {speed, label, font})}))),
        ElementsAre("class D: Property Get Speed() As Long Property Let Speed() As Long Property Get Label() As Long "
                    "Property Get Font() As Object Property Set Font() As Object"));
}

TEST(LibraryTypes, AnInventedNameGivesWayToItsAlias) {
    Type alias = MakeType("Colours", Kind::Alias);
    alias.aliasOf = Own(0);
    Type second = MakeType("Hues", Kind::Alias);
    second.aliasOf = Own(0);
    Type number = MakeType("OLE_LONG", Kind::Alias);
    number.aliasOf = Simple(UI4);
    const TypeLibrary library =
        Library({MakeType("__MIDL_0001", Kind::Enum), alias, second, number,
                 Interface("I", {Function("F", Own(2), {In("a", Own(0)), In("b", Own(1)), In("c", Own(3))})})});
    const LibraryContents contents = ContentsOf(library);
    EXPECT_EQ(contents.enums.at(0).name, "Colours");
    ASSERT_EQ(contents.aliases.size(), 2U);
    EXPECT_EQ(contents.aliases[0].name, "Hues");
    const LibraryProcedure& function = contents.classes.at(0).procedures.at(0);
    EXPECT_EQ(Signature(function), "Function F(ByVal a As Colours, ByVal b As Colours, ByVal c As OLE_LONG) As Hues");
    EXPECT_EQ(function.type.datenTyp, "colours");
    EXPECT_EQ(function.arguments[2].type.datenTyp, "long");
}

TEST(LibraryTypes, HaveTheNamesOfTheModel) {
    for (const auto& [type, datenTyp, shown] :
         {std::tuple(I2, "integer", "Integer"), std::tuple(UI2, "integer", "Integer"), std::tuple(UI4, "long", "Long"),
          std::tuple(Int, "long", "Long"), std::tuple(Cy, "", "Currency"), std::tuple(Dispatch, "byte", "Object"),
          std::tuple(Error, "error", "Long"), std::tuple(UI1, "byte", "Byte"), std::tuple(LpStr, "string", "String"),
          std::tuple(Decimal, "", "Variant")}) {
        SCOPED_TRACE(shown);
        const LibraryContents contents = ContentsOf(Library({Interface("I", {Function("F", Simple(type))})}));
        EXPECT_EQ(contents.classes[0].procedures[0].type.datenTyp, datenTyp);
        EXPECT_EQ(contents.classes[0].procedures[0].type.shown, shown);
    }
}

TEST(LibraryTypes, OfOtherLibrariesAreLookedUpThere) {
    TypeLibrary base = Library({Interface("_Store", {Function("Open")}), CoClass("Store", 0)});
    base.name = "Base";
    TypeLibrary library = Library({Interface("I", {Function("F", Imported(0, 1), {In("font", Imported(1, 1))})})});
    library.importedLibraries = {{"{B}", 1, 0, 0, "base.tlb"}, {std::string(kStdoleId), 2, 0, 0, "stdole2.tlb"}};
    library.importedTypes = {{0, "", 0}, {1, "", 32}};
    library.types[0].implemented.push_back({{TypeReference::kNone, 0}, 0});
    const auto find = [&](const ImportedLibrary& imported) { return imported.id == "{B}" ? &base : nullptr; };
    const LibraryContents found = ContentsOf(library, find);
    EXPECT_THAT(Classes(found),
                ElementsAre("class I: Function F(ByVal font As stdole.StdFont) As Base.Store Sub Open()"));
    EXPECT_THAT(found.missing, IsEmpty());

    const LibraryContents missing = ContentsOf(library);
    EXPECT_THAT(Classes(missing), ElementsAre("class I: Function F(ByVal font As stdole.StdFont) As base.tlb.#0"));
    ASSERT_EQ(missing.missing.size(), 1U);
    EXPECT_EQ(missing.missing[0].file, "base.tlb");
}
