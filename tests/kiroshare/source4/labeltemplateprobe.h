#pragma once

#include "labeltemplate.h"

#include <QList>
#include <QStringList>

#include <string>

/// `count` templates: "T1" gives the name "name 1", the description "text 1" and the colour #010000, and so
/// on.
inline QList<LabelTemplate> numberedTemplates(int count)
{
    QList<LabelTemplate> templates;
    for (int i = 1; i <= count; ++i)
        templates << LabelTemplate{QStringLiteral("T%1").arg(i), QStringLiteral("name %1").arg(i),
                                   QStringLiteral("text %1").arg(i), QColor(i, 0, 0)};
    return templates;
}

/// "T1=name 1/text 1/#010000" of each template, with blanks between.
inline std::string textOf(const QList<LabelTemplate>& templates)
{
    QStringList texts;
    for (const LabelTemplate& each : templates)
        texts << QStringLiteral("%1=%2/%3/%4")
                     .arg(each.templateName, each.labelName, each.labelDescription, each.labelColor.name());
    return texts.join(QLatin1Char(' ')).toStdString();
}
