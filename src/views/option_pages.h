// The pages of the options window. Each shows its part of a copy of the settings and changes that copy.
#pragma once

#include <QFont>
#include <QWidget>
#include <array>

#include "shell/settings.h"

class LibraryOptions;
class QCheckBox;
class QComboBox;
class QGroupBox;
class QLabel;
class QPushButton;
class QRadioButton;
class QToolButton;

/// Language, and how a project is read.
class GeneralPage final : public QWidget {
    Q_OBJECT
public:
    /// `values` must outlive the page.
    explicit GeneralPage(Settings& values, QWidget* parent = nullptr);
    void Texte();
    void ShowValues();

Q_SIGNALS:
    void Changed();

private:
    void FillCodePages();
    void TakeValues();

    Settings& values_;
    bool showing_ = false;
    QGroupBox *languageFrame_, *win32Frame_, *readFrame_;
    std::array<QRadioButton*, 2> optLanguage_, optWin32_;
    QCheckBox *loadLibs_, *readCalls_, *refreshAuto_, *procVars_, *askAtClosing_;
    LibraryOptions* libraries_;
    QLabel* codePageLabel_;
    QComboBox* codePage_;
    QLabel* note_;
};

/// Colours and fonts.
class VisualPage final : public QWidget {
    Q_OBJECT
public:
    /// `values` must outlive the page.
    explicit VisualPage(Settings& values, QWidget* parent = nullptr);
    void Texte();
    void ShowValues();

Q_SIGNALS:
    void Changed();

private:
    static constexpr std::size_t kColours = 9;
    struct FontRow {
        QLabel* title;
        QLabel* sample;
        QPushButton* choose;
        FontSetting Settings::*font;
        QFont fallback;  // where the system lacks the family
    };

    void BuildColours();
    void BuildFonts();
    void ShowColour(std::size_t nr);
    void ShowFont(const FontRow& row);
    void ChooseColour(std::size_t nr);
    void ChooseFont(const FontRow& row);

    Settings& values_;
    QGroupBox *colourFrame_, *fontFrame_;
    std::array<QToolButton*, kColours> colours_;
    std::array<QLabel*, kColours> colourLabels_;
    std::array<FontRow, 2> fonts_;
};

/// The buttons that write the reports.
class ReportsPage final : public QWidget {
    Q_OBJECT
public:
    explicit ReportsPage(QWidget* parent = nullptr);
    void Texte();
    /// Without a project there is nothing to report.
    void SetProjectOpen(bool open);
    /// A line below the buttons: where the reports were written.
    void ShowResult(const QString& text);

Q_SIGNALS:
    void ReportStructure();
    void ReportCalls();
    void ReportDeaths();

private:
    QGroupBox* frame_;
    std::array<QPushButton*, 3> reports_;
    QLabel* result_;
};
