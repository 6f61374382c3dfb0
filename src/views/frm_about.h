// The about window: name, version and licence of the program. A click anywhere closes it.
#pragma once

#include <QDialog>

class QLabel;
class QPushButton;

class frmAbout final : public QDialog {
    Q_OBJECT
public:
    /// @param productPage  target of labLink, which is hidden if this is empty
    explicit frmAbout(QWidget* parent = nullptr, const QString& productPage = ProductPage());

    void Texte();

protected:
    void mousePressEvent(QMouseEvent* event) override;
    void showEvent(QShowEvent* event) override;

private:
    [[nodiscard]] static QString ProductPage();

    QLabel* icon_;
    QLabel* version_;
    QLabel* licence_;
    QLabel* library_;
    QLabel* labLink_;
    QPushButton* cmdClose_;
    QString page_;
};
