// A line of the overview: a label with its number, a button as a whole.
#pragma once

#include <QIcon>
#include <QPushButton>

class OverviewRow final : public QPushButton {
    Q_OBJECT

public:
    struct Content {
        QString label;
        QString value;
        QString note = {};   // after the value, dimmed
        bool inner = false;  // belongs to the line above
        bool wide = false;   // the value is no number and takes the room that it needs
        double bar = -1;     // length of a bar below the label as a share of the width; below 0: none
        QIcon icon = {};
    };
    explicit OverviewRow(QWidget* parent = nullptr);

    /// @param leads  whether a click leads anywhere; the look stays the same
    void Show(const Content& content, bool leads);
    /// Widths of the columns with values and notes, which all lines of a page share.
    void SetColumns(int values, int notes);
    [[nodiscard]] int ValueWidth() const;
    [[nodiscard]] int NoteWidth() const;

    [[nodiscard]] QSize sizeHint() const override;

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    Content content_;
    int values_ = 0;
    int notes_ = 0;
};
