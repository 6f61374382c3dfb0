// The properties of an object under a heading: two columns, label and value.
#pragma once

#include <QWidget>

#include "display/properties.h"

class QLabel;
class QTableWidget;

class PropertiesGrid final : public QWidget {
    Q_OBJECT

public:
    explicit PropertiesGrid(QWidget* parent = nullptr);

    /// Replaces all rows.
    void Show(PropertyRows rows);
    void Clear() { Show({}); }
    void Texte();
    /// For a place where another caption names the grid.
    void HideHeading();
    /// The selected rows, or all if none is selected, each as label, tab and value.
    [[nodiscard]] QString AsText() const;

    [[nodiscard]] QTableWidget& Grid() const { return *grid_; }

protected:
    void changeEvent(QEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void Fill();
    void Copy() const;

    PropertyRows rows_;
    QLabel* labEigenschaften_;
    QTableWidget* grid_;
    QLabel* empty_;
    QAction* copy_;
};
