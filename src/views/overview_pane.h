// The overview of the project, where no object is shown: its numbers, and the list behind each of them.
#pragma once

#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "display/overview_lists.h"
#include "findings/project_overview.h"
#include "shell/text_numbers.h"
#include "views/content_stack.h"
#include "views/overview_row.h"

class OverviewTable;
class QBoxLayout;
class QLabel;
class QPushButton;
class QScrollArea;
class QVBoxLayout;

class OverviewPane final : public ContentPane {
    Q_OBJECT

public:
    explicit OverviewPane(QWidget* parent = nullptr);

    /// Shows the numbers; a list that is open stays so.
    void Show(const ProjectOverview& overview);
    /// Puts the focus into what is shown: the list or the numbers.
    void Focus();
    /// Back from a list to the numbers.
    void ShowPage();
    /// Shows the list behind a number.
    void ShowList(OverviewList list, std::vector<ListedObject> rows);

    /// The list that is open, with the key of its current row.
    struct ListPlace {
        OverviewList list;
        std::string key;
    };
    [[nodiscard]] std::optional<ListPlace> OpenList() const;
    /// Opens the list again after the pane was cleared.
    void ComeBackTo(const ListPlace& place, std::vector<ListedObject> rows);

    [[nodiscard]] ContentMode Mode() const override { return ContentMode::Overview; }
    void Texte() override;
    void ApplySettings() override {}
    void Clear() override;

Q_SIGNALS:
    void ListChosen(OverviewList list);
    void ObjectChosen(const std::string& key);
    void ProblemsChosen();
    void ReadCallsChosen();

protected:
    void resizeEvent(QResizeEvent* event) override;
    void changeEvent(QEvent* event) override;

private:
    void BuildPage();
    void BuildList();
    void Fill();
    void FillNumbers();
    void FillLargest();
    void Add(QVBoxLayout& column, const OverviewRow::Content& content, std::function<void()> chosen);
    void AddNumber(Text label, int value, OverviewList list, const QString& note = {}, bool inner = false);
    void AlignColumns();
    void ApplyFonts();
    void NameList();
    void OpenTable(OverviewList list, std::size_t rows);

    ProjectOverview overview_;
    bool hasProject_ = false;
    QScrollArea* page_;
    QLabel* title_;
    QBoxLayout* columns_;  // beside each other where there is room
    QVBoxLayout *numbers_, *largest_;
    QLabel* largestTitle_;
    QPushButton* readCalls_;
    std::vector<OverviewRow*> rows_;
    QWidget* listPage_;
    QPushButton* back_;
    QLabel* listTitle_;
    OverviewTable* table_;
    OverviewList list_ = OverviewList::AllModules;
    int listed_ = 0;
};
