#include "curveplot.h"

#include "axisscale.h"
#include "colormix.h"
#include "curvehit.h"
#include "curvepainter.h"
#include "curveplotpainter.h"

#include <QPainter>
#include <QRegularExpression>

#include <algorithm>
#include <cmath>

namespace
{

constexpr int MostCurves = 1000000;
constexpr double MostLimit = 1e300;
constexpr int MostPrecision = 15;
/// How strongly the text colour shows in a grid that the palette gives.
constexpr double GridStrength = 0.16;

bool isLimit(double value)
{
    return std::isfinite(value) && std::abs(value) <= MostLimit;
}

} // namespace

CurvePlot::CurvePlot(QWidget* parent)
    : QFrame(parent)
{
    setFocusPolicy(Qt::StrongFocus);
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Expanding);
    // All of the contents is painted.
    setAttribute(Qt::WA_OpaquePaintEvent);
    describe();
}

CurvePlot::~CurvePlot() = default;

int CurvePlot::addCurve(const QString& name)
{
    m_curves.append(Curve(name));
    m_order.append(m_curves.size() - 1);
    update();
    return m_curves.size() - 1;
}

bool CurvePlot::removeCurve(int index)
{
    if (!isCurve(index))
        return false;
    if (m_markedCurve == index)
        removePointMark();
    else if (m_markedCurve > index)
        --m_markedCurve;
    m_curves.removeAt(index);
    m_order.removeOne(index);
    for (int& other : m_order) {
        if (other > index)
            --other;
    }
    update();
    return true;
}

bool CurvePlot::setCurveCount(int count)
{
    if (count < 0 || count > MostCurves)
        return false;
    if (m_markedCurve >= count)
        removePointMark();
    m_order.erase(
        std::remove_if(m_order.begin(), m_order.end(), [count](int index) { return index >= count; }),
        m_order.end());
    m_curves.erase(m_curves.begin() + std::min(count, m_curves.size()), m_curves.end());
    while (m_curves.size() < count)
        addCurve(QString());
    update();
    return true;
}

CurvePlot::CurveIterator CurvePlot::curve(int index)
{
    return isCurve(index) ? m_curves.begin() + index : m_curves.end();
}

void CurvePlot::curveToFront(int index)
{
    if (!isCurve(index))
        return;
    m_order.removeOne(index);
    m_order.append(index);
    update();
}

CurvePlot::CurveIterator CurvePlot::curveFromPoint(double x, double y, double tolerance,
                                                   const QString& nameFilter, bool isExpression)
{
    if (!std::isfinite(x) || !std::isfinite(y) || std::isnan(tolerance))
        return m_curves.end();
    const CurvePlotLayout& layout = plotLayout();
    CurveHit hit(m_curves, m_order, layout.area(), layout.horz(), layout.vert());
    if (!nameFilter.isEmpty() && isExpression)
        hit.setNames(QRegularExpression(nameFilter));
    else if (!nameFilter.isEmpty())
        hit.setName(nameFilter);
    const QPointF place(layout.horz().position(x), layout.vert().position(y));
    const bool byDefault = tolerance < 0.0;
    int found = hit.topmostWithin(place, byDefault ? CurveHit::DefaultReach : tolerance);
    if (found < 0 && byDefault)
        found = hit.nearest(place);
    return curve(found);
}

void CurvePlot::setLimits(CurvePlotAxis& axis, double min, double max)
{
    if (!isLimit(min) || !isLimit(max)) {
        qWarning("CurvePlot - invalid axis limits (%g , %g)", min, max);
        return;
    }
    axis.min = min;
    axis.max = max;
    layoutChanged();
}

void CurvePlot::setHorzMin(double min)
{
    setLimits(m_horz, min, m_horz.max);
}

void CurvePlot::setHorzMax(double max)
{
    setLimits(m_horz, m_horz.min, max);
}

void CurvePlot::setHorzMinMax(double min, double max)
{
    setLimits(m_horz, min, max);
}

void CurvePlot::setVertMin(double min)
{
    setLimits(m_vert, min, m_vert.max);
}

void CurvePlot::setVertMax(double max)
{
    setLimits(m_vert, m_vert.min, max);
}

void CurvePlot::setVertMinMax(double min, double max)
{
    setLimits(m_vert, min, max);
}

void CurvePlot::setGrid(CurvePlotAxis& axis, double step)
{
    if (!std::isfinite(step) || step < 0.0) {
        qWarning("CurvePlot - invalid grid step (%g)", step);
        return;
    }
    axis.grid = step;
    layoutChanged();
}

void CurvePlot::setHorzGrid(double step)
{
    setGrid(m_horz, step);
}

void CurvePlot::setVertGrid(double step)
{
    setGrid(m_vert, step);
}

void CurvePlot::setGridStart(CurvePlotAxis& axis, double value)
{
    if (!isLimit(value)) {
        qWarning("CurvePlot - invalid grid start (%g)", value);
        return;
    }
    axis.gridStart = value;
    layoutChanged();
}

void CurvePlot::setHorzGridStart(double value)
{
    setGridStart(m_horz, value);
}

void CurvePlot::setVertGridStart(double value)
{
    setGridStart(m_vert, value);
}

void CurvePlot::adjustGrid()
{
    m_horz.grid = m_horz.roundGrid();
    m_vert.grid = m_vert.roundGrid();
    layoutChanged();
}

void CurvePlot::setPrecision(CurvePlotAxis& axis, int decimals)
{
    axis.precision = std::clamp(decimals, -1, MostPrecision);
    layoutChanged();
}

void CurvePlot::setHorzPrecision(int decimals)
{
    setPrecision(m_horz, decimals);
}

void CurvePlot::setVertPrecision(int decimals)
{
    setPrecision(m_vert, decimals);
}

void CurvePlot::setTitle(const QString& title)
{
    m_title = title;
    describe();
    layoutChanged();
    updateGeometry();
}

void CurvePlot::setHorzTitle(const QString& title)
{
    m_horz.title = title;
    describe();
    layoutChanged();
    updateGeometry();
}

void CurvePlot::setVertTitle(const QString& title)
{
    m_vert.title = title;
    describe();
    layoutChanged();
    updateGeometry();
}

void CurvePlot::setVertScaleWidthTemplate(const QString& text)
{
    m_vertScaleWidthTemplate = text;
    layoutChanged();
    updateGeometry();
}

void CurvePlot::setShowToolTips(bool show, const QString& format)
{
    m_showToolTips = show;
    m_toolTipFormat = format;
}

CurvePlotScheme CurvePlot::scheme() const
{
    const QColor base = palette().color(QPalette::Base);
    const QColor text = palette().color(QPalette::Text);
    const auto line = [](const QColor& color) {
        return QPen(color, 1.0, Qt::SolidLine, Qt::FlatCap, Qt::MiterJoin);
    };
    CurvePlotScheme scheme;
    scheme.setBkg(m_look.bkg.value_or(base));
    scheme.setBorder(m_look.border.value_or(line(text)));
    scheme.setGrid(
        m_look.grid.value_or(line(mixedColor(scheme.bkg(), scheme.border().color(), GridStrength))));
    scheme.setAxis(m_look.axis.value_or(font()));
    scheme.setAxisTitle(m_look.axisTitle.value_or(font()));
    scheme.setTitle(m_look.title.value_or(CurvePlotScheme::titleFontOf(font())));
    return scheme;
}

void CurvePlot::setScheme(const CurvePlotScheme& scheme)
{
    m_look = {scheme.bkg(),  scheme.border(),    scheme.grid(),
              scheme.axis(), scheme.axisTitle(), scheme.title()};
    layoutChanged();
    updateGeometry();
}

void CurvePlot::setBkgColor(const QColor& color)
{
    m_look.bkg = color;
    update();
}

void CurvePlot::setBorderPen(const QPen& pen)
{
    m_look.border = pen;
    update();
}

void CurvePlot::setGridPen(const QPen& pen)
{
    m_look.grid = pen;
    update();
}

void CurvePlot::setAxisFont(const QFont& font)
{
    m_look.axis = font;
    layoutChanged();
    updateGeometry();
}

void CurvePlot::setAxisTitleFont(const QFont& font)
{
    m_look.axisTitle = font;
    layoutChanged();
    updateGeometry();
}

void CurvePlot::setTitleFont(const QFont& font)
{
    m_look.title = font;
    layoutChanged();
    updateGeometry();
}

double CurvePlot::horzScaleValue(int x) const
{
    return plotLayout().horz().value(x);
}

double CurvePlot::vertScaleValue(int y) const
{
    return plotLayout().vert().value(y);
}

int CurvePlot::horzScalePoints(double value) const
{
    return plotLayout().horz().pixel(value);
}

int CurvePlot::vertScalePoints(double value) const
{
    return plotLayout().vert().pixel(value);
}

double CurvePlot::horzPoints2Scale(int pixels) const
{
    return plotLayout().horz().distance(pixels);
}

double CurvePlot::vertPoints2Scale(int pixels) const
{
    return plotLayout().vert().distance(pixels);
}

QRect CurvePlot::plotArea() const
{
    return plotLayout().area();
}

void CurvePlot::print(QPainter& painter, const QRect& rect, double scale)
{
    print(painter, rect, scale, scheme());
}

void CurvePlot::print(QPainter& painter, const QRect& rect, double scale, const CurvePlotScheme& scheme)
{
    if (rect.isEmpty() || !(scale > 0.0) || !std::isfinite(scale)) {
        qWarning("CurvePlot::print(...) - nothing to draw in (%d x %d , %g)", rect.width(), rect.height(),
                 scale);
        return;
    }
    CurvePlotScheme scaled = scheme;
    scaled.setTitle(printFont(scheme.title(), scale));
    scaled.setAxis(printFont(scheme.axis(), scale));
    scaled.setAxisTitle(printFont(scheme.axisTitle(), scale));
    const CurvePlotLayout layout(contents(scaled, rect));
    drawCurvePlot(painter, rect, {layout, scaled, m_curves, m_order, scale, true});
}

QSize CurvePlot::sizeHint() const
{
    const QSize frame = size() - contentsRect().size();
    return CurvePlotLayout::goodSize(contents(scheme(), QRect())) + frame;
}

QSize CurvePlot::minimumSizeHint() const
{
    const QSize frame = size() - contentsRect().size();
    return CurvePlotLayout::leastSize(contents(scheme(), QRect())) + frame;
}

void CurvePlot::layoutChanged()
{
    m_layoutKnown = false;
    update();
}

CurvePlotContents CurvePlot::contents(const CurvePlotScheme& scheme, const QRect& rect) const
{
    return {rect,
            m_horz,
            m_vert,
            m_title,
            m_vertScaleWidthTemplate,
            scheme.title(),
            scheme.axis(),
            scheme.axisTitle()};
}

const CurvePlotLayout& CurvePlot::plotLayout() const
{
    if (!m_layoutKnown || m_layoutRect != contentsRect()) {
        m_layoutRect = contentsRect();
        m_layout = CurvePlotLayout(contents(scheme(), m_layoutRect));
        m_layoutKnown = true;
    }
    return m_layout;
}

void CurvePlot::describe()
{
    const QString name = !m_title.isEmpty() ? m_title : m_vert.title.isEmpty() ? tr("Chart") : m_vert.title;
    if (accessibleName() == m_ownName)
        setAccessibleName(name);
    m_ownName = name;
    QStringList parts;
    if (!m_readOut.isEmpty())
        parts << m_readOut;
    if (!m_horz.title.isEmpty())
        parts << tr("Across: %1.").arg(m_horz.title);
    if (!m_vert.title.isEmpty())
        parts << tr("Up: %1.").arg(m_vert.title);
    parts << tr("Left and Right read out the points of the curve in front.");
    const QString description = parts.join(QLatin1Char(' '));
    if (accessibleDescription() == m_ownDescription)
        setAccessibleDescription(description);
    m_ownDescription = description;
}
