// What the user says about an object: it is an entry point, or it is to be left alone. And the list of all of it.
#pragma once

#include <QDialog>
#include <string>
#include <vector>

#include "reach/declared.h"

class QCheckBox;
class QLabel;
class QLineEdit;
class QPushButton;
class QTableWidget;

class frmDeclare final : public QDialog {
    Q_OBJECT

public:
    enum class Answer : std::uint8_t { Cancelled, Declared, Removed };
    struct Given {
        DeclaredKind kind = DeclaredKind::EntryPoint;
        QString name;     // of the object, as its path is spelled
        QString comment;  // so far
        bool isDeclared = false;
        QString file;  // in which declarations are kept
        bool besideProject = false;
    };
    frmDeclare(const Given& given, QWidget* parent);

    [[nodiscard]] Answer Ask();
    [[nodiscard]] QString Comment() const;
    [[nodiscard]] bool BesideProject() const;

private:
    Answer answer_ = Answer::Cancelled;
    QLineEdit* comment_;
    QCheckBox* beside_;
};

class frmDeclared final : public QDialog {
    Q_OBJECT

public:
    struct Row {
        QString kind, object, comment, state;
        std::string codePath;
        bool exists = false;
    };
    explicit frmDeclared(QWidget* parent);
    /// @param file  in which they are kept
    void Show(std::vector<Row> rows, const QString& file);

Q_SIGNALS:
    void GoToAsked(const std::string& codePath);
    void RemoveAsked(const std::string& codePath);

private:
    [[nodiscard]] const Row* Current() const;
    void ShowCurrent();

    std::vector<Row> rows_;
    QTableWidget* table_;
    QLabel* foot_;
    QPushButton *cmdGoTo_, *cmdRemove_, *cmdCopy_, *cmdClose_;
};
