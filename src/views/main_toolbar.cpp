#include "views/main_toolbar.h"

#include <QLayout>
#include <QToolButton>

#include "views/commands.h"
#include "widgets/qt_text.h"

MainToolbar::MainToolbar(Commands& commands, QWidget* parent) : QToolBar(parent), commands_(commands) {
    setObjectName(QStringLiteral("Toolbar1"));
    setMovable(false);
    setContextMenuPolicy(Qt::PreventContextMenu);
    setIconSize(QSize(24, 24));
    const auto add = [&](std::initializer_list<Command> group, bool isFirst = false) {
        if (!isFirst)
            addSeparator();
        for (const Command item : group)
            addAction(&commands_[item]);
    };
    add({Command::OpenProject}, true);
    add({Command::Calls, Command::Refresh});
    add({Command::NavPrev, Command::NavNext});
    add({Command::SplitForContent, Command::SplitForCalls});
    add({Command::ContentCode, Command::ContentGraph, Command::ContentChart});
    auto* space = new QWidget(this);
    space->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Preferred);
    addWidget(space);
    addAction(&commands_[Command::Search]);
    addAction(&commands_[Command::Options]);
}

void MainToolbar::Texte() {
    setWindowTitle(TextNr(Text::Toolbar));
    setAccessibleName(TextNr(Text::Toolbar));
}

void MainToolbar::Fit(int room) {
    const auto show = [this](std::initializer_list<Command> commands, Qt::ToolButtonStyle style) {
        for (const Command command : commands)
            if (auto* button = qobject_cast<QToolButton*>(widgetForAction(&commands_[command])))
                button->setToolButtonStyle(style);
        layout()->invalidate();
    };
    show({Command::OpenProject, Command::Calls, Command::ContentCode, Command::ContentGraph, Command::ContentChart,
          Command::Search},
         Qt::ToolButtonTextBesideIcon);
    const auto isTooWide = [this, room] { return sizeHint().width() > room; };
    if (isTooWide())
        show({Command::Search}, Qt::ToolButtonIconOnly);
    if (isTooWide())
        show({Command::ContentCode, Command::ContentGraph, Command::ContentChart}, Qt::ToolButtonIconOnly);
    if (isTooWide())
        show({Command::Calls}, Qt::ToolButtonIconOnly);
}
