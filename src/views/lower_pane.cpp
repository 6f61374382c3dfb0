#include "views/lower_pane.h"

#include <QTabBar>
#include <algorithm>

#include "views/baum_view.h"
#include "views/properties_grid.h"
#include "views/reach_list.h"
#include "views/references_list.h"
#include "widgets/qt_text.h"

namespace {

constexpr int kReferences = 1;    // place of this tab
constexpr int kSmallestTab = 28;  // pixels: a target for a drop, and a letter of its name

// In a narrow pane the last names are shortened first; the others stay whole, as does the number of references. The
// names never keep the pane from being narrower, or the bar beside it would jump with each number.
class Tabs final : public QTabBar {
public:
    using QTabBar::QTabBar;

    // With room for a number of references, which not every object has.
    [[nodiscard]] QSize sizeHint() const override {
        const bool hasNumber = tabText(kReferences).contains(QLatin1Char('('));
        const int number = hasNumber ? 0 : fontMetrics().horizontalAdvance(QStringLiteral(" (999)"));
        return {WholeWidth() + number, QTabBar::sizeHint().height()};
    }

protected:
    [[nodiscard]] QSize tabSizeHint(int tab) const override {
        QSize size = QTabBar::tabSizeHint(tab);
        int missing = WholeWidth() - width();
        for (int last = count() - 1; last > tab && missing > 0; --last)
            missing -= std::max(0, QTabBar::tabSizeHint(last).width() - kSmallestTab);
        if (missing > 0)
            size.setWidth(std::max(std::min(size.width(), kSmallestTab), size.width() - missing));
        return size;
    }
    [[nodiscard]] QSize minimumTabSizeHint(int tab) const override {
        return {kSmallestTab, QTabBar::minimumTabSizeHint(tab).height()};
    }

private:
    [[nodiscard]] int WholeWidth() const {
        int whole = 0;
        for (int tab = 0; tab < count(); ++tab)
            whole += QTabBar::tabSizeHint(tab).width();
        return whole;
    }
};

}  // namespace

LowerPane::LowerPane(Baum& collected, const Settings& settings, QWidget* parent)
    : QTabWidget(parent),
      properties_(new PropertiesGrid(this)),
      references_(new ReferencesList(this)),
      why_(new ReachList(this)),
      collected_(new BaumView(collected, settings, this)) {
    setTabBar(new Tabs(this));
    setDocumentMode(true);
    properties_->HideHeading();  // its tab says the same
    collected_->SetAcceptsKeys(true);
    addTab(properties_, QString());
    addTab(references_, QString());
    why_->setObjectName(QStringLiteral("why"));
    addTab(why_, QString());
    addTab(collected_, QString());
    tabBar()->setChangeCurrentOnDrag(true);
    tabBar()->setExpanding(false);
    // In a narrow pane a name is shortened, so that all tabs stay visible as targets for a drop.
    tabBar()->setUsesScrollButtons(false);
    setElideMode(Qt::ElideRight);
    // The tab bar takes the focus itself. As QTabWidget's focus proxy it would get the focus back each time Tab leaves
    // it.
    setFocusProxy(nullptr);
    setFocusPolicy(Qt::NoFocus);
}

void LowerPane::Texte() {
    setAccessibleName(TextNr(Text::Properties));
    NameTabs();
    properties_->Texte();
    references_->Texte();
    collected_->SetTexte(Text::CollectedModules, Text::EmptyCollectedTree);
    collected_->Texte();
}

void LowerPane::RenewReferences(std::optional<int> count, const QString& whyNone) {
    referenceCount_ = count;
    references_->Renew(count.value_or(0), whyNone);
    NameTabs();
}

void LowerPane::NameTabs() {
    setTabText(indexOf(properties_), TextNr(Text::Properties));
    setTabText(indexOf(references_), WithCount(TextNr(Text::References), referenceCount_));
    setTabText(indexOf(why_), TextNr(Text::Why));
    setTabText(indexOf(collected_), TextNr(Text::CollectedModules));
    for (int tab = 0; tab < count(); ++tab)
        setTabToolTip(tab, tabText(tab));
}
