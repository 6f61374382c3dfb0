#include "widgets/object_tip.h"

QString ToolTipOf(const std::vector<std::string>& lines) {
    QString tip;
    for (const std::string& line : lines) {
        const QString text = QString::fromStdString(line).toHtmlEscaped();
        tip += tip.isEmpty() ? QStringLiteral("<b>%1</b>").arg(text) : QStringLiteral("<br>") + text;
    }
    return tip;
}
