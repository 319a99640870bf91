#pragma once

#include "labeltemplate.h"

#include <QList>

class QAbstractButton;
class QComboBox;
class QPixmap;

/// How label templates are offered in a window: a box of their names, and buttons for the first of them.

/// The picture of a template's button: 22 by 22 pixels, black with the colour in the 19 by 19 square from
/// (2, 2), with `ratio` pixels of the screen for each.
QPixmap templatePixmap(const QColor& color, qreal ratio);
/// Each button gets picture and name of its template; those beyond the list are disabled.
void fillTemplateButtons(const QList<QAbstractButton*>& buttons, const QList<LabelTemplate>& templates);
/// An empty entry, which becomes the current one, and then the names.
void fillTemplateBox(QComboBox& box, const QList<LabelTemplate>& templates);
