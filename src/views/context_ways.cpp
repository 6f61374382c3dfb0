#include "views/context_ways.h"

#include <QMenu>

#include "display/deletion_plan.h"
#include "display/node_objects.h"
#include "model/clsProjekt.h"
#include "project/start.h"
#include "reach/reach.h"
#include "widgets/qt_text.h"

namespace {

void Add(QMenu& menu, Command command, const std::function<void(Command)>& run, bool isEnabled) {
    const CommandRow& row = RowOf(command);
    QAction* const action = menu.addAction(TextNr(row.text) + (row.hasDialog ? QStringLiteral("\u2026") : QString()));
    // Shown beside the text; the key itself belongs to the command of the window.
    action->setShortcut(QKeySequence::fromString(QString::fromLatin1(row.keys), QKeySequence::PortableText));
    action->setShortcutContext(Qt::WidgetShortcut);
    action->setShortcutVisibleInContextMenu(true);
    action->setEnabled(run && isEnabled);
    if (run)
        QObject::connect(action, &QAction::triggered, &menu, [run, command] { run(command); });
}

const CodeObject* ObjectAt(const std::string& key) {
    return gProjekt && !key.empty() ? ObjectOfNode(*gProjekt, NodeId(key)) : nullptr;
}

}  // namespace

bool CanDelete(const std::string& key) {
    const CodeObject* const object = ObjectAt(key);
    return !object || CanBeDeleted(*object);
}

void AddObjectItems(QMenu& menu, const ObjectItems& items) {
    const CodeObject* const object = ObjectAt(items.key);
    const bool hasReasons = !object || Reach::Covers(*object);
    if (!items.isSymbol)
        Add(menu, Command::GoTo, items.run, items.leadsOn);
    Add(menu, Command::FindCallers, items.run, true);
    if (!items.isSymbol)
        Add(menu, Command::ShowInGraph, items.run, true);
    menu.addSeparator();
    for (const Command command :
         {Command::ShowWhy, Command::CallPath, Command::Impact, Command::DeclareEntry, Command::LeaveAlone})
        Add(menu, command, items.run, hasReasons);
    menu.addSeparator();
}
