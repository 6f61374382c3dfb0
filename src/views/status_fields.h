// The right side of the status bar: values in fixed places with quiet lines between them. Where the window is too
// narrow for all of them the first ones are left out, and the window can still be made narrower.
#pragma once

#include <QStringList>
#include <QWidget>
#include <vector>

class QLabel;

class StatusFields final : public QWidget {
    Q_OBJECT

public:
    explicit StatusFields(QWidget* parent = nullptr);

    /// A field keeps the width of its widest text, so that the others stay where they are. An empty list empties all.
    void Show(const QStringList& texts);

    [[nodiscard]] QSize sizeHint() const override;
    [[nodiscard]] QSize minimumSizeHint() const override;

protected:
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void changeEvent(QEvent* event) override;

private:
    struct Field {
        QLabel* label;
        int width = 0;
    };
    void LayOut();
    [[nodiscard]] int Gap() const;

    std::vector<Field> fields_;
};
