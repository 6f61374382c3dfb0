// The window with the ways from one object to another, or with what depends on an object. It stays open beside the main
// window; what it shows goes with the objects, and is worked out again.
#pragma once

#include <QDialog>
#include <functional>
#include <string>

#include "display/command_table.h"
#include "display/path_text.h"

class QLabel;
class QPushButton;
class ReachList;
class SearchBar;

class frmReach final : public QDialog {
    Q_OBJECT

public:
    /// Answers for objects given by the keys of their nodes; `to` is empty for what depends on `from`.
    using Source = std::function<ReachAnswer(const std::string& from, const std::string& to)>;
    /// @param isPath  ways to an object that is chosen here, otherwise what depends on the object
    frmReach(bool isPath, Source source, QWidget* parent);

    [[nodiscard]] ReachList& List() const { return *list_; }
    /// Opens the window for an object.
    /// @param name  its code path as spelled
    void Present(const std::string& key, const QString& name);
    /// Before objects become invalid.
    void Forget();
    /// Works the answer out again, if the window is open.
    void Renew();
    void Texte();

Q_SIGNALS:
    /// By what is in this window.
    void CommandAsked(Command command, const std::string& key);
    /// @param title  of what they are
    void GraphAsked(const std::vector<std::string>& keys, const QString& title);
    void SaveAsked(const ReachAnswer& answer, const std::string& from, const std::string& to);

private:
    void FollowRow();
    void Build();

    bool isPath_;
    Source source_;
    std::string from_, to_;
    QString name_;
    ReachAnswer answer_;
    QLabel* head_;
    SearchBar* search_ = nullptr;
    QLabel* title_;
    ReachList* list_;
    QPushButton *cmdGoTo_, *cmdGraph_, *cmdSave_, *cmdClose_;
};
