#pragma once

#include <QStyledItemDelegate>

/// Paints the items of a list of signals: a check mark if it is selected, the name, and at the right edge a
/// value, which has its room whether it is there or not.
class SignalItemDelegate : public QStyledItemDelegate
{
    Q_OBJECT

public:
    /// Of an item's value, a text.
    static constexpr int ValueRole = Qt::UserRole + 1;

    explicit SignalItemDelegate(QObject* parent = nullptr);

    void paint(QPainter* painter, const QStyleOptionViewItem& option,
               const QModelIndex& index) const override;
    QSize sizeHint(const QStyleOptionViewItem& option, const QModelIndex& index) const override;
};
