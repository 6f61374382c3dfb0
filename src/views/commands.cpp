#include "views/commands.h"

#include <QWidget>
#include <set>

#include "views/mnemonics.h"
#include "widgets/icons.h"
#include "widgets/qt_text.h"

namespace {

constexpr char kPlainTip[] = "plainTip";

}  // namespace

Commands::Commands(QWidget* window) : QObject(window) {
    for (const CommandRow& row : CommandTable()) {
        auto* action = new QAction(window);
        action->setObjectName(QString::fromUtf8(row.name.data(), static_cast<qsizetype>(row.name.size())));
        action->setCheckable(row.checkable);
        if (!row.image.empty())
            action->setIcon(IconFor(row.image));
        QList<QKeySequence> keys;
        const QStringList texts = QString::fromLatin1(row.keys).split(QLatin1Char('|'), Qt::SkipEmptyParts);
        for (const QString& text : texts)
            keys.append(QKeySequence::fromString(text, QKeySequence::PortableText));
        action->setShortcuts(keys);
        window->addAction(action);  // its keys work wherever the focus is, also while its menu is hidden
        all_.push_back(action);
    }
}

void Commands::SetTexts(QAction& action, const QString& text, const QString& tip) {
    action.setText(text);
    const QString keys = action.shortcut().toString(QKeySequence::NativeText);
    const QString whole = keys.isEmpty() ? tip : QStringLiteral("%1 (%2)").arg(tip, keys);
    action.setProperty(kPlainTip, whole);
    action.setToolTip(whole);
}

QList<QAction*> Commands::InUse() const {
    QList<QAction*> inUse;
    for (QAction* action : all_)
        if (!action->shortcut().isEmpty() && action->isVisible())
            inUse.append(action);
    return inUse;
}

void Commands::Texte() {
    for (const CommandRow& row : CommandTable()) {
        QAction& action = (*this)[row.command];
        QString text = TextNr(row.text);
        if (row.of != Text::None) {
            action.setIconText(text);
            text = TextNr(row.of) + QStringLiteral(": ") + text;
        }
        const QString tip = row.tip != Text::None ? TextNr(row.tip) : QString(text).remove(QChar(0x2026));
        if (row.hasDialog && !text.endsWith(QChar(0x2026)))
            text += QChar(0x2026);
        SetTexts(action, text, tip);
    }
}

void Commands::Activate(const Situation& now) {
    for (const CommandRow& row : CommandTable())
        (*this)[row.command].setEnabled(IsEnabled(row.command, now));
    ShowWhyDisabled(now);
}

// The tip of a disabled command says why.
void Commands::ShowWhyDisabled(const Situation& now) {
    for (const CommandRow& row : CommandTable()) {
        QAction& action = (*this)[row.command];
        const QString plain = action.property(kPlainTip).toString();
        const Text why = action.isEnabled() ? Text::None : WhyDisabled(row.command, now);
        action.setToolTip(why == Text::None ? plain : plain + QLatin1Char('\n') + TextNr(why));
    }
}

void Commands::GiveLetters(const QList<QAction*>& actions, const QList<QAction*>& others) {
    QStringList texts;
    for (const QAction* action : actions)
        texts.append(action->text());
    std::set<QChar> taken;
    for (const QAction* other : others)
        if (const qsizetype mark = other->text().indexOf(QLatin1Char('&'));
            mark >= 0 && mark + 1 < other->text().size())
            taken.insert(other->text().at(mark + 1).toLower());
    texts = WithLetters(texts, taken);
    for (qsizetype i = 0; i < actions.size(); ++i)
        actions[i]->setText(texts[i]);
}

void Commands::SetImage(Command command, std::string_view image) {
    (*this)[command].setIcon(IconFor(image));
}
