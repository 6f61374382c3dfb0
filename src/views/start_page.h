// The page of the empty window: an invitation to open a project, and the recent projects.
#pragma once

#include <QScrollArea>
#include <string>
#include <vector>

class QLabel;
class QPushButton;
class QVBoxLayout;

/// A recent project on two lines: file name and folder.
class RecentButton;

class StartPage final : public QScrollArea {
    Q_OBJECT

public:
    explicit StartPage(QWidget* parent = nullptr);

    struct Recent {
        std::string path;  // as in the settings
        bool exists = true;
    };
    /// Newest first; missing projects are greyed.
    void ShowRecent(const std::vector<Recent>& projects);
    void Texte();

Q_SIGNALS:
    void OpenClicked();
    void RecentChosen(const std::string& path);

protected:
    void changeEvent(QEvent* event) override;

private:
    void ApplyFonts();

    QLabel* title_;
    QLabel* symbol_;
    QPushButton* open_;
    QLabel* hint_;
    QLabel* recentTitle_;
    QVBoxLayout* list_;
    std::vector<RecentButton*> buttons_;
};
