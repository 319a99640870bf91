#pragma once

#include "chartscale.h"
#include "eyesignals.h"
#include "kirosaccade.h"
#include "timewindow.h"

#include <QList>
#include <QLocale>
#include <QPen>

#include <array>
#include <vector>

class CurvePlot;

/// How the curves of eye charts are drawn.
struct EyeChartPens
{
    QPen signal;
    QPen left;     ///< saccades of the left eye
    QPen right;    ///< saccades of the right eye, or of the only one
    QPen selected; ///< the current saccade
    QPen blinks;
};

/// One chart slot: a position or the velocity of one axis of one eye.
struct EyeChart
{
    EyeAxis axis = EyeAxis::RightHorizontal;
    bool velocity = false;
    CurvePlot* plot = nullptr;
    ChartExtents extents; ///< as the last draw() noted them

    /// The samples that it shows; none if the signals do not hold them.
    const std::vector<double>& samples(const EyeSignals& eyes) const;
    /// The measures of a saccade that belong to its eye.
    const KiroSaccadeEye& block(const KiroSaccade& saccade, int detectionType) const;
};

/// What draw() shows of a set of saccades.
struct EyeChartContents
{
    const EyeSignals& eyes;
    const QList<KiroSaccade>& saccades;
    const QList<KiroBlink>& blinks;
    int currentSaccade = -1;
};

/// Texts on saccades, made anew only where what they tell has changed: a redraw of many needs them all.
class SaccadeToolTips
{
public:
    /// Before the others of a redraw: which language they are in, and how long a sample is.
    void begin(double msPerSample);
    /// Of the saccade at `index`, from 0, with the measures of one eye.
    QString of(int index, const KiroSaccadeEye& eye);

private:
    struct Text
    {
        double duration = 0.0; ///< what the text tells
        double amplitude = 0.0;
        double peakVelocity = 0.0;
        QString text; ///< null if it is not made
    };

    QString m_format;
    QLocale m_locale;
    double m_msPerSample = 0.0;
    std::vector<Text> m_texts;
};

/// The eight chart slots of a saccades browser: of right and left eye, horizontal and vertical, position and
/// velocity. As many as the detection type looks at are used, the first ones.
class EyeCharts
{
public:
    static constexpr int Count = 8;
    /// The name of the curve that grows while a saccade is marked by hand.
    static QString newSaccadeName() { return QStringLiteral("new saccade"); }

    /// Takes the plots over, in the order of the slots: those of an axis side by side, position first.
    explicit EyeCharts(const std::array<CurvePlot*, Count>& plots);

    EyeChart& operator[](int slot) { return m_charts[std::size_t(slot)]; }
    const EyeChart& operator[](int slot) const { return m_charts[std::size_t(slot)]; }

    /// 0, 2, 4 or 8: of the detection types 0 (nothing), 1, 2 and 3.
    int usedCharts() const { return m_used; }
    void setDetectionType(int type);
    int detectionType() const;
    /// Slot of a plot among those used; -1 if it is none.
    int slotOf(const QObject* plot) const;

    /// Titles, and scales as they are before there is data.
    void setStartTitles();
    void setStartScales();
    /// Titles once there is data in `unit`.
    void setDataTitles(const QString& unit);

    /// Draws what the window shows at `scroll`, and notes the extents.
    void draw(const EyeChartContents& contents, const TimeWindow& window, int scroll,
              const EyeChartPens& pens);
    /// Whether the last draw() showed the current saccade.
    bool isCurrentDrawn() const { return m_currentDrawn; }

    void resetPositionScales(ScaleMode mode, double largestAmplitude);
    void resetVelocityScales(ScaleMode mode, double largestVelocity);
    /// Of all used charts of a kind.
    void zoomScales(bool velocity, bool in);

    /// A curve over the samples [first, last] in every used chart, as long as a saccade is marked by hand.
    void beginMark();
    void setMark(const EyeSignals& eyes, const TimeWindow& window, int first, int last);
    void endMark();

private:
    /// A saccade or blink in the window, with what all charts call it.
    struct VisibleMark
    {
        int index = 0; ///< in its list
        QString name;
        QString toolTip;     ///< of the right eye's charts, or of all
        QString leftToolTip; ///< of the left eye's charts
    };

    void findVisible(const EyeChartContents& contents, const TimeWindow::Range& range, double msPerSample);
    void drawChart(EyeChart& chart, const EyeChartContents& contents, const TimeWindow& window,
                   const TimeWindow::Range& range, const EyeChartPens& pens);
    void applyScale(const EyeChart& chart, const ScaleRange& range);
    std::vector<ChartExtents> extentsOf(bool velocity) const;

    std::array<EyeChart, Count> m_charts;
    int m_used = 0;
    bool m_currentDrawn = false;
    SaccadeToolTips m_toolTips;     // of the right eye's charts, or of all
    SaccadeToolTips m_leftToolTips; // of the left eye's charts
    std::vector<VisibleMark> m_visibleSaccades;
    std::vector<VisibleMark> m_visibleBlinks;
    std::array<int, Count> m_marks{}; // curves, while one is marked
};
