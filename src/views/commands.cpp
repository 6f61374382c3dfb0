#include "views/commands.h"

#include <QWidget>
#include <cassert>

#include "views/icons.h"
#include "views/mnemonics.h"
#include "views/qt_text.h"

namespace {

constexpr char kPlainTip[] = "plainTip";

struct Row {
    std::string_view key;
    Text text;
    Text tip;                // None: the text
    std::string_view image;  // empty: none
    const char* keys;        // as in portable texts, several separated by "|"
    bool hasDialog = false;  // the text gets "…" behind it
    bool checkable = false;
    Text of =
        Text::None;  // stands before the text with a colon wherever there is room for it; buttons show the text alone
};

constexpr Row kRows[] = {
    {"OpenProject", Text::OpenProject, Text::None, "OpenProject", "Ctrl+O"},
    {"CloseProject", Text::CloseProject, Text::None, "Close", ""},
    {"ReportStructure", Text::StructureReports, Text::None, "Reports", ""},
    {"ReportCalls", Text::CallsReports, Text::None, "Reports", ""},
    {"ReportDeaths", Text::DeathsReport, Text::None, "Reports", ""},
    {"Exit", Text::Exit, Text::None, "Exit", "Ctrl+Q"},

    {"ContentCode", Text::Code, Text::None, "ContentCode", "", false, true},
    {"ContentGraph", Text::XGraph, Text::None, "ContentGraph", "", false, true},
    {"ContentChart", Text::Chart, Text::None, "ContentChart", "", false, true},
    {"SplitForContent", Text::SplitForContent, Text::None, "SplitForContent", "", false, true},
    {"SplitForCalls", Text::SplitForCalls, Text::None, "SplitForCalls", "", false, true},
    {"SplitX", Text::LeftPane, Text::None, "SplitXShow", "", false, true},
    {"SplitY", Text::UpperPane, Text::None, "SplitYShow", "", false, true},
    {"CollapseAll", Text::CollapseAll, Text::None, "CollapseAll", ""},
    {"CheckBoxOn", Text::CheckBoxes, Text::None, "CheckBoxOff", "", false, true},
    {"CheckBoxAll", Text::CheckAllModules, Text::None, "CheckBoxAll", ""},
    {"CheckBoxNone", Text::UncheckAllModules, Text::None, "CheckBoxNone", ""},
    {"Search", Text::FindObject, Text::None, "Search", "Ctrl+F"},
    {"NavPrev", Text::Back, Text::None, "NavPrev", "Alt+Left"},
    {"NavNext", Text::Forward, Text::None, "NavNext", "Alt+Right"},
    {"ZoomPlus", Text::ZoomIn, Text::None, "ZoomPlus", "Ctrl++|Ctrl+="},
    {"ZoomMinus", Text::ZoomOut, Text::None, "ZoomMinus", "Ctrl+-"},
    {"ZoomNo", Text::NormalSize, Text::None, "ZoomNo", "Ctrl+0"},
    {"Problems", Text::ShowProblems, Text::None, "Problems", "", true},
    {"Options", Text::Options, Text::None, "Options", "", true},

    {"Structure", Text::ReadStructure, Text::None, "Structure", ""},
    {"CallsModule", Text::ForCurrentModule, Text::None, "CallsModule", ""},
    {"Refresh", Text::Refresh, Text::None, "Refresh", "F5"},
    {"DeleteObject", Text::None, Text::None, "Delete", ""},

    {"CopyName", Text::CopyName, Text::None, "Copy", ""},
    {"CopyCodePath", Text::CopyCodePath, Text::None, "", ""},
    {"CopyAsText", Text::CopyAsText, Text::None, "", ""},

    {"Calls", Text::ReadAllCalls, Text::ReadCalls, "CallsReadNot", "", true},
    {"CallsOfModule", Text::ForCurrentModule, Text::None, "CallsModule", ""},
    {"Uses", Text::UsesOfTypes, Text::None, "Uses", ""},
    {"UsesShow", Text::UsesOfTypes, Text::None, "UsesShow", ""},
    {"CalledByReally", Text::Really, Text::None, "CalledByReally", "", false, true, Text::CalledBy},
    {"CalledByMaybe", Text::MayBe, Text::None, "CalledByMaybe", "", false, true, Text::CalledBy},
    {"CallsReally", Text::Really, Text::None, "CallsReally", "", false, true, Text::Calls},
    {"CallsMaybe", Text::MayBe, Text::None, "CallsMaybe", "", false, true, Text::Calls},
    {"NextPlace", Text::NextPlace, Text::None, "", "F3"},
    {"PreviousPlace", Text::PreviousPlace, Text::None, "", "Shift+F3"},

    {"WebPage", Text::WebPage, Text::None, "", ""},
    {"Keys", Text::KeyboardShortcuts, Text::None, "", "", true},
    {"Diagnosis", Text::Summary, Text::None, "", "Ctrl+D", true},
    {"About", Text::About, Text::None, "About", "F1"},
};

}  // namespace

Commands::Commands(QWidget* window) : QObject(window) {
    for (const Row& row : kRows) {
        auto* action = new QAction(window);
        action->setObjectName(QString::fromUtf8(row.key.data(), static_cast<qsizetype>(row.key.size())));
        action->setCheckable(row.checkable);
        if (!row.image.empty())
            action->setIcon(IconFor(row.image));
        QList<QKeySequence> keys;
        const QStringList texts = QString::fromLatin1(row.keys).split(QLatin1Char('|'), Qt::SkipEmptyParts);
        for (const QString& text : texts)
            keys.append(QKeySequence::fromString(text, QKeySequence::PortableText));
        action->setShortcuts(keys);
        window->addAction(action);  // its keys work wherever the focus is, also while its menu is hidden
        byKey_.emplace(row.key, action);
        all_.push_back(action);
    }
}

QAction& Commands::operator[](std::string_view key) const {
    const auto found = byKey_.find(key);
    assert(found != byKey_.end());
    return *found->second;
}

void Commands::SetTexts(QAction& action, const QString& text, const QString& tip) {
    action.setText(text);
    const QString keys = action.shortcut().toString(QKeySequence::NativeText);
    const QString whole = keys.isEmpty() ? tip : QStringLiteral("%1 (%2)").arg(tip, keys);
    action.setProperty(kPlainTip, whole);
    action.setToolTip(whole);
}

QString Commands::PlainTip(const QAction& action) {
    return action.property(kPlainTip).toString();
}

QList<QAction*> Commands::InUse() const {
    QList<QAction*> inUse;
    for (QAction* action : all_)
        if (!action->shortcut().isEmpty() && action->isVisible())
            inUse.append(action);
    return inUse;
}

void Commands::Texte() {
    for (const Row& row : kRows) {
        QString text = TextNr(row.text);
        if (row.of != Text::None) {
            byKey_.at(row.key)->setIconText(text);
            text = TextNr(row.of) + QStringLiteral(": ") + text;
        }
        const QString tip = row.tip != Text::None ? TextNr(row.tip) : QString(text).remove(QChar(0x2026));
        if (row.hasDialog && !text.endsWith(QChar(0x2026)))
            text += QChar(0x2026);
        SetTexts(*byKey_.at(row.key), text, tip);
    }
}

void Commands::GiveLetters(const QList<QAction*>& actions) {
    QStringList texts;
    for (const QAction* action : actions)
        texts.append(action->text());
    std::set<QChar> taken;
    texts = WithLetters(texts, taken);
    for (qsizetype i = 0; i < actions.size(); ++i)
        actions[i]->setText(texts[i]);
}

void Commands::SetImage(std::string_view key, std::string_view image) {
    (*this)[key].setIcon(IconFor(image));
}
