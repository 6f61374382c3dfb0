#include "views/context_ways.h"

#include <QMenu>

#include "widgets/qt_text.h"

namespace {

void Add(QMenu& menu, Command command, std::function<void()> function) {
    const CommandRow& row = RowOf(command);
    QAction* const action = menu.addAction(TextNr(row.text) + (row.hasDialog ? QStringLiteral("\u2026") : QString()));
    // Shown beside the text; the key itself belongs to the command of the window.
    action->setShortcut(QKeySequence::fromString(QString::fromLatin1(row.keys), QKeySequence::PortableText));
    action->setShortcutContext(Qt::WidgetShortcut);
    action->setShortcutVisibleInContextMenu(true);
    action->setEnabled(function != nullptr);
    QObject::connect(action, &QAction::triggered, &menu, [function = std::move(function)] {
        if (function)
            function();
    });
}

}  // namespace

void AddWays(QMenu& menu, std::function<void()> goTo, std::function<void()> findCallers,
             std::function<void()> showInGraph) {
    Add(menu, Command::GoTo, std::move(goTo));
    Add(menu, Command::FindCallers, std::move(findCallers));
    Add(menu, Command::ShowInGraph, std::move(showInGraph));
    menu.addSeparator();
}

void AddReasons(QMenu& menu, const std::function<void(Command)>& run) {
    for (const Command command :
         {Command::ShowWhy, Command::CallPath, Command::Impact, Command::DeclareEntry, Command::LeaveAlone})
        Add(menu, command, run ? [run, command] { run(command); } : std::function<void()>());
    menu.addSeparator();
}
