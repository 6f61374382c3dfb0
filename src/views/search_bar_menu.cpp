// What else can be done with a hit than go to its object.
#include <QListView>
#include <QMenu>

#include "views/search_bar.h"
#include "widgets/qt_text.h"

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
    menu->addAction(TextNr(Text::ShowInGraph), this, [this, key = hit->nodeKey] {
        Close();
        Q_EMIT GraphAsked(key);
    });
    menu->popup(view_->viewport()->mapToGlobal(point));
}
