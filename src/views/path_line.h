// One line with a path that can be selected and copied. Where it is too long for its place the middle is left out, and
// the whole stands there as soon as somebody goes into it.
#pragma once

#include <QLineEdit>
#include <string_view>

class PathLine final : public QLineEdit {
    Q_OBJECT

public:
    explicit PathLine(QWidget* parent = nullptr);

    /// @param bytes  as in the sources
    void Show(std::string_view bytes);
    [[nodiscard]] const QString& Whole() const { return whole_; }
    void Texte();

protected:
    void resizeEvent(QResizeEvent* event) override;
    void focusInEvent(QFocusEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;
    void changeEvent(QEvent* event) override;

private:
    void Fit();

    QString whole_;
};
