#include "views/frm_reach.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QScreen>
#include <QVBoxLayout>

#include "views/dialogs.h"
#include "views/reach_list.h"
#include "views/search_bar.h"
#include "widgets/qt_text.h"

frmReach::frmReach(bool isPath, Source source, QWidget* parent)
    : QDialog(parent),
      isPath_(isPath),
      source_(std::move(source)),
      head_(new QLabel),
      title_(new QLabel),
      list_(new ReachList),
      cmdGoTo_(new QPushButton),
      cmdGraph_(new QPushButton),
      cmdSave_(new QPushButton),
      cmdClose_(new QPushButton) {
    setObjectName(isPath ? QStringLiteral("frmCallPath") : QStringLiteral("frmImpact"));
    setAttribute(Qt::WA_QuitOnClose, false);
    Build();
    connect(cmdClose_, &QPushButton::clicked, this, &QDialog::close);
    connect(cmdGoTo_, &QPushButton::clicked, this, [this] {
        if (const std::string key = list_->CurrentObject(); !key.empty())
            Q_EMIT CommandAsked(Command::GoTo, key);
    });
    connect(list_, &ReachList::CommandAsked, this, &frmReach::CommandAsked);
    connect(list_->selectionModel(), &QItemSelectionModel::currentRowChanged, this, &frmReach::FollowRow);
    connect(cmdGraph_, &QPushButton::clicked, this,
            [this] { Q_EMIT GraphAsked(list_->KeysMeant(), QString::fromStdString(answer_.title)); });
    connect(cmdSave_, &QPushButton::clicked, this, [this] { Q_EMIT SaveAsked(answer_, from_, to_); });
    if (search_) {
        connect(search_, &SearchBar::ObjectChosen, this, [this](const std::string& key) {
            to_ = key;
            Renew();
            list_->setFocus();
        });
        connect(search_, &SearchBar::CommandAsked, this, &frmReach::CommandAsked);
    }
    Texte();
}

void frmReach::Build() {
    title_->setWordWrap(true);
    title_->setTextFormat(Qt::PlainText);
    title_->setTextInteractionFlags(Qt::TextSelectableByMouse);
    head_->setTextFormat(Qt::PlainText);
    head_->setWordWrap(true);
    list_->setSelectionMode(QAbstractItemView::ExtendedSelection);
    cmdGoTo_->setObjectName(QStringLiteral("cmdGoTo"));
    cmdGraph_->setObjectName(QStringLiteral("cmdGraph"));
    cmdSave_->setObjectName(QStringLiteral("cmdSave"));
    cmdClose_->setObjectName(QStringLiteral("cmdClose"));
    // Enter goes to the place of the row, so no button may take it.
    for (QPushButton* button : {cmdGoTo_, cmdGraph_, cmdSave_, cmdClose_})
        button->setAutoDefault(false);
    auto* layout = new QVBoxLayout(this);
    layout->addWidget(head_);
    head_->setVisible(isPath_);
    if (isPath_) {
        search_ = new SearchBar;
        layout->addWidget(search_);
    }
    layout->addWidget(title_);
    layout->addWidget(list_, 1);
    auto* buttons = new QHBoxLayout;
    for (QPushButton* button : {cmdGoTo_, cmdGraph_, cmdSave_})
        buttons->addWidget(button);
    buttons->addStretch();
    buttons->addWidget(cmdClose_);
    layout->addLayout(buttons);
    resize(QSize(96 * fontMetrics().averageCharWidth(), 32 * fontMetrics().lineSpacing())
               .boundedTo(screen()->availableSize() * 0.9));
}

void frmReach::Texte() {
    const QString name = TextNr(isPath_ ? Text::CallPath : Text::Impact);
    setWindowTitle(name);
    list_->setAccessibleName(name);
    list_->setAccessibleDescription(TextNr(Text::WhyKeys));
    head_->setText(TextNr(Text::PathFrom, name_));
    if (search_)
        search_->Texte();
    cmdGoTo_->setText(TextNr(Text::ProblemGoTo));
    cmdGraph_->setText(TextNr(Text::ShowInGraph));
    cmdSave_->setText(TextNr(Text::SaveAnswer) + QChar(0x2026));
    cmdClose_->setText(TextNr(Text::Close));
    AssignMnemonics(*this);
    Renew();
}

void frmReach::Present(const std::string& key, const QString& name) {
    if (std::exchange(from_, key) != key)
        to_.clear();
    name_ = name;
    head_->setText(TextNr(Text::PathFrom, name_));
    const bool wasOpen = isVisible();
    show();
    raise();
    activateWindow();
    Renew();
    if (search_)
        search_->Focus();
    else if (!wasOpen)
        list_->setFocus();
}

void frmReach::Forget() {
    if (search_)
        search_->ProjectChanges();
    answer_ = {};
    list_->Show({});
    title_->clear();
    FollowRow();
}

void frmReach::Renew() {
    if (!isVisible())
        return;
    const bool isAsked = !from_.empty() && (!isPath_ || !to_.empty());
    answer_ = isAsked ? source_(from_, to_) : ReachAnswer();
    title_->setText(QString::fromStdString(answer_.title));
    title_->setVisible(!answer_.title.empty());
    list_->Show(answer_.rows);
    list_->SetCurrentObject();
    for (QPushButton* button : {cmdGraph_, cmdSave_})
        button->setEnabled(!answer_.rows.empty());
    FollowRow();
}

// Headings and sentences lead nowhere.
void frmReach::FollowRow() {
    cmdGoTo_->setEnabled(!list_->CurrentObject().empty());
}
