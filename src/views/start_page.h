// What the empty window shows: an invitation to open a project, and the projects opened last.
#pragma once

#include <QWidget>
#include <string>
#include <vector>

class QLabel;
class QPushButton;
class QVBoxLayout;

class StartPage final : public QWidget {
    Q_OBJECT

public:
    explicit StartPage(QWidget* parent = nullptr);

    struct Recent {
        std::string path;  // as stored
        bool exists = true;
    };
    /// Newest first; those that are gone are greyed.
    void ShowRecent(const std::vector<Recent>& projects);
    void Texte();

Q_SIGNALS:
    void OpenClicked();
    void RecentChosen(const std::string& path);

private:
    QLabel* title_;
    QLabel* symbol_;
    QPushButton* open_;
    QLabel* hint_;
    QLabel* recentTitle_;
    QVBoxLayout* list_;
    std::vector<QPushButton*> buttons_;
    std::vector<bool> exists_;
};
