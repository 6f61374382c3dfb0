#include "views/dialogs.h"

#include <QAbstractButton>
#include <QApplication>
#include <QFileInfo>
#include <QLabel>
#include <QLayout>
#include <QTabBar>
#include <QTabWidget>
#include <algorithm>
#include <functional>
#include <vector>

#include "model/clsProjekt.h"
#include "project/start.h"
#include "views/mnemonics.h"
#include "widgets/qt_text.h"

void AssignMnemonics(QWidget& window, std::initializer_list<const QWidget*> without) {
    std::set<QChar> taken;
    for (QTabBar* tabs : window.findChildren<QTabBar*>()) {
        QStringList texts;
        for (int tab = 0; tab < tabs->count(); ++tab)
            texts.append(tabs->tabText(tab));
        texts = WithLetters(texts, taken);
        for (int tab = 0; tab < tabs->count(); ++tab)
            tabs->setTabText(tab, texts[tab]);
    }
    const auto assign = [&without](const QList<QWidget*>& children, std::set<QChar>& letters) {
        QStringList texts;
        std::vector<std::function<void(const QString&)>> setters;
        for (QWidget* child : children) {
            if (std::ranges::find(without, child) != without.end())
                continue;
            if (auto* button = qobject_cast<QAbstractButton*>(child); button && !button->text().isEmpty()) {
                texts.append(button->text());
                setters.emplace_back([button](const QString& text) { button->setText(text); });
            } else if (auto* label = qobject_cast<QLabel*>(child); label && label->buddy()) {
                texts.append(label->text());
                setters.emplace_back([label](const QString& text) { label->setText(text); });
            }
        }
        texts = WithLetters(texts, letters);
        for (std::size_t i = 0; i < setters.size(); ++i)
            setters[i](texts[static_cast<qsizetype>(i)]);
    };
    QList<QWidget*> pages;
    for (const QTabWidget* tabs : window.findChildren<QTabWidget*>())
        for (int tab = 0; tab < tabs->count(); ++tab)
            pages.append(tabs->widget(tab));
    const auto isOn = [](const QWidget* child) {
        return [child](const QWidget* page) { return page->isAncestorOf(child); };
    };
    QList<QWidget*> frame;
    const QList<QWidget*> children = window.findChildren<QWidget*>();
    for (QWidget* child : children)
        if (std::ranges::none_of(pages, isOn(child)))
            frame.append(child);
    assign(frame, taken);
    // Only one page is visible at a time, so each may use all letters that the frame leaves free.
    for (const QWidget* page : pages) {
        std::set<QChar> letters = taken;
        assign(page->findChildren<QWidget*>(), letters);
    }
}

QWidget* DialogParent(QWidget* window) {
    QWidget* modal = QApplication::activeModalWidget();
    return modal ? modal : window;
}

QString FolderFor(const QString& last) {
    return last.isEmpty() && gProjekt ? QFileInfo(ToPath(gProjekt->FullPath)).absolutePath() : last;
}

void GrowToFit(QWidget& window) {
    const int needed = window.layout()->totalHeightForWidth(window.width());
    if (window.height() < needed)
        window.resize(window.width(), needed);
}
