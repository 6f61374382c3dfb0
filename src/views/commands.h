// The commands of the window: one action each, with the text, icon and keys that menus, toolbars and the list of keys
// share. What a command does is up to the window.
#pragma once

#include <QAction>
#include <QObject>
#include <string_view>
#include <vector>

#include "display/command_table.h"

class Commands final : public QObject {
    Q_OBJECT

public:
    explicit Commands(QWidget* window);

    [[nodiscard]] QAction& operator[](Command command) const { return *all_[static_cast<std::size_t>(command)]; }
    /// All actions in the order of the table.
    [[nodiscard]] const std::vector<QAction*>& All() const { return all_; }

    /// Sets the texts of the language. Texts with further content, such as the name of an object, are set by their
    /// owner afterwards.
    void Texte();
    /// Enables the commands whose needs are met; the tips of all others say what is missing.
    void Activate(const Situation& now);
    /// The text and the tip of one command, followed by its keys.
    static void SetTexts(QAction& action, const QString& text, const QString& tip);
    /// The actions that are in a menu or toolbar and have keys.
    [[nodiscard]] QList<QAction*> InUse() const;
    /// Gives each action of one menu an underlined letter of its own.
    /// @param others  actions of the same menu that keep theirs
    static void GiveLetters(const QList<QAction*>& actions, const QList<QAction*>& others = {});
    void SetImage(Command command, std::string_view image);

private:
    void ShowWhyDisabled(const Situation& now);

    std::vector<QAction*> all_;
};
