// The tabs with the properties of the current object, with all places that call or use it, with why it is alive or
// dead, and with the modules collected by dragging.
#pragma once

#include <QTabWidget>
#include <optional>

class Baum;
class BaumView;
class PropertiesGrid;
class ReachList;
class ReferencesList;
struct Settings;

class LowerPane final : public QTabWidget {
    Q_OBJECT

public:
    /// @param collected  the tree that takes what is dropped
    LowerPane(Baum& collected, const Settings& settings, QWidget* parent = nullptr);
    [[nodiscard]] PropertiesGrid& Properties() const { return *properties_; }
    [[nodiscard]] ReferencesList& References() const { return *references_; }
    [[nodiscard]] ReachList& Why() const { return *why_; }
    /// The rows of the list are others now; its tab says how many, if that is known.
    void RenewReferences(std::optional<int> count, const QString& whyNone);
    [[nodiscard]] BaumView& BaumDLL() const { return *collected_; }
    void Texte();

private:
    void NameTabs();

    PropertiesGrid* properties_;
    ReferencesList* references_;
    ReachList* why_;
    BaumView* collected_;
    std::optional<int> referenceCount_;
};
