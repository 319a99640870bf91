#pragma once

#include <QIcon>

class QString;

/// The program's icon `name` (a file of images/ without its ending), drawn in the colours of the present
/// palette: lines in the text colour, the accent in the highlight colour, both paler where disabled. It
/// follows a change of the palette and is sharp at any size and pixel ratio. An unknown name gives an empty
/// icon.
QIcon themedIcon(const QString& name);
