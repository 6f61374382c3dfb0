// Texts with wording fixed in the program, in both languages, and the totals that window and console share.
#include "display/fixed_texts.h"

#include "display/diagnosis.h"
#include "support/golden.h"
#include "support/project_test.h"

namespace {

using FixedTexts = ProgramState;

TEST_F(FixedTexts, MissingFilesAreNamedInTheLanguageOfTheProgram) {
    const std::string question = "File not found: C:\\p\\A.bas\r\n\r\nLaden abbrechen?";
    EXPECT_EQ(ShownText(question), question);  // without a language file
    Speak("english");
    EXPECT_EQ(ShownText(question), "File not found: C:\\p\\A.bas\n\nCancel loading?");
    EXPECT_EQ(ShownText("A.bas: Syntax"), "A.bas: Syntax");
    Speak("german");
    EXPECT_EQ(ShownText(question), "Datei nicht gefunden: C:\\p\\A.bas\n\nLaden abbrechen?");
    EXPECT_EQ(ShownText("File not found: A.bas"), "Datei nicht gefunden: A.bas");
}

TEST_F(FixedTexts, SummaryHasTheTotalsOfTheConsole) {
    ReadSample();
    Analyse();
    Speak("english");
    const std::string english = DiagnosticSummary(gProjekt.get());
    EXPECT_TRUE(
        english.starts_with("Project structure\t\tCode objects\nModules: 4\t\tProcedures: 192\n"
                            "Class modules: 6\t\tVariables: 461\nForms: 3\t\tTypes: 4\n"
                            "User controls: 1\t\tEnumerations: 6\n\n"
                            "Really calls: 827\nMay be calls: 25\nUses: 92\n"))
        << english;
    Speak("german");
    EXPECT_TRUE(DiagnosticSummary(gProjekt.get()).starts_with("Projektstruktur\t\tCode-Objekte\nModule: 4\t\tProz"));
    EXPECT_TRUE(DiagnosticSummary(nullptr).ends_with("clsCall: 0\nclsCollection: 0\n"));
}

}  // namespace
