#include "launcherbutton.h"

#include <QStyleOptionButton>
#include <QStylePainter>

QSize LauncherButton::sizeHint() const
{
    // To what a button needs anyway come the gaps beside the icon, and some air above and below.
    return QPushButton::sizeHint() + QSize(2 * margin(), margin());
}

void LauncherButton::paintEvent(QPaintEvent*)
{
    QStylePainter painter(this);
    QStyleOptionButton option;
    initStyleOption(&option);
    painter.drawControl(QStyle::CE_PushButtonBevel, option);

    const QRect inside = style()->subElementRect(QStyle::SE_PushButtonContents, &option, this);
    const auto place = [&](const QRect& rect) { return QStyle::visualRect(layoutDirection(), inside, rect); };
    QRect icon(QPoint(inside.left() + margin(), 0), iconSize());
    icon.moveTop(inside.center().y() - (icon.height() - 1) / 2);
    this->icon().paint(&painter, place(icon), Qt::AlignCenter, isEnabled() ? QIcon::Normal : QIcon::Disabled);

    QRect text = inside;
    text.setLeft(icon.right() + 1 + margin());
    const bool underline = style()->styleHint(QStyle::SH_UnderlineShortcut, &option, this);
    const int flags = Qt::AlignVCenter | (underline ? Qt::TextShowMnemonic : Qt::TextHideMnemonic);
    painter.drawItemText(place(text), flags | QStyle::visualAlignment(layoutDirection(), Qt::AlignLeft),
                         palette(), isEnabled(), this->text(), QPalette::ButtonText);
    if (option.state & QStyle::State_HasFocus) {
        QStyleOptionFocusRect focus;
        focus.QStyleOption::operator=(option);
        focus.rect = style()->subElementRect(QStyle::SE_PushButtonFocusRect, &option, this);
        painter.drawPrimitive(QStyle::PE_FrameFocusRect, focus);
    }
}

int LauncherButton::margin() const
{
    return style()->pixelMetric(QStyle::PM_ButtonMargin, nullptr, this);
}
