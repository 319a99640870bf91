#include "eyecharts.h"

#include "curveplot.h"
#include "rounding.h"
#include "samplepoints.h"

#include <QCoreApplication>

#include <algorithm>

namespace
{

constexpr double PositionAtStart = 50.0;
constexpr double VelocityAtStart = 500.0;
constexpr double SecondsAtStart = 5.0;

QString translated(const char* text)
{
    return QCoreApplication::translate("EyeCharts", text);
}

/// In the order of the slots.
constexpr const char* StartTitles[EyeCharts::Count] = {
    QT_TRANSLATE_NOOP("EyeCharts", "Right eye h position [deg]"),
    QT_TRANSLATE_NOOP("EyeCharts", "Right eye h velocity [deg/s]"),
    QT_TRANSLATE_NOOP("EyeCharts", "Right eye v position [deg]"),
    QT_TRANSLATE_NOOP("EyeCharts", "Right eye v velocity [deg/s]"),
    QT_TRANSLATE_NOOP("EyeCharts", "Left eye h position [deg]"),
    QT_TRANSLATE_NOOP("EyeCharts", "Left eye h velocity [deg/s]"),
    QT_TRANSLATE_NOOP("EyeCharts", "Left eye v position [deg]"),
    QT_TRANSLATE_NOOP("EyeCharts", "Left eye v velocity [deg/s]")};

constexpr const char* DataTitles[EyeCharts::Count] = {
    QT_TRANSLATE_NOOP("EyeCharts", "Right eye horizontal [%1]"),
    QT_TRANSLATE_NOOP("EyeCharts", "Right eye horizontal [%1/s]"),
    QT_TRANSLATE_NOOP("EyeCharts", "Right eye vertical [%1]"),
    QT_TRANSLATE_NOOP("EyeCharts", "Right eye vertical [%1/s]"),
    QT_TRANSLATE_NOOP("EyeCharts", "Left eye horizontal [%1]"),
    QT_TRANSLATE_NOOP("EyeCharts", "Left eye horizontal [%1/s]"),
    QT_TRANSLATE_NOOP("EyeCharts", "Left eye vertical [%1]"),
    QT_TRANSLATE_NOOP("EyeCharts", "Left eye vertical [%1/s]")};

/// What of [first, last] lies in `range` and has samples.
TimeWindow::Range within(const TimeWindow::Range& range, int first, int last, std::size_t sampleCount)
{
    TimeWindow::Range part;
    part.first = std::max(range.first, first);
    part.last = std::min({range.last, last, int(sampleCount) - 1});
    return part;
}

bool overlaps(int start, int end, const TimeWindow::Range& range)
{
    return end > range.first && start < range.last;
}

bool isVisible(const KiroSaccade& saccade, int detectionType, const TimeWindow::Range& range)
{
    if (detectionType < 3)
        return overlaps(saccade.main.start, saccade.main.end, range);
    return overlaps(saccade.left.start, saccade.left.end, range) ||
           overlaps(saccade.right.start, saccade.right.end, range);
}

QString blinkToolTip(const KiroBlink& blink, double msPerSample)
{
    QLocale locale;
    locale.setNumberOptions(QLocale::OmitGroupSeparator);
    return translated(
               QT_TRANSLATE_NOOP(
                   "EyeCharts",
                   "Blink\nDuration %1 ms\nPeaks distance %2 ms\nAmplitude %3 deg\nAmplitude relation %4"))
        .arg(locale.toString(roundHalfUp(blink.duration * msPerSample)),
             locale.toString(roundHalfUp(blink.peaksDistance * msPerSample)),
             locale.toString(blink.amp1, 'f', 1), locale.toString(blink.ampRelation, 'f', 2));
}

} // namespace

const std::vector<double>& EyeChart::samples(const EyeSignals& eyes) const
{
    return velocity ? eyes[axis].velocity : eyes[axis].position;
}

const KiroSaccadeEye& EyeChart::block(const KiroSaccade& saccade, int detectionType) const
{
    if (detectionType < 3)
        return saccade.main;
    const bool right = axis == EyeAxis::RightHorizontal || axis == EyeAxis::RightVertical;
    return right ? saccade.right : saccade.left;
}

void SaccadeToolTips::begin(double msPerSample)
{
    const QString format = translated(QT_TRANSLATE_NOOP(
        "EyeCharts", "Saccade %1\nDuration %2 ms\nAmplitude %3 deg\nPeak velocity %4 deg/s"));
    QLocale locale;
    locale.setNumberOptions(QLocale::OmitGroupSeparator);
    if (format == m_format && locale == m_locale && msPerSample == m_msPerSample)
        return;
    m_format = format;
    m_locale = locale;
    m_msPerSample = msPerSample;
    m_texts.clear();
}

QString SaccadeToolTips::of(int index, const KiroSaccadeEye& eye)
{
    if (std::size_t(index) >= m_texts.size())
        m_texts.resize(std::size_t(index) + 1);
    Text& made = m_texts[std::size_t(index)];
    if (made.text.isNull() || made.duration != eye.duration || made.amplitude != eye.amplitude ||
        made.peakVelocity != eye.peakVelocity) {
        made = {double(eye.duration), eye.amplitude, eye.peakVelocity,
                m_format.arg(m_locale.toString(index + 1),
                             m_locale.toString(roundHalfUp(eye.duration * m_msPerSample)),
                             m_locale.toString(eye.amplitude, 'f', 1),
                             m_locale.toString(eye.peakVelocity, 'f', 1))};
    }
    return made.text;
}

EyeCharts::EyeCharts(const std::array<CurvePlot*, Count>& plots)
{
    for (int i = 0; i < Count; ++i) {
        m_charts[std::size_t(i)].axis = EyeAxes[std::size_t(i / 2)];
        m_charts[std::size_t(i)].velocity = i % 2 == 1;
        m_charts[std::size_t(i)].plot = plots[std::size_t(i)];
    }
}

void EyeCharts::setDetectionType(int type)
{
    constexpr int UsedByType[] = {0, 2, 4, 8};
    m_used = UsedByType[std::clamp(type, 0, 3)];
}

int EyeCharts::detectionType() const
{
    return m_used == 8 ? 3 : m_used / 2;
}

int EyeCharts::slotOf(const QObject* plot) const
{
    for (int i = 0; i < m_used; ++i) {
        if (m_charts[std::size_t(i)].plot == plot)
            return i;
    }
    return -1;
}

void EyeCharts::setStartTitles()
{
    for (int i = 0; i < Count; ++i)
        m_charts[std::size_t(i)].plot->setVertTitle(translated(StartTitles[i]));
}

void EyeCharts::setStartScales()
{
    for (const EyeChart& chart : m_charts) {
        chart.plot->setHorzMinMax(0.0, SecondsAtStart);
        chart.plot->setVertMinMax(0.0, chart.velocity ? VelocityAtStart : PositionAtStart);
        chart.plot->adjustGrid();
    }
}

void EyeCharts::setDataTitles(const QString& unit)
{
    for (int i = 0; i < Count; ++i)
        m_charts[std::size_t(i)].plot->setVertTitle(translated(DataTitles[i]).arg(unit));
}

/// Names and tooltips are made once for all charts.
void EyeCharts::findVisible(const EyeChartContents& contents, const TimeWindow::Range& range,
                            double msPerSample)
{
    const int type = detectionType();
    m_currentDrawn = false;
    m_toolTips.begin(msPerSample);
    m_leftToolTips.begin(msPerSample);
    m_visibleSaccades.clear();
    for (int i = 0; i < contents.saccades.size(); ++i) {
        const KiroSaccade& saccade = contents.saccades[i];
        if (!isVisible(saccade, type, range))
            continue;
        const KiroSaccadeEye& right = type < 3 ? saccade.main : saccade.right;
        m_visibleSaccades.push_back({i, QString::number(i), m_toolTips.of(i, right),
                                     type < 3 ? QString() : m_leftToolTips.of(i, saccade.left)});
        m_currentDrawn = m_currentDrawn || i == contents.currentSaccade;
    }
    m_visibleBlinks.clear();
    for (int i = 0; i < contents.blinks.size(); ++i) {
        const KiroBlink& blink = contents.blinks[i];
        if (!overlaps(blink.start, blink.end, range))
            continue;
        const QString toolTip = blinkToolTip(blink, msPerSample);
        m_visibleBlinks.push_back({i, QStringLiteral("BLINK_%1").arg(i), toolTip, toolTip});
    }
}

void EyeCharts::draw(const EyeChartContents& contents, const TimeWindow& window, int scroll,
                     const EyeChartPens& pens)
{
    const TimeWindow::Range range = window.range(scroll);
    findVisible(contents, range, window.msPerSample());
    for (int i = 0; i < m_used; ++i)
        drawChart(m_charts[std::size_t(i)], contents, window, range, pens);
    for (int i = m_used; i < Count; ++i)
        m_charts[std::size_t(i)].plot->setCurveCount(0);
}

void EyeCharts::drawChart(EyeChart& chart, const EyeChartContents& contents, const TimeWindow& window,
                          const TimeWindow::Range& range, const EyeChartPens& pens)
{
    const std::vector<double>& samples = chart.samples(contents.eyes);
    const TimeWindow::Range shown = within(range, range.first, range.last, samples.size());
    chart.extents = ChartExtents();
    const SamplePoints points(samples, window,
                              chart.plot->plotArea().width() * chart.plot->devicePixelRatioF());

    chart.plot->setCurveCount(int(1 + m_visibleSaccades.size() + m_visibleBlinks.size()));
    CurvePlot::CurveIterator curve = chart.plot->curve(0);
    const auto set = [&](const QString& name, const QPen& pen, const QVector<QPointF>& data,
                         const QString& toolTip) {
        curve->setName(name);
        curve->setPen(pen);
        if (curve->style() != Curve::Plain)
            curve->setStyle(Curve::Plain);
        curve->setToolTip(toolTip);
        curve->setData(data);
        ++curve;
    };
    set(QString(), pens.signal, points.of(shown, chart.extents.shown), QString());
    const bool right = chart.axis == EyeAxis::RightHorizontal || chart.axis == EyeAxis::RightVertical;
    for (const VisibleMark& mark : m_visibleSaccades) {
        const KiroSaccadeEye& eye = chart.block(contents.saccades[mark.index], detectionType());
        const bool current = mark.index == contents.currentSaccade;
        if (current) {
            const TimeWindow::Range whole = within({0, eye.end}, eye.start, eye.end, samples.size());
            for (int i = whole.first; i <= whole.last; ++i)
                chart.extents.saccade.add(samples[std::size_t(i)]);
        }
        set(mark.name,
            current ? pens.selected
            : right ? pens.right
                    : pens.left,
            points.of(within(range, eye.start, eye.end, samples.size())),
            right ? mark.toolTip : mark.leftToolTip);
    }
    for (const VisibleMark& mark : m_visibleBlinks) {
        const KiroBlink& blink = contents.blinks[mark.index];
        set(mark.name, pens.blinks, points.of(within(range, blink.start, blink.end, samples.size())),
            mark.toolTip);
    }
    chart.plot->setHorzMinMax(window.secondsOf(range.first), window.secondsOf(range.first + window.room()));
    chart.plot->adjustGrid();
    chart.plot->update();
}

std::vector<ChartExtents> EyeCharts::extentsOf(bool velocity) const
{
    std::vector<ChartExtents> extents;
    for (int i = 0; i < m_used; ++i) {
        if (m_charts[std::size_t(i)].velocity == velocity)
            extents.push_back(m_charts[std::size_t(i)].extents);
    }
    return extents;
}

void EyeCharts::applyScale(const EyeChart& chart, const ScaleRange& range)
{
    chart.plot->setVertMinMax(range.min, range.max);
    chart.plot->setVertGridStart(0.0);
    chart.plot->adjustGrid();
    chart.plot->update();
}

void EyeCharts::resetPositionScales(ScaleMode mode, double largestAmplitude)
{
    const std::vector<ScaleRange> ranges =
        positionRanges(extentsOf(false), mode, m_currentDrawn, largestAmplitude);
    auto range = ranges.begin();
    for (int i = 0; i < m_used; ++i) {
        if (!m_charts[std::size_t(i)].velocity)
            applyScale(m_charts[std::size_t(i)], *range++);
    }
}

void EyeCharts::resetVelocityScales(ScaleMode mode, double largestVelocity)
{
    const ScaleRange range = velocityRange(extentsOf(true), mode, m_currentDrawn, largestVelocity);
    for (int i = 0; i < m_used; ++i) {
        if (m_charts[std::size_t(i)].velocity)
            applyScale(m_charts[std::size_t(i)], range);
    }
}

void EyeCharts::zoomScales(bool velocity, bool in)
{
    for (int i = 0; i < m_used; ++i) {
        const EyeChart& chart = m_charts[std::size_t(i)];
        if (chart.velocity == velocity)
            applyScale(chart, zoomedRange({chart.plot->vertMin(), chart.plot->vertMax()}, in));
    }
}

void EyeCharts::beginMark()
{
    const QPen pen(QColor(255, 0, 0, 128), 3.0);
    for (int i = 0; i < m_used; ++i) {
        CurvePlot* const plot = m_charts[std::size_t(i)].plot;
        m_marks[std::size_t(i)] = plot->addCurve(newSaccadeName());
        plot->curve(m_marks[std::size_t(i)])->setPen(pen);
    }
}

void EyeCharts::setMark(const EyeSignals& eyes, const TimeWindow& window, int first, int last)
{
    for (int i = 0; i < m_used; ++i) {
        const EyeChart& chart = m_charts[std::size_t(i)];
        const std::vector<double>& samples = chart.samples(eyes);
        const TimeWindow::Range part = within({0, last}, first, last, samples.size());
        const auto curve = chart.plot->curve(m_marks[std::size_t(i)]);
        if (curve != chart.plot->curveListEnd())
            curve->setData(SamplePoints(samples, window).of(part));
        chart.plot->update();
    }
}

void EyeCharts::endMark()
{
    for (int i = 0; i < m_used; ++i) {
        CurvePlot* const plot = m_charts[std::size_t(i)].plot;
        const auto curve = plot->curve(m_marks[std::size_t(i)]);
        if (curve != plot->curveListEnd() && curve->name() == newSaccadeName())
            plot->removeCurve(m_marks[std::size_t(i)]);
        plot->update();
    }
}
