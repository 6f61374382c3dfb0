#include "views/start_page.h"

#include <QFileInfo>
#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>

#include "views/icons.h"
#include "views/qt_text.h"

namespace {

constexpr int kColumn = 520;  // width of the column in pixels

}  // namespace

StartPage::StartPage(QWidget* parent)
    : QWidget(parent),
      title_(new QLabel(this)),
      symbol_(new QLabel(this)),
      open_(new QPushButton(this)),
      hint_(new QLabel(this)),
      recentTitle_(new QLabel(this)),
      list_(new QVBoxLayout) {
    symbol_->setPixmap(ApplicationIcon().pixmap(QSize(72, 72), devicePixelRatioF()));
    symbol_->setAlignment(Qt::AlignHCenter);
    QFont large = title_->font();
    large.setPointSizeF(large.pointSizeF() * 1.6);
    title_->setFont(large);
    title_->setAlignment(Qt::AlignHCenter);
    title_->setWordWrap(true);
    open_->setIcon(IconFor("OpenProject"));
    open_->setDefault(true);
    hint_->setAlignment(Qt::AlignHCenter);
    hint_->setForegroundRole(QPalette::PlaceholderText);
    QFont bold = recentTitle_->font();
    bold.setBold(true);
    recentTitle_->setFont(bold);
    list_->setSpacing(2);

    auto* column = new QVBoxLayout;
    column->setSpacing(12);
    column->addStretch(2);
    column->addWidget(symbol_);
    column->addWidget(title_);
    column->addWidget(open_, 0, Qt::AlignHCenter);
    column->addWidget(hint_);
    column->addSpacing(16);
    column->addWidget(recentTitle_);
    column->addLayout(list_);
    column->addStretch(3);
    auto* row = new QHBoxLayout(this);
    row->addStretch(1);
    auto* middle = new QWidget(this);
    middle->setLayout(column);
    middle->setMaximumWidth(kColumn);
    row->addWidget(middle, 4);
    row->addStretch(1);
    connect(open_, &QPushButton::clicked, this, &StartPage::OpenClicked);
}

void StartPage::ShowRecent(const std::vector<Recent>& projects) {
    for (QPushButton* button : buttons_)
        delete button;
    buttons_.clear();
    exists_.clear();
    for (const Recent& project : projects) {
        auto* button = new QPushButton(this);
        const QString path = ToQString(project.path);
        const QFileInfo file(path);
        const QFontMetrics metrics(font());
        button->setFlat(true);
        button->setStyleSheet(QStringLiteral("text-align: left; padding: 4px 8px;"));
        const QString directory = metrics.elidedText(file.path(), Qt::ElideMiddle, kColumn - 230);
        button->setText(metrics.elidedText(file.fileName(), Qt::ElideMiddle, 190).replace(QLatin1Char('&'), QStringLiteral("&&")) +
                        QStringLiteral("   ") + QString(directory).replace(QLatin1Char('&'), QStringLiteral("&&")));
        button->setToolTip(path);
        button->setAccessibleName(path);
        button->setEnabled(project.exists);
        connect(button, &QPushButton::clicked, this, [this, path = project.path] { Q_EMIT RecentChosen(path); });
        list_->addWidget(button);
        buttons_.push_back(button);
        exists_.push_back(project.exists);
    }
    recentTitle_->setVisible(!buttons_.empty());
    Texte();
}

void StartPage::Texte() {
    title_->setText(TextNr(214));
    open_->setText(TextNr(1));
    hint_->setText(TextNr(215));
    recentTitle_->setText(TextNr(216));
    for (std::size_t i = 0; i < buttons_.size(); ++i)
        if (!exists_[i])
            buttons_[i]->setToolTip(buttons_[i]->accessibleName() + QLatin1Char('\n') + TextNr(217));
}
