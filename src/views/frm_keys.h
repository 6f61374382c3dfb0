// The list of keyboard shortcuts of the window's commands.
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

    /// Lists the actions that have shortcuts in their order, followed by `others` as (command, keys).
    void Fill(const QList<QAction*>& actions, const QList<std::pair<QString, QString>>& others = {});
    void Texte();

private:
    void AddRow(const QString& command, const QString& keys);

    QTableWidget* table_;
    QPushButton* cmdCopy_;
    QPushButton* cmdClose_;
};
