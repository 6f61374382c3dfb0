#include "views/start_page.h"

#include <QEvent>
#include <QFileInfo>
#include <QLabel>
#include <QPainter>
#include <QPushButton>
#include <QStyleOption>
#include <QVBoxLayout>

#include "widgets/code_style.h"
#include "widgets/icons.h"
#include "widgets/qt_text.h"

namespace {

constexpr int kColumn = 460;  // minimum width of the column in pixels
constexpr int kMargin = 8;
constexpr int kIcon = 24;

}  // namespace

class RecentButton final : public QPushButton {
public:
    RecentButton(const QString& path, bool exists, QWidget* parent)
        : QPushButton(parent), file_(path), icon_(IconFor(exists ? "OpenProject" : "Problems")) {
        setAccessibleName(path);
        setAttribute(Qt::WA_Hover);
        setAutoDefault(true);
        setEnabled(exists);
        setCursor(exists ? Qt::PointingHandCursor : Qt::ArrowCursor);
        setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Fixed);
        ShowTip();
    }

    void ShowTip() {
        setToolTip(isEnabled() ? accessibleName() : accessibleName() + QLatin1Char('\n') + TextNr(Text::FileGone));
    }
    [[nodiscard]] QSize sizeHint() const override {
        return {kColumn, QFontMetrics(Bold()).height() + fontMetrics().height() + 2 * kMargin};
    }

protected:
    void paintEvent(QPaintEvent*) override {
        QPainter painter(this);
        painter.setRenderHint(QPainter::Antialiasing);
        const bool isPointedAt = isEnabled() && (underMouse() || isDown());
        const QColor ground = palette().color(QPalette::Base);
        const QColor marked = Mixed(ground, palette().color(QPalette::Highlight), isDown() ? 0.28 : 0.14);
        if (isPointedAt || hasFocus()) {
            painter.setPen(hasFocus() ? QPen(palette().color(QPalette::Highlight)) : QPen(Qt::NoPen));
            painter.setBrush(isPointedAt ? marked : ground);
            painter.drawRoundedRect(QRectF(rect()).adjusted(0.5, 0.5, -0.5, -0.5), 4, 4);
        }
        QRect room = rect().adjusted(kMargin, kMargin, -kMargin, -kMargin);
        icon_.paint(&painter, QRect(room.left(), rect().center().y() - kIcon / 2, kIcon, kIcon), Qt::AlignCenter,
                    isEnabled() ? QIcon::Normal : QIcon::Disabled);
        room.setLeft(room.left() + kIcon + 2 * kMargin);
        const QColor dimmed = Dimmed(palette(), isPointedAt ? marked : ground);
        painter.setPen(isEnabled() ? palette().color(QPalette::Text) : dimmed);
        painter.setFont(Bold());
        DrawLine(painter, room, Qt::AlignTop, file_.fileName());
        painter.setPen(dimmed);
        painter.setFont(font());
        DrawLine(painter, room, Qt::AlignBottom, file_.path());
    }

private:
    [[nodiscard]] QFont Bold() const {
        QFont bold = font();
        bold.setBold(isEnabled());
        return bold;
    }
    static void DrawLine(QPainter& painter, const QRect& room, Qt::Alignment where, const QString& text) {
        painter.drawText(room, static_cast<int>(where | Qt::AlignLeft | Qt::TextSingleLine),
                         painter.fontMetrics().elidedText(text, Qt::ElideMiddle, room.width()));
    }

    QFileInfo file_;
    QIcon icon_;
};

StartPage::StartPage(QWidget* parent)
    : QScrollArea(parent),
      title_(new QLabel),
      symbol_(new QLabel),
      open_(new QPushButton),
      hint_(new QLabel),
      recentTitle_(new QLabel),
      list_(new QVBoxLayout) {
    setFrameShape(QFrame::NoFrame);
    setWidgetResizable(true);
    setFocusPolicy(Qt::NoFocus);
    symbol_->setPixmap(ApplicationIcon().pixmap(QSize(80, 80), devicePixelRatioF()));
    symbol_->setAlignment(Qt::AlignHCenter);
    title_->setAlignment(Qt::AlignHCenter);
    title_->setWordWrap(true);
    open_->setIcon(IconFor("OpenProject"));
    open_->setIconSize(QSize(kIcon, kIcon));
    open_->setDefault(true);
    hint_->setAlignment(Qt::AlignHCenter);
    hint_->setWordWrap(true);
    hint_->setForegroundRole(QPalette::PlaceholderText);
    list_->setSpacing(2);

    auto* middle = new QWidget;
    middle->setMinimumWidth(kColumn);
    auto* column = new QVBoxLayout(middle);
    column->setContentsMargins(0, 16, 0, 16);
    column->setSpacing(12);
    column->addStretch(2);
    column->addWidget(symbol_);
    column->addWidget(title_);
    column->addSpacing(4);
    column->addWidget(open_, 0, Qt::AlignHCenter);
    column->addWidget(hint_);
    column->addSpacing(20);
    column->addWidget(recentTitle_);
    column->addLayout(list_);
    column->addStretch(3);
    auto* page = new QWidget;
    page->setBackgroundRole(QPalette::Base);
    page->setAutoFillBackground(true);
    auto* row = new QHBoxLayout(page);
    row->addStretch(1);
    row->addWidget(middle, 2);
    row->addStretch(1);
    setWidget(page);
    ApplyFonts();
    connect(open_, &QPushButton::clicked, this, &StartPage::OpenClicked);
}

void StartPage::ApplyFonts() {
    QFont large = font();
    large.setPointSizeF(large.pointSizeF() * 1.8);
    title_->setFont(large);
    QFont button = font();
    button.setPointSizeF(button.pointSizeF() * 1.15);
    open_->setFont(button);
    open_->setMinimumHeight(QFontMetrics(button).height() * 9 / 4);
    QFont bold = font();
    bold.setBold(true);
    recentTitle_->setFont(bold);
    recentTitle_->setContentsMargins(kMargin, 0, 0, 0);
}

void StartPage::changeEvent(QEvent* event) {
    QScrollArea::changeEvent(event);
    if (event->type() == QEvent::FontChange)
        ApplyFonts();
}

void StartPage::ShowRecent(const std::vector<Recent>& projects) {
    for (RecentButton* button : buttons_) {
        // Delayed deletion: the clicked button may be among them, and the page returns if its project cannot be opened.
        list_->removeWidget(button);
        button->hide();
        button->deleteLater();
    }
    buttons_.clear();
    QWidget* before = open_;
    for (const Recent& project : projects) {
        auto* button = new RecentButton(ToPath(project.path), project.exists, widget());
        connect(button, &QPushButton::clicked, this, [this, path = project.path] { Q_EMIT RecentChosen(path); });
        list_->addWidget(button);
        setTabOrder(before, button);
        before = button;
        buttons_.push_back(button);
    }
    recentTitle_->setVisible(!buttons_.empty());
    Texte();
}

void StartPage::Texte() {
    title_->setText(TextNr(Text::StartHeading));
    open_->setText(TextNr(Text::OpenProject));
    hint_->setText(TextNr(Text::DropHint));
    recentTitle_->setText(TextNr(Text::RecentProjects));
    for (RecentButton* button : buttons_)
        button->ShowTip();
}
