// The tabs with the properties of the current object and with the modules collected by dragging.
#pragma once

#include <QTabWidget>

class Baum;
class BaumView;
class PropertiesGrid;
struct Settings;

class LowerPane final : public QTabWidget {
    Q_OBJECT

public:
    /// @param collected  the tree that takes what is dropped
    LowerPane(Baum& collected, const Settings& settings, QWidget* parent = nullptr);
    [[nodiscard]] PropertiesGrid& Properties() const { return *properties_; }
    [[nodiscard]] BaumView& BaumDLL() const { return *collected_; }
    void Texte();

private:
    PropertiesGrid* properties_;
    BaumView* collected_;
};
