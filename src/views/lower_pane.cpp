#include "views/lower_pane.h"

#include <QTabBar>

#include "views/baum_view.h"
#include "views/properties_grid.h"
#include "widgets/qt_text.h"

LowerPane::LowerPane(Baum& collected, const Settings& settings, QWidget* parent)
    : QTabWidget(parent), properties_(new PropertiesGrid(this)), collected_(new BaumView(collected, settings, this)) {
    setDocumentMode(true);
    properties_->HideHeading();  // its tab says the same
    collected_->SetAcceptsKeys(true);
    addTab(properties_, QString());
    addTab(collected_, QString());
    tabBar()->setChangeCurrentOnDrag(true);
    tabBar()->setExpanding(false);
    // In a narrow pane names are shortened, so that both tabs stay visible as targets for a drop.
    tabBar()->setUsesScrollButtons(false);
    setElideMode(Qt::ElideRight);
    // The tab bar takes the focus itself. As QTabWidget's focus proxy it would get the focus back each time Tab leaves
    // it.
    setFocusProxy(nullptr);
    setFocusPolicy(Qt::NoFocus);
}

void LowerPane::Texte() {
    setAccessibleName(TextNr(Text::Properties));
    setTabText(0, TextNr(Text::Properties));
    setTabText(1, TextNr(Text::CollectedModules));
    for (int tab = 0; tab < count(); ++tab)
        setTabToolTip(tab, tabText(tab));
    properties_->Texte();
    collected_->SetTexte(Text::CollectedModules, Text::EmptyCollectedTree);
    collected_->Texte();
}
