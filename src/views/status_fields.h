// The right side of the status bar: values at fixed places, separated by thin lines. If the window is too narrow, the
// first fields are hidden, so that the bar does not limit the width of the window.
#pragma once

#include <QStringList>
#include <QWidget>
#include <vector>

class QLabel;

class StatusFields final : public QWidget {
    Q_OBJECT

public:
    explicit StatusFields(QWidget* parent = nullptr);

    /// A field keeps the width of its widest text, so that the others do not move. An empty list clears all fields.
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
