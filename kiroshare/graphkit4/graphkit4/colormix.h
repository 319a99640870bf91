#pragma once

#include <QColor>

/// The colour that `above` gives over `below` when it covers a `strength` of 0 (none) to 1 (all). Opaque.
QColor mixedColor(const QColor& below, const QColor& above, double strength);
