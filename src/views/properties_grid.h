// The grid of properties under its heading: two columns, the label and the value.
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
    /// Where something else names the grid already.
    void HideHeading();
    /// The selected rows, or all when none is, each as label, tab and value.
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
