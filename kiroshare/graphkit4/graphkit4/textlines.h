#pragma once

#include <QFontMetricsF>
#include <QStringList>

/// A text on at most `mostLines` lines of `width` pixels, broken at blanks and behind underscores, which join
/// the words of signal names; runs of white space count as one blank. A word that is too long is cut in its
/// middle, and the last line at its end, with an ellipsis. At a line that would be nothing else it all ends.
QStringList textLines(const QString& text, double width, int mostLines, const QFontMetricsF& metrics);
