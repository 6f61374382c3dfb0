#include "views/status_fields.h"

#include <QEvent>
#include <QLabel>
#include <QPainter>
#include <algorithm>

#include "widgets/code_style.h"

StatusFields::StatusFields(QWidget* parent) : QWidget(parent) {
    setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Preferred);
}

int StatusFields::Gap() const {
    return fontMetrics().averageCharWidth();
}

void StatusFields::Show(const QStringList& texts) {
    while (fields_.size() < static_cast<std::size_t>(texts.size())) {
        auto* label = new QLabel(this);
        label->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
        label->setTextFormat(Qt::PlainText);
        fields_.push_back({label});
    }
    for (std::size_t i = 0; i < fields_.size(); ++i) {
        Field& field = fields_[i];
        field.label->setText(static_cast<qsizetype>(i) < texts.size() ? texts[static_cast<qsizetype>(i)] : QString());
        field.width = field.label->text().isEmpty() ? 0 : std::max(field.width, field.label->sizeHint().width());
    }
    updateGeometry();
    LayOut();
}

void StatusFields::LayOut() {
    int right = width();
    bool isRoom = true;
    for (auto field = fields_.rbegin(); field != fields_.rend(); ++field) {
        const int left = right - field->width - Gap();
        isRoom = isRoom && left - Gap() >= 0;
        const bool shown = isRoom && field->width > 0;
        field->label->setVisible(shown);
        if (!shown)
            continue;
        field->label->setGeometry(left, 0, field->width, height());
        right = left - Gap();
    }
    update();
}

QSize StatusFields::sizeHint() const {
    int width = 0;
    for (const Field& field : fields_)
        width += field.width > 0 ? field.width + 2 * Gap() : 0;
    return {width, minimumSizeHint().height()};
}

QSize StatusFields::minimumSizeHint() const {
    return {0, fontMetrics().height() + 2};
}

void StatusFields::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    painter.setPen(Mixed(palette().color(QPalette::Window), palette().color(QPalette::WindowText), 0.25));
    for (const Field& field : fields_)
        if (!field.label->isHidden())
            painter.drawLine(field.label->x() - Gap(), 3, field.label->x() - Gap(), height() - 4);
}

void StatusFields::resizeEvent(QResizeEvent* event) {
    QWidget::resizeEvent(event);
    LayOut();
}

void StatusFields::changeEvent(QEvent* event) {
    QWidget::changeEvent(event);
    if (event->type() != QEvent::FontChange)
        return;
    for (Field& field : fields_)
        field.width = field.label->text().isEmpty() ? 0 : field.label->sizeHint().width();
    updateGeometry();
    LayOut();
}
