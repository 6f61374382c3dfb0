// Asks before objects are deleted: shows each with its lines and who still calls it.
#pragma once

#include <QDialog>
#include <vector>

#include "display/deletion_plan.h"

class QLabel;
class QPushButton;
class QTableWidget;

class frmDelete final : public QDialog {
    Q_OBJECT

public:
    explicit frmDelete(QWidget* parent = nullptr);

    /// Whether to delete them. Esc and Enter mean No.
    /// @param callsRead  or else it is not known who calls them
    [[nodiscard]] bool Ask(const std::vector<DeletionRow>& rows, bool callsRead);

private:
    void Fill(const std::vector<DeletionRow>& rows, bool callsRead);

    QLabel* question_;
    QTableWidget* table_;
    QLabel* remark_;
    QPushButton* cmdDelete_;
    QPushButton* cmdCancel_;
};
