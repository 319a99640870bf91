#pragma once

#include "multiplotscheme.h"

#include <QColor>
#include <QFontMetricsF>
#include <QPen>

class QPaintDevice;

/// The scheme as one device shows it.
class StripLook
{
public:
    /// `scheme` with `background` for its own, on `device`. A scheme without font of its own takes
    /// `baseFont`.
    StripLook(const MultiPlotScheme& scheme, const QColor& background, const QFont& baseFont,
              const QPaintDevice* device);

    const MultiPlotScheme& scheme() const { return m_scheme; }
    QColor background() const { return m_background; }
    QColor text() const { return m_scheme.frg().color(); }
    QFont font() const { return m_font; }
    const QFontMetricsF& metrics() const { return m_metrics; }

    /// A pen of the scheme for the device. Widths count pixels, or 1/240 inch on a printer, whose dots alone
    /// would be too fine to see; a width of 0 is the thinnest line that is easily seen.
    QPen pen(const QPen& schemePen) const;
    /// The pen of the curves: as pen(), but at least as wide as a pixel of a screen of usual density.
    QPen dataPen() const;
    /// A thin solid line of a colour between the background (0) and the text (1).
    QPen quietPen(double share) const;
    /// A colour between the background (0) and `color` (1).
    QColor mixed(const QColor& color, double share) const;
    /// Pixels of the device that `pixels` of a screen of usual density come to.
    double pixels(double pixels) const { return pixels * m_unit; }

private:
    MultiPlotScheme m_scheme;
    QColor m_background;
    QFont m_font;
    double m_unit; ///< what a width of 1 comes to, in units of the painter
    bool m_isFine; ///< a hairline of the device is too thin for a curve
    QFontMetricsF m_metrics;
};
