// How the window is put together: panes, menus, toolbars, status bar, and what leads to what.
#include "views/frm_main.h"

#include <QApplication>
#include <QCloseEvent>
#include <QDragEnterEvent>
#include <QFileInfo>
#include <QHelpEvent>
#include <QLayout>
#include <QMenuBar>
#include <QMimeData>
#include <QScreen>
#include <QStackedWidget>
#include <QStatusBar>
#include <QToolBar>
#include <QToolButton>
#include <QUrl>
#include <optional>

#include "display/recent_projects.h"
#include "display/tree_checks.h"
#include "model/clsProjekt.h"
#include "platform/files.h"
#include "project/start.h"
#include "shell/clsText.h"
#include "shell/operations.h"
#include "shell/program.h"
#include "views/baum_view.h"
#include "views/code_view.h"
#include "views/commands.h"
#include "views/deployment.h"
#include "views/dialogs.h"
#include "views/elided_label.h"
#include "views/fold_splitter.h"
#include "views/frm_about.h"
#include "views/frm_error.h"
#include "views/frm_keys.h"
#include "views/frm_optionen.h"
#include "views/frm_progress.h"
#include "views/icons.h"
#include "views/lower_pane.h"
#include "views/main_panes.h"
#include "views/open_document.h"
#include "views/path_line.h"
#include "views/problems_list.h"
#include "views/properties_grid.h"
#include "views/qt_text.h"
#include "views/questions.h"
#include "views/search_bar.h"
#include "views/start_page.h"
#include "views/status_fields.h"
#include "views/tree_panes.h"
#include "views/twips.h"

namespace {

constexpr QSize kSmallestWindow(720, 480);
constexpr QSize kDesignSize(1280, 800);

// The project file that is dragged, or an empty text.
QString DroppedProject(const QMimeData* data) {
    const QList<QUrl> urls = data->urls();
    if (urls.size() != 1 || !urls.front().isLocalFile())
        return {};
    const QString path = urls.front().toLocalFile();
    return path.endsWith(QStringLiteral(".vbp"), Qt::CaseInsensitive) ? path : QString();
}

}  // namespace

frmMain::frmMain(Files& files, SettingsFile& file, Settings settings, std::string programDirectory)
    : files_(files),
      file_(file),
      settings_(std::move(settings)),
      programDirectory_(std::move(programDirectory)),
      commands_(new Commands(this)),
      progress_(new frmProgress(this)),
      error_(new frmError(this)),
      about_(new frmAbout(this)),
      keys_(new frmKeys(this)),
      options_(new frmOptionen(files, file, settings_, programDirectory_, this)),
      problems_(new ProblemsList(this)),
      missingFiles_(std::make_unique<MissingFileQuestion>(this)) {
    setMinimumSize(kSmallestWindow);
    setWindowIcon(ApplicationIcon());
    setAcceptDrops(true);
    BuildPanes();
    BuildMenus();
    BuildToolbar();
    BuildStatusBar();
    WireViews();
    WireCommands();
    ConnectPorts();
    SizeSaveRead();
    frmMainTexte();
    ApplyFonts();
    ShowArrangement();
    ShowStartPage();
}

frmMain::~frmMain() {
    SetErrorPort({});
    SetQuestionPort({});
    SetMissingFilePort({});
    SetMessagePort({});
    EmptyViews();
    CloseProject();
    delete pages_;  // the views go before the trees they listen to
}

BaumView& frmMain::BaumProjekt() const {
    return project_->Tree();
}

void frmMain::BuildPanes() {
    pages_ = new QStackedWidget(this);
    start_ = new StartPage(pages_);
    project_ = new ProjectPane(tree_, settings_, *commands_, this);
    calledByPane_ =
        new DependencyPane(calledBy_, settings_, *commands_, Command::CalledByReally, Command::CalledByMaybe, this);
    callsPane_ = new DependencyPane(calls_, settings_, *commands_, Command::CallsReally, Command::CallsMaybe, this);
    rtbCode_ = new CodeView(settings_, this);
    rtbCodePath_ = new PathLine(this);
    lower_ = new LowerPane(dll_, settings_, this);
    properties_ = &lower_->Properties();
    panes_ = new MainPanes({rtbCodePath_, project_, lower_, calledByPane_, callsPane_, rtbCode_}, pages_);
    pages_->addWidget(start_);
    pages_->addWidget(panes_);
    setCentralWidget(pages_);
    BaumProjekt().SetToolTips([this](const BaumNode& node) { return HoverText(node.Key()); });
    calledByPane_->Tree().SetToolTips([this](const BaumNode& node) { return DependencyHoverText(node.Key(), true); });
    lower_->BaumDLL().SetToolTips([this](const BaumNode& node) { return HoverText(node.Key()); });
    callsPane_->Tree().SetToolTips([this](const BaumNode& node) { return DependencyHoverText(node.Key(), false); });
    rtbCode_->SetToolTipSource([this](Pos position) { return CodeHoverText(position); });
}

void frmMain::BuildMenus() {
    Commands& command = *commands_;
    // Nothing stands for a separator.
    const auto fill = [&command](QMenu* menu, std::initializer_list<std::optional<Command>> items) {
        for (const std::optional<Command> item : items) {
            if (item)
                menu->addAction(&command[*item]);
            else
                menu->addSeparator();
        }
    };
    mnuDatei_ = menuBar()->addMenu(QString());
    fill(mnuDatei_, {Command::OpenProject, Command::CloseProject});
    mnuRecent_ = mnuDatei_->addMenu(QString());
    mnuDatei_->addSeparator();
    mnuReports_ = mnuDatei_->addMenu(IconFor("Reports"), QString());
    fill(mnuReports_, {Command::ReportStructure, Command::ReportCalls, Command::ReportDeaths});
    fill(mnuDatei_, {{}, Command::Exit});

    mnuAnsicht_ = menuBar()->addMenu(QString());
    fill(mnuAnsicht_, {Command::ContentCode,
                       Command::ContentGraph,
                       Command::ContentChart,
                       {},
                       Command::SplitForContent,
                       Command::SplitForCalls,
                       Command::SplitX,
                       Command::SplitY,
                       {},
                       Command::CollapseAll,
                       Command::CheckBoxOn,
                       Command::CheckBoxAll,
                       Command::CheckBoxNone,
                       {},
                       Command::Search,
                       Command::NavPrev,
                       Command::NavNext,
                       {},
                       Command::ZoomPlus,
                       Command::ZoomMinus,
                       Command::ZoomNo,
                       {},
                       Command::Problems,
                       Command::Options});

    mnuStruktur_ = menuBar()->addMenu(QString());
    fill(mnuStruktur_, {Command::Structure, Command::Refresh, {}});
    mnuCopy_ = mnuStruktur_->addMenu(IconFor("Copy"), QString());
    fill(mnuCopy_, {Command::CopyName, Command::CopyCodePath, Command::CopyAsText});
    fill(mnuStruktur_, {Command::DeleteObject});

    mnuDependencies_ = menuBar()->addMenu(QString());
    fill(mnuDependencies_, {Command::Calls,
                            Command::CallsOfModule,
                            {},
                            Command::CalledByReally,
                            Command::CalledByMaybe,
                            {},
                            Command::CallsReally,
                            Command::CallsMaybe,
                            {},
                            Command::NextPlace,
                            Command::PreviousPlace});

    mnuHelp_ = menuBar()->addMenu(QString());
    fill(mnuHelp_, {Command::WebPage, Command::Keys, Command::Diagnosis, {}, Command::About});
    command[Command::WebPage].setVisible(!kProductPage.empty());
    for (QMenu* menu :
         {mnuDatei_, mnuRecent_, mnuReports_, mnuAnsicht_, mnuStruktur_, mnuCopy_, mnuDependencies_, mnuHelp_}) {
        menu->setToolTipsVisible(true);
        menu->installEventFilter(this);
    }
}

void frmMain::BuildToolbar() {
    Toolbar1 = addToolBar(QString());
    Toolbar1->setObjectName(QStringLiteral("Toolbar1"));
    Toolbar1->setMovable(false);
    Toolbar1->setContextMenuPolicy(Qt::PreventContextMenu);
    Toolbar1->setIconSize(QSize(24, 24));
    Commands& command = *commands_;
    const auto add = [&](std::initializer_list<Command> group, bool isFirst = false) {
        if (!isFirst)
            Toolbar1->addSeparator();
        for (const Command item : group)
            Toolbar1->addAction(&command[item]);
    };
    add({Command::OpenProject}, true);
    add({Command::Calls, Command::Refresh});
    add({Command::NavPrev, Command::NavNext});
    add({Command::SplitForContent, Command::SplitForCalls});
    add({Command::ContentCode, Command::ContentGraph, Command::ContentChart});
    auto* space = new QWidget(Toolbar1);
    space->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Preferred);
    Toolbar1->addWidget(space);
    Toolbar1->addAction(&command[Command::Search]);
    Toolbar1->addAction(&command[Command::Options]);
    setContextMenuPolicy(Qt::NoContextMenu);
}

void frmMain::BuildStatusBar() {
    message_ = new ElidedLabel(this);
    message_->setContentsMargins(6, 0, 0, 0);
    statusBar()->addWidget(message_, 1);
    counts_ = new StatusFields(this);
    statusBar()->addPermanentWidget(counts_);
    problemCount_ = new QToolButton(this);
    problemCount_->setAutoRaise(true);
    problemCount_->setToolButtonStyle(Qt::ToolButtonTextBesideIcon);
    problemCount_->setIcon(IconFor("Problems"));
    problemCount_->hide();
    statusBar()->addPermanentWidget(problemCount_);
}

void frmMain::WireViews() {
    connect(&BaumProjekt(), &BaumView::NodeActivated, this, &frmMain::BaumProjekt_NodeClick);
    connect(&BaumProjekt(), &BaumView::NodeChecked, this, &frmMain::BaumProjekt_NodeChecked);
    connect(&calledByPane_->Tree(), &BaumView::NodeActivated, this,
            [this](const std::string& key) { SelectCallsOfObject(key, true); });
    connect(&callsPane_->Tree(), &BaumView::NodeActivated, this,
            [this](const std::string& key) { SelectCallsOfObject(key, false); });
    for (DependencyPane* pane : {calledByPane_, callsPane_})
        connect(&pane->Tree(), &BaumView::NodeContext, this, &frmMain::DependencyContext);
    connect(&lower_->BaumDLL(), &BaumView::KeyDropped, this, &frmMain::Collect);
    connect(&lower_->BaumDLL(), &BaumView::NodeContext, this, &frmMain::DependencyContext);
    connect(rtbCode_, &QPlainTextEdit::cursorPositionChanged, this, [this] {
        if (rtbCode_->hasFocus())
            ShowProperties(true);
    });
    connect(rtbCode_, &CodeView::PositionClicked, this, &frmMain::CodeClicked);
    connect(rtbCode_, &CodeView::PlaceChanged, this, [this](int index, int count) {
        if (count > 1)
            Message(QStringLiteral("%1 %2 %3").arg(index).arg(TextNr(Text::Of)).arg(count));
        commands_->Activate(Now());
    });
    connect(&project_->Search(), &SearchBar::ObjectChosen, this, [this](const std::string& path) {
        ActivateKey(path);
        BaumProjekt().setFocus();
    });
    connect(start_, &StartPage::OpenClicked, this, [this] { MainActions(1); });
    connect(start_, &StartPage::RecentChosen, this, &frmMain::OpenProject);
    connect(panes_, &MainPanes::FoldsChanged, this, [this] {
        (*commands_)[Command::SplitX].setChecked(!panes_->picSplitX().Folded());
        (*commands_)[Command::SplitY].setChecked(!panes_->picSplitY().Folded());
    });
    connect(mnuRecent_, &QMenu::aboutToShow, this, &frmMain::FillRecentMenu);
    connect(mnuDatei_, &QMenu::aboutToShow, this, [this] { mnuRecent_->setEnabled(!RecentProjects(file_).empty()); });
    connect(options_, &frmOptionen::LanguageChanged, this, &frmMain::frmMainTexte);
    connect(options_, &frmOptionen::Applied, this, &frmMain::OptionsApplied);
    connect(options_, &frmOptionen::ReportStructure, this, [this] { WriteReports("AnalyseErgebnisStructure"); });
    connect(options_, &frmOptionen::ReportCalls, this, [this] { WriteReports("AnalyseErgebnisCalls"); });
    connect(options_, &frmOptionen::ReportDeaths, this, [this] { WriteReports("AnalyseErgebnisDeaths"); });
    connect(problemCount_, &QToolButton::clicked, this, [this] { (*commands_)[Command::Problems].trigger(); });
}

void frmMain::WireCommands() {
    Commands& command = *commands_;
    const auto wire = [this, &command](Command which, auto function) {
        connect(&command[which], &QAction::triggered, this, function);
    };
    for (const auto& [key, nr] : {std::pair{Command::Exit, 0},
                                  {Command::OpenProject, 1},
                                  {Command::Structure, 2},
                                  {Command::CallsModule, 3},
                                  {Command::Uses, 5},
                                  {Command::Calls, 6},
                                  {Command::SplitForContent, 7},
                                  {Command::UsesShow, 8},
                                  {Command::SplitForCalls, 9},
                                  {Command::ContentChart, 10},
                                  {Command::Refresh, 11},
                                  {Command::ContentGraph, 12},
                                  {Command::ContentCode, 13}})
        wire(key, [this, number = nr] { MainActions(number); });
    // There is no reading of one module by itself: its neighbourhood is shown anew.
    wire(Command::CallsOfModule, [this] { Show_Dependencies(); });
    wire(Command::CloseProject, [this] { CloseTheProject(); });
    wire(Command::ReportStructure, [this] { WriteReports("AnalyseErgebnisStructure"); });
    wire(Command::ReportCalls, [this] { WriteReports("AnalyseErgebnisCalls"); });
    wire(Command::ReportDeaths, [this] { WriteReports("AnalyseErgebnisDeaths"); });
    wire(Command::SplitX, [this](bool shown) { panes_->picSplitX().SetFolded(!shown); });
    wire(Command::SplitY, [this](bool shown) { panes_->picSplitY().SetFolded(!shown); });
    wire(Command::CollapseAll, [this] { tree_.CollapseAll(); });
    wire(Command::CheckBoxOn, [this](bool on) { ToggleCheckBoxes(on); });
    wire(Command::CheckBoxAll, [this] { Check_All(true); });
    wire(Command::CheckBoxNone, [this] { Check_All(false); });
    wire(Command::Search, [this] { project_->Search().Focus(); });
    wire(Command::NavPrev, [this] { NavCodeKey_Prev(); });
    wire(Command::NavNext, [this] { NavCodeKey_Next(); });
    wire(Command::ZoomPlus, [this] { rtbCode_->ZoomIn(); });
    wire(Command::ZoomMinus, [this] { rtbCode_->ZoomOut(); });
    wire(Command::ZoomNo, [this] { rtbCode_->ZoomReset(); });
    wire(Command::NextPlace, [this] { rtbCode_->NextPlace(); });
    wire(Command::PreviousPlace, [this] { rtbCode_->PreviousPlace(); });
    wire(Command::CalledByReally, [this] { SetMayBe(false, false); });
    wire(Command::CalledByMaybe, [this] { SetMayBe(false, true); });
    wire(Command::CallsReally, [this] { SetMayBe(true, false); });
    wire(Command::CallsMaybe, [this] { SetMayBe(true, true); });
    wire(Command::Problems, [this] { problems_->exec(); });
    wire(Command::Options, [this] { options_->exec(); });
    wire(Command::WebPage, [] { OpenDocument(ToQString(kProductPage)); });
    wire(Command::CopyName, [this] { TreeInUse().CopyName(); });
    wire(Command::CopyCodePath, [this] { TreeInUse().CopyCodePath(); });
    wire(Command::CopyAsText, [this] { TreeInUse().CopyAsText(); });
    wire(Command::Keys, [this] { ShowKeys(); });
    wire(Command::Diagnosis, [this] { Diagnosis(); });
    wire(Command::About, [this] { about_->exec(); });
}

void frmMain::ConnectPorts() {
    SetErrorPort([this](const ErrorReport& report) { error_->ShowReport(report); });
    SetQuestionPort([this](std::string_view text) { return AskQuestion(this, LanguageText(text)); });
    SetMissingFilePort([this](std::string_view text, int more) { return missingFiles_->Ask(text, more); });
    SetMessagePort([this](std::string_view text) { ShowMessage(this, LanguageText(text)); });
}

void frmMain::frmMainTexte() {
    SpeakOwnLanguage();
    commands_->Texte();
    mnuDatei_->setTitle(TextNr(Text::FileMenu));
    mnuRecent_->setTitle(TextNr(Text::RecentProjects));
    mnuReports_->setTitle(TextNr(Text::Reports));
    mnuCopy_->setTitle(TextNr(Text::Copy));
    mnuAnsicht_->setTitle(TextNr(Text::ViewMenu));
    mnuStruktur_->setTitle(TextNr(Text::StructureMenu));
    mnuDependencies_->setTitle(TextNr(Text::Dependencies));
    mnuHelp_->setTitle(TextNr(Text::HelpMenu));
    Toolbar1->setWindowTitle(TextNr(Text::Toolbar));
    Toolbar1->setAccessibleName(TextNr(Text::Toolbar));
    start_->Texte();
    project_->Texte();
    calledByPane_->Texte(Text::CalledBy, Text::EmptyCalledByTree);
    callsPane_->Texte(Text::Calls, Text::EmptyCallsTree);
    rtbCode_->Texte();
    rtbCodePath_->Texte();
    lower_->Texte();
    panes_->Texte();
    progress_->Texte();
    error_->Texte();
    about_->Texte();
    keys_->Texte();
    options_->Texte();
    problems_->Texte();
    SetMayBe(false, MayBeCalledBy);
    SetMayBe(true, MayBeCalls);
    Message({});
    ShowCounts();
    ShowProblemCount();
    Activate_Commands();
    FitToolbar();
}

// Each menu, and each item of one menu, gets a letter of its own.
void frmMain::AssignMenuMnemonics() {
    Commands::GiveLetters(menuBar()->actions());
    for (QMenu* menu : {mnuDatei_, mnuReports_, mnuAnsicht_, mnuStruktur_, mnuCopy_, mnuDependencies_, mnuHelp_})
        Commands::GiveLetters(menu->actions());
}

// Numbered, which makes for letters that never change; those that are gone are greyed.
void frmMain::FillRecentMenu() {
    mnuRecent_->clear();
    int nr = 0;
    for (const std::string& stored : RecentProjects(file_)) {
        const QFileInfo file(ToPath(stored));
        QString text = file.fileName() + QStringLiteral("  \u2013  ") +
                       fontMetrics().elidedText(file.path(), Qt::ElideMiddle, 60 * fontMetrics().averageCharWidth());
        text = QStringLiteral("&%1  ").arg(++nr) + text.replace(QLatin1Char('&'), QStringLiteral("&&"));
        QAction* action = mnuRecent_->addAction(text, this, [this, stored] { OpenProject(stored); });
        action->setToolTip(file.filePath());
        if (!files_.FileExists(stored)) {
            action->setEnabled(false);
            action->setToolTip(file.filePath() + QLatin1Char('\n') + TextNr(Text::FileGone));
        }
    }
}

// Captions stand beside the icons as far as there is room for them.
void frmMain::FitToolbar() {
    const auto show = [this](std::initializer_list<Command> commands, Qt::ToolButtonStyle style) {
        for (const Command command : commands)
            if (auto* button = qobject_cast<QToolButton*>(Toolbar1->widgetForAction(&(*commands_)[command])))
                button->setToolButtonStyle(style);
        Toolbar1->layout()->invalidate();
    };
    show({Command::OpenProject, Command::Calls, Command::ContentCode, Command::ContentGraph, Command::ContentChart,
          Command::Search},
         Qt::ToolButtonTextBesideIcon);
    const auto isTooWide = [this] { return Toolbar1->sizeHint().width() > width(); };
    if (isTooWide())
        show({Command::Search}, Qt::ToolButtonIconOnly);
    if (isTooWide())
        show({Command::ContentCode, Command::ContentGraph, Command::ContentChart}, Qt::ToolButtonIconOnly);
    if (isTooWide())
        show({Command::Calls}, Qt::ToolButtonIconOnly);
}

// The message comes before the counts, but leaves some room to them.
void frmMain::FitMessage() {
    message_->setMinimumWidth(std::min(fontMetrics().horizontalAdvance(message_->text()) + 16, width() / 2));
}

// The tree that has the focus, or had it before a menu took it.
BaumView& frmMain::TreeInUse() const {
    auto* tree = qobject_cast<BaumView*>(focusWidget());
    return tree ? *tree : BaumProjekt();
}

// Behind the commands what is no command: keys of trees, code and bars.
void frmMain::ShowKeys() {
    const auto key = [](QKeySequence::StandardKey standard) {
        return QKeySequence(standard).toString(QKeySequence::NativeText);
    };
    keys_->Fill(
        commands_->InUse(),
        {{TextNr(Text::GoToObject), QKeySequence(Qt::Key_Return).toString(QKeySequence::NativeText)},
         {TextNr(Text::Copy), key(QKeySequence::Copy)},
         {TextNr(Text::SelectAll), key(QKeySequence::SelectAll)},
         {TextNr(Text::PasteCollected), key(QKeySequence::Paste)},
         {TextNr(Text::ContextMenu), QKeySequence(Qt::SHIFT | Qt::Key_F10).toString(QKeySequence::NativeText)}});
    keys_->exec();
}

void frmMain::ApplyFonts() {
    rtbCode_->ApplySettings();
    BaumProjekt().ApplyTreeFont();
    for (BaumView* tree : {&calledByPane_->Tree(), &callsPane_->Tree(), &lower_->BaumDLL()})
        tree->ApplyTreeFont();
}

void frmMain::OptionsApplied() {
    ApplyFonts();
    code_.Forget();
    if (!gProjekt)
        return;
    if (localsShown_ != (settings_.ProcVars != 0))
        RefillTree();
    // The groups of the dependency trees have colours of the settings, and so has the code.
    last_ = {};
    if (BaumNode* node = tree_.Selected())
        Activate_BaumProjekt_Node(node);
    if (gCheckedObjects.Count() > 0)
        Show_Dependencies_Group();
}

void frmMain::ShowStartPage() {
    std::vector<StartPage::Recent> recent;
    for (const std::string& path : RecentProjects(file_))
        recent.push_back({path, files_.FileExists(path)});
    start_->ShowRecent(recent);
    pages_->setCurrentWidget(gProjekt ? static_cast<QWidget*>(panes_) : start_);
}

// By what is stored; the window always comes up where a screen is.
void frmMain::SizeSaveRead() {
    const WindowSize size = SizeSave_Read(file_);
    resize(kDesignSize);
    if (!size.Width.empty() && !size.Height.empty())
        resize(ToPixels(LeadingNumber(size.Width)), ToPixels(LeadingNumber(size.Height)));
    if (!size.Left.empty() && !size.Top.empty())
        move(ToPixels(LeadingNumber(size.Left)), ToPixels(LeadingNumber(size.Top)));
    const QScreen* screen = QGuiApplication::screenAt(geometry().center());
    const QRect room = (screen ? screen : QGuiApplication::primaryScreen())->availableGeometry();
    resize(this->size().boundedTo(room.size()).expandedTo(minimumSize()));
    if (!room.contains(geometry()))
        move(std::clamp(x(), room.left(), std::max(room.left(), room.right() - width())),
             std::clamp(y(), room.top(), std::max(room.top(), room.bottom() - height())));
    if (size.maximised)
        setWindowState(Qt::WindowMaximized);
    panes_->Restore(size);
}

void frmMain::SizeSaveWrite() {
    WindowSize size;
    size.maximised = isMaximized();
    size.Left = TwipsText(x());
    size.Top = TwipsText(y());
    size.Width = TwipsText(width());
    size.Height = TwipsText(height());
    panes_->Store(size);
    SizeSave_Write(file_, size);
}

void frmMain::closeEvent(QCloseEvent* event) {
    if (progress_->IsRunning() || (gProjekt && !AskYesNo(gText.TextNr(Text::AskExit)))) {
        event->ignore();
        return;
    }
    SizeSaveWrite();
    EmptyViews();
    CloseProject();
    event->accept();
}

void frmMain::dragEnterEvent(QDragEnterEvent* event) {
    if (!DroppedProject(event->mimeData()).isEmpty())
        event->acceptProposedAction();
}

void frmMain::dropEvent(QDropEvent* event) {
    const QString path = DroppedProject(event->mimeData());
    if (path.isEmpty())
        return;
    event->acceptProposedAction();
    // Behind the drop, whose source waits for its end.
    QMetaObject::invokeMethod(
        this, [this, path] { OpenProject(FromPath(path)); }, Qt::QueuedConnection);
}

void frmMain::changeEvent(QEvent* event) {
    QMainWindow::changeEvent(event);
    if (event->type() == QEvent::PaletteChange)
        IconsPaletteChanged();
    if (event->type() == QEvent::FontChange && message_) {
        FitToolbar();
        FitMessage();
    }
}

void frmMain::resizeEvent(QResizeEvent* event) {
    QMainWindow::resizeEvent(event);
    if (event->size().width() == event->oldSize().width())
        return;
    FitToolbar();
    FitMessage();
}

// In menus only those items have tips that can't be chosen, or that are shortened: the others say it all themselves.
bool frmMain::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() == QEvent::ToolTip && watched != mnuRecent_)
        if (const auto* menu = qobject_cast<QMenu*>(watched)) {
            const QAction* action = menu->actionAt(static_cast<QHelpEvent*>(event)->pos());
            if (!action || action->isEnabled())
                return true;
        }
    return QMainWindow::eventFilter(watched, event);
}

void frmMain::ShowArrangement() {
    panes_->Arrange(settings_.Split);
    (*commands_)[Command::SplitForContent].setChecked(settings_.Split == SplitMode::Content);
    (*commands_)[Command::SplitForCalls].setChecked(settings_.Split == SplitMode::Calls);
    // The tree has another height now, and what is chosen in it may be out of sight.
    QMetaObject::invokeMethod(
        this,
        [this] {
            if (BaumNode* node = tree_.Selected())
                tree_.EnsureVisible(*node);
        },
        Qt::QueuedConnection);
}

void frmMain::Split_For_Content() {
    settings_.Split = SplitMode::Content;
    ShowArrangement();
}

void frmMain::Split_For_Calls() {
    settings_.Split = SplitMode::Calls;
    ShowArrangement();
    Show_Dependencies();
}
