#include "libraries/library_search.h"

#include <gmock/gmock.h>

#include "libraries/library_problems.h"
#include "libraries/library_version.h"
#include "libraries/project_entry.h"
#include "model/clsProjekt.h"
#include "shell/settings.h"
#include "support/joined.h"

namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::StartsWith;

const std::string kTree = "{831FDD16-0C5C-11D2-A9FC-0000F8754DA1}";

// A prefix that knows the library in these versions.
std::string SystemReg(std::initializer_list<const char*> versions) {
    std::string text = "WINE REGISTRY Version 2\n;; All keys relative to REGISTRY\\\\Machine\n\n";
    text += "[Software\\\\Classes\\\\CLSID\\\\{C1}\\\\TypeLib] 1\n@=\"" + kTree + "\"\n";
    text += "[Software\\\\Classes\\\\CLSID\\\\{C2}\\\\ProgID] 1\n@=\"Tree.1\"\n";
    text += "[Software\\\\Classes\\\\CLSID\\\\{C2}\\\\ToolboxBitmap32] 1\n@=\"C:\\\\tree.ocx, 4\"\n";
    text += "[Software\\\\Classes\\\\CLSID\\\\{C2}\\\\TypeLib] 1\n@=\"{831fdd16-0c5c-11d2-a9fc-0000f8754da1}\"\n";
    for (const std::string version : versions) {
        const std::string key = "[Software\\\\Classes\\\\TypeLib\\\\" + kTree + "\\\\" + version;
        text += key + "] 1\n@=\"Tree Controls\"\n";
        text += key + "\\\\0\\\\win32] 1\n@=\"C:\\\\Windows\\\\System32\\\\tree" + version + ".ocx\"\n";
        text += key + "\\\\7\\\\win64] 1\n@=\"C:\\\\seven.ocx\"\n";
    }
    return text;
}

class Search : public testing::Test {
protected:
    clsTypeLib& Find(std::string_view line) {
        clsTypeLib& library = projekt_.NewLibrary();
        (line.starts_with("Object") ? FillPropertys : FillPropertysRef)(projekt_, library, line);
        LibrarySearch search(files_, sources_);
        search.identify = identify_;
        search.Begin("/r/src/app/P.vbp");
        search.Find(library);
        NoteLibraryProblems(projekt_, search);
        return library;
    }
    clsTypeLib& FindTree(const std::string& version) {
        return Find("Object=" + kTree + "#" + version + "#0; Tree.ocx");
    }
    // "step outcome place; ..."
    static std::string Places(const clsTypeLib& library) {
        return Joined(library.file.places, "; ", [](const LibraryPlace& place) {
            const std::string text = std::string(TextOf(place.step)) + " " + std::string(TextOf(place.outcome));
            return place.place.empty() ? text : text + " " + place.place;
        });
    }

    MemoryFiles files_;
    clsProjekt projekt_{files_};
    LibrarySources sources_;
    std::function<std::optional<LibraryIdentity>(const std::string&, int)> identify_;
};

}  // namespace

TEST(LibraryVersions, AreHexadecimalAndTheNearestLaterOneServes) {
    EXPECT_EQ(VersionOf("1.a"), (LibraryVersion{1, 10}));
    EXPECT_EQ(VersionOf("B"), (LibraryVersion{11, 0}));
    for (const char* text : {"", "1.", ".1", "1.g", "1.0.0", "-1.0", "12345.0"})
        EXPECT_EQ(VersionOf(text), std::nullopt) << text;
    EXPECT_EQ(TextOf(LibraryVersion{26, 10}), "1a.a");
    const auto better = [](const char* a, const char* b) {
        return IsBetter(*VersionOf(a), *VersionOf(b), *VersionOf("2.1"));
    };
    EXPECT_TRUE(better("2.1", "2.2") && better("2.2", "2.a") && better("2.a", "3.0") && better("3.0", "2.0"));
}

TEST_F(Search, GoesFromPlaceToPlaceAndTellsEach) {
    sources_.folders = {"/libs", "/more"};
    files_ = {{"/r/.git/HEAD", "ref"}};
    EXPECT_EQ(Places(FindTree("2.0")),
              "registry not registered; project line missing Tree.ocx; project folder missing /r/src/app; "
              "project folder missing /r/src; project folder missing /r; library folder missing /libs; "
              "library folder missing /more");
    ASSERT_EQ(projekt_.problems.All().size(), 1U);
    const Problem problem = projekt_.problems.All()[0];
    EXPECT_EQ(problem.text, "Library not found: Tree, Tree.ocx, " + kTree +
                                " version 2.0. Copy the file Tree.ocx into the project's folder or into a folder of "
                                "LibraryFolders.");
    EXPECT_TRUE(problem.isHint);

    for (const std::string folder : {"/more", "/libs", "/r", "/r/src", "/r/src/app"}) {
        files_.WriteWhole(folder + "/TREE.OCX", "MZ");
        const clsTypeLib& library = FindTree("2.0");
        EXPECT_EQ(library.file.path, folder + "/TREE.OCX");
        EXPECT_EQ(library.InprocServer32, folder + "/TREE.OCX");
    }
    EXPECT_EQ(projekt_.problems.All().size(), 1U);
    // Folders outside a repository can hold anything.
    files_ = {{"/r/src/tree.ocx", "MZ"}};
    EXPECT_FALSE(FindTree("2.0").file.IsFound());
}

TEST_F(Search, TakesTheRegisteredVersionThatServesBest) {
    sources_.registry.winePrefix = "/w";
    files_ = {{"/w/system.reg", SystemReg({"1.0", "2.0", "2.2", "2.a"})}};
    for (const char* version : {"1.0", "2.0", "2.2", "2.a"})
        files_.WriteWhole("/w/drive_c/windows/system32/TREE" + std::string(version) + ".OCX", "MZ");
    const clsTypeLib& exact = FindTree("2.2");
    EXPECT_EQ(exact.file.path, "/w/drive_c/windows/system32/TREE2.2.OCX");
    EXPECT_EQ(exact.Description, "Tree Controls");
    EXPECT_EQ(exact.CLSID, "{C2}");
    EXPECT_EQ(exact.ProgID, "Tree.1");
    EXPECT_EQ(exact.IconIndex, 4);
    EXPECT_EQ(FindTree("2.3").file.version, "2.a");
    EXPECT_TRUE(projekt_.problems.All().empty());
    EXPECT_EQ(FindTree("3.0").file.version, "2.a");
    ASSERT_EQ(projekt_.problems.All().size(), 1U);
    EXPECT_THAT(projekt_.problems.All()[0].text, HasSubstr("version 3.0 was not found; version 2.a is used"));

    const std::string lower = "831fdd16-0c5c-11d2-a9fc-0000f8754da1";
    EXPECT_EQ(Find("Reference=*\\G" + lower + "#2.0#0#x.ocx#").file.version, "2.0");
    files_.WriteWhole("/w/drive_c/SEVEN.ocx", "MZ");
    EXPECT_EQ(Find("Reference=*\\G" + kTree + "#2.0#407#x.ocx#").file.path, "/w/drive_c/SEVEN.ocx");
}

TEST_F(Search, AFileWithoutItsPathIsSoughtByTheRegisteredName) {
    sources_.registry.winePrefix = "/w";
    sources_.folders = {"/libs"};
    files_ = {{"/w/system.reg", SystemReg({"2.0"})}, {"/libs/tree2.0.ocx", "MZ"}};
    EXPECT_EQ(FindTree("2.0").file.path, "/libs/tree2.0.ocx");
    // The system's directory of another machine is that of the prefix.
    files_.WriteWhole("/w/drive_c/windows/system32/stdole2.tlb", "MSFT");
    EXPECT_EQ(Find(R"(Reference=*\G{9}#2.0#0#..\..\WINNT\System32\StdOle2.tlb#OLE)").file.path,
              "/w/drive_c/windows/system32/stdole2.tlb");
}

TEST_F(Search, TheNumberOfAResourceIsNotPartOfTheFile) {
    files_ = {{"/r/src/vbscript.dll", "MZ"}, {"/r/src/app/odd.dll/3", "MSFT"}};
    const clsTypeLib& library = Find(R"(Reference=*\G{1}#1.0#0#..\vbscript.dll\2#Expressions)");
    EXPECT_EQ(library.file.path, "/r/src/vbscript.dll");
    EXPECT_EQ(library.file.resource, 2);
    EXPECT_EQ(Find(R"(Reference=*\G{1}#1.0#0#odd.dll\3#Odd)").file.path, "/r/src/app/odd.dll/3");
    EXPECT_THAT(MissingLibraryText(Find(R"(Reference=*\G{1}#1.0#0#C:\a\jscript.dll\3#Odd)")),
                HasSubstr("Copy the file jscript.dll into"));
}

TEST_F(Search, AFileThatIsAnotherLibraryIsPassedOver) {
    sources_.folders = {"/a", "/b", "/c"};
    files_ = {{"/a/tree.ocx", "{1}"}, {"/b/tree.ocx", kTree}, {"/c/tree.ocx", kTree}};
    identify_ = [](const std::string& file, int) {
        return LibraryIdentity{file.starts_with("/a") ? "{1}" : kTree, file.starts_with("/b") ? "1.0" : "2.1"};
    };
    const clsTypeLib& library = FindTree("2.0");
    EXPECT_THAT(Places(library), HasSubstr("library folder other library /a; library folder wrong version /b; "
                                           "library folder found /c/tree.ocx"));
    EXPECT_EQ(library.file.version, "2.1");
    EXPECT_EQ(FindTree("1.1").file.path, "/c/tree.ocx");  // the highest of those that do not serve
}

TEST_F(Search, AnotherProjectIsFoundByItsPathOnly) {
    files_ = {{"/r/src/Other/Grid.vbp", ""}, {"/r/src/app/Lost.vbp", ""}};
    for (const char* line : {R"(Reference=*\A..\Other\Grid.vbp)", R"(Object="*\A..\Other\Grid.vbp")",
                             R"(Reference=*\G{1}#1.0#0#..\Other\Grid.vbp#Grid)"}) {
        const clsTypeLib& library = Find(line);
        EXPECT_TRUE(library.isProject);
        EXPECT_EQ(library.file.path, "/r/src/Other/Grid.vbp");
    }
    const clsTypeLib& lost = Find(R"(Object=*\A..\Lost.vbp)");
    EXPECT_FALSE(lost.file.IsFound());
    EXPECT_EQ(MissingLibraryText(lost), "Project not found: ..\\Lost.vbp");
}

TEST_F(Search, WhatTheUserHasNamedIsReported) {
    Settings settings;
    settings.WinePrefix = "none";
    EXPECT_FALSE(LibrarySourcesOf(settings, files_).isConfigured);
    settings.RegistryFiles = {"/absent.reg"};
    sources_ = LibrarySourcesOf(settings, files_);
    EXPECT_TRUE(sources_.isConfigured);
    FindTree("2.0");
    ASSERT_EQ(projekt_.problems.All().size(), 2U);
    EXPECT_FALSE(projekt_.problems.All()[0].isHint);
    EXPECT_EQ(projekt_.problems.All()[1].subject, "/absent.reg");
}
