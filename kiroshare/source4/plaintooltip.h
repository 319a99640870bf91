#pragma once

#include <QString>

/// A text for a tooltip that shows it as it stands, also where it looks like rich text. Other texts stay
/// plain: escaped, they would show their escapes.
QString plainToolTip(const QString& text);
