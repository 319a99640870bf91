#include "schemecolours.h"

#include "multiplotscheme.h"
#include "palettecolours.h"

#include <QPalette>

namespace
{

QPen inColor(QPen pen, const QColor& color)
{
    pen.setColor(color);
    return pen;
}

bool hasDefaultColours(const MultiPlotScheme& scheme)
{
    const MultiPlotScheme unchanged;
    return scheme.bkg() == unchanged.bkg() && scheme.frg().color() == unchanged.frg().color() &&
           scheme.data().color() == unchanged.data().color() &&
           scheme.grid().color() == unchanged.grid().color() &&
           scheme.pointer().color() == unchanged.pointer().color();
}

} // namespace

MultiPlotScheme schemeOn(const QPalette& palette, const MultiPlotScheme& scheme)
{
    if (!isDark(palette) || !hasDefaultColours(scheme))
        return scheme;
    const QColor text = palette.color(QPalette::Text);
    MultiPlotScheme dark = scheme;
    dark.setBkg(palette.color(QPalette::Base));
    dark.setFrg(inColor(scheme.frg(), text));
    dark.setData(inColor(scheme.data(), scheme.data().color().lighter(190)));
    dark.setGrid(inColor(scheme.grid(), palette.color(QPalette::Mid).lighter(150)));
    dark.setPointer(inColor(scheme.pointer(), scheme.pointer().color().lighter(220)));
    return dark;
}
