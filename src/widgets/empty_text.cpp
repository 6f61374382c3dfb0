#include "widgets/empty_text.h"

#include <QAbstractScrollArea>
#include <QPainter>

#include "widgets/code_style.h"

void PaintEmptyText(QAbstractScrollArea& view, const QColor& ground, const QString& text) {
    QPainter painter(view.viewport());
    painter.setPen(Dimmed(view.palette(), ground));
    const int margin = view.fontMetrics().height();
    painter.drawText(view.viewport()->rect().adjusted(margin, margin, -margin, -margin),
                     Qt::AlignHCenter | Qt::AlignTop | Qt::TextWordWrap, text);
}
