#include "curveplotscheme.h"

namespace
{

constexpr int LargerByPoints = 2;

QPen plainPen(const QColor& color)
{
    return QPen(color, 1.0, Qt::SolidLine, Qt::FlatCap, Qt::MiterJoin);
}

} // namespace

CurvePlotScheme::CurvePlotScheme()
    : m_title(titleFontOf(QFont()))
    , m_grid(plainPen(QColor(0xdc, 0xdc, 0xdc)))
    , m_bkg(Qt::white)
    , m_border(plainPen(Qt::black))
{
}

QFont CurvePlotScheme::titleFontOf(const QFont& font)
{
    QFont title = font;
    title.setBold(true);
    if (font.pointSizeF() > 0.0)
        title.setPointSizeF(font.pointSizeF() + LargerByPoints);
    else
        title.setPixelSize(font.pixelSize() + LargerByPoints);
    return title;
}
