#include "views/frm_progress.h"

#include <QApplication>
#include <QCloseEvent>
#include <QHBoxLayout>
#include <QLabel>
#include <QProgressBar>
#include <QPushButton>
#include <QVBoxLayout>
#include <utility>

#include "shell/program.h"
#include "shell/timing.h"
#include "views/dialogs.h"
#include "views/elided_label.h"
#include "views/questions.h"
#include "widgets/qt_text.h"

namespace {

// Connects the window to the ports of the operation for as long as it runs, however it ends.
class Connected {
public:
    Connected(Progress& progress, EventPump pump)
        : progress_(SetProgress(&progress)), pump_(SetEventPump(std::move(pump))) {}
    ~Connected() {
        SetProgress(progress_);
        SetEventPump(std::move(pump_));
    }
    Connected(const Connected&) = delete;
    Connected& operator=(const Connected&) = delete;

private:
    Progress* progress_;
    EventPump pump_;
};

void KeepPlace(QWidget& widget) {
    QSizePolicy policy = widget.sizePolicy();
    policy.setRetainSizeWhenHidden(true);
    widget.setSizePolicy(policy);
}

}  // namespace

frmProgress::frmProgress(QWidget* parent)
    : QDialog(parent, Qt::Dialog | Qt::CustomizeWindowHint | Qt::WindowTitleHint | Qt::WindowCloseButtonHint),
      heading_(new QLabel),
      detail_(new ElidedLabel),
      count_(new QLabel),
      bar_(new QProgressBar),
      cmdCancel_(new QPushButton) {
    setObjectName(QStringLiteral("frmProgress"));
    setAttribute(Qt::WA_QuitOnClose, false);
    setWindowModality(Qt::ApplicationModal);
    QFont bold = heading_->font();
    bold.setBold(true);
    heading_->setFont(bold);
    heading_->setTextFormat(Qt::PlainText);
    heading_->setWordWrap(true);
    count_->setAlignment(Qt::AlignRight);
    count_->setForegroundRole(QPalette::PlaceholderText);
    bar_->setObjectName(QStringLiteral("bar"));
    bar_->setTextVisible(false);
    cmdCancel_->setObjectName(QStringLiteral("cmdCancel"));
    cmdCancel_->setAutoDefault(false);
    KeepPlace(*cmdCancel_);
    connect(cmdCancel_, &QPushButton::clicked, this, &frmProgress::close);

    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(20, 16, 20, 16);
    layout->setSpacing(8);
    layout->addWidget(heading_);
    auto* line = new QHBoxLayout;
    line->addWidget(detail_, 1);
    line->addWidget(count_);
    layout->addLayout(line);
    layout->addWidget(bar_);
    layout->addStretch();
    auto* buttons = new QHBoxLayout;
    buttons->addStretch();
    buttons->addWidget(cmdCancel_);
    layout->addLayout(buttons);
    setFixedWidth(70 * fontMetrics().averageCharWidth());
    Reset();
    Texte();
}

void frmProgress::Texte() {
    cmdCancel_->setText(TextNr(Text::Cancel));
}

void frmProgress::Reset() {
    caption_.assign(kProgramTitle);
    stage_.clear();
    object_.clear();
    stageIsNext_ = true;
    min_ = max_ = value_ = 0;
    cancelled_ = false;
    cmdCancel_->setEnabled(true);
    cmdCancel_->setVisible(true);
}

bool frmProgress::Run(const std::string& action, const std::function<void()>& operation) {
    gAction = action;
    if (running_) {
        operation();
        return !gAbort;
    }
    struct Finish {
        frmProgress& form;
        ~Finish() {
            form.Tag = "exit";
            const bool wasVisible = form.isVisible();
            form.close();
            // Not every window system gives the keys back to the window below.
            if (wasVisible && form.parentWidget())
                form.parentWidget()->activateWindow();
            form.running_ = false;
            form.Reset();
        }
    };
    Texte();
    Tag.clear();
    running_ = true;
    elapsed_.start();
    const Finish finish{*this};
    const Connected connected(*this, [this] { Pump(); });
    return RunOperation(operation);
}

void frmProgress::SetCancelVisible(bool visible) {
    cmdCancel_->setVisible(visible);
}

void frmProgress::Caption(std::string_view text) {
    caption_.assign(text);
    stageIsNext_ = true;
}

void frmProgress::Label(std::string_view text) {
    (stageIsNext_ ? stage_ : object_).assign(text);
    if (stageIsNext_)
        object_.clear();
    stageIsNext_ = false;
}

void frmProgress::Range(int min, int max) {
    min_ = value_ = min;
    max_ = max;
}

void frmProgress::Progressiere_mal() {
    if (value_ < max_)
        ++value_;
}

// A window that would disappear almost at once only flickers.
bool frmProgress::IsNearlyDone() const {
    return (value_ - min_) * 10 > (max_ - min_) * 7 && elapsed_.elapsed() < qint64{3} * showAfter;
}

void frmProgress::Pump() {
    // The question has its own event loop, which paints and takes the answer.
    if (asking_)
        return;
    if (!isVisible()) {
        if (elapsed_.elapsed() < showAfter || IsNearlyDone())
            return;
        ShowState();
        adjustSize();
        GrowToFit(*this);
        show();
        cmdCancel_->setFocus();
    }
    ShowState();
    QCoreApplication::processEvents();
}

void frmProgress::ShowState() {
    setWindowTitle(ToQString(caption_));
    const QString stage = cancelled_ ? TextNr(Text::Cancelling) : ToQString(stage_);
    heading_->setText(stage.isEmpty() ? windowTitle() : stage);
    detail_->SetText(ToQString(object_));
    const bool counts = max_ > 0;
    count_->setText(counts ? NumberText(value_) + QStringLiteral(" / ") + NumberText(max_) : QString());
    // An empty range makes QProgressBar show a busy indicator.
    bar_->setRange(counts ? std::min(min_, max_ - 1) : 0, std::max(max_, 0));
    bar_->setValue(value_);
    bar_->setAccessibleName(heading_->text());
}

void frmProgress::AskCancel() {
    if (asking_ || cancelled_ || cmdCancel_->isHidden())
        return;
    asking_ = true;
    const WaitForAnswer wait;
    const bool yes = AskQuestion(this, TextNr(Text::AskCancel));
    asking_ = false;
    if (!yes)
        return;
    gAbort = true;
    gAction.clear();
    cancelled_ = true;
    cmdCancel_->setEnabled(false);
    ShowState();
}

void frmProgress::closeEvent(QCloseEvent* event) {
    if (Tag == "exit") {
        event->accept();
        return;
    }
    event->ignore();
    AskCancel();
}

void frmProgress::reject() {
    if (running_ && Tag != "exit")
        AskCancel();
    else
        QDialog::reject();
}
