#include "signalitemdelegate.h"

#include "colormix.h"
#include "palettecolours.h"

#include <QApplication>
#include <QPainter>

namespace
{

/// Room for a value with its unit.
int valueWidth(const QFontMetrics& metrics)
{
    return metrics.horizontalAdvance(QStringLiteral("-00000.000 deg"));
}

int gapWidth(const QFontMetrics& metrics)
{
    return metrics.averageCharWidth();
}

QPalette::ColorGroup colorGroup(const QStyleOptionViewItem& item)
{
    if ((item.state & QStyle::State_Enabled) == 0)
        return QPalette::Disabled;
    return (item.state & QStyle::State_Active) == 0 ? QPalette::Inactive : QPalette::Active;
}

/// Draws the box of a check mark once more: styles make its frame darker than what it stands on, which on a
/// dark desktop is not to be seen.
void frameCheck(QPainter& painter, const QStyle& style, const QStyleOptionViewItem& item, const QColor& text)
{
    constexpr double FrameShare = 0.6;
    const QRect box = style.subElementRect(QStyle::SE_ItemViewItemCheckIndicator, &item, item.widget);
    painter.setPen(mixedColor(item.palette.color(colorGroup(item), QPalette::Base), text, FrameShare));
    painter.setBrush(Qt::NoBrush);
    painter.drawRect(box.adjusted(0, 0, -1, -1));
}

/// A list of which most items are selected would be one block of colour: shows the selection as check marks.
void showAsCheck(QStyleOptionViewItem& item)
{
    item.features |= QStyleOptionViewItem::HasCheckIndicator;
    const bool isSelected = (item.state & QStyle::State_Selected) != 0;
    item.checkState = isSelected ? Qt::Checked : Qt::Unchecked;
    if (!isSelected) {
        // An empty box is hard to see on some desktops.
        constexpr double TextShare = 0.7;
        for (const auto group : {QPalette::Active, QPalette::Inactive}) {
            const QColor text = item.palette.color(group, QPalette::Text);
            const QColor base = item.palette.color(group, QPalette::Base);
            item.palette.setColor(group, QPalette::Text, mixedColor(base, text, TextShare));
        }
    }
    item.state &= ~QStyle::State_Selected;
    item.state |= isSelected ? QStyle::State_On : QStyle::State_Off;
}

} // namespace

SignalItemDelegate::SignalItemDelegate(QObject* parent)
    : QStyledItemDelegate(parent)
{
}

void SignalItemDelegate::paint(QPainter* painter, const QStyleOptionViewItem& option,
                               const QModelIndex& index) const
{
    QStyleOptionViewItem item = option;
    initStyleOption(&item, index);
    showAsCheck(item);
    const QStyle* const style = item.widget ? item.widget->style() : QApplication::style();
    const int taken = valueWidth(item.fontMetrics) + gapWidth(item.fontMetrics);
    const QRect whole = style->subElementRect(QStyle::SE_ItemViewItemText, &item, item.widget);
    item.text = item.fontMetrics.elidedText(item.text, item.textElideMode, qMax(whole.width() - taken, 0));
    style->drawControl(QStyle::CE_ItemViewItem, &item, painter, item.widget);

    painter->save();
    if (isDark(item.palette))
        frameCheck(*painter, *style, item, option.palette.color(colorGroup(item), QPalette::Text));
    const QString value = index.data(ValueRole).toString();
    painter->setFont(item.font);
    painter->setPen(item.palette.color(colorGroup(item), QPalette::Text));
    const QRect right(whole.right() + 1 - taken, whole.top(), taken - gapWidth(item.fontMetrics),
                      whole.height());
    painter->drawText(right, Qt::AlignRight | Qt::AlignVCenter | Qt::TextSingleLine,
                      item.fontMetrics.elidedText(value, Qt::ElideRight, right.width()));
    painter->restore();
}

QSize SignalItemDelegate::sizeHint(const QStyleOptionViewItem& option, const QModelIndex& index) const
{
    QStyleOptionViewItem item = option;
    initStyleOption(&item, index);
    showAsCheck(item);
    const QStyle* const style = item.widget ? item.widget->style() : QApplication::style();
    const QSize size = style->sizeFromContents(QStyle::CT_ItemViewItem, &item, QSize(), item.widget);
    return {size.width() + valueWidth(item.fontMetrics) + gapWidth(item.fontMetrics), size.height()};
}
