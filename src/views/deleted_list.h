// The list of what was deleted from the open project: takes deletions back, goes to their places, has them saved. It
// stays open beside the main window.
#pragma once

#include <QDialog>
#include <functional>
#include <vector>

class Deletions;
class QLabel;
class QPushButton;
class QStackedWidget;
class QTableWidget;

class DeletedList final : public QDialog {
    Q_OBJECT

public:
    explicit DeletedList(QWidget* parent = nullptr);

    /// Where the deletions are; they outlive the list.
    void SetSource(const Deletions& deletions);
    /// Reads them again.
    void Refresh();
    void Texte();
    /// Shows the window above the others, with the latest deletion selected and the keys in the table.
    void Present();

Q_SIGNALS:
    // Numbers of deletions.
    void UndoAsked(const std::vector<int>& numbers);
    void PlaceChosen(int number);
    void SaveAsked();

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void Build();
    void FillRow(int row);
    void ShowSelected();
    void Undo();
    void GoToPlace();
    [[nodiscard]] int Selected() const;

    const Deletions* deletions_ = nullptr;
    QStackedWidget* pages_;
    QTableWidget* table_;
    QLabel* empty_;
    QLabel* remark_;
    QPushButton *cmdUndo_, *cmdUndoAll_, *cmdGoTo_, *cmdSave_, *cmdClose_;
};
