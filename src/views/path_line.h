// One line with a path that can be selected and copied. Where it is too long for its place the middle is left out, and
// the whole stands there as soon as somebody goes into it.
#pragma once

#include <QIcon>
#include <QLineEdit>
#include <string_view>

class PathLine final : public QLineEdit {
    Q_OBJECT

public:
    explicit PathLine(QWidget* parent = nullptr);

    /// @param bytes  as in the sources
    /// @param icon   of what the path leads to; stands before it
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
