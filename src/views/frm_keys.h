// The list of all keys: each command of the window that has one.
#pragma once

#include <QDialog>
#include <QList>
#include <utility>

class QAction;
class QPushButton;
class QTableWidget;

class frmKeys final : public QDialog {
    Q_OBJECT
public:
    explicit frmKeys(QWidget* parent = nullptr);

    /// Lists the actions that have keys, in their order, and behind them what is no action, as (command, keys).
    void Fill(const QList<QAction*>& actions, const QList<std::pair<QString, QString>>& others = {});
    void Texte();

private:
    void AddRow(const QString& command, const QString& keys);

    QTableWidget* table_;
    QPushButton* cmdCopy_;
    QPushButton* cmdClose_;
};
