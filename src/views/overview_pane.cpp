#include "views/overview_pane.h"

#include <QEvent>
#include <QLabel>
#include <QPushButton>
#include <QScrollArea>
#include <QVBoxLayout>
#include <algorithm>

#include "views/overview_table.h"
#include "widgets/icons.h"
#include "widgets/qt_text.h"

namespace {

constexpr int kTwoColumns = 760;  // from this width on, numbers and modules are beside each other
constexpr int kWidestColumn = 560;

Text TitleOf(OverviewList list) {
    switch (list) {
        case OverviewList::AllModules:
            return Text::AllModules;
        case OverviewList::StandardModules:
            return Text::StandardModules;
        case OverviewList::Forms:
            return Text::CountForms;
        case OverviewList::ClassModules:
            return Text::CountClassModules;
        case OverviewList::UserControls:
            return Text::CountUserControls;
        case OverviewList::FilesMissing:
            return Text::FilesMissing;
        case OverviewList::CodeLines:
            return Text::CodeLines;
        case OverviewList::CommentLines:
            return Text::CommentLines;
        case OverviewList::BlankLines:
            return Text::BlankLines;
        case OverviewList::Procedures:
            return Text::Procedures;
        case OverviewList::Dead:
            return Text::CountDead;
        case OverviewList::Undead:
            return Text::CountUndead;
        case OverviewList::Libraries:
            return Text::Libraries;
        case OverviewList::LibrariesMissing:
            return Text::LibrariesMissing;
        case OverviewList::Changes:
            return Text::ChangedByRefresh;
    }
    return Text::None;
}

QVBoxLayout* Column(QWidget* owner) {
    auto* column = new QVBoxLayout(owner);
    column->setContentsMargins(0, 0, 0, 0);
    column->setSpacing(1);
    column->setAlignment(Qt::AlignTop);
    owner->setMaximumWidth(kWidestColumn);
    return column;
}

}  // namespace

OverviewPane::OverviewPane(QWidget* parent)
    : ContentPane(parent),
      page_(new QScrollArea),
      title_(new QLabel),
      columns_(new QBoxLayout(QBoxLayout::LeftToRight)),
      largestTitle_(new QLabel),
      readCalls_(new QPushButton(this)),
      listPage_(new QWidget),
      back_(new QPushButton),
      listTitle_(new QLabel),
      table_(new OverviewTable) {
    BuildPage();
    BuildList();
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(page_);
    layout->addWidget(listPage_);
    listPage_->hide();
    ApplyFonts();
    Texte();
}

void OverviewPane::BuildPage() {
    page_->setWidgetResizable(true);
    page_->setFocusPolicy(Qt::NoFocus);
    page_->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    auto* page = new QWidget;
    page->setBackgroundRole(QPalette::Base);
    page->setAutoFillBackground(true);
    title_->setWordWrap(true);
    title_->setTextFormat(Qt::PlainText);
    title_->setMargin(6);
    auto* left = new QWidget;
    auto* right = new QWidget;
    numbers_ = Column(left);
    auto* rightColumn = Column(right);
    rightColumn->addWidget(largestTitle_);
    auto* modules = new QWidget;
    largest_ = Column(modules);
    rightColumn->addWidget(modules);
    rightColumn->addStretch();
    largestTitle_->setMargin(6);
    readCalls_->setObjectName(QStringLiteral("readCalls"));
    readCalls_->setIcon(IconFor("CallsReadNot"));
    readCalls_->hide();  // until there are numbers, among which it is
    columns_->setSpacing(28);
    columns_->addWidget(left, 1);
    columns_->addWidget(right, 1);
    columns_->addStretch(0);
    auto* layout = new QVBoxLayout(page);
    layout->setContentsMargins(18, 14, 18, 14);
    layout->addWidget(title_);
    layout->addLayout(columns_);
    layout->addStretch();
    page_->setWidget(page);
    connect(readCalls_, &QPushButton::clicked, this, &OverviewPane::ReadCallsChosen);
}

void OverviewPane::BuildList() {
    auto* layout = new QVBoxLayout(listPage_);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(4);
    auto* head = new QHBoxLayout;
    back_->setObjectName(QStringLiteral("back"));
    back_->setIcon(IconFor("NavPrev"));
    head->addWidget(back_);
    head->addSpacing(6);
    head->addWidget(listTitle_, 1);
    layout->addLayout(head);
    layout->addWidget(table_, 1);
    connect(back_, &QPushButton::clicked, this, &OverviewPane::ShowPage);
    connect(table_, &OverviewTable::ObjectChosen, this, &OverviewPane::ObjectChosen);
    connect(table_, &OverviewTable::Left, this, &OverviewPane::ShowPage);
}

void OverviewPane::Texte() {
    largestTitle_->setText(TextNr(Text::LargestModules));
    readCalls_->setText(TextNr(Text::ReadAllCalls) + QChar(0x2026));
    back_->setText(TextNr(Text::Overview));
    page_->setAccessibleName(TextNr(Text::Overview));
    table_->Texte();
    NameList();
    Fill();
}

void OverviewPane::NameList() {
    listTitle_->setText(QStringLiteral("%1 (%2)").arg(TextNr(TitleOf(list_)), NumberText(listed_)));
    table_->setAccessibleName(listTitle_->text());
}

void OverviewPane::Clear() {
    hasProject_ = false;
    overview_ = {};
    Fill();
    table_->Show({});
    ShowPage();
}

void OverviewPane::Show(const ProjectOverview& overview) {
    if (hasProject_ && overview == overview_)
        return;
    hasProject_ = true;
    overview_ = overview;
    Fill();
    if (!listPage_->isHidden())
        Q_EMIT ListChosen(list_);  // its objects may be others now
}

void OverviewPane::ShowList(OverviewList list, std::vector<ListedObject> rows) {
    OpenTable(list, rows.size());
    table_->Show(std::move(rows));
}

void OverviewPane::OpenTable(OverviewList list, std::size_t rows) {
    list_ = list;
    listed_ = static_cast<int>(rows);
    NameList();
    page_->hide();
    listPage_->show();
}

std::optional<OverviewPane::ListPlace> OverviewPane::OpenList() const {
    return listPage_->isHidden() ? std::nullopt : std::optional(ListPlace{list_, table_->CurrentKey()});
}

void OverviewPane::ComeBackTo(const ListPlace& place, std::vector<ListedObject> rows) {
    const bool hadFocus = page_->isAncestorOf(window()->focusWidget());
    OpenTable(place.list, rows.size());
    table_->ShowAgain(std::move(rows), place.key);
    if (hadFocus)
        table_->setFocus();
}

void OverviewPane::ShowPage() {
    const bool hadFocus = listPage_->isAncestorOf(window()->focusWidget());
    listPage_->hide();
    page_->show();
    if (hadFocus)
        Focus();
}

void OverviewPane::Focus() {
    const auto first = std::ranges::find_if(rows_, [](const OverviewRow* row) { return row->isEnabled(); });
    if (!listPage_->isHidden())
        table_->setFocus();
    else if (first != rows_.end())
        (*first)->setFocus();
}

void OverviewPane::Add(QVBoxLayout& column, const OverviewRow::Content& content, std::function<void()> chosen) {
    auto* row = new OverviewRow(page_->widget());
    row->Show(content, chosen != nullptr);
    if (chosen)
        connect(row, &QPushButton::clicked, this, std::move(chosen));
    column.addWidget(row);
    rows_.push_back(row);
}

void OverviewPane::AddNumber(Text label, int value, OverviewList list, const QString& note, bool inner) {
    Add(*numbers_, {.label = TextNr(label), .value = NumberText(value), .note = note, .inner = inner},
        value > 0 ? std::function<void()>([this, list] {
            Q_EMIT ListChosen(list);
            Focus();
        })
                  : nullptr);
}

void OverviewPane::Fill() {
    for (OverviewRow* row : rows_) {
        // Delayed deletion: the clicked row may be among them.
        row->hide();
        row->setParent(nullptr);
        row->deleteLater();
    }
    rows_.clear();
    readCalls_->hide();
    numbers_->removeWidget(readCalls_);
    while (QLayoutItem* gap = numbers_->takeAt(0))
        delete gap;
    largestTitle_->setVisible(hasProject_);
    title_->setText(ToQString(overview_.name));
    if (!hasProject_)
        return;
    FillNumbers();
    FillLargest();
    AlignColumns();
    // The lines come where the pane is among the others, not after all of them.
    QWidget* before = table_;
    for (OverviewRow* row : rows_)
        if (row->focusPolicy() != Qt::NoFocus) {
            setTabOrder(before, row);
            before = row;
        }
}

void OverviewPane::FillNumbers() {
    const ProjectOverview& now = overview_;
    const auto share = [](int part, int whole) { return ShareText(part, whole); };
    Add(*numbers_, {.label = TextNr(Text::ProjectType), .value = ToQString(now.type), .wide = true}, nullptr);
    const QString startUp = now.startUp.empty() ? TextNr(Text::NoStartUp) : ToQString(now.startUp);
    Add(*numbers_, {.label = TextNr(Text::StartUpObject), .value = startUp, .wide = true},
        now.startUpPath.empty() ? nullptr
                                : std::function<void()>([this, path = now.startUpPath] { Q_EMIT ObjectChosen(path); }));
    numbers_->addSpacing(10);
    AddNumber(Text::AllModules, now.AllModules(), OverviewList::AllModules);
    AddNumber(Text::StandardModules, now.standardModules, OverviewList::StandardModules, {}, true);
    AddNumber(Text::CountForms, now.forms, OverviewList::Forms, {}, true);
    AddNumber(Text::CountClassModules, now.classModules, OverviewList::ClassModules, {}, true);
    AddNumber(Text::CountUserControls, now.userControls, OverviewList::UserControls, {}, true);
    AddNumber(Text::FilesMissing, now.filesMissing, OverviewList::FilesMissing);
    numbers_->addSpacing(10);
    AddNumber(Text::CodeLines, now.codeLines, OverviewList::CodeLines, share(now.codeLines, now.AllLines()));
    AddNumber(Text::CommentLines, now.commentLines, OverviewList::CommentLines,
              share(now.commentLines, now.AllLines()));
    AddNumber(Text::BlankLines, now.blankLines, OverviewList::BlankLines, share(now.blankLines, now.AllLines()));
    numbers_->addSpacing(10);
    AddNumber(Text::Procedures, now.procedures, OverviewList::Procedures);
    if (now.deaths) {
        AddNumber(Text::CountDead, now.deaths->dead, OverviewList::Dead, share(now.deaths->dead, now.deaths->of));
        AddNumber(Text::CountUndead, now.deaths->undead, OverviewList::Undead,
                  share(now.deaths->undead, now.deaths->of));
    } else {
        for (const Text unknown : {Text::CountDead, Text::CountUndead})
            Add(*numbers_, {.label = TextNr(unknown), .value = TextNr(Text::DeathsUnknown), .wide = true}, nullptr);
        numbers_->addWidget(readCalls_, 0, Qt::AlignRight);
        readCalls_->show();
    }
    numbers_->addSpacing(10);
    Add(*numbers_, {.label = TextNr(Text::Problems), .value = NumberText(now.problems)},
        now.problems > 0 ? std::function<void()>([this] { Q_EMIT ProblemsChosen(); }) : nullptr);
    AddNumber(Text::Libraries, now.libraries, OverviewList::Libraries);
    AddNumber(Text::LibrariesMissing, now.librariesMissing, OverviewList::LibrariesMissing);
}

void OverviewPane::FillLargest() {
    const int most = overview_.largest.empty() ? 1 : std::max(overview_.largest.front().codeLines, 1);
    for (const ProjectOverview::Module& modul : overview_.largest)
        Add(*largest_,
            {.label = ToQString(modul.name),
             .value = NumberText(modul.codeLines),
             .note = ShareText(modul.codeLines, overview_.codeLines),
             .bar = static_cast<double>(modul.codeLines) / most,
             .icon = IconFor(TextOf(modul.kind))},
            [this, path = modul.path] { Q_EMIT ObjectChosen(path); });
}

void OverviewPane::AlignColumns() {
    int values = 0;
    int notes = 0;
    for (const OverviewRow* row : rows_) {
        values = std::max(values, row->ValueWidth());
        notes = std::max(notes, row->NoteWidth());
    }
    for (OverviewRow* row : rows_)
        row->SetColumns(values, notes);
}

void OverviewPane::ApplyFonts() {
    QFont large = font();
    large.setPointSizeF(large.pointSizeF() * 1.6);
    title_->setFont(large);
    QFont bold = font();
    bold.setBold(true);
    largestTitle_->setFont(bold);
    listTitle_->setFont(bold);
    AlignColumns();
}

void OverviewPane::resizeEvent(QResizeEvent* event) {
    ContentPane::resizeEvent(event);
    columns_->setDirection(width() >= kTwoColumns ? QBoxLayout::LeftToRight : QBoxLayout::TopToBottom);
}

void OverviewPane::changeEvent(QEvent* event) {
    ContentPane::changeEvent(event);
    if (event->type() == QEvent::FontChange)
        ApplyFonts();
}
