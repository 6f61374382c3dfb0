// The part of the options window that says where the files of libraries are sought.
#pragma once

#include <QWidget>
#include <array>

#include "shell/settings.h"

class QLabel;
class QLineEdit;
class QToolButton;

class LibraryOptions final : public QWidget {
    Q_OBJECT
public:
    explicit LibraryOptions(QWidget* parent = nullptr);
    void Texte();
    void ShowValues(const Settings& values);
    /// Sets the values that the fields show.
    void TakeValues(Settings& values) const;

Q_SIGNALS:
    void Changed();

private:
    enum Field { Folders, Prefix, Registry, Fields };
    struct Row {
        QLabel* label;
        QLineEdit* text;
        QToolButton* choose;
    };
    void Choose(Field field);

    std::array<Row, Fields> rows_;
};
