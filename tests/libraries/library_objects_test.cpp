#include "libraries/library_objects.h"

#include "libraries/library_page.h"
#include "platform/library_bytes.h"
#include "platform/type_library_file.h"
#include "support/golden.h"

using testing::ElementsAre;

namespace {

LibraryProcedure Procedure(std::string name, ProcKind kind = ProcKind::Sub) {
    LibraryProcedure procedure;
    procedure.name = std::move(name);
    procedure.kind = kind;
    return procedure;
}

struct LibraryOfProject : testing::Test {
    MemoryFiles files;
    clsProjekt projekt{files};
    clsTypeLib& library = projekt.NewLibrary();

    void SetUp() override { library.SetName(projekt.TheNames().Intern("Lib")); }
    // Joins the library to the project.
    void Join() { projekt.SetModules({}); }
};

// All records of a library, one on each line.
std::string Records(const TypeLibrary& library) {
    std::ostringstream out;
    out << TextOf(library.format) << '|' << library.name << '|' << library.id << '|' << library.Version() << '|'
        << library.description << '|' << library.helpFile << '|' << library.helpContext << '|' << std::hex;
    for (const typelib::ImportedLibrary& imported : library.importedLibraries)
        out << imported.id << ' ' << imported.file;
    for (const typelib::Type& type : library.types) {
        out << "\r\n"
            << TextOf(type.kind) << ' ' << type.name << '|' << type.id << '|' << type.flags << '|' << type.size << '|'
            << type.dll << '|' << (type.isWrapper ? "wrapper" : "") << '|' << type.description << '|'
            << (type.aliasOf ? TypeText(library, *type.aliasOf) : "");
        for (const typelib::ImplementedType& implemented : type.implemented)
            out << "\r\n  has " << ReferenceText(library, implemented.type) << '|' << implemented.flags;
        for (const typelib::Member& member : type.members) {
            out << "\r\n  " << (member.isFunction ? TextOf(member.invoke) : "variable") << ' ' << member.name << '|'
                << member.id << '|' << TypeText(library, member.type) << '|' << member.flags << '|' << member.entry
                << '|' << (member.hasParamArray ? "more" : "") << '|' << (member.value ? TextOf(*member.value) : "")
                << '|' << member.description << '|' << member.helpContext;
            for (const typelib::Parameter& parameter : member.parameters)
                out << "\r\n    " << parameter.name << '|' << TypeText(library, parameter.type) << '|'
                    << parameter.flags << '|' << (parameter.defaultValue ? TextOf(*parameter.defaultValue) : "");
        }
    }
    for (const std::string& problem : library.problems)
        out << "\r\nproblem " << problem;
    return out.str() + "\r\n";
}

std::vector<std::string> Paths(const clsCollection<clsProzedur>& procedures) {
    std::vector<std::string> paths;
    for (const clsProzedur* prozedur : procedures)
        paths.push_back(prozedur->CodePathOrg());
    return paths;
}

}  // namespace

TEST_F(LibraryOfProject, HasObjectsLikeThoseOfModules) {
    LibraryContents contents;
    LibraryClass socket;
    socket.name = "Socket";
    socket.kind = ModuleKind::UserControl;
    socket.procedures = {Procedure("Connect"), Procedure("Port", ProcKind::PropertyGet),
                         Procedure("Port", ProcKind::PropertyLet), Procedure("Peek", ProcKind::Function)};
    socket.procedures[3].arguments = {{"Count", {"Long", "long", ""}, true, true, false, "7"}};
    socket.procedures[3].type = {"Currency", "", ""};
    socket.events = {Procedure("Connect")};
    contents.classes = {socket};
    ReadInterfaces(projekt, library, contents);
    Join();

    const clsModul* const modul = library.myCoClasses.Item("socket");
    ASSERT_TRUE(modul);
    EXPECT_EQ(modul->CodePathOrg(), "Lib.Socket");
    EXPECT_EQ(modul->GetImageKey(), "control");
    EXPECT_THAT(Paths(modul->MyProcs),
                ElementsAre("Lib.Socket.Connect", "Lib.Socket.Port [Get]", "Lib.Socket.Port [Let]", "Lib.Socket.Peek"));
    EXPECT_EQ(modul->Public_Property.Count(), 2);
    // A method and an event of one name are both there.
    ASSERT_EQ(modul->MyEvents.Count(), 1);
    EXPECT_TRUE(modul->MyEvents.Item("connect")->IsEvent);
    EXPECT_FALSE(modul->MyProcs.Item("connect")->IsEvent);

    const clsProzedur& peek = *modul->MyProcs.Item("peek");
    EXPECT_EQ(peek.DatenTyp(), "");
    EXPECT_EQ(library.DetailOf(peek).shownType.View(), "Currency");
    const clsVariable& count = *peek.MyVars.Item("count");
    EXPECT_EQ(count.CodePath(), "lib.socket.peek.count");
    EXPECT_EQ(count.DatenTyp(), "long");
    EXPECT_TRUE(count.isOptional && count.isByRef);
    EXPECT_EQ(library.DetailOf(count).value.View(), "7");

    for (const CodeObject* object : std::initializer_list<const CodeObject*>{modul, &peek, &count}) {
        EXPECT_EQ(object->myLibrary, &library);
        EXPECT_GT(object->Number(), library.Number());
        EXPECT_LT(object->Number(), projekt.ObjectCount());
        EXPECT_EQ(object->CalledByAll().Count(), 0);
    }
    EXPECT_EQ(projekt.GetObjectFromCodePath("lib.socket"), modul);
    EXPECT_EQ(projekt.GetObjectFromCodePath("lib.socket.port [let]"), modul->MyProcs.Item("port [let]"));
    EXPECT_EQ(projekt.GetObjectFromCodePath("lib.socket.nothing"), nullptr);
}

TEST_F(LibraryOfProject, FirstOfEqualNamesWinsAndASecondNameFindsTheSame) {
    LibraryContents contents;
    const auto group = [](std::string name, std::string member) {
        return LibraryGroup{
            std::move(name), "", "", false, {{std::move(member), {"Long", "long", ""}, "1", false, ""}}};
    };
    contents.enums = {group("Color", "cRed"), group("COLOR", "cBlue")};
    contents.records = {group("Point", "x")};
    contents.aliases = {{"Hue", {"Color", "color", ""}}, {"OLE_LONG", {"Long", "long", ""}}};
    ReadInterfaces(projekt, library, contents);
    Join();

    ASSERT_EQ(library.myEnums.Count(), 1);
    clsEnum* const color = library.myEnums.Item("color");
    EXPECT_TRUE(color->MyVars.Item("cred")->IsConst);
    EXPECT_THAT(library.PrivNameSpace.Item("hue")->Objects(), ElementsAre(color));
    EXPECT_EQ(library.PrivNameSpace.Item("ole_long"), nullptr);
    EXPECT_EQ(projekt.GetObjectFromCodePath("lib.color [enum]"), color);
    EXPECT_EQ(projekt.GetObjectFromCodePath("lib.color.cred"), color->MyVars.Item("cred"));
    EXPECT_EQ(projekt.GetObjectFromCodePath("lib.point.x"), library.myTypes.Item("point")->MyVars.Item("x"));
}

TEST_F(LibraryOfProject, IsReadFromAFileOrAResourceOfOne) {
    files.WriteWhole("libs/program.dll", LibraryBytes("pe_resources/program32.dll").Bytes());
    ReadInterfaces(projekt, library, ContentsOf(ReadLibraryFile(files, R"(LIBS\Program.dll\3)").library, {}));
    EXPECT_EQ(library.myTypes.Count(), 1);
    EXPECT_EQ(library.myCoClasses.Count(), 1);
    EXPECT_EQ(ReadLibraryFile(files, R"(libs\nothing.dll\3)").error, FileError::NotFound);
    EXPECT_THAT(ReadLibraryFile(files, R"(libs\program.dll\2)").library.problems,
                ElementsAre("The file has no type library number 2."));
}

TEST(LibraryPages, AndRecordsOfBothFormatsAreTheGoldenFiles) {
    for (const std::string file : {"msft/demo.tlb", "sltg/fullold.tlb"}) {
        const TypeLibrary library = ReadTypeLibrary(LibraryBytes(file).Bytes());
        const std::string name = file.substr(file.find('/') + 1);
        ExpectGolden(Records(library), "libraries", name + " records");
        ExpectGolden(LibraryPage(library, ContentsOf(library), file), "libraries", name);
    }
}
