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

void MainMenus::Fill() {
    // An empty item is a separator.
    const auto fill = [this](QMenu* menu, std::initializer_list<std::optional<Command>> items) {
        for (const std::optional<Command> item : items) {
            if (item)
                menu->addAction(&commands_[*item]);
            else
                menu->addSeparator();
        }
    };
    mnuDatei_ = window_.menuBar()->addMenu(QString());
    fill(mnuDatei_, {Command::OpenProject, Command::CloseProject});
    mnuRecent_ = mnuDatei_->addMenu(QString());
    fill(mnuDatei_, {Command::SaveModules, {}, Command::OpenGraph, Command::SaveGraph, Command::SaveGraphAs});
    mnuRecentGraphs_ = mnuDatei_->addMenu(QString());
    fill(mnuDatei_, {Command::ExportGraph, Command::CopyGraphPicture, Command::PrintGraph, {}});
    mnuReports_ = mnuDatei_->addMenu(IconFor("Reports"), QString());
    fill(mnuReports_, {Command::ReportStructure, Command::ReportCalls, Command::ReportDeaths});
    fill(mnuDatei_, {{}, Command::Exit});

    mnuAnsicht_ = window_.menuBar()->addMenu(QString());
    fill(mnuAnsicht_, {Command::ContentCode,
                       Command::WholeModule,
                       Command::Overview,
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
                       Command::FitGraph,
                       {}});
    mnuGraph_ = mnuAnsicht_->addMenu(IconFor("ContentGraph"), QString());
    fill(mnuGraph_, {Command::UndoGraph,
                     Command::RedoGraph,
                     {},
                     Command::SelectAllSymbols,
                     Command::DeleteSymbols,
                     Command::FetchSymbols,
                     {},
                     Command::ArrangeTop,
                     Command::ArrangeLeft,
                     Command::ArrangeBottom,
                     Command::ArrangeRight,
                     Command::ArrangeModules,
                     {},
                     Command::FrameModules,
                     Command::ShowMap,
                     Command::ShowLegend});
    fill(mnuAnsicht_, {{}, Command::Problems, Command::Options});

    mnuStruktur_ = window_.menuBar()->addMenu(QString());
    fill(mnuStruktur_, {Command::Structure, Command::Refresh, {}});
    mnuCopy_ = mnuStruktur_->addMenu(IconFor("Copy"), QString());
    fill(mnuCopy_, {Command::CopyName, Command::CopyCodePath, Command::CopyAsText});
    fill(mnuStruktur_, {Command::ShowInGraph,
                        {},
                        Command::AddCallers,
                        Command::AddAllCallers,
                        Command::AddCallees,
                        Command::AddAllCallees,
                        Command::AddCallPath,
                        {},
                        Command::DeclareEntry,
                        Command::LeaveAlone,
                        Command::DeclaredByUser,
                        {},
                        Command::DeleteObject,
                        Command::DeleteDead,
                        Command::DeletedHere});

    mnuDependencies_ = window_.menuBar()->addMenu(QString());
    fill(mnuDependencies_, {Command::Calls,
                            Command::CallsOfModule,
                            {},
                            Command::CalledByReally,
                            Command::CalledByMaybe,
                            {},
                            Command::CallsReally,
                            Command::CallsMaybe,
                            {},
                            Command::GoTo,
                            Command::FindCallers,
                            Command::NextPlace,
                            Command::PreviousPlace,
                            {},
                            Command::ShowWhy,
                            Command::CallPath,
                            Command::Impact});

    mnuHelp_ = window_.menuBar()->addMenu(QString());
    fill(mnuHelp_, {Command::WebPage, Command::Keys, Command::Diagnosis, {}, Command::About});
    commands_[Command::WebPage].setVisible(!kProductPage.empty());
    for (QMenu* menu : {mnuDatei_, mnuRecent_, mnuRecentGraphs_, mnuReports_, mnuAnsicht_, mnuGraph_, mnuStruktur_,
                        mnuCopy_, mnuDependencies_, mnuHelp_}) {
        menu->setToolTipsVisible(true);
        menu->installEventFilter(this);
    }
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
