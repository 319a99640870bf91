#pragma once

#include <QKeySequence>
#include <QString>

/// A text for a tooltip that shows it as it stands, also where it looks like rich text. Other texts stay
/// plain: escaped, they would show their escapes.
QString plainToolTip(const QString& text);

/// A tooltip with the keys that do the same: "Open a recording (Ctrl+O)".
QString withKey(const QString& toolTip, const QKeySequence& keys);
