#include "window_invariants.h"

#include <QtWidgets>

#include "display/baum_walk.h"
#include "display/command_table.h"
#include "display/dependency_trees.h"
#include "display/node_objects.h"
#include "display/project_reach.h"
#include "display/selection.h"
#include "display/tree_checks.h"
#include "model/clsProjekt.h"
#include "platform/code_page.h"
#include "project/start.h"
#include "views/baum_view.h"
#include "views/code_view.h"
#include "views/commands.h"
#include "views/elided_label.h"
#include "views/fold_splitter.h"
#include "views/frm_main.h"
#include "views/main_panes.h"
#include "views/overview_pane.h"
#include "views/path_line.h"
#include "views/properties_grid.h"
#include "views/reach_list.h"
#include "views/start_page.h"
#include "widgets/qt_text.h"

namespace {

// Without the neighbours of neighbours, which are there as far as somebody has unfolded them.
std::string DumpOf(const Baum& tree) {
    std::string dump;
    ForEachNode(tree, [&dump](const BaumNode& node) {
        if (OwnKeyOf(node.Key()) == node.Key())
            dump += (node.Parent() ? node.Parent()->Key() : std::string()) + '>' + node.Key() + '\n';
    });
    return dump;
}

class Rules {
public:
    explicit Rules(frmMain& window) : window_(window), workspace_(window.TheWorkspace()) {}

    QStringList Broken() {
        Window();
        CurrentObject();
        Code();
        Neighbours();
        Filter();
        Why();
        Commands_();
        broken_ += CutTexts(window_);
        return broken_;
    }

private:
    void Expect(bool holds, const QString& what) {
        if (!holds)
            broken_.append(what);
    }
    template <class Value>
    void ExpectSame(const Value& shown, const Value& expected, const char* what) {
        if (shown != expected)
            broken_.append(QStringLiteral("%1: \"%2\" in place of \"%3\"").arg(QLatin1String(what), shown, expected));
    }
    template <class Widget>
    Widget& Find() {
        return *window_.findChild<Widget*>();
    }
    [[nodiscard]] const Selection& Current() const { return workspace_.Current(); }

    // The page says what comes out when everything is worked out again.
    void Why() {
        const auto& list = *window_.findChild<ReachList*>(QStringLiteral("why"));
        if (!list.isVisible())
            return;
        Expect(list.Rows().empty() != workspace_.HasReach(), QStringLiteral("why page"));
        if (list.Rows().empty() || !workspace_.HasReach())
            return;
        const Reach reach(*gProjekt, workspace_.TheReach().Stored(*gProjekt).declared);
        const WhyRows page = WhyRowsOf(Reasons(reach), *Current().CurObject);
        ExpectSame(QString::fromStdString(list.Rows().front().text), QString::fromStdString(page.rows.front().text),
                   "why");
    }
    void Window() {
        Expect(Find<StartPage>().isVisible() == !gProjekt, QStringLiteral("start page"));
        Expect(Find<MainPanes>().isVisible() == (gProjekt != nullptr), QStringLiteral("panes"));
        const QString title =
            gProjekt ? QStringLiteral("%1:   Ostrivane (%2)%3")
                           .arg(ToQString(gProjekt->MyName), QFileInfo(ToPath(gProjekt->FullPath)).fileName(),
                                workspace_.Deleted().Unsaved().empty() ? QString() : QStringLiteral("[*]"))
                     : QStringLiteral("Ostrivane");
        // The name of a diagram may follow.
        ExpectSame(window_.windowTitle().section(QStringLiteral("  \u2013  "), 0, 0), title, "title");
        Expect(!QApplication::activeModalWidget() && !QApplication::activePopupWidget(), QStringLiteral("open window"));
        Expect(window_.isEnabled(), QStringLiteral("window is blocked"));
    }

    void CurrentObject() {
        ExpectSame(Find<PathLine>().Whole(), gProjekt ? ToQString(CodePath_Anzeigen(Current())) : QString(), "path");
        const CodeObject* const object = Current().CurObject;
        const BaumNode* const selected = workspace_.Tree().Selected();
        // A group can be highlighted without becoming current, and a local has no node if the tree leaves locals out.
        if (object && selected && selected->Kind() == NodeKind::Object && workspace_.Tree().Exist(NodeKeyOf(*object)))
            ExpectSame(ToQString(selected->Key()), ToQString(NodeKeyOf(*object)), "selected node");
        const BaumView& view = window_.BaumProjekt();
        if (selected)
            Expect(view.currentIndex() == view.Model().IndexOf(selected), QStringLiteral("highlighted node"));
        if (object)
            ExpectSame(ToQString(workspace_.Navigation().Current().node.key), ToQString(NodeKeyOf(*object)), "history");
        const PropertyRows rows = object     ? Anzeigen_Eigenschaften(*object)
                                  : gProjekt ? Anzeigen_Eigenschaften(*gProjekt)
                                             : PropertyRows();
        PropertiesGrid expected;
        expected.Show(rows);
        const QString shown = Find<PropertiesGrid>().AsText();
        Expect(rows.empty() ? shown.isEmpty() : shown.startsWith(expected.AsText()),
               QStringLiteral("properties: \"%1\" in place of \"%2\"").arg(shown, expected.AsText()));
    }

    void Code() {
        const std::string& bytes = workspace_.Code().Text().text;
        const QString text = window_.rtbCode().toPlainText();
        Expect(text.isEmpty() == bytes.empty(), QStringLiteral("code is empty, or should be"));
        Expect(text.count(QLatin1Char('\n')) == ToQString(bytes).count(QLatin1Char('\n')),
               QStringLiteral("code lines"));
        const std::string& path = workspace_.Code().ShownPath();
        const auto owns = [&path](const CodeObject* object) { return object && object->CodePath() == path; };
        const Selection& now = Current();
        Expect(path.empty() || owns(now.CurObject) || owns(now.CurModule) || owns(now.CurProc) || owns(now.CurLib) ||
                   window_.rtbCode().PlaceCount() > 0 || now.CalledObject,
               QStringLiteral("code of ") + ToQString(path));
        const ContentMode shown = workspace_.ContentShown();
        Expect(!gProjekt || Find<OverviewPane>().isVisible() == (shown == ContentMode::Overview),
               QStringLiteral("overview"));
        Expect(!gProjekt || window_.rtbCode().isVisible() == (shown == ContentMode::Code), QStringLiteral("code"));
    }

    void Neighbours() {
        Baum calledBy, calls;
        if (gProjekt) {
            const CheckedObjects checked = Checked();
            const bool mayBeCalls = workspace_.MayBe(true), mayBeCalledBy = workspace_.MayBe(false);
            if (workspace_.FilterText() == Text::OfChecked) {
                Show_Dependencies_Group(*gProjekt, checked, calledBy, calls, mayBeCalledBy, mayBeCalls);
            } else {
                Show_Dependencies_AllCalledBy(*gProjekt, checked, Current().CurObject, calledBy, mayBeCalledBy);
                Show_Dependencies_AllCalls(*gProjekt, checked, Current().CurObject, calls, mayBeCalls);
            }
        }
        Expect(DumpOf(workspace_.CalledBy()) == DumpOf(calledBy), QStringLiteral("tree of callers"));
        Expect(DumpOf(workspace_.Calls()) == DumpOf(calls), QStringLiteral("tree of calls"));
        const DependencyButtons buttons =
            gProjekt ? Activate_Dependencies(*gProjekt, Current().CurObject) : DependencyButtons();
        const auto isOn = [this](Command command) { return window_.TheCommands()[command].isEnabled(); };
        Expect(buttons == DependencyButtons{isOn(Command::CalledByReally), isOn(Command::CalledByMaybe),
                                            isOn(Command::CallsReally), isOn(Command::CallsMaybe)},
               QStringLiteral("buttons Really and May be"));
    }

    [[nodiscard]] bool BoxesShown() const { return window_.BaumProjekt().Model().CheckBoxes(); }
    [[nodiscard]] CheckedObjects Checked() const {
        return gProjekt && BoxesShown() ? CheckedIn(*gProjekt, workspace_.Tree()) : CheckedObjects();
    }

    void Filter() {
        const std::size_t checked = Checked().Objects().size();
        Expect(workspace_.CheckedCount() == checked, QStringLiteral("count of checked objects"));
        const bool panesShown = gProjekt && window_.TheSettings().Split == SplitMode::Calls;
        for (const QToolButton* button : window_.findChildren<QToolButton*>(QStringLiteral("ShowAll")))
            Expect(button->parentWidget()->isHidden() == (checked == 0), QStringLiteral("line about the filter"));
        for (const char* name : {"CheckBoxAll", "CheckBoxNone"})
            Expect(window_.findChild<QAction*>(QLatin1String(name))->isVisible() == BoxesShown(), QLatin1String(name));
        Expect(!panesShown ||
                   window_.findChild<QToolButton*>(QStringLiteral("ReadAllCalls"))->parentWidget()->isHidden() ==
                       workspace_.CallsRead(),
               QStringLiteral("line about preliminary marks"));
    }

    void Commands_() {
        const Commands& commands = window_.TheCommands();
        const Situation now = window_.Now();
        for (const CommandRow& row : CommandTable()) {
            const QAction& action = commands[row.command];
            if (!action.isVisible())
                continue;
            const QString name = action.objectName();
            const bool enabled = IsEnabled(row.command, now);
            Expect(action.isEnabled() == enabled,
                   name + (enabled ? QStringLiteral(" is grey") : QStringLiteral(" is not grey")));
            const Text why = enabled ? Text::None : WhyDisabled(row.command, now);
            Expect(why == Text::None || action.toolTip().endsWith(TextNr(why)), name + QStringLiteral(": why grey"));
        }
        if (!gProjekt)
            return;
        const MainPanes& panes = Find<MainPanes>();
        const ContentMode shown = workspace_.ContentShown();
        const std::pair<Command, bool> marks[] = {
            {Command::ContentCode, shown == ContentMode::Code},
            {Command::Overview, shown == ContentMode::Overview},
            {Command::WholeModule, workspace_.Code().IsWhole()},
            {Command::SplitForContent, window_.TheSettings().Split == SplitMode::Content},
            {Command::SplitForCalls, window_.TheSettings().Split == SplitMode::Calls},
            {Command::SplitX, !panes.picSplitX().Folded()},
            {Command::SplitY, !panes.picSplitY().Folded()},
            {Command::CheckBoxOn, BoxesShown()},
            {Command::CalledByReally, !workspace_.MayBe(false)},
            {Command::CalledByMaybe, workspace_.MayBe(false)},
            {Command::CallsReally, !workspace_.MayBe(true)},
            {Command::CallsMaybe, workspace_.MayBe(true)}};
        for (const auto& [command, checked] : marks)
            Expect(commands[command].isChecked() == checked,
                   commands[command].objectName() + QStringLiteral(": mark in the menu"));
    }

    frmMain& window_;
    Workspace& workspace_;
    QStringList broken_;
};

// Whether a widget lies in an area that scrolls, or in a pane that is folded.
bool MayBeOutOfSight(const QWidget& widget) {
    for (const QWidget* above = &widget; above && !above->isWindow(); above = above->parentWidget())
        if (qobject_cast<const QAbstractScrollArea*>(above) || above->width() <= 0 || above->height() <= 0 ||
            above->x() + above->width() <= 0 || above->y() + above->height() <= 0)
            return true;
    return false;
}

// The part of a widget that its parents leave of it.
QSize SizeInSight(const QWidget& widget) {
    QRect inSight = widget.rect();
    QPoint place;
    for (const QWidget* above = &widget; !above->isWindow(); above = above->parentWidget()) {
        place += above->pos();
        inSight &= above->parentWidget()->rect().translated(-place);
    }
    return inSight.size();
}

QString TextOf(const QWidget& widget) {
    if (const auto* label = qobject_cast<const QLabel*>(&widget))
        return dynamic_cast<const ElidedLabel*>(label) ? QString() : label->text();
    if (const auto* button = qobject_cast<const QToolButton*>(&widget))
        return button->toolButtonStyle() == Qt::ToolButtonIconOnly && !button->icon().isNull() ? QString()
                                                                                               : button->text();
    if (const auto* button = qobject_cast<const QAbstractButton*>(&widget))
        return button->text();
    if (const auto* box = qobject_cast<const QGroupBox*>(&widget))
        return box->title();
    return {};
}

QSize Needed(const QWidget& widget) {
    const auto* label = qobject_cast<const QLabel*>(&widget);
    if (label && label->wordWrap())
        return {0, label->heightForWidth(label->width())};
    return label ? widget.sizeHint() : widget.minimumSizeHint();
}

}  // namespace

QStringList BrokenRules(frmMain& window) {
    return Rules(window).Broken();
}

QStringList CutTexts(const QWidget& window) {
    QApplication::sendPostedEvents(nullptr, QEvent::LayoutRequest);
    QStringList cut;
    for (const QWidget* widget : window.findChildren<QWidget*>()) {
        if (widget->window() != &window || !widget->isVisible() || MayBeOutOfSight(*widget))
            continue;
        const QString text = TextOf(*widget);
        const QSize needed = Needed(*widget);
        const QSize size = SizeInSight(*widget);
        if (!text.isEmpty() &&
            (size != widget->size() || size.width() < needed.width() || size.height() < needed.height()))
            cut.append(QStringLiteral("cut: \"%1\", %2 x %3 in place of %4 x %5")
                           .arg(text)
                           .arg(size.width())
                           .arg(size.height())
                           .arg(needed.width())
                           .arg(needed.height()));
        if (qobject_cast<const QToolBar*>(widget) && widget->width() < widget->sizeHint().width())
            cut.append(QStringLiteral("toolbar \"%1\" has no room for all its buttons: %2 in place of %3")
                           .arg(widget->accessibleName())
                           .arg(widget->width())
                           .arg(widget->sizeHint().width()));
    }
    return cut;
}

QStringList UnnamedWidgets(const QWidget& window) {
    QStringList unnamed;
    for (QWidget* widget : window.findChildren<QWidget*>()) {
        const bool isInner =
            widget->objectName().startsWith(QStringLiteral("qt_")) || widget->inherits("QLineEditIconButton");
        const bool isReached = widget->focusPolicy() != Qt::NoFocus || qobject_cast<QAbstractButton*>(widget);
        if (!widget->isVisible() || isInner || !isReached)
            continue;
        const QAccessibleInterface* accessible = QAccessible::queryAccessibleInterface(widget);
        if (!accessible || accessible->text(QAccessible::Name).isEmpty())
            unnamed.append(QLatin1String(widget->metaObject()->className()) + QLatin1Char(' ') + widget->objectName());
    }
    return unnamed;
}
