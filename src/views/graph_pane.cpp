#include "views/graph_pane.h"

#include <QActionGroup>
#include <QMenu>
#include <QToolBar>
#include <QToolButton>
#include <QVBoxLayout>
#include <array>

#include "canvas/graph_canvas.h"
#include "views/commands.h"
#include "widgets/icons.h"
#include "widgets/qt_text.h"

namespace {

struct TypeEntry {
    ChainObjectType type;
    Text text;
    std::string_view image;
};
constexpr std::array kTypes{
    TypeEntry{ChainObjectType::Module, Text::TypeModule, "Module"},
    TypeEntry{ChainObjectType::Procedure, Text::TypeProcedure, "Procedure"},
    TypeEntry{ChainObjectType::Variable, Text::TypeVariable, "Variable"},
    TypeEntry{ChainObjectType::Type, Text::TypeType, "Type"},
    TypeEntry{ChainObjectType::Enum, Text::TypeEnum, "Enum"},
    TypeEntry{ChainObjectType::All, Text::TypeAll, "AllObjTypes"},
};
constexpr std::array kSelections{Text::SelectAllObjects, Text::SelectProcedures, Text::SelectStructures,
                                 Text::SelectVariables, Text::SelectConstants};

}  // namespace

GraphPane::GraphPane(const Settings& settings, Commands& commands, QWidget* parent)
    : ContentPane(parent),
      CoolBarEdit_(new QToolBar(this)),
      selectAll_(new QMenu(this)),
      objectTypes_(new QMenu(this)),
      objectType_(new QToolButton(this)),
      canvas_(new GraphCanvas(settings, this)) {
    CoolBarEdit_->setObjectName(QStringLiteral("CoolBarEdit"));
    CoolBarEdit_->setIconSize(QSize(16, 16));
    AddButtons(commands);
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(2);
    layout->addWidget(CoolBarEdit_);
    layout->addWidget(canvas_, 1);
}

void GraphPane::AddButtons(Commands& commands) {
    const auto add = [&](std::initializer_list<Command> group) {
        for (const Command item : group)
            CoolBarEdit_->addAction(&commands[item]);
        CoolBarEdit_->addSeparator();
    };
    add({Command::OpenGraph, Command::SaveGraph, Command::ExportGraph, Command::PrintGraph});
    add({Command::UndoGraph, Command::RedoGraph});
    add({Command::SelectAllSymbols, Command::DeleteSymbols});
    add({Command::CalledByChain, Command::CalledByChainAll, Command::CallsChain, Command::CallsChainAll});
    for (std::size_t i = 0; i < kSelections.size(); ++i)
        selectAll_->addAction(QString())->setEnabled(false);
    selectAll_->setToolTipsVisible(true);
    if (auto* const button =
            qobject_cast<QToolButton*>(CoolBarEdit_->widgetForAction(&commands[Command::SelectAllSymbols]))) {
        button->setMenu(selectAll_);
        button->setPopupMode(QToolButton::MenuButtonPopup);
    }
    auto* const group = new QActionGroup(this);
    for (const TypeEntry& entry : kTypes) {
        QAction* const action = objectTypes_->addAction(IconFor(entry.image), QString());
        action->setCheckable(true);
        action->setChecked(entry.type == chainObjectType_);
        group->addAction(action);
        connect(action, &QAction::triggered, this, [this, type = entry.type] { ChooseType(type); });
    }
    objectType_->setObjectName(QStringLiteral("ObjectType"));
    objectType_->setIcon(IconFor("Procedure"));
    objectType_->setMenu(objectTypes_);
    objectType_->setPopupMode(QToolButton::InstantPopup);
    CoolBarEdit_->addWidget(objectType_);
    CoolBarEdit_->addSeparator();
    add({Command::FetchSymbols, Command::FitGraph});
    CoolBarEdit_->addAction(&commands[Command::ShowLegend]);
}

void GraphPane::ChooseType(ChainObjectType type) {
    chainObjectType_ = type;
    isTypeChosen_ = true;
    objectType_->setIcon(IconFor(kTypes[static_cast<std::size_t>(type) - 1].image));
    Texte();
}

void GraphPane::Texte() {
    CoolBarEdit_->setWindowTitle(TextNr(Text::GraphToolbar));
    CoolBarEdit_->setAccessibleName(TextNr(Text::GraphToolbar));
    for (std::size_t i = 0; i < kTypes.size(); ++i)
        objectTypes_->actions()[static_cast<qsizetype>(i)]->setText(TextNr(kTypes[i].text));
    Commands::GiveLetters(objectTypes_->actions());
    objectTypes_->setTitle(TextNr(Text::ObjectTypeOfChains));
    const Text chosen = kTypes[static_cast<std::size_t>(chainObjectType_) - 1].text;
    objectType_->setToolTip(TextNr(isTypeChosen_ ? chosen : Text::ObjectTypeOfChains));
    objectType_->setAccessibleName(TextNr(Text::ObjectTypeOfChains));
    objectType_->setAccessibleDescription(TextNr(chosen));
    for (std::size_t i = 0; i < kSelections.size(); ++i) {
        QAction* const action = selectAll_->actions()[static_cast<qsizetype>(i)];
        action->setText(TextNr(kSelections[i]));
        action->setToolTip(TextNr(Text::LaterVersion));
    }
    canvas_->Texte();
}

void GraphPane::ApplySettings() {
    canvas_->ApplySettings();
}

void GraphPane::Zoom(int step) {
    step > 0 ? canvas_->ZoomIn() : step < 0 ? canvas_->ZoomOut() : canvas_->ZoomReset();
}

void GraphPane::Clear() {
    canvas_->Forget();
}
