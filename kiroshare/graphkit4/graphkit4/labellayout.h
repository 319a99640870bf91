#pragma once

#include <QRectF>
#include <QVector>

/// A text that belongs to a place.
struct LabelText
{
    double x = 0.0; ///< pixel; the text stands right of it, or left of it where there is no room
    double y = 0.0; ///< pixel; of the rows with room the nearest is taken
    double width = 0.0;
    int mostRowsAway = 1000; ///< rows farther from `y` are not taken: the text would seem to be another's
};

/// A mark that no text may cover: a disc.
struct LabelDot
{
    double x = 0.0; ///< pixel
    double y = 0.0;
    double radius = 0.0;
};

/// Places for texts within `area`, in rows of `rowHeight`, none covering another: one for each text, null for
/// those without room. `gap` pixels lie between a text and its x, and at least as many between texts.
/// None covers one of the `dots`, which have one radius.
QVector<QRectF> placeLabelTexts(const QVector<LabelText>& texts, const QVector<LabelDot>& dots,
                                const QRectF& area, double rowHeight, double gap);
