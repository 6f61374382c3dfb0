#include "views/references_list.h"

#include <QApplication>
#include <QClipboard>
#include <QMenu>

#include "views/context_ways.h"
#include "views/two_line_delegate.h"
#include "widgets/icons.h"
#include "widgets/qt_text.h"

namespace {

// Bytes of UTF-8 as the characters they are shown as.
QVariantList ShownRange(const ReferenceRow& row) {
    const auto length = [&row](std::size_t from, std::size_t bytes) {
        return static_cast<int>(QString::fromStdString(row.text.substr(from, bytes)).size());
    };
    return {length(0, row.nameStart), length(row.nameStart, row.nameLength)};
}

QString About(const ReferenceRow& row) {
    QStringList parts{QString::fromStdString(row.where),
                      QStringLiteral("%1 %2").arg(TextNr(Text::Line), QString::number(row.line)), TextNr(row.kind)};
    if (!row.member.empty())
        parts.append(QString::fromStdString(row.member));
    return parts.join(QStringLiteral(" \u00B7 "));
}

}  // namespace

QString ReferencesModel::AsText(const ReferenceRow& row) {
    return QStringList{QString::fromStdString(row.where), QString::number(row.line), TextNr(row.kind),
                       QString::fromStdString(row.member), QString::fromStdString(row.text)}
               .join(QLatin1Char('\t')) +
           QLatin1Char('\n');
}

QString ReferencesModel::AsText() const {
    QString text;
    for (const ReferenceRow& row : Rows())
        text += AsText(row);
    return text;
}

QVariant ReferencesModel::data(const QModelIndex& index, int role) const {
    const ReferenceRow* row = RowAt(index);
    if (!row)
        return {};
    switch (role) {
        case TwoLineDelegate::NameRole:
        case Qt::DisplayRole:
            return QString::fromStdString(row->text);
        case Qt::DecorationRole:
            return IconFor(row->image);
        case TwoLineDelegate::RangesRole:
            return ShownRange(*row);
        case TwoLineDelegate::AboutRole:
            return About(*row);
        case Qt::ToolTipRole:
            return QStringLiteral("<b>%1</b><br>%2<br>%3")
                .arg(About(*row).toHtmlEscaped(), QString::fromStdString(row->text).toHtmlEscaped(),
                     TextNr(Text::ReferenceKeys));
        case Qt::AccessibleTextRole:
            return QString::fromStdString(row->text) + QStringLiteral(", ") + About(*row);
        default:
            return {};
    }
}

ReferencesList::ReferencesList(QWidget* parent) : ReferencesList(new ReferencesModel, parent) {}

ReferencesList::ReferencesList(ReferencesModel* model, QWidget* parent) : ObjectList(model, parent), model_(model) {
    setObjectName(QStringLiteral("references"));
    setItemDelegate(new TwoLineDelegate(false, this));
    setUniformItemSizes(true);
}

void ReferencesList::Texte() {
    setAccessibleName(TextNr(Text::References));
    setAccessibleDescription(TextNr(Text::ReferenceKeys));
    viewport()->update();
}

void ReferencesList::Renew(int count, const QString& whyNone) {
    count_ = count;
    SetWhyNone(whyNone);
    row_ = -1;
    stale_ = count > 0;
    model_->Show({});
    if (isVisible())
        Load();
}

void ReferencesList::Load() {
    if (!std::exchange(stale_, false) || !source_)
        return;
    model_->Show(source_());
    SetCurrentRow(std::max(row_, 0));
}

void ReferencesList::SetCurrentRow(int row) {
    row_ = row;
    if (!stale_)
        setCurrentIndex(model_->index(row));
}

std::string ReferencesList::KeyAt(const QModelIndex& index) const {
    const ReferenceRow* row = model_->RowAt(index);
    return row ? row->key : std::string();
}

void ReferencesList::Choose(const QModelIndex& index, bool stays) {
    Q_EMIT RowChosen(index.row(), stays);
}

QString ReferencesList::CopyOf(bool all) const {
    return all ? model_->AsText() : ReferencesModel::AsText(*model_->RowAt(currentIndex()));
}

void ReferencesList::AddItems(QMenu& menu) {
    const ReferenceRow& row = *model_->RowAt(currentIndex());
    menu.addAction(TextNr(Text::Copy), this, [this] { Copy(false); });
    menu.addAction(TextNr(Text::CopyCodePath), this,
                   [where = QString::fromStdString(row.where)] { QApplication::clipboard()->setText(where); });
    menu.addAction(TextNr(Text::CopyAsText), this, [this] { Copy(true); });
}

void ReferencesList::showEvent(QShowEvent* event) {
    QListView::showEvent(event);
    Load();
}
