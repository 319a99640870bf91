#include "striplook.h"

#include "colormix.h"

#include <QPaintDevice>

#include <algorithm>

namespace
{

constexpr double ScreenDpi = 96.0;
constexpr double LinesPerInch = 240.0;
constexpr double PointsPerInch = 72.0;
constexpr double LeastFineRatio = 1.25;

QFont deviceFont(const QFont& font, const QFont& base)
{
    QFont resolved = font.resolve(base);
    // A size in pixels would come out tiny on a printer.
    if (resolved.pointSizeF() <= 0.0)
        resolved.setPointSizeF(std::max(resolved.pixelSize(), 1) * PointsPerInch / ScreenDpi);
    return resolved;
}

} // namespace

StripLook::StripLook(const MultiPlotScheme& scheme, const QColor& background, const QFont& baseFont,
                     const QPaintDevice* device)
    : m_scheme(scheme)
    , m_background(background)
    , m_font(deviceFont(scheme.font(), baseFont))
    , m_unit(std::max(1.0, device->logicalDpiY() / LinesPerInch))
    , m_isFine(device->devicePixelRatioF() >= LeastFineRatio)
    , m_metrics(m_font, device)
{
}

QPen StripLook::pen(const QPen& schemePen) const
{
    QPen pen = schemePen;
    if (m_unit > 1.0) {
        pen.setWidthF(std::max(schemePen.widthF(), 1.0) * m_unit);
        pen.setCosmetic(false);
    }
    return pen;
}

QPen StripLook::dataPen() const
{
    QPen data = pen(m_scheme.data());
    if (m_isFine && data.widthF() < 1.0)
        data.setWidthF(1.0);
    return data;
}

QPen StripLook::quietPen(double share) const
{
    return pen(QPen(mixed(text(), share), 0));
}

QColor StripLook::mixed(const QColor& color, double share) const
{
    return mixedColor(m_background, color, share);
}
