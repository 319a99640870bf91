#pragma once

#include <QColor>
#include <QString>

/// A named set of what a label says and how it looks, which one click applies.
struct LabelTemplate
{
    QString templateName;
    QString labelName;
    QString labelDescription; ///< of several lines where the user likes
    QColor labelColor;
};
Q_DECLARE_TYPEINFO(LabelTemplate, Q_MOVABLE_TYPE);
