// ostrivane-report: the analysis for terminals and pipelines.
#include <unistd.h>

#include <CLI/CLI.hpp>
#include <algorithm>
#include <fstream>
#include <iostream>
#include <sstream>

#include "calls/driver.h"
#include "console/graph_options.h"
#include "console/json_report.h"
#include "console/library_inventory.h"
#include "console/library_report.h"
#include "console/module_tables.h"
#include "console/overview_text.h"
#include "console/reach_answers.h"
#include "console/summary.h"
#include "findings/dead_objects.h"
#include "findings/library_use.h"
#include "findings/project_overview.h"
#include "findings/report_files.h"
#include "libraries/library_loader.h"
#include "libraries/library_objects.h"
#include "libraries/library_page.h"
#include "libraries/library_search.h"
#include "model/clsProjekt.h"
#include "model/clsProzedur.h"
#include "platform/code_page.h"
#include "platform/settings_file.h"
#include "project/project_file.h"
#include "project/project_page.h"
#include "project/start.h"
#include "shell/clsText.h"
#include "shell/errors.h"
#include "shell/operations.h"
#include "shell/program.h"
#include "shell/settings.h"
#include "shell/timing.h"
#include "shell/words.h"

namespace {

enum ExitStatus { AllWell = 0, Reported = 1, NothingAnalysed = 2 };

struct Options {
    std::string project;
    std::string library;
    std::string out;
    std::string json;
    std::string settings;
    std::string language;
    std::string codePage;
    std::vector<std::string> defines;
    std::vector<std::string> libraryFolders;
    std::vector<std::string> registryFiles;
    std::string winePrefix;
    bool noLibraries = false;
    bool inventory = false;
    bool stats = false;
    std::string csv;
    bool structure = false;
    bool calls = false;
    bool deaths = false;
    bool noReports = false;
    bool noCalls = false;
    bool checkLocals = false;
    bool quiet = false;
    bool overview = false;
    GraphCommand graph;
    ReachQuestion question;
    bool reach = false;  // its data go into the JSON

    // Without a kind of report, all kinds are written: a plain call produces everything.
    [[nodiscard]] bool AllKinds() const {
        return !structure && !calls && !deaths && !overview && !inventory && !stats && graph.IsEmpty() && !Asks();
    }
    [[nodiscard]] bool Asks() const { return question.kind != ReachQuestion::Kind::None; }
    [[nodiscard]] bool WritesStructure() const { return !noReports && (structure || AllKinds()); }
    [[nodiscard]] bool WritesCalls() const { return !noReports && !noCalls && (calls || AllKinds()); }
    [[nodiscard]] bool WritesDeaths() const { return !noReports && !noCalls && (deaths || AllKinds()); }
};

std::string Shown(std::string_view bytes) {
    return ActiveCodePage().ToUtf8(bytes);
}

// One line of a terminal that is overwritten on each step.
class TerminalProgress final : public Progress {
public:
    void Range(int min, int max) override {
        value_ = min;
        max_ = max;
    }
    void Label(std::string_view text) override {
        std::cerr << '\r' << value_ << '/' << max_ << ' ' << Shown(text) << "\x1b[K" << std::flush;
    }
    void Progressiere_mal() override {
        if (value_ < max_)
            ++value_;
    }
    void Clear() const { std::cerr << "\r\x1b[K" << std::flush; }

private:
    int value_ = 0;
    int max_ = 0;
};

bool SplitDefine(const std::string& define, std::pair<std::string, std::string>& constant) {
    const auto equals = define.find('=');
    if (equals == std::string::npos || equals == 0)
        return false;
    constant = {LowerCase(define.substr(0, equals)), LowerCase(define.substr(equals + 1))};
    return true;
}

bool WriteReports(DiskFiles& files, const Options& options, const clsProjekt& projekt) {
    if (!options.out.empty() && !options.noReports) {
        if (const FileError error = files.MakeDirectory(options.out); error != FileError::None) {
            std::cerr << options.out << ": " << Describe(error) << '\n';
            return false;
        }
    }
    if (options.WritesStructure())
        WriteReportFiles(projekt, ReportKind::Structure, options.out);
    if (options.WritesCalls())
        WriteReportFiles(projekt, ReportKind::Calls, options.out);
    if (options.WritesDeaths())
        WriteReportFiles(projekt, ReportKind::Deaths, options.out);
    return true;
}

// Writes to the file of an option, or to standard output for "-"; false if that fails.
template <class Write>
bool WriteTo(const std::string& path, const Write& write) {
    if (path == "-") {
        write(std::cout);
        return static_cast<bool>(std::cout.flush());
    }
    std::ofstream file(path, std::ios::binary);
    write(file);
    if (file.flush())
        return true;
    std::cerr << path << ": could not be written\n";
    return false;
}

// That of --code-page, otherwise that of the settings.
bool SetCodePage(const Options& options, const Settings& stored) {
    const std::optional<std::string> page =
        options.codePage.empty() ? std::optional(stored.CodePage) : CodePageNamed(options.codePage);
    if (page)
        SetActiveCodePage(CodePage(*page));
    else
        std::cerr << "--code-page " << options.codePage << ": there is no such code page\n";
    return page.has_value();
}

// Says which page the texts seem to be in if nobody has chosen one.
void HintAtCodePage(const Files& files, const Options& options, std::string_view projectText) {
    if (options.quiet || !options.codePage.empty() || ActiveCodePage().Setting() != "auto")
        return;
    const std::string page = FittingCodePage(files, modMain::DirOrFileName(options.project, 1), projectText);
    if (!page.empty())
        std::cerr << options.project << ": seems to be written in " << NameOfCodePage(page) << "; --code-page " << page
                  << " reads its texts so\n";
}

bool WriteJsonFile(const Options& options, bool libraryFiles, const ReachAnswers* answers) {
    if (options.json.empty())
        return true;
    const JsonParts parts{!options.noCalls, options.checkLocals, libraryFiles,
                          answers ? &answers->TheReasons() : nullptr};
    return WriteTo(options.json, [&](std::ostream& out) { WriteJson(out, *gProjekt, parts); });
}

bool WriteTable(const Options& options, const ReachPage* answer) {
    return options.csv.empty() || WriteTo(options.csv, [&](std::ostream& out) {
               out << (answer          ? PageTable(*answer)
                       : options.stats ? StatisticsTable(*gProjekt)
                                       : LibraryTable(*gProjekt));
           });
}

GraphOutcome MakeGraph(Files& files, const Options& options) {
    if (options.graph.IsEmpty())
        return GraphOutcome::Written;
    std::ostringstream notes;
    const GraphOutcome outcome = RunGraphCommand(*gProjekt, files, options.graph, notes, std::cerr);
    if (!options.quiet)
        (options.json == "-" ? std::cerr : std::cout) << notes.str();
    return outcome;
}

// The settings file's, with those of the command line in front or, where there is only one, in their place.
Settings WithOptions(Settings settings, const Options& options) {
    const auto putInFront = [](std::vector<std::string>& entries, const std::vector<std::string>& given) {
        entries.insert(entries.begin(), given.begin(), given.end());
    };
    putInFront(settings.LibraryFolders, options.libraryFolders);
    putInFront(settings.RegistryFiles, options.registryFiles);
    if (!options.winePrefix.empty())
        settings.WinePrefix = options.winePrefix;
    if (options.noLibraries)
        settings.LoadLibs = 0;
    return settings;
}

std::string SettingsFileOf(const Options& options) {
    return options.settings.empty() ? SettingsPath(GetAppPathWithSlash(), kIniFileName) : options.settings;
}

// Starts the program; nothing if the settings file of an option does not exist.
std::optional<Settings> StartWith(const Options& options, Files& files) {
    const std::string programDirectory = GetAppPathWithSlash();
    if (!options.settings.empty() && !files.FileExists(options.settings)) {
        std::cerr << options.settings << ": " << Describe(FileError::NotFound) << '\n';
        return {};
    }
    SettingsFile settings(files, SettingsFileOf(options));
    Settings stored = WithOptions(StartProgram(files, settings, nullptr, programDirectory), options);
    if (!options.language.empty()) {
        gText.Language = options.language;
        gText.SetLanguage(files, programDirectory);
    }
    return stored;
}

int PrintLibrary(const Options& options) {
    DiskFiles files;
    const std::optional<Settings> settings = StartWith(options, files);
    if (!settings)
        return NothingAnalysed;
    const LibraryInFile read = ReadLibraryFile(files, options.library);
    if (read.error != FileError::None) {
        std::cerr << options.library << ": " << Describe(read.error) << '\n';
        return NothingAnalysed;
    }
    const TypeLibrary& library = read.library;
    for (const std::string& problem : library.problems)
        std::cerr << options.library << ": " << problem << '\n';
    if (library.types.empty() && !library.problems.empty())
        return NothingAnalysed;
    bool isWritten = true;
    clsProjekt projekt(files, ActiveCodePage());
    LibrarySearch search(files, LibrarySourcesOf(*settings, files));
    search.Begin(options.library);
    LibraryLoader loader(projekt, search);
    const LibraryContents contents = ContentsOf(library, loader.Finder());
    if (options.json != "-")
        std::cout << LibraryPage(library, contents, options.library);
    if (!options.json.empty()) {
        clsTypeLib& objects = projekt.NewLibrary();
        objects.SetName(projekt.TheNames().Intern(projekt.TheNames().Page().FromUtf8(library.name)));
        ReadInterfaces(projekt, objects, contents);
        isWritten = WriteTo(options.json, [&](std::ostream& out) { WriteLibraryJson(out, library, objects, loader); });
    }
    return library.problems.empty() && isWritten ? AllWell : Reported;
}

// Whether the JSON says where libraries were sought. Nothing but their lines is known if nobody asks and none was
// found.
bool TellsOfLibraries(const Options& options, const LibrarySearch& search) {
    return options.inventory || search.Sources().isConfigured ||
           std::ranges::any_of(gProjekt->OwnedLibraries(), [](const auto& library) { return library->file.IsFound(); });
}

// Makes the project that the options name, of which nothing is read yet. Returns the text of its file, or nothing if
// there is a reason not to read it, which is printed.
std::optional<std::string> MakeProject(DiskFiles& files, const Options& options, const Settings& stored) {
    const FileText projectFile = files.ReadText(options.project);
    if (projectFile.error != FileError::None) {
        std::cerr << options.project << ": " << Describe(projectFile.error) << '\n';
        return {};
    }
    if (const Text why = WhyNoProject(projectFile); why != Text::None) {
        std::cerr << options.project << ": " << Utf8TextNr(why) << '\n';
        return {};
    }
    if (!SetCodePage(options, stored))
        return {};
    NewProject(files, options.project);
    gProjekt->CondComps_Win32_Win16(stored.Win32 == 1);
    for (const std::string& define : options.defines) {
        std::pair<std::string, std::string> constant;
        if (!SplitDefine(define, constant)) {
            std::cerr << "--define " << define << ": a name, \"=\" and a value are needed\n";
            return {};
        }
        gProjekt->definedCondComps.push_back(std::move(constant));
    }
    return projectFile.text;
}

// Reads the project and looks for its calls. Returns how long that took, in milliseconds; less than 0 for no calls.
std::pair<double, double> ReadAndAnalyse(const Options& options, LibrarySearch* search) {
    TerminalProgress progress;
    // In a pipeline or log file the control characters would only be noise.
    const bool showsProgress = !options.quiet && isatty(STDERR_FILENO) != 0;
    SetProgress(showsProgress ? &progress : nullptr);
    clsQueryTimer timer;
    timer.Start();
    Projekt_Laden(*gProjekt, search);
    timer.Halt();
    clsQueryTimer callTimer;
    if (!options.noCalls) {
        callTimer.Start();
        Who_Calls_Who(*gProjekt);
        Tote_Untote_Kennzeichnen(*gProjekt);
        callTimer.Halt();
    }
    if (showsProgress)
        progress.Clear();
    SetProgress(nullptr);
    return {timer.LastRun, options.noCalls ? -1 : callTimer.LastRun};
}

// Whether there was any.
bool PrintProblems() {
    bool hasProblems = false;
    for (const Problem& problem : gProjekt->problems.All()) {
        if (problem.isHint)
            continue;
        hasProblems = true;
        std::cerr << Shown(problem.subject) << ": " << Shown(problem.text) << " (" << Shown(problem.tag) << ")\n";
    }
    return hasProblems;
}

int Run(const Options& options) {
    DiskFiles files;
    const std::optional<Settings> settings = StartWith(options, files);
    if (!settings)
        return NothingAnalysed;
    const std::optional<std::string> projectText = MakeProject(files, options, *settings);
    if (!projectText)
        return NothingAnalysed;
    // Lasts to the end of the process: freeing a large registry takes time.
    static LibrarySearch& search = *new LibrarySearch(files, LibrarySourcesOf(*settings, files));
    const auto [readMilliseconds, callMilliseconds] =
        ReadAndAnalyse(options, settings->LoadLibs != 0 ? &search : nullptr);
    // Without a place to seek libraries, what is missing is no more than a hint, which is not printed.
    if (search.Sources().isConfigured)
        NoteCostsOfMissingLibraries(*gProjekt);

    const GraphOutcome graph = MakeGraph(files, options);
    if (graph == GraphOutcome::Refused)
        return NothingAnalysed;
    std::unique_ptr<ReachAnswers> answers;
    std::unique_ptr<ReachPage> answer;
    if (options.Asks() || options.reach)
        answers = std::make_unique<ReachAnswers>(*gProjekt, SettingsFileOf(options));
    if (options.Asks() && !(answer = answers->AnswerTo(options.question)))
        return NothingAnalysed;

    const bool reportsWritten = WriteReports(files, options, *gProjekt);
    const std::string summary = options.quiet      ? std::string()
                                : options.overview ? OverviewText(OverviewOf(*gProjekt))
                                                   : SummaryText(*gProjekt, readMilliseconds, callMilliseconds);
    if (options.inventory)
        (options.json == "-" ? std::cerr : std::cout) << LibraryInventory(*gProjekt);
    if (options.stats)
        (options.json == "-" ? std::cerr : std::cout) << StatisticsText(*gProjekt);
    if (answer)
        (options.json == "-" || options.csv == "-" ? std::cerr : std::cout) << PageText(*answer);
    const bool tableWritten = WriteTable(options, answer.get());
    const bool jsonWritten = WriteJsonFile(options, TellsOfLibraries(options, search), answers.get());
    const bool hasProblems = PrintProblems();
    // With JSON on standard output, nothing else may be written there: another program reads it.
    if (!options.quiet)
        (options.json == "-" ? std::cerr : std::cout) << summary;
    HintAtCodePage(files, options, *projectText);
    if (gProjekt->OwnedModules().empty())
        std::cerr << options.project << ": lists no module\n";
    const int status = !hasProblems && reportsWritten && tableWritten && jsonWritten && graph == GraphOutcome::Written
                           ? AllWell
                           : Reported;
    std::cout.flush();
    return status;
}

// The questions about the reach: one at a time.
void AddReachOptions(CLI::App& app, Options& options) {
    using Kind = ReachQuestion::Kind;
    const auto asks = [&options](Kind kind) {
        return [&options, kind](const std::vector<std::string>& paths) {
            options.question.kind = kind;
            options.question.paths = paths;
            return true;
        };
    };
    const auto flag = [&options](Kind kind) {
        return [&options, kind](std::int64_t) { options.question.kind = kind; };
    };
    CLI::Option* const dead = app.add_flag_function("--dead", flag(Kind::Dead),
                                                    "Print what can go, with grade, lines and reason, and no reports");
    const std::map<std::string, Grade> grades{
        {"sure", Grade::Sure}, {"likely", Grade::Likely}, {"any", Grade::CannotTell}};
    app.add_option("--grade", options.question.worst, "With --dead: sure, likely or any; any without this option")
        ->transform(CLI::CheckedTransformer(grades))
        ->type_name("GRADE")
        ->needs(dead);
    const std::vector<CLI::Option*> questions{
        dead,
        app.add_option("--why", asks(Kind::Why), "Print why the object at CODEPATH is alive or not")
            ->type_name("CODEPATH")
            ->expected(1),
        app.add_option("--path", asks(Kind::Path), "Print the ways from one object to another")
            ->type_name("FROM TO")
            ->expected(2),
        app.add_option("--impact", asks(Kind::Impact), "Print what depends on the object at CODEPATH")
            ->type_name("CODEPATH")
            ->expected(1),
        app.add_flag_function("--entry-points", flag(Kind::EntryPoints), "Print where execution can begin"),
        app.add_flag("--reach", options.reach,
                     "Add reach, reason and grade of objects, and entry points, to the JSON")};
    for (CLI::Option* question : questions) {
        question->excludes("--no-calls")->excludes("--library")->excludes("--libraries")->excludes("--stats");
        for (CLI::Option* other : questions)
            if (other != question && other != questions.back() && question != questions.back())
                question->excludes(other);
    }
}

// Where libraries are sought.
void AddLibraryOptions(CLI::App& app, Options& options) {
    app.add_option("--library-folder", options.libraryFolders, "Folder with files of referenced libraries")
        ->type_name("DIR")
        ->take_all()
        ->allow_extra_args(false)
        ->expected(1);
    app.add_option("--registry", options.registryFiles, "Exported registry file (.reg) that knows the libraries")
        ->type_name("FILE")
        ->take_all()
        ->allow_extra_args(false)
        ->expected(1);
    app.add_option("--wine-prefix", options.winePrefix, "Wine prefix that knows the libraries, or none")
        ->type_name("DIR");
    app.add_flag("--no-libraries", options.noLibraries, "Do not look for referenced libraries");
}

}  // namespace

int main(int argc, char** argv) {
    Options options;
    CLI::App app{"Reads a Visual Basic 6 project and reports what it is made of.", "ostrivane-report"};
    app.set_version_flag("--version", "ostrivane-report " + ProgramVersion());
    auto* project = app.add_option("PROJECT", options.project, "The project file (.vbp)");
    auto* library =
        app.add_option("--library", options.library, "Print the contents of a type library, without a project")
            ->type_name("FILE")
            ->excludes(project);
    auto* structure = app.add_flag("--structure", options.structure, "Write the structure report of each module");
    auto* calls = app.add_flag("--calls", options.calls, "Write the calls report of each module");
    auto* deaths = app.add_flag("--deaths", options.deaths, "Write the report of what nothing calls");
    app.add_flag("--no-reports", options.noReports, "Write no report files")
        ->excludes(structure)
        ->excludes(calls)
        ->excludes(deaths);
    auto* noCalls =
        app.add_flag("--no-calls", options.noCalls, "Stop after the structure")->excludes(calls)->excludes(deaths);
    app.add_flag("--check-locals", options.checkLocals, "Look for the uses of each argument and local variable");
    app.add_option("--out", options.out, "Directory for the reports; without it they go beside the sources")
        ->type_name("DIR");
    app.add_option("--json", options.json, "Write everything known as JSON to FILE (- is standard output)")
        ->type_name("FILE");
    app.add_option("--lang", options.language, "Language of the summary")->check(CLI::IsMember({"english", "german"}));
    app.add_option("--code-page", options.codePage,
                   "Code page of the sources: auto, a number, or a name such as Windows-1256")
        ->type_name("NAME");
    app.add_option("--settings", options.settings, "Settings file to use")->type_name("FILE");
    app.add_option("--define", options.defines, "Conditional constant, as the project's own would be given")
        ->type_name("NAME=VALUE")
        ->take_all()
        ->allow_extra_args(false)
        ->expected(1);
    auto* overview = app.add_flag("--summary", options.overview,
                                  "Print an overview in place of the counts; no reports unless a kind is named");
    AddLibraryOptions(app, options);
    auto* inventory = app.add_flag("--libraries", options.inventory,
                                   "Print each referenced library with what uses it, and no reports")
                          ->excludes(library);
    app.add_flag("--stats", options.stats, "Print the tables of the charts for all modules, and no reports")
        ->excludes(library)
        ->excludes(inventory);
    AddReachOptions(app, options);
    app.add_option("--csv", options.csv,
                   "Write what --libraries, --stats or a question about the reach prints as a table to FILE (- is "
                   "standard output)")
        ->type_name("FILE");
    app.add_flag("--quiet", options.quiet, "Neither progress nor summary")->excludes(overview);
    GraphOptions graph(app);
    app.get_option("--graph")->excludes(library)->excludes(noCalls);
    app.footer(
        "Exit status: 0 all well; 1 analysed, but something was reported; 2 nothing analysed.\n"
        "Without a kind of report named, all kinds are written.");
    try {
        app.parse(argc, argv);
        if (project->empty() && library->empty())
            throw CLI::RequiredError(project->get_name());
        if (!options.csv.empty() && !options.inventory && !options.stats && !options.Asks())
            throw CLI::RequiresError("--csv", "--libraries, --stats or a question about the reach");
        options.graph = graph.Parsed();
    } catch (const CLI::ParseError& error) {
        return app.exit(error) == 0 ? AllWell : NothingAnalysed;
    }
    try {
        const int status = options.library.empty() ? Run(options) : PrintLibrary(options);
        std::cout.flush();
        std::cerr.flush();
        // Skips the destructors: freeing a large project takes time, and the system frees the memory anyway.
        std::_Exit(status);
    } catch (const std::exception& error) {
        std::cerr << "ostrivane-report: " << error.what() << '\n';
        return NothingAnalysed;
    }
}
