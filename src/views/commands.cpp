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
    int textNr;
    int tipNr;               // 0: the text
    std::string_view image;  // empty: none
    const char* keys;        // as in portable texts, several separated by "|"
    bool hasDialog = false;  // the text gets "…" behind it
    bool checkable = false;
    int ofNr = 0;  // stands before the text with a colon wherever there is room for it; buttons show the text alone
};

constexpr Row kRows[] = {
    {"OpenProject", 1, 0, "OpenProject", "Ctrl+O"},
    {"CloseProject", 2, 0, "Close", ""},
    {"ReportStructure", 193, 0, "Reports", ""},
    {"ReportCalls", 194, 0, "Reports", ""},
    {"ReportDeaths", 195, 0, "Reports", ""},
    {"Exit", 3, 0, "Exit", "Ctrl+Q"},

    {"ContentCode", 43, 0, "ContentCode", "", false, true},
    {"ContentGraph", 91, 0, "ContentGraph", "", false, true},
    {"ContentChart", 7, 0, "ContentChart", "", false, true},
    {"SplitForContent", 89, 0, "SplitForContent", "", false, true},
    {"SplitForCalls", 90, 0, "SplitForCalls", "", false, true},
    {"SplitX", 196, 0, "SplitXShow", "", false, true},
    {"SplitY", 197, 0, "SplitYShow", "", false, true},
    {"CollapseAll", 8, 0, "CollapseAll", ""},
    {"CheckBoxOn", 9, 0, "CheckBoxOff", "", false, true},
    {"CheckBoxAll", 198, 0, "CheckBoxAll", ""},
    {"CheckBoxNone", 199, 0, "CheckBoxNone", ""},
    {"Search", 200, 0, "Search", "Ctrl+F"},
    {"NavPrev", 201, 0, "NavPrev", "Alt+Left"},
    {"NavNext", 202, 0, "NavNext", "Alt+Right"},
    {"ZoomPlus", 203, 0, "ZoomPlus", "Ctrl++|Ctrl+="},
    {"ZoomMinus", 204, 0, "ZoomMinus", "Ctrl+-"},
    {"ZoomNo", 205, 0, "ZoomNo", "Ctrl+0"},
    {"Problems", 206, 0, "Problems", "", true},
    {"Options", 24, 0, "Options", "", true},

    {"Structure", 207, 0, "Structure", ""},
    {"CallsModule", 11, 0, "CallsModule", ""},
    {"Refresh", 15, 0, "Refresh", "F5"},
    {"DeleteObject", 0, 0, "Delete", ""},

    {"CopyName", 180, 0, "Copy", ""},
    {"CopyCodePath", 181, 0, "", ""},
    {"CopyAsText", 182, 0, "", ""},

    {"Calls", 10, 14, "CallsReadNot", "", true},
    {"CallsOfModule", 11, 0, "CallsModule", ""},
    {"Uses", 208, 0, "Uses", ""},
    {"UsesShow", 208, 0, "UsesShow", ""},
    {"CalledByReally", 58, 0, "CalledByReally", "", false, true, 86},
    {"CalledByMaybe", 59, 0, "CalledByMaybe", "", false, true, 86},
    {"CallsReally", 58, 0, "CallsReally", "", false, true, 85},
    {"CallsMaybe", 59, 0, "CallsMaybe", "", false, true, 85},
    {"NextPlace", 209, 0, "", "F3"},
    {"PreviousPlace", 210, 0, "", "Shift+F3"},

    {"WebPage", 211, 0, "", ""},
    {"Keys", 156, 0, "", "", true},
    {"Diagnosis", 213, 0, "", "Ctrl+D", true},
    {"About", 60, 0, "About", "F1"},
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
        QString text = TextNr(row.textNr);
        if (row.ofNr != 0) {
            byKey_.at(row.key)->setIconText(text);
            text = TextNr(row.ofNr) + QStringLiteral(": ") + text;
        }
        const QString tip = row.tipNr ? TextNr(row.tipNr) : QString(text).remove(QChar(0x2026));
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
