#pragma once

#include <QColor>
#include <QPalette>

class QLabel;

/// The colour of texts that stand back: the text colour drawn towards the background, yet with a contrast of
/// more than 4.5 to 1 wherever the palette's own texts have the usual one.
QColor mutedTextColour(const QPalette& palette);

/// Gives a label that colour, as its palette is now.
void muteText(QLabel& label);
