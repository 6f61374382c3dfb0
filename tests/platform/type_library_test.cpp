#include "platform/type_library_file.h"

#include <gmock/gmock.h>

#include <bit>

#include "platform/library_bytes.h"
#include "platform/pe_resources.h"
#include "platform/picture_resource.h"

using testing::ElementsAre;
using testing::HasSubstr;
using namespace typelib;

namespace {

// Places in tiny.tlb, which has an enumeration, an interface with two functions, and a class.
constexpr std::size_t kTypes = 3;
constexpr std::size_t kValueOfHueRed = 0x7B0;
constexpr std::size_t kPointerTarget = 0x70C + 8;
enum Table { kTypeInfos = 0, kNames = 7, kTypeDescriptors = 9, kValues = 11 };

TypeLibrary Read(const LibraryBytes& bytes) {
    return ReadTypeLibrary(bytes.Bytes());
}

}  // namespace

TEST(Msft, ValuesOfAllKindsAreRead) {
    struct Case {
        std::uint16_t type;
        std::string data;
        std::string_view text;
    };
    using std::string_literals::operator""s;
    const Case cases[] = {
        {I2, LittleEndian<std::int16_t>(-5), "-5"},
        {UI2, LittleEndian<std::uint16_t>(65535), "65535"},
        {I4, LittleEndian<std::int32_t>(-100000000), "-100000000"},
        {UI4, LittleEndian(0xFFFFFFFFU), "4294967295"},
        {R4, LittleEndian(std::bit_cast<std::uint32_t>(0.5F)), "0.5"},
        {R8, LittleEndian(std::bit_cast<std::uint64_t>(6.28318)), "6.28318"},
        {Date, LittleEndian(std::bit_cast<std::uint64_t>(-657434.0)), "-657434"},
        {Cy, LittleEndian<std::int64_t>(1), "0.0001"},
        {Cy, LittleEndian<std::int64_t>(-15000), "-1.5"},
        {UI8, LittleEndian(0xFFFFFFFFFFFFFFFFU), "18446744073709551615"},
        {Bool, LittleEndian<std::int16_t>(-1), "True"},
        {Bstr, LittleEndian(3) + "a\0b"s, "\"a\0b\""},
        {Bstr, LittleEndian(-1), "\"\""},
        {Variant, "", "?"},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.text);
        const std::string table = LittleEndian(c.type) + c.data;
        const TypeLibrary library =
            Read(LibraryBytes("msft/tiny.tlb").SetTable(kValues, table, kTypes).Set32(kValueOfHueRed, 0));
        const std::string_view expected =
            c.type == Bstr && c.data.size() > 4 ? std::string_view("\"a\0b\"", 5) : c.text;
        EXPECT_EQ(TextOf(library.types.at(0).members.at(0).value.value()), expected);
        // A table that ends within the value.
        if (c.data.size() > 1) {
            const TypeLibrary torn = Read(LibraryBytes("msft/tiny.tlb")
                                              .SetTable(kValues, table.substr(0, table.size() - 1), kTypes)
                                              .Set32(kValueOfHueRed, 0));
            EXPECT_THAT(torn.problems, testing::Contains(HasSubstr("value")));
        }
    }
}

TEST(Msft, InlineValuesHaveTwentySixBits) {
    for (const auto& [word, text] : {std::pair(0x8C000001U, "1"), std::pair(0x8C000000U | 0x3FFFFFFU, "67108863"),
                                     std::pair(0x8800FFFEU, "-2"), std::pair(0xAC00FFFFU, "True")}) {
        const TypeLibrary library = Read(LibraryBytes("msft/tiny.tlb").Set32(kValueOfHueRed, word));
        EXPECT_EQ(TextOf(library.types.at(0).members.at(0).value.value()), text);
    }
    const TypeLibrary none = Read(LibraryBytes("msft/tiny.tlb").Set32(kValueOfHueRed, 0xFFFFFFFF));
    EXPECT_FALSE(none.types.at(0).members.at(0).value);
}

TEST(Msft, NamesAreInThePageOfTheirLanguage) {
    constexpr std::size_t kLanguage = 0xC;
    LibraryBytes bytes("msft/tiny.tlb");
    const std::size_t name = bytes.Bytes().find("Thing");
    bytes.Set(name, "\xC4\xE0").Set32(kLanguage, 0x419);
    EXPECT_THAT(Read(bytes).types.at(1).name + Read(bytes).types.at(2).name, HasSubstr("\u0414\u0430"));
}

TEST(Msft, OneNameServesAllAccessors) {
    LibraryBytes bytes("msft/tiny.tlb");
    bytes.Set32(0x860, 0xFFFFFFFF);
    EXPECT_EQ(Read(bytes).types.at(1).members.at(1).name, "Value");
}

TEST(Msft, OfADamagedLibraryTheRestIsRead) {
    struct Case {
        std::string_view name;
        std::size_t at;
        std::uint32_t number;
        std::string_view problem;
        std::size_t types;
    };
    const Case cases[] = {
        {"number of types", 0x20, 0x10000, "head of the library", 0},
        {"place of a table", 0x60 + 7 * 16, 0x7FFFFFF0, "Table 7 leaves the file", 3},
        {"place of a type", 0x58, 0x7FFF, "is outside of the table of types", 1},
        {"name of a type", 0x150 + 0x34, 0x7FFF0, "name is outside", 3},
        {"place of the members", 0x150 + 4, 0x7FFF0, "members of the type \"Hue\"", 3},
        {"size of a function", 0x7E4, 0xFFFF, "members of the type \"IThing\"", 3},
        {"number of parameters", 0x7F8, 0x7FFF, "parameters of \"Value\"", 3},
        {"type that points to itself", kPointerTarget, 8, "nested without end", 3},
        {"reference to no type", 0x70C, 7, "leads to no type", 3},
        {"class", 0x150 + 2 * 100 + 0x54, 0x7FF0, "interfaces of the class \"Thing\"", 3},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.name);
        const TypeLibrary library = Read(LibraryBytes("msft/tiny.tlb").Set32(c.at, c.number));
        ASSERT_FALSE(library.problems.empty());
        EXPECT_THAT(library.problems.front(), HasSubstr(c.problem));
        EXPECT_EQ(library.types.size(), c.types);
    }
}

TEST(Msft, FunctionsThatShareOneRecordAreNoMoreThanTheFileHolds) {
    // An interface with 60,000 functions, all of them the one record of 0x18 bytes.
    constexpr std::size_t kFunctions = 60000;
    LibraryBytes bytes("msft/tiny.tlb");
    const std::size_t block = bytes.Bytes().size();
    std::string members = LittleEndian(0x1018U) + LittleEndian(0x18U) + std::string(0x1018 - 4, '\0');
    members += std::string(kFunctions * 12, '\0');
    bytes.SetTable(14, members, kTypes);
    bytes.Set32(0x150 + 100 + 4, static_cast<std::uint32_t>(block)).Set32(0x150 + 100 + 0x18, kFunctions);
    const TypeLibrary library = Read(bytes);
    EXPECT_LT(library.types.at(1).members.size(), bytes.Bytes().size() / 0x18);
    EXPECT_THAT(library.problems, testing::Contains(HasSubstr("More refers to the tables")));
}

TEST(Sltg, OfADamagedLibraryTheRestIsRead) {
    // Places in tinyold.tlb, which has a record and an interface.
    struct Case {
        std::string_view name;
        std::size_t at;
        std::uint8_t byte;
        std::string_view problem;
        std::size_t types;
    };
    const Case cases[] = {
        {"chain of blocks that is a ring", 0x32, 1, "chain of the library's blocks", 0},
        {"mark of the library's block", 0x1F8, 0, "head of the library", 0},
        {"mark of a type", 0x68, 0, "type \"Pt\" is damaged", 2},
        {"name of a block", 0x28, 9, "is missing", 2},
        {"chain of variables", 0x95, 0xF0, "type \"Pt\" is damaged", 2},
        {"type that stands outside", 0xA7 + 8, 0xF0, "type \"Pt\" is damaged", 2},
        {"text of a reference", 0x181 + 7, 0xF0, "type \"IUnk\" is damaged", 2},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.name);
        const TypeLibrary library = Read(LibraryBytes("sltg/tinyold.tlb").Set(c.at, LittleEndian(c.byte)));
        ASSERT_FALSE(library.problems.empty());
        EXPECT_THAT(library.problems.front(), HasSubstr(c.problem));
        EXPECT_EQ(library.types.size(), c.types);
    }
}

TEST(LibraryInAProgram, IsTheOneThatIsNamedElseTheFirst) {
    const LibraryBytes program("pe_resources/program32.dll");
    EXPECT_EQ(ReadTypeLibrary(program.Bytes()).name, "Tiny");
    EXPECT_EQ(ReadTypeLibrary(program.Bytes(), 3).name, "Old");
    EXPECT_THAT(ReadTypeLibrary(program.Bytes(), 2).problems, ElementsAre("The file has no type library number 2."));
    // Without a number 1 the lowest; 64 bit.
    EXPECT_EQ(Read(LibraryBytes("pe_resources/program64.dll")).name, "Old");
}

TEST(LibraryInAProgram, IsReadWithoutTheRestOfTheProgram) {
    for (const std::string name : {"program32.dll", "program64.dll", "pictures.dll"}) {
        const std::string program = LibraryBytes("pe_resources/" + name).Bytes();
        const MemoryFiles files{{name, program + std::string(100000, '!')}};
        const std::string part = ReadForResources(files, name, program.size()).bytes;
        EXPECT_LE(part.size(), program.size());
        EXPECT_EQ(ReadTypeLibrary(part).name, ReadTypeLibrary(program).name);
        EXPECT_EQ(PictureFileOf(part, 2), PictureFileOf(program, 2));
        EXPECT_EQ(ReadForResources(files, name, 100).error, FileError::TooLarge);
        // Torn anywhere, nothing is read that is not there.
        for (std::size_t size = 0; size < program.size(); size += 7) {
            const MemoryFiles torn{{name, program.substr(0, size)}};
            EXPECT_LE(ReadForResources(torn, name, program.size()).bytes.size(), program.size());
        }
    }
    const MemoryFiles other{{"a.tlb", LibraryBytes("msft/tiny.tlb").Bytes()}};
    EXPECT_EQ(ReadForResources(other, "a.tlb", 10000).bytes, LibraryBytes("msft/tiny.tlb").Bytes());
    EXPECT_EQ(ReadForResources(other, "b.tlb", 10000).error, FileError::NotFound);
}

TEST(LibraryInAProgram, ThatCannotBeReadIsAProblem) {
    EXPECT_THAT(ReadTypeLibrary("").problems, ElementsAre("The file is no type library."));
    EXPECT_THAT(ReadTypeLibrary("MZ").problems, ElementsAre(HasSubstr("PE header is missing")));
    const LibraryBytes program("pe_resources/program32.dll");
    EXPECT_THAT(ReadTypeLibrary(program.Bytes().substr(0, 0x208)).problems, ElementsAre(HasSubstr("damaged")));
    std::string converted = program.Bytes();
    converted.append(4096, ' ');
    for (std::size_t at = 0; (at = converted.find('\n', at)) != std::string::npos; at += 2)
        converted.replace(at, 1, "\r\n");
    converted.insert(0x60, "\r\n");
    EXPECT_THAT(ReadTypeLibrary(converted).problems, ElementsAre(HasSubstr("conversion of line ends")));
    EXPECT_THAT(ReadPeResources(program.Bytes(), std::uint32_t{3}).resources, testing::IsEmpty());
}

TEST(LibraryPaths, MayEndInTheNumberOfAResource) {
    struct Case {
        std::string_view path, file;
        std::optional<std::uint32_t> resource;
    };
    for (const Case& c :
         {Case{R"(C:\vbscript.dll\3)", R"(C:\vbscript.dll)", 3}, Case{"a/b.tlb", "a/b.tlb", std::nullopt},
          Case{"3", "3", std::nullopt}, Case{R"(a.dll\3x)", R"(a.dll\3x)", std::nullopt},
          Case{R"(a.dll\99999999999)", R"(a.dll\99999999999)", std::nullopt},
          Case{R"(a.dll\)", R"(a.dll\)", std::nullopt}}) {
        SCOPED_TRACE(c.path);
        EXPECT_EQ(SplitLibraryPath(c.path).file, c.file);
        EXPECT_EQ(SplitLibraryPath(c.path).resource, c.resource);
    }
}
