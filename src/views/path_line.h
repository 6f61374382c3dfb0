// A line with a path that can be selected and copied. If it is too long, its middle is elided until the line gets the
// focus.
#pragma once

#include <QIcon>
#include <QLineEdit>
#include <string_view>

class PathLine final : public QLineEdit {
    Q_OBJECT

public:
    explicit PathLine(QWidget* parent = nullptr);

    /// @param bytes  the path, encoded as in the sources
    /// @param icon   icon of the object, shown before the path
    void Show(std::string_view bytes, const QIcon& icon = {});
    [[nodiscard]] const QString& Whole() const { return whole_; }
    void Texte();

    [[nodiscard]] QSize sizeHint() const override;
    [[nodiscard]] QSize minimumSizeHint() const override;

protected:
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void focusInEvent(QFocusEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;
    void changeEvent(QEvent* event) override;

private:
    void Fit();

    [[nodiscard]] int IconSize() const;

    QString whole_;
    QIcon icon_;
};
