#include "plaintooltip.h"

#include <QTextDocument>

QString plainToolTip(const QString& text)
{
    return Qt::mightBeRichText(text) ? QStringLiteral("<span>%1</span>").arg(text.toHtmlEscaped()) : text;
}

QString withKey(const QString& toolTip, const QKeySequence& keys)
{
    return QStringLiteral("%1 (%2)").arg(toolTip, keys.toString(QKeySequence::NativeText));
}
