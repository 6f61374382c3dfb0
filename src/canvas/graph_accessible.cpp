#include "canvas/graph_accessible.h"

#include <QAccessibleWidget>
#include <QPointer>
#include <map>

#include "canvas/graph_canvas.h"

namespace {

class CanvasAccessible;

// One entry of the list. Qt keeps it, and asks it also when the list has become shorter.
class EntryAccessible final : public QAccessibleInterface, public QAccessibleActionInterface {
public:
    EntryAccessible(GraphCanvas& canvas, int nr) : canvas_(&canvas), nr_(nr) {}

    [[nodiscard]] bool isValid() const override { return canvas_ && nr_ < canvas_->ListedCount(); }
    [[nodiscard]] QObject* object() const override { return nullptr; }
    [[nodiscard]] QAccessibleInterface* childAt(int, int) const override { return nullptr; }
    [[nodiscard]] QAccessibleInterface* parent() const override {
        return canvas_ ? QAccessible::queryAccessibleInterface(canvas_) : nullptr;
    }
    [[nodiscard]] QAccessibleInterface* child(int) const override { return nullptr; }
    [[nodiscard]] int childCount() const override { return 0; }
    [[nodiscard]] int indexOfChild(const QAccessibleInterface*) const override { return -1; }
    [[nodiscard]] QString text(QAccessible::Text what) const override {
        if (!isValid())
            return {};
        return what == QAccessible::Name          ? canvas_->ListedAt(nr_).name
               : what == QAccessible::Description ? canvas_->ListedAt(nr_).about
                                                  : QString();
    }
    void setText(QAccessible::Text, const QString&) override {}
    [[nodiscard]] QRect rect() const override {
        if (!isValid())
            return {};
        const QRect place = canvas_->ListedAt(nr_).place;
        return {canvas_->viewport()->mapToGlobal(place.topLeft()), place.size()};
    }
    [[nodiscard]] QAccessible::Role role() const override { return QAccessible::ListItem; }
    [[nodiscard]] QAccessible::State state() const override {
        QAccessible::State state;
        if (!isValid()) {
            state.invalid = true;
            return state;
        }
        const GraphCanvas::Listed entry = canvas_->ListedAt(nr_);
        state.selectable = entry.isSymbol;
        state.selected = entry.isSelected;
        state.focusable = entry.isSymbol;
        state.focused = entry.isActive && canvas_->hasFocus();
        state.offscreen = !canvas_->viewport()->rect().intersects(entry.place);
        return state;
    }
    void* interface_cast(QAccessible::InterfaceType type) override {
        return type == QAccessible::ActionInterface ? static_cast<QAccessibleActionInterface*>(this) : nullptr;
    }
    [[nodiscard]] QStringList actionNames() const override { return {pressAction()}; }
    void doAction(const QString& name) override {
        if (name == pressAction() && isValid())
            canvas_->ChooseListed(nr_);
    }
    [[nodiscard]] QStringList keyBindingsForAction(const QString&) const override { return {}; }

private:
    QPointer<GraphCanvas> canvas_;
    int nr_;
};

class CanvasAccessible final : public QAccessibleWidget {
public:
    explicit CanvasAccessible(GraphCanvas& canvas) : QAccessibleWidget(&canvas, QAccessible::List) {}
    ~CanvasAccessible() override {
        for (const auto& [nr, id] : entries_)
            QAccessible::deleteAccessibleInterface(id);
    }

    [[nodiscard]] int childCount() const override { return Canvas().ListedCount(); }
    [[nodiscard]] QAccessibleInterface* child(int nr) const override {
        if (nr < 0 || nr >= childCount())
            return nullptr;
        const auto known = entries_.find(nr);
        if (known != entries_.end())
            return QAccessible::accessibleInterface(known->second);
        auto* const entry = new EntryAccessible(Canvas(), nr);
        entries_[nr] = QAccessible::registerAccessibleInterface(entry);
        return entry;
    }
    [[nodiscard]] int indexOfChild(const QAccessibleInterface* child) const override {
        for (const auto& [nr, id] : entries_)
            if (QAccessible::accessibleInterface(id) == child)
                return nr;
        return -1;
    }
    [[nodiscard]] QAccessibleInterface* childAt(int x, int y) const override {
        const QPoint point = Canvas().viewport()->mapFromGlobal(QPoint(x, y));
        for (int nr = 0; nr < childCount(); ++nr)
            if (const GraphCanvas::Listed entry = Canvas().ListedAt(nr); entry.isSymbol && entry.place.contains(point))
                return child(nr);
        return nullptr;
    }

private:
    [[nodiscard]] GraphCanvas& Canvas() const { return *static_cast<GraphCanvas*>(widget()); }

    mutable std::map<int, QAccessible::Id> entries_;  // by their place in the list
};

QAccessibleInterface* MakeAccessible(const QString&, QObject* object) {
    auto* const canvas = qobject_cast<GraphCanvas*>(object);
    return canvas ? new CanvasAccessible(*canvas) : nullptr;
}

}  // namespace

void InstallGraphAccessible() {
    static const bool isInstalled = [] {
        QAccessible::installFactory(MakeAccessible);
        return true;
    }();
    static_cast<void>(isInstalled);
}

void TellContentsChanged(GraphCanvas& canvas) {
    if (!QAccessible::isActive())
        return;
    QAccessibleEvent event(&canvas, QAccessible::ObjectReorder);
    QAccessible::updateAccessibility(&event);
}
