// Construction of the window: panes, dialogs, and the connections between them.
#include "views/frm_main.h"

#include <QCloseEvent>
#include <QStackedWidget>
#include <QStatusBar>
#include <QVBoxLayout>

#include "display/problem_meaning.h"
#include "display/recent_projects.h"
#include "model/clsProjekt.h"
#include "platform/files.h"
#include "project/start.h"
#include "shell/clsText.h"
#include "shell/errors.h"
#include "shell/operations.h"
#include "shell/program.h"
#include "views/baum_view.h"
#include "views/chart_content.h"
#include "views/code_view.h"
#include "views/commands.h"
#include "views/content_stack.h"
#include "views/context_menu_key.h"
#include "views/deleted_list.h"
#include "views/file_drops.h"
#include "views/frm_about.h"
#include "views/frm_error.h"
#include "views/frm_keys.h"
#include "views/frm_optionen.h"
#include "views/frm_progress.h"
#include "views/graph_pane.h"
#include "views/graph_wiring.h"
#include "views/lower_pane.h"
#include "views/main_menus.h"
#include "views/main_panes.h"
#include "views/main_toolbar.h"
#include "views/overview_pane.h"
#include "views/path_line.h"
#include "views/problems_list.h"
#include "views/properties_grid.h"
#include "views/questions.h"
#include "views/refresh_notice.h"
#include "views/search_bar.h"
#include "views/start_page.h"
#include "views/status_line.h"
#include "views/tree_panes.h"
#include "views/why_wiring.h"
#include "views/window_place.h"
#include "widgets/icons.h"
#include "widgets/object_tip.h"
#include "widgets/qt_text.h"

namespace {

constexpr QSize kSmallestWindow(720, 480);

}  // namespace

frmMain::frmMain(Files& files, SettingsFile& file, Settings settings, std::string programDirectory)
    : files_(files),
      file_(file),
      settings_(std::move(settings)),
      commands_(new Commands(this)),
      dialogs_{.progress = new frmProgress(this),
               .error = new frmError(this),
               .about = new frmAbout(this),
               .keys = new frmKeys(this),
               .options = new frmOptionen(files, file, settings_, std::move(programDirectory), this),
               .problems = new ProblemsList(this),
               .deleted = new DeletedList(this),
               .missingFiles = std::make_unique<MissingFileQuestion>(this)},
      workspace_(gProjekt, files, settings_,
                 {.run =
                      [this](const std::string& name, bool canCancel, const std::function<void()>& operation) {
                          dialogs_.progress->SetCancelVisible(canCancel);
                          return dialogs_.progress->Run(name, operation);
                      },
                  .ends = [this] { GenerationEnds(); },
                  .edgesGo = [this] { graph_->EdgesGo(); },
                  .settingsFile = file.Path(),
                  .askReadAgain = [this](const auto& paths) { return MayReadAgain(paths); }}),
      menus_(new MainMenus(*this, *commands_, files, file)),
      toolbar_(new MainToolbar(*commands_, this)),
      status_(new StatusLine(*statusBar())) {
    setWindowTitle(ToQString(kProgramTitle));
    setMinimumSize(kSmallestWindow);
    setWindowIcon(ApplicationIcon());
    new ContextMenuKey(this);
    connect(new FileDrops(this), &FileDrops::Dropped, this, &frmMain::OpenFile);
    // QMainWindow's own context menu would let the user hide the toolbar, for which there is no command.
    setContextMenuPolicy(Qt::NoContextMenu);
    addToolBar(toolbar_);
    BuildPanes();
    WireTrees();
    WireCode();
    WireWhy();
    WireWays();
    WireOverview();
    WireChart();
    WireGraph();
    WireDialogs();
    WireDeletions();
    WireCommands();
    ConnectPorts();
    Restore();
    frmMainTexte();
    ApplyFonts();
    Arrange(settings_.Split);
    ShowStartPage();
}

frmMain::~frmMain() {
    SetErrorPort({});
    SetQuestionPort({});
    SetMissingFilePort({});
    SetMessagePort({});
    graph_->ProjectGoes();
    workspace_.Close();
    // The panes still show objects, so the project closes while they exist.
    delete pages_;  // the views must be deleted before the trees that they listen to
}

BaumView& frmMain::BaumProjekt() const {
    return project_->Tree();
}

CodeView& frmMain::rtbCode() const {
    return code_->View();
}

void frmMain::BuildPanes() {
    BuildRefresh();
    pages_ = new QStackedWidget(this);
    start_ = new StartPage(pages_);
    project_ = new ProjectPane(workspace_.Tree(), settings_, *commands_, this);
    calledByPane_ = new DependencyPane(workspace_.CalledBy(), settings_, *commands_, Command::CalledByReally,
                                       Command::CalledByMaybe, this);
    callsPane_ =
        new DependencyPane(workspace_.Calls(), settings_, *commands_, Command::CallsReally, Command::CallsMaybe, this);
    content_ = new ContentStack(this);
    code_ = new CodeContent(settings_);
    content_->Add(code_);
    overview_ = new OverviewPane;
    content_->Add(overview_);
    chart_ = new ChartContent;
    content_->Add(chart_);
    graph_ = new GraphWiring(*this, files_, file_,
                             {.run =
                                  [this](const std::string& name, const std::function<void()>& operation) {
                                      dialogs_.progress->SetCancelVisible(true);
                                      return dialogs_.progress->Run(name, operation);
                                  },
                              .showContent = [this] { ShowContent(); },
                              .showNow = [this] { ShowNow(); },
                              .message = {}});
    content_->Add(&graph_->Pane());
    rtbCodePath_ = new PathLine(this);
    lower_ = new LowerPane(workspace_.Collected(), settings_, this);
    panes_ = new MainPanes({rtbCodePath_, project_, lower_, calledByPane_, callsPane_, content_}, pages_);
    pages_->addWidget(start_);
    pages_->addWidget(panes_);
    auto* central = new QWidget(this);
    auto* column = new QVBoxLayout(central);
    column->setContentsMargins(0, 0, 0, 0);
    column->setSpacing(0);
    column->addWidget(&refresh_->Bar());
    column->addWidget(pages_, 1);
    setCentralWidget(central);
}

void frmMain::WireTrees() {
    const auto hover = [this](const BaumNode& node) { return ToolTipOf(workspace_.HoverText(node)); };
    for (BaumView* tree : {&BaumProjekt(), &calledByPane_->Tree(), &callsPane_->Tree(), &lower_->BaumDLL()}) {
        tree->SetSpokenTexts(
            [this](const BaumNode& node) { return QString::fromStdString(workspace_.SpokenText(node)); });
        connect(tree, &BaumView::CommandAsked, this, &frmMain::RunOn);
    }
    BaumProjekt().SetToolTips(hover);
    connect(&BaumProjekt(), &BaumView::NodeActivated, this, [this](const std::string& key) { ActivateKey(key); });
    connect(&BaumProjekt(), &BaumView::NodeChecked, this, [this](BaumNode& node) {
        if (const auto shown = workspace_.NodeChecked(node))
            Show(*shown);
        FillChart();
        ShowNow();
    });
    for (const bool isCaller : {true, false}) {
        const DependencyPane* pane = isCaller ? calledByPane_ : callsPane_;
        connect(pane, &DependencyPane::ShowAllClicked, this, [this] { CheckAll(false); });
        BaumView& view = pane->Tree();
        view.SetToolTips([this, isCaller](const BaumNode& node) {
            std::vector<std::string> lines = workspace_.DependencyHoverText(node, isCaller);
            if (!lines.empty())
                lines.push_back(Utf8TextNr(Text::DependencyTreeTip));
            return ToolTipOf(lines);
        });
        connect(&view, &BaumView::NodeActivated, this,
                [this, isCaller](const std::string& key) { SelectCallsOfObject(key, isCaller); });
        view.SetUnfold([this, isCaller](BaumNode& node) { workspace_.UnfoldNeighbour(node, isCaller); });
    }
    lower_->BaumDLL().SetToolTips(hover);
    connect(&lower_->BaumDLL(), &BaumView::KeyDropped, this,
            [this](const std::string& key) { workspace_.Collect(key); });
    connect(&project_->Search(), &SearchBar::ObjectChosen, this, [this](const std::string& path) {
        ActivateKey(path);
        BaumProjekt().setFocus();
    });
}

void frmMain::WireCode() {
    rtbCode().SetToolTipSource([this](Pos position) { return ToolTipOf(workspace_.CodeHoverText(position)); });
    connect(&rtbCode(), &QPlainTextEdit::cursorPositionChanged, this, [this] {
        // The program also moves the cursor, when it shows a text; the properties then belong to the object.
        if (!rtbCode().hasFocus())
            return;
        if (auto rows = workspace_.PropertiesAt(rtbCode().SelStart(), rtbCode().SelLength()))
            lower_->Properties().Show(std::move(*rows));
    });
    connect(&rtbCode(), &CodeView::PositionClicked, this, [this](int selStart, int selLength) {
        if (const std::string key = workspace_.KeyClicked(selStart, selLength); !key.empty())
            ActivateKey(key);
        rtbCode().setFocus();
    });
    connect(&rtbCode(), &CodeView::PlaceChanged, this, [this](int index, int count) {
        status_->ShowPlace(index, count);
        ShowNow();
    });
    connect(code_, &CodeContent::HeaderUnfolded, this, [this](bool unfolded) { ShowWholeModule(true, unfolded); });
}

void frmMain::WireOverview() {
    connect(overview_, &OverviewPane::ListChosen, this,
            [this](OverviewList list) { overview_->ShowList(list, RowsOf(list)); });
    connect(overview_, &OverviewPane::ObjectChosen, this, [this](const std::string& key) {
        if (ActivateKey(key))
            BaumProjekt().setFocus();
    });
    connect(overview_, &OverviewPane::ProblemsChosen, this, [this] { (*commands_)[Command::Problems].trigger(); });
    connect(overview_, &OverviewPane::ReadCallsChosen, this, [this] { (*commands_)[Command::Calls].trigger(); });
}

void frmMain::WireGraph() {
    graph_->Follow(rtbCode(), project_->Search());
    graph_->WireCommands();
    menus_->AddToGraphMenu(&graph_->Pane().ObjectTypes());
    connect(menus_, &MainMenus::RecentGraphChosen, graph_, &GraphWiring::Open);
    connect(graph_, &GraphWiring::Message, this, [this](const QString& text) { status_->Message(text); });
    connect(graph_, &GraphWiring::TitleChanged, this, &frmMain::ShowTitle);
}

void frmMain::WireDialogs() {
    connect(start_, &StartPage::OpenClicked, this, [this] { MainActions(1); });
    connect(start_, &StartPage::RecentChosen, this, &frmMain::OpenProject);
    connect(menus_, &MainMenus::RecentChosen, this, &frmMain::OpenProject);
    connect(status_, &StatusLine::ProblemsClicked, this, [this] { (*commands_)[Command::Problems].trigger(); });
    connect(dialogs_.problems, &ProblemsList::PlaceChosen, this, &frmMain::ActivateLine);
    const frmOptionen* options = dialogs_.options;
    connect(options, &frmOptionen::LanguageChanged, this, &frmMain::frmMainTexte);
    connect(options, &frmOptionen::Applied, this, &frmMain::OptionsApplied);
    connect(options, &frmOptionen::ReportStructure, this, [this] { WriteReports("AnalyseErgebnisStructure"); });
    connect(options, &frmOptionen::ReportCalls, this, [this] { WriteReports("AnalyseErgebnisCalls"); });
    connect(options, &frmOptionen::ReportDeaths, this, [this] { WriteReports("AnalyseErgebnisDeaths"); });
}

void frmMain::ConnectPorts() {
    SetErrorPort([this](const ErrorReport& report) {
        if (Interrupts(report.tag))
            dialogs_.error->ShowReport(report);
    });
    SetQuestionPort([this](std::string_view text) { return AskQuestion(this, LanguageText(text)); });
    SetMissingFilePort([this](std::string_view text, int more) { return dialogs_.missingFiles->Ask(text, more); });
    SetMessagePort([this](std::string_view text) { ShowMessage(this, LanguageText(text)); });
}

void frmMain::frmMainTexte() {
    SpeakOwnLanguage();
    commands_->Texte();
    menus_->Texte();
    toolbar_->Texte();
    start_->Texte();
    project_->Texte();
    calledByPane_->Texte(Text::CalledBy);
    callsPane_->Texte(Text::Calls);
    content_->Texte();
    rtbCodePath_->Texte();
    lower_->Texte();
    why_->Texte();
    panes_->Texte();
    refresh_->Texte();
    dialogs_.progress->Texte();
    dialogs_.error->Texte();
    dialogs_.about->Texte();
    dialogs_.keys->Texte();
    dialogs_.options->Texte();
    dialogs_.problems->Texte();
    dialogs_.deleted->Texte();
    ShowMayBe(false);
    ShowMayBe(true);
    RenewReferences();
    status_->Message({});
    status_->ShowCounts(gProjekt.get(), workspace_.CallsRead());
    ShowProblems();
    if (const std::optional<Workspace::Shown> shown = workspace_.LanguageChanged())
        Show(*shown);
    Activate_Commands();
    toolbar_->Fit(width());
}

void frmMain::ApplyFonts() {
    content_->ApplySettings();
    for (BaumView* tree : {&BaumProjekt(), &calledByPane_->Tree(), &callsPane_->Tree(), &lower_->BaumDLL()})
        tree->ApplyTreeFont();
}

void frmMain::ShowStartPage() {
    std::vector<StartPage::Recent> recent;
    for (const std::string& path : RecentProjects(file_))
        recent.push_back({path, files_.FileExists(path)});
    start_->ShowRecent(recent);
    pages_->setCurrentWidget(gProjekt ? static_cast<QWidget*>(panes_) : start_);
}

void frmMain::Restore() {
    const WindowSize size = SizeSave_Read(file_);
    PlaceWindow(*this, size);
    panes_->Restore(size);
}

// What is not saved names its file, and that says enough.
bool frmMain::MayClose() {
    if (graph_->IsUnsaved() || workspace_.Deleted().HasUnsaved())
        return MayLeave();
    return !gProjekt || settings_.AskAtClosing == 0 || AskYesNo(gText.TextNr(Text::AskExit));
}

void frmMain::closeEvent(QCloseEvent* event) {
    if (dialogs_.progress->IsRunning() || !MayClose()) {
        event->ignore();
        return;
    }
    WindowSize size;
    StorePlace(*this, size);
    panes_->Store(size);
    SizeSave_Write(file_, size);
    LeaveProject();
    event->accept();
}

void frmMain::changeEvent(QEvent* event) {
    QMainWindow::changeEvent(event);
    if (event->type() == QEvent::PaletteChange)
        IconsPaletteChanged();
    if (event->type() == QEvent::ActivationChange && isActiveWindow() && refresh_)
        refresh_->Look();
    if (event->type() == QEvent::FontChange && panes_) {
        toolbar_->Fit(width());
        status_->Fit(width());
    }
}

void frmMain::resizeEvent(QResizeEvent* event) {
    QMainWindow::resizeEvent(event);
    if (event->size().width() == event->oldSize().width())
        return;
    toolbar_->Fit(width());
    status_->Fit(width());
}
