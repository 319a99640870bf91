#include "colorsample.h"

#include <cmath>

namespace
{

/// The share of light that a part of a colour from 0 to 1 gives; from the definition of sRGB.
double linear(double part)
{
    return part <= 0.04045 ? part / 12.92 : std::pow((part + 0.055) / 1.055, 2.4);
}

/// Black or white, whichever has the higher contrast ratio of WCAG 2 on the colour, always above 4.5 to 1.
QColor readableOn(const QColor& color)
{
    const double light =
        0.2126 * linear(color.redF()) + 0.7152 * linear(color.greenF()) + 0.0722 * linear(color.blueF());
    return (light + 0.05) / 0.05 > 1.05 / (light + 0.05) ? Qt::black : Qt::white;
}

} // namespace

ColorSample::ColorSample(QWidget* parent)
    : QLabel(parent)
{
    setTextFormat(Qt::PlainText);
    setAlignment(Qt::AlignCenter);
    setFrameStyle(int(QFrame::StyledPanel) | int(QFrame::Sunken));
}

void ColorSample::setColor(const QColor& color)
{
    m_color = color;
    QPalette palette;
    if (color.isValid()) {
        palette.setColor(QPalette::Window, color);
        palette.setColor(QPalette::WindowText, readableOn(color));
    }
    setPalette(palette);
    setAutoFillBackground(color.isValid());
    setText(color.isValid() ? color.name() : QString());
}
