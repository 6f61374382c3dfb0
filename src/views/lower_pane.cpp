#include "views/lower_pane.h"

#include <QTabBar>

#include "views/baum_view.h"
#include "views/properties_grid.h"
#include "views/qt_text.h"

LowerPane::LowerPane(Baum& collected, QWidget* parent)
    : QTabWidget(parent), properties_(new PropertiesGrid(this)), collected_(new BaumView(collected, this)) {
    setDocumentMode(true);
    properties_->HideHeading();  // its tab says the same
    collected_->SetAcceptsKeys(true);
    addTab(properties_, QString());
    addTab(collected_, QString());
    tabBar()->setChangeCurrentOnDrag(true);
    tabBar()->setExpanding(false);
}

void LowerPane::Texte() {
    setTabText(0, TextNr(53));
    setTabText(1, TextNr(188));
    properties_->Texte();
    collected_->SetTexte(188, 186);
    collected_->Texte();
}
