// A row of two lines: a name or a line of code, some of its letters bold, and below it what and where it is.
#pragma once

#include <QStyledItemDelegate>

class TwoLineDelegate final : public QStyledItemDelegate {
    Q_OBJECT

public:
    enum Role {
        NameRole = Qt::UserRole,
        RangesRole,  // what is bold in it: start and length in turn
        AboutRole,
    };
    /// @param isActive  whether rows look as in a list with the focus, which another widget has
    explicit TwoLineDelegate(bool isActive, QObject* parent = nullptr)
        : QStyledItemDelegate(parent), isActive_(isActive) {}

    [[nodiscard]] QSize sizeHint(const QStyleOptionViewItem& option, const QModelIndex& index) const override;
    void paint(QPainter* painter, const QStyleOptionViewItem& item, const QModelIndex& index) const override;

private:
    bool isActive_;
};
