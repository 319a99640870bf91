#pragma once

#include <QColor>
#include <QPalette>

class QLabel;
class QWidget;

/// Whether texts are brighter than what they stand on.
bool isDark(const QPalette& palette);

/// The colour of texts that stand back: the text colour drawn towards the background, yet with a contrast of
/// more than 4.5 to 1 wherever the palette's own texts have the usual one.
QColor mutedTextColour(const QPalette& palette);

/// Gives a label that colour, as its palette is now.
void muteText(QLabel& label);

/// Has the tool buttons in a window that stay down show it, as its palette is now: on a dark desktop styles
/// fill them with a colour that is hardly another than that of the window.
void showCheckedTools(QWidget& window);
