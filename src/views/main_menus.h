// The menu bar of the main window: which command is in which menu, and the list of recent projects.
#pragma once

#include <QObject>
#include <cstdint>
#include <initializer_list>
#include <optional>
#include <string>
#include <vector>

class Commands;
class Files;
class QMainWindow;
class QMenu;
class SettingsFile;
enum class Command : std::uint8_t;

class MainMenus final : public QObject {
    Q_OBJECT

public:
    /// All must outlive the menus.
    MainMenus(QMainWindow& window, Commands& commands, const Files& files, SettingsFile& file);

    void Texte();
    /// Gives each menu, and each item of one menu, an underlined letter of its own.
    void AssignLetters();
    /// At the end of the commands of the diagram.
    void AddToGraphMenu(QMenu* menu);
    /// Menus whose items all need a project.
    void SetProjectOpen(bool open);

Q_SIGNALS:
    void RecentChosen(const std::string& path);
    void RecentGraphChosen(const std::string& path);

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void Fill();
    void FillFile();
    void FillView();
    void FillStructure();
    void FillDependencies();
    void Add(QMenu& menu, std::initializer_list<std::optional<Command>> items);
    void FillRecent(QMenu& menu, const std::vector<std::string>& paths, void (MainMenus::*chosen)(const std::string&));

    QMainWindow& window_;
    Commands& commands_;
    const Files& files_;
    SettingsFile& file_;
    QMenu *mnuDatei_, *mnuRecent_, *mnuRecentGraphs_, *mnuReports_, *mnuAnsicht_, *mnuGraph_, *mnuStruktur_, *mnuCopy_,
        *mnuDependencies_, *mnuHelp_;
};
