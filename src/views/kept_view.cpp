#include "views/kept_view.h"

#include <QAbstractScrollArea>
#include <QScrollBar>

#include "display/code_colours.h"
#include "display/text_change.h"
#include "views/baum_view.h"
#include "views/code_view.h"

KeptView::KeptView(const QWidget& window, const CodeView& code, const CodeText& text, std::string path)
    : path_(std::move(path)),
      text_(text.text),
      selStart_(code.SelStart()),
      selLength_(code.SelLength()),
      topLine_(code.verticalScrollBar()->value()) {
    for (QAbstractScrollArea* area : window.findChildren<QAbstractScrollArea*>()) {
        if (area == &code)
            continue;
        Scrolled place{area, area->horizontalScrollBar()->value(), area->verticalScrollBar()->value()};
        if (const auto* tree = qobject_cast<BaumView*>(area))
            if (const BaumNode* top = tree->Model().NodeAt(tree->indexAt(QPoint(1, 1))))
                place.top = top->Id();
        scrolled_.push_back(std::move(place));
    }
}

void KeptView::ScrollTree(BaumView& tree, const Scrolled& place) {
    const BaumNode* const top = place.top.key.empty() ? nullptr : tree.Tree().Find(place.top);
    if (top && place.down > 0)
        tree.scrollTo(tree.Model().IndexOf(top), QAbstractItemView::PositionAtTop);
}

void KeptView::ComeBack(CodeView& code, const CodeText& text, const std::string& path) const {
    for (const Scrolled& place : scrolled_) {
        if (!place.area)
            continue;
        if (auto* tree = qobject_cast<BaumView*>(place.area.data())) {
            ScrollTree(*tree, place);
            continue;
        }
        place.area->horizontalScrollBar()->setValue(place.across);
        place.area->verticalScrollBar()->setValue(place.down);
    }
    if (path_.empty() || path != path_)
        return;
    const TextChange change(text_, text.text);
    const auto moved = [&](int place) { return static_cast<int>(change.Moved(static_cast<std::size_t>(place))); };
    const int start = moved(selStart_);
    code.Select({start, moved(selStart_ + selLength_) - start});
    code.verticalScrollBar()->setValue(LineAtPlace(text.text, change.Moved(LineBegin(text_, topLine_))));
}
