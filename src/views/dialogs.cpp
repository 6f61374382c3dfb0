#include "views/dialogs.h"

#include <QAbstractButton>
#include <QApplication>
#include <QLabel>
#include <QLayout>
#include <QSet>
#include <QTabBar>
#include <QTabWidget>
#include <algorithm>

namespace {

// Takes the marks of an earlier round out.
QString Plain(QString text) {
    return text.remove(QLatin1Char('&'));
}

QString WithLetter(const QString& text, QSet<QChar>& taken) {
    const auto isFree = [&](qsizetype at) {
        return text[at].isLetterOrNumber() && !taken.contains(text[at].toLower());
    };
    const auto beginsWord = [&](qsizetype at) { return at == 0 || text[at - 1].isSpace(); };
    for (const bool wordsOnly : {true, false})
        for (qsizetype at = 0; at < text.size(); ++at)
            if (isFree(at) && (!wordsOnly || beginsWord(at))) {
                taken.insert(text[at].toLower());
                return QString(text).insert(at, QLatin1Char('&'));
            }
    return text;
}

}  // namespace

void AssignMnemonics(QWidget& window, std::initializer_list<const QWidget*> without) {
    QSet<QChar> taken;
    for (QTabBar* tabs : window.findChildren<QTabBar*>())
        for (int tab = 0; tab < tabs->count(); ++tab)
            tabs->setTabText(tab, WithLetter(Plain(tabs->tabText(tab)), taken));
    const auto assign = [&](QWidget* child, QSet<QChar>& letters) {
        if (std::ranges::find(without, child) != without.end())
            return;
        if (auto* button = qobject_cast<QAbstractButton*>(child); button && !button->text().isEmpty())
            button->setText(WithLetter(Plain(button->text()), letters));
        else if (auto* label = qobject_cast<QLabel*>(child); label && label->buddy())
            label->setText(WithLetter(Plain(label->text()), letters));
    };
    QList<QWidget*> pages;
    for (const QTabWidget* tabs : window.findChildren<QTabWidget*>())
        for (int tab = 0; tab < tabs->count(); ++tab)
            pages.append(tabs->widget(tab));
    const auto isOn = [](const QWidget* child) {
        return [child](const QWidget* page) { return page->isAncestorOf(child); };
    };
    const QList<QWidget*> children = window.findChildren<QWidget*>();
    for (QWidget* child : children)
        if (std::ranges::none_of(pages, isOn(child)))
            assign(child, taken);
    // Only one page is seen at a time, so each begins with the letters that the frame has left.
    for (const QWidget* page : pages) {
        QSet<QChar> letters = taken;
        for (QWidget* child : page->findChildren<QWidget*>())
            assign(child, letters);
    }
}

QWidget* DialogParent(QWidget* window) {
    QWidget* modal = QApplication::activeModalWidget();
    return modal ? modal : window;
}

void GrowToFit(QWidget& window) {
    const int needed = window.layout()->totalHeightForWidth(window.width());
    if (window.height() < needed)
        window.resize(window.width(), needed);
}
