// A label of one line that shortens its text in the middle instead of growing: names of modules, paths of files.
#pragma once

#include <QLabel>

class ElidedLabel final : public QLabel {
public:
    explicit ElidedLabel(QWidget* parent = nullptr);

    /// The whole text, also shown on hover while it is shortened.
    void SetText(const QString& text);
    [[nodiscard]] QSize minimumSizeHint() const override;

protected:
    void paintEvent(QPaintEvent* event) override;
    bool event(QEvent* event) override;
};
