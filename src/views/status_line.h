// The status bar of the main window: what was done last, the counts of the project, and how many problems there are.
#pragma once

#include <QObject>

class ElidedLabel;
class QStatusBar;
class QToolButton;
class StatusFields;
class clsProjekt;

class StatusLine final : public QObject {
    Q_OBJECT

public:
    explicit StatusLine(QStatusBar& bar);

    void Message(const QString& text);
    /// A message about where the user is; it goes when another object is shown.
    void Remark(const QString& text);
    /// Which of several places is shown: "1 of 4". The message goes when there are not several any more.
    void ShowPlace(int index, int count);
    /// The message comes before the counts, but leaves some room to them in a window of this width.
    void Fit(int width);
    /// Counts of a project, which may be null, and how many problems were reported.
    void ShowCounts(const clsProjekt* projekt, bool callsRead);
    void ShowProblemCount();

Q_SIGNALS:
    void ProblemsClicked();

private:
    QStatusBar& bar_;
    ElidedLabel* message_;
    StatusFields* counts_;
    QToolButton* problemCount_;
    int width_ = 0;
    bool isOfPlace_ = false;
};
