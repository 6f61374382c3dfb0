// A one-line label that shortens its text in the middle instead of growing, for module names and file paths.
#pragma once

#include <QLabel>

class ElidedLabel final : public QLabel {
public:
    explicit ElidedLabel(QWidget* parent = nullptr);

    /// Sets the whole text. A tool tip shows it while it is shortened.
    void SetText(const QString& text);
    [[nodiscard]] QSize minimumSizeHint() const override;

protected:
    void paintEvent(QPaintEvent* event) override;
    bool event(QEvent* event) override;
};
