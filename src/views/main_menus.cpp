#include "views/main_menus.h"

#include <QFileInfo>
#include <QHelpEvent>
#include <QMainWindow>
#include <QMenu>
#include <QMenuBar>
#include <optional>

#include "display/recent_projects.h"
#include "platform/files.h"
#include "views/commands.h"
#include "views/deployment.h"
#include "widgets/icons.h"
#include "widgets/qt_text.h"

MainMenus::MainMenus(QMainWindow& window, Commands& commands, const Files& files, SettingsFile& file)
    : QObject(&window), window_(window), commands_(commands), files_(files), file_(file) {
    Fill();
    connect(mnuRecent_, &QMenu::aboutToShow, this,
            [this] { FillRecent(*mnuRecent_, RecentProjects(file_), &MainMenus::RecentChosen); });
    connect(mnuRecentGraphs_, &QMenu::aboutToShow, this,
            [this] { FillRecent(*mnuRecentGraphs_, RecentGraphs(file_), &MainMenus::RecentGraphChosen); });
    connect(mnuDatei_, &QMenu::aboutToShow, this, [this] {
        mnuRecent_->setEnabled(!RecentProjects(file_).empty());
        mnuRecentGraphs_->setEnabled(!RecentGraphs(file_).empty());
    });
}

// An empty item is a separator.
void MainMenus::Add(QMenu& menu, std::initializer_list<std::optional<Command>> items) {
    for (const std::optional<Command> item : items) {
        if (item)
            menu.addAction(&commands_[*item]);
        else
            menu.addSeparator();
    }
}

void MainMenus::Fill() {
    for (QMenu** menu : {&mnuDatei_, &mnuAnsicht_, &mnuStruktur_, &mnuDependencies_, &mnuHelp_})
        *menu = window_.menuBar()->addMenu(QString());
    FillFile();
    FillView();
    FillStructure();
    FillDependencies();
    Add(*mnuHelp_, {Command::WebPage, Command::Keys, Command::Diagnosis, {}, Command::About});
    commands_[Command::WebPage].setVisible(!kProductPage.empty());
    for (QMenu* menu : {mnuDatei_, mnuRecent_, mnuRecentGraphs_, mnuReports_, mnuAnsicht_, mnuGraph_, mnuStruktur_,
                        mnuCopy_, mnuDependencies_, mnuHelp_}) {
        menu->setToolTipsVisible(true);
        menu->installEventFilter(this);
    }
}

void MainMenus::FillFile() {
    using enum Command;
    Add(*mnuDatei_, {OpenProject, CloseProject});
    mnuRecent_ = mnuDatei_->addMenu(QString());
    Add(*mnuDatei_, {SaveModules, {}, OpenGraph, SaveGraph, SaveGraphAs});
    mnuRecentGraphs_ = mnuDatei_->addMenu(QString());
    Add(*mnuDatei_, {ExportGraph, CopyGraphPicture, PrintGraph, {}});
    mnuReports_ = mnuDatei_->addMenu(IconFor("Reports"), QString());
    Add(*mnuReports_, {ReportStructure, ReportCalls, ReportDeaths});
    Add(*mnuDatei_, {{}, Exit});
}

void MainMenus::FillView() {
    using enum Command;
    Add(*mnuAnsicht_, {ContentCode, WholeModule, Overview, ContentGraph, ContentChart, {}});
    Add(*mnuAnsicht_, {SplitForContent, SplitForCalls, SplitX, SplitY, {}});
    Add(*mnuAnsicht_, {CollapseAll, CheckBoxOn, CheckBoxAll, CheckBoxNone, {}});
    Add(*mnuAnsicht_, {Search, NavPrev, NavNext, {}, ZoomPlus, ZoomMinus, ZoomNo, FitGraph, {}});
    mnuGraph_ = mnuAnsicht_->addMenu(IconFor("ContentGraph"), QString());
    Add(*mnuGraph_, {UndoGraph, RedoGraph, {}, SelectAllSymbols, DeleteSymbols, FetchSymbols, {}});
    Add(*mnuGraph_, {ArrangeTop, ArrangeLeft, ArrangeBottom, ArrangeRight, ArrangeModules, {}});
    Add(*mnuGraph_, {FrameModules, ShowMap, ShowLegend});
    Add(*mnuAnsicht_, {{}, Problems, Options});
}

void MainMenus::FillStructure() {
    using enum Command;
    Add(*mnuStruktur_, {Structure, Refresh, {}});
    mnuCopy_ = mnuStruktur_->addMenu(IconFor("Copy"), QString());
    Add(*mnuCopy_, {CopyName, CopyCodePath, CopyAsText});
    Add(*mnuStruktur_, {ShowInGraph, {}, AddCallers, AddAllCallers, AddCallees, AddAllCallees, AddCallPath, {}});
    Add(*mnuStruktur_, {DeclareEntry, LeaveAlone, DeclaredByUser, {}, DeleteObject, DeleteDead, DeletedHere});
}

void MainMenus::FillDependencies() {
    using enum Command;
    Add(*mnuDependencies_, {Calls, CallsOfModule, {}, CalledByReally, CalledByMaybe, {}, CallsReally, CallsMaybe, {}});
    Add(*mnuDependencies_, {GoTo, FindCallers, NextPlace, PreviousPlace, {}, ShowWhy, CallPath, Impact});
}

void MainMenus::Texte() {
    mnuDatei_->setTitle(TextNr(Text::FileMenu));
    mnuRecent_->setTitle(TextNr(Text::RecentProjects));
    mnuRecentGraphs_->setTitle(TextNr(Text::RecentGraphs));
    mnuGraph_->setTitle(TextNr(Text::EditGraph));
    mnuReports_->setTitle(TextNr(Text::Reports));
    mnuCopy_->setTitle(TextNr(Text::Copy));
    mnuAnsicht_->setTitle(TextNr(Text::ViewMenu));
    mnuStruktur_->setTitle(TextNr(Text::StructureMenu));
    mnuDependencies_->setTitle(TextNr(Text::Dependencies));
    mnuHelp_->setTitle(TextNr(Text::HelpMenu));
}

void MainMenus::AssignLetters() {
    Commands::GiveLetters(window_.menuBar()->actions());
    for (QMenu* menu :
         {mnuDatei_, mnuReports_, mnuAnsicht_, mnuGraph_, mnuStruktur_, mnuCopy_, mnuDependencies_, mnuHelp_})
        Commands::GiveLetters(menu->actions());
}

void MainMenus::SetProjectOpen(bool open) {
    mnuReports_->setEnabled(open);
    mnuCopy_->setEnabled(open);
    mnuGraph_->setEnabled(open);
}

void MainMenus::AddToGraphMenu(QMenu* menu) {
    mnuGraph_->insertMenu(mnuGraph_->actions().back(), menu);
    mnuGraph_->insertSeparator(mnuGraph_->actions().back());
}

// Items are numbered, so their mnemonics never change; missing files are greyed.
void MainMenus::FillRecent(QMenu& menu, const std::vector<std::string>& paths,
                           void (MainMenus::*chosen)(const std::string&)) {
    menu.clear();
    int nr = 0;
    for (const std::string& stored : paths) {
        const QFileInfo file(ToPath(stored));
        QString text = file.fileName() + QStringLiteral("  \u2013  ") +
                       window_.fontMetrics().elidedText(file.path(), Qt::ElideMiddle,
                                                        60 * window_.fontMetrics().averageCharWidth());
        text = QStringLiteral("&%1  ").arg(++nr) + text.replace(QLatin1Char('&'), QStringLiteral("&&"));
        QAction* action = menu.addAction(text, this, [this, stored, chosen] { (this->*chosen)(stored); });
        action->setToolTip(file.filePath());
        if (!files_.FileExists(stored)) {
            action->setEnabled(false);
            action->setToolTip(file.filePath() + QLatin1Char('\n') + TextNr(Text::FileGone));
        }
    }
}

// In menus, only disabled or shortened items have tips: the text of the others says everything.
bool MainMenus::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() == QEvent::ToolTip && watched != mnuRecent_ && watched != mnuRecentGraphs_)
        if (const auto* menu = qobject_cast<QMenu*>(watched)) {
            const QAction* action = menu->actionAt(static_cast<QHelpEvent*>(event)->pos());
            if (!action || action->isEnabled())
                return true;
        }
    return QObject::eventFilter(watched, event);
}
