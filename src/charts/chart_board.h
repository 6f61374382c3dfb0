// The chart of the content area: the list of charts, the zoom, and the bars of the modules that take part.
#pragma once

#include <QWidget>
#include <string>

#include "display/chart_table.h"
#include "shell/text_numbers.h"

class ChartView;
class QComboBox;
class QLabel;
class QMenu;
class QPushButton;
class QScrollBar;
class QStackedLayout;
class QToolButton;

class ChartBoard final : public QWidget {
    Q_OBJECT

public:
    explicit ChartBoard(QWidget* parent = nullptr);

    /// The chart chosen in the list.
    [[nodiscard]] ChartType Type() const;
    void Show(const ChartTable& table);
    /// Shows a text in place of the bars, with a button.
    void ShowHint(Text hint, Text button);
    /// Marks a module by the key of its node, if it takes part.
    void Mark(const std::string& key);
    void Zoom(int step);
    /// How far the bars are moved to the right, in pixels.
    [[nodiscard]] int ScrolledBy() const;
    void ScrollTo(int pixels);
    /// Where dialogs for files start until one was used.
    void SaveIn(const QString& folder) { startDirectory_ = folder; }
    [[nodiscard]] ChartView& View() const { return *view_; }

    void Texte();
    void Clear();

Q_SIGNALS:
    void TypeChosen();
    void ModulePicked(const std::string& key);
    /// The button beside the hint.
    void HintClicked();
    /// The context menu is about to open.
    void MenuFilled(QMenu& menu);
    /// A file could not be written.
    void NotWritten(const QString& path);

private:
    QLayout* BuildHead();
    void FitScroll();
    void ShowMenu(const QPoint& place);
    void SavePicture();
    void SaveTable();
    void CopyPicture() const;
    void CopyTable() const;
    [[nodiscard]] QString AskFile(const QStringList& filters, const QString& suffix);

    QComboBox* comboChart_;
    QToolButton *zoomMinus_, *zoomNo_, *zoomPlus_;
    ChartView* view_;
    QScrollBar* hScroll1_;
    QStackedLayout* pages_;
    QWidget *bars_, *hintPage_;
    QLabel* hint_;
    QPushButton* hintButton_;
    Text hintText_ = Text::None, hintButtonText_ = Text::None;
    QString startDirectory_, saveDirectory_;
};
