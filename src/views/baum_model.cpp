#include "views/baum_model.h"

#include <QMimeData>

#include "platform/code_page.h"
#include "shell/settings.h"
#include "widgets/code_style.h"
#include "widgets/icons.h"
#include "widgets/qt_text.h"

namespace {

bool IsDimmed(const BaumNode& node) {
    return node.ForeColor() == NodeColour::Grey;
}

}  // namespace

BaumModel::BaumModel(Baum& tree, const Settings& settings, QObject* parent)
    : QAbstractItemModel(parent), tree_(tree), settings_(settings) {
    SetLooks(QFont(), QPalette());
    tree_.SetListener(this);
}

BaumModel::~BaumModel() {
    tree_.SetListener(nullptr);
}

BaumNode* BaumModel::NodeAt(const QModelIndex& index) const {
    return index.isValid() && !hidden_ ? static_cast<BaumNode*>(index.internalPointer()) : nullptr;
}

QModelIndex BaumModel::IndexOf(const BaumNode* node) const {
    return node && !hidden_ ? createIndex(node->Row(), 0, node) : QModelIndex();
}

void BaumModel::SetCheckBoxes(bool on) {
    if (checkBoxes_ == on)
        return;
    checkBoxes_ = on;
    ManyChanged();
}

void BaumModel::SetLooks(const QFont& font, const QPalette& palette) {
    for (const bool bold : {false, true})
        for (const bool italic : {false, true}) {
            QFont& made = fonts_[bold][italic];
            made = font;
            made.setBold(bold || font.bold());
            made.setItalic(italic != font.italic());
        }
    ground_ = palette.color(QPalette::Base);
    dimmed_ = Dimmed(palette, ground_);
}

const std::vector<BaumNode*>& BaumModel::Below(const QModelIndex& parent) const {
    static const std::vector<BaumNode*> none;
    if (hidden_ || parent.column() > 0)
        return none;
    const BaumNode* node = NodeAt(parent);
    return node ? node->ChildNodes() : tree_.Roots();
}

QModelIndex BaumModel::index(int row, int column, const QModelIndex& parent) const {
    const std::vector<BaumNode*>& nodes = Below(parent);
    if (column != 0 || row < 0 || static_cast<std::size_t>(row) >= nodes.size())
        return {};
    return createIndex(row, 0, nodes[static_cast<std::size_t>(row)]);
}

QModelIndex BaumModel::parent(const QModelIndex& index) const {
    const BaumNode* node = NodeAt(index);
    return node ? IndexOf(node->Parent()) : QModelIndex();
}

int BaumModel::rowCount(const QModelIndex& parent) const {
    return static_cast<int>(Below(parent).size());
}

int BaumModel::columnCount(const QModelIndex&) const {
    return 1;
}

QVariant BaumModel::data(const QModelIndex& index, int role) const {
    const BaumNode* node = NodeAt(index);
    if (!node)
        return {};
    switch (role) {
        case Qt::DisplayRole:
            return ToQString(node->Text());
        case Qt::DecorationRole:
            return IconOf(*node);
        case Qt::ForegroundRole:
            return ColorOf(*node);
        case Qt::FontRole: {
            const bool dimmed = IsDimmed(*node);
            return node->Bold() || dimmed ? QVariant(fonts_[node->Bold()][dimmed]) : QVariant();
        }
        case Qt::CheckStateRole:
            return checkBoxes_ ? QVariant(node->Checked() ? Qt::Checked : Qt::Unchecked) : QVariant();
        case Qt::ToolTipRole:
            return toolTips_ ? toolTips_(*node) : QString();
        case Qt::AccessibleTextRole: {
            const QString about = spokenTexts_ ? spokenTexts_(*node) : QString();
            const QString text = ToQString(node->Text());
            return about.isEmpty() ? text : text + QStringLiteral(", ") + about;
        }
        case KeyRole:
            return ToQString(node->Key());
        case DimmedRole:
            return IsDimmed(*node);
        default:
            return {};
    }
}

bool BaumModel::setData(const QModelIndex& index, const QVariant& value, int role) {
    BaumNode* node = NodeAt(index);
    if (!node || role != Qt::CheckStateRole || !checkBoxes_)
        return false;
    tree_.SetChecked(*node, value.toInt() == Qt::Checked);
    Q_EMIT NodeChecked(*node);
    return true;
}

Qt::ItemFlags BaumModel::flags(const QModelIndex& index) const {
    if (!NodeAt(index))
        return Qt::NoItemFlags;
    const Qt::ItemFlags flags = Qt::ItemIsEnabled | Qt::ItemIsSelectable | Qt::ItemIsDragEnabled;
    return checkBoxes_ ? flags | Qt::ItemIsUserCheckable : flags;
}

QStringList BaumModel::mimeTypes() const {
    return {QString::fromLatin1(kKeyMimeType)};
}

QMimeData* BaumModel::mimeData(const QModelIndexList& indexes) const {
    const BaumNode* node = indexes.isEmpty() ? nullptr : NodeAt(indexes.front());
    if (!node)
        return nullptr;
    auto* mime = new QMimeData;
    // A root has no object to drag.
    if (node->Kind() != NodeKind::Root)
        mime->setData(QString::fromLatin1(kKeyMimeType),
                      QByteArray::fromStdString(ActiveCodePage().ToUtf8(node->Key())));
    return mime;
}

const QIcon& BaumModel::IconOf(const BaumNode& node) const {
    const std::string_view key = node.Expanded() && !node.ExpandedImage().empty() ? node.ExpandedImage() : node.Image();
    const bool isFaint = node.ForeColor() == NodeColour::Faint;
    auto& icons = isFaint ? faintIcons_ : icons_;
    auto found = icons.find(key);
    if (found == icons.end())
        found = icons.emplace(std::string(key), isFaint ? FaintIconFor(key) : IconFor(key)).first;
    return found->second;
}

QVariant BaumModel::ColorOf(const BaumNode& node) const {
    // Colours chosen by the user are made readable: they may have been chosen for another palette.
    switch (node.ForeColor()) {
        case NodeColour::Ordinary:
            return {};
        case NodeColour::Grey:
        case NodeColour::Faint:
            return dimmed_;
        case NodeColour::PublicGroup:
            return QBrush(Readable(ColourFromBgr(settings_.ColPublics), ground_));
        case NodeColour::PrivateGroup:
            return QBrush(Readable(ColourFromBgr(settings_.ColPrivates), ground_));
    }
    return {};
}

void BaumModel::BeginReset() {
    beginResetModel();
    hidden_ = true;
    endResetModel();
}

void BaumModel::EndReset() {
    beginResetModel();
    hidden_ = false;
    endResetModel();
    Q_EMIT Filled();
}

void BaumModel::BeginInsert(const BaumNode* parent, int row) {
    beginInsertRows(IndexOf(parent), row, row);
}

void BaumModel::EndInsert() {
    endInsertRows();
}

void BaumModel::BeginRemove(const BaumNode* parent, int row) {
    beginRemoveRows(IndexOf(parent), row, row);
}

void BaumModel::EndRemove() {
    endRemoveRows();
}

void BaumModel::Changed(const BaumNode& node) {
    const QModelIndex index = IndexOf(&node);
    if (index.isValid())
        Q_EMIT dataChanged(index, index);
}

void BaumModel::ManyChanged() {
    if (const int rows = rowCount(); rows > 0)
        Q_EMIT dataChanged(index(0, 0), index(rows - 1, 0));
    Q_EMIT ManyNodesChanged();
}

void BaumModel::ExpandedChanged(const BaumNode& node) {
    Q_EMIT NodeExpanded(IndexOf(&node), node.Expanded());
}

void BaumModel::AllCollapsed() {
    Q_EMIT AllNodesCollapsed();
}

void BaumModel::SelectedChanged(const BaumNode* node) {
    Q_EMIT NodeSelected(IndexOf(node));
}

void BaumModel::EnsureVisible(const BaumNode& node) {
    Q_EMIT NodeToBeVisible(IndexOf(&node));
}
