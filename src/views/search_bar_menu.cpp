// What else can be done with a hit than go to its object.
#include <QListView>
#include <QMenu>

#include "views/commands.h"
#include "views/context_ways.h"
#include "views/search_bar.h"

std::string SearchBar::HitKey() const {
    const HitRow* const hit = list_->isVisible() ? model_->RowAt(view_->currentIndex()) : nullptr;
    return hit ? hit->nodeKey : std::string();
}

void SearchBar::ShowMenu(const QPoint& point) {
    const HitRow* const hit = model_->RowAt(view_->indexAt(point));
    if (!hit)
        return;
    auto* menu = new QMenu(this);
    menu->setAttribute(Qt::WA_DeleteOnClose);
    ObjectItems items;
    items.key = hit->nodeKey;
    items.run = [this, key = hit->nodeKey](Command command) {
        Close();
        Q_EMIT CommandAsked(command, key);
    };
    AddObjectItems(*menu, items);
    Commands::GiveLetters(menu->actions());
    menu->popup(view_->viewport()->mapToGlobal(point));
}
