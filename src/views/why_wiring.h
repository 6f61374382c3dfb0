// The page "Why" in the window, and the commands beside it: ways to another object, what depends on the object, and
// what the user declares about it.
#pragma once

#include <QObject>
#include <functional>
#include <optional>
#include <set>
#include <string>

#include "display/command_table.h"
#include "display/selection.h"
#include "display/why_text.h"
#include "reach/declared.h"

class Files;
class GraphWiring;
class LowerPane;
class ReachList;
class Workspace;
class frmDeclared;
class frmMain;
class frmReach;
struct ReachAnswer;

class WhyWiring final : public QObject {
    Q_OBJECT

public:
    /// What the window does for it.
    struct Ports {
        std::function<void()> showPage;                                        // brings it up
        std::function<void(const std::optional<CodePane::Change>&)> showWalk;  // a place of a walk
        std::function<void()> showNow;                                         // enables commands
    };
    WhyWiring(frmMain& window, Files& files, LowerPane& lower, GraphWiring& graph, Ports ports);

    /// Connects the commands.
    void WireCommands();
    void Texte();
    /// About the object of the key, or without one about the current object.
    void Run(Command command, const std::string& key);

    /// Another object is the current one, or something else is known about it.
    void Renew();
    /// Before objects become invalid.
    void GenerationEnds();
    /// The project was read again, or its calls.
    void ProjectChanged();

    /// Whether the page is seen and has places to go to.
    [[nodiscard]] bool HasPlaces() const;
    /// Steps through the places of the page. False if something else is walked through.
    [[nodiscard]] bool Step(int by);
    /// The walk has gone to a place of the page.
    void ShowPlace(int at);

Q_SIGNALS:
    void Message(const QString& text);

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void Load();
    void ChooseRow(const ReachRow& row, bool stays);
    void WireWindow(frmReach& window);
    [[nodiscard]] ReachAnswer AnswerFor(const std::string& from, const std::string& to) const;
    [[nodiscard]] std::string TableFor(const std::string& from, const std::string& to) const;
    void Save(const ReachAnswer& answer, const std::string& from, const std::string& to);
    void Declare(DeclaredKind kind);
    void ShowDeclared();
    void FillDeclared();
    /// False if the file could not be written.
    bool Change(const std::function<void(Declared&)>& change, bool besideProject);

    frmMain& window_;
    Workspace& workspace_;
    Files& files_;
    LowerPane& lower_;
    ReachList& list_;
    GraphWiring& graph_;
    Ports ports_;
    frmReach *path_, *impact_;
    frmDeclared* declared_ = nullptr;
    WhyRows page_;
    std::set<WhySection> whole_;  // sections of the page that the user has asked for
    std::string object_;          // of the page
    QString saveDirectory_;       // of the last answer that was saved
    bool stale_ = true;
};
