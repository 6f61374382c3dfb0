// The commands of the window: one action each, with the text, icon and keys that menus, toolbars and the list of keys
// share. What a command does is the window's business.
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

    /// Puts the texts of the language on. Texts that tell more than their number are set by their owner afterwards.
    void Texte();
    /// Enables what can be given; the tip of everything else says why not.
    void Activate(const Situation& now);
    /// The text and the tip of one command, followed by its keys.
    static void SetTexts(QAction& action, const QString& text, const QString& tip);
    /// Those that stand in a menu or toolbar and have keys.
    [[nodiscard]] QList<QAction*> InUse() const;
    /// Gives each action of one menu an underlined letter of its own.
    static void GiveLetters(const QList<QAction*>& actions);
    void SetImage(Command command, std::string_view image);

private:
    void ShowWhyDisabled(const Situation& now);

    std::vector<QAction*> all_;
};
