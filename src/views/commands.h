// The commands of the window: one action each, found by its key, with the text, icon and keys that menus, toolbars and
// the list of keys share. What a command does and when it can be given is the window's business.
#pragma once

#include <QAction>
#include <QObject>
#include <map>
#include <string_view>
#include <vector>

class Commands final : public QObject {
    Q_OBJECT

public:
    explicit Commands(QWidget* window);

    /// The action under `key`, which must be one of the table in commands.cpp.
    [[nodiscard]] QAction& operator[](std::string_view key) const;
    /// All actions in the order of the table.
    [[nodiscard]] const std::vector<QAction*>& All() const { return all_; }

    /// Puts the texts of the language on. Texts that tell more than their number are set by their owner afterwards.
    void Texte();
    /// The text and the tip of one command; the tip gets the keys behind it.
    static void SetTexts(QAction& action, const QString& text, const QString& tip);
    /// The tip that SetTexts gave.
    [[nodiscard]] static QString PlainTip(const QAction& action);
    /// Those that stand in a menu or toolbar and have keys.
    [[nodiscard]] QList<QAction*> InUse() const;
    /// Gives each action of one menu an underlined letter of its own.
    static void GiveLetters(const QList<QAction*>& actions);
    /// Gives another icon by its key.
    void SetImage(std::string_view key, std::string_view image);

private:
    std::map<std::string_view, QAction*> byKey_;
    std::vector<QAction*> all_;
};
