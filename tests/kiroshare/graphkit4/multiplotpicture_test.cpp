// What a MultiPlot draws over and between its curves.

#include "multiplotfixture.h"

#include <QSet>

#include <array>
#include <cmath>

namespace
{

const QColor Pointer(200, 0, 200);
const QColor Mark(0, 150, 60);

/// The strips of MultiPlotTest with nothing drawn but what a test draws: no curves, no grid, a pointer pen of
/// a colour of its own.
class MultiPlotPictureTest : public MultiPlotTest
{
protected:
    MultiPlotPictureTest()
    {
        MultiPlotScheme scheme;
        // The curves in the background's colour.
        scheme.setData(QPen(scheme.bkg(), 0));
        scheme.setPointer(QPen(Pointer, 0));
        scheme.setHorzGrid(false);
        scheme.setVertGrid(false);
        plot.setScheme(scheme);
        plot.redraw(true);
    }

    /// The middle of a strip at a time.
    QPoint middle(unsigned strip, double seconds) const
    {
        constexpr std::array<double, 3> Values{500.0, 100.0, -500.0};
        return at(strip, seconds, Values[strip]);
    }

    QColor colorAt(const QPoint& point) { return picture().pixelColor(point); }

    /// One letter a strip, of its middle at a time: "." background, "P" the pointer's colour, "M" the
    /// label's,
    /// "+" any other.
    std::string colorsAt(double seconds)
    {
        std::string letters;
        for (unsigned strip = 0; strip < 3; ++strip) {
            const QColor color = colorAt(middle(strip, seconds));
            letters += color == Pointer ? 'P' : color == Mark ? 'M' : color == QColor(Qt::white) ? '.' : '+';
        }
        return letters;
    }

    void addLabel(const KiroLabel& label)
    {
        plot.addLabel(label);
        plot.redraw(true);
    }

    void press(const QPoint& point)
    {
        QTest::mousePress(&plot, Qt::LeftButton, {}, point);
        plot.clearFocus();
    }
};

} // namespace

TEST_F(MultiPlotPictureTest, ArrowModeDrawsNoPointer)
{
    plot.setUserMode(UserModeArrow);
    move(middle(1, 5.0));
    EXPECT_EQ(countAll(picture(), Pointer), 0);
    EXPECT_EQ(plot.cursor().shape(), Qt::ArrowCursor);
}

TEST_F(MultiPlotPictureTest, LinePointerIsStrongOnItsStripAndQuietOnTheOthers)
{
    plot.setUserMode(UserModeLine);
    move(middle(1, 5.0));
    EXPECT_EQ(colorsAt(5.0), "+P+");
    EXPECT_EQ(colorsAt(5.2), "...");
    EXPECT_EQ(plot.cursor().shape(), Qt::CrossCursor);
}

TEST_F(MultiPlotPictureTest, PointPointerRingsTheSampleUnderTheMouse)
{
    plot.setUserMode(UserModePoint);
    const QPoint sample = at(0, 5.0, 500.0);
    move(QPoint(sample.x(), at(0, 5.0, 900.0).y()));
    const QImage image = picture();
    int left = image.width();
    int right = -1;
    for (int x = 0; x < image.width(); ++x) {
        if (countInColumn(image, x, Pointer) > 0) {
            left = std::min(left, x);
            right = std::max(right, x);
        }
    }
    EXPECT_NEAR((left + right) / 2.0, sample.x(), 1.0);
    EXPECT_LT(right - left, 30);
    EXPECT_NE(colorAt(sample), Pointer);
}

TEST_F(MultiPlotPictureTest, SignalSelectionIsABandOnItsStrip)
{
    plot.setUserMode(UserModeSignalSelection);
    press(middle(1, 2.0));
    move(middle(2, 8.0));
    EXPECT_EQ(colorsAt(5.0), ".+.");
    EXPECT_EQ(colorsAt(1.9), "...");
    EXPECT_EQ(colorsAt(8.1), "...");
    QTest::mouseRelease(&plot, Qt::LeftButton, {}, middle(1, 8.0));
    EXPECT_EQ(colorsAt(5.0), "...");
}

TEST_F(MultiPlotPictureTest, TimeSelectionIsABandAcrossAllStrips)
{
    plot.setUserMode(UserModeTimeSelection);
    press(middle(1, 2.0));
    move(middle(1, 8.0));
    EXPECT_EQ(colorsAt(5.0), "+++");
    EXPECT_EQ(colorsAt(1.9), "...");
    EXPECT_EQ(colorsAt(8.1), "...");
    QTest::mouseRelease(&plot, Qt::LeftButton, {}, middle(1, 8.0));
    EXPECT_EQ(colorsAt(5.0), "...");
}

TEST_F(MultiPlotPictureTest, MeasuredDistanceStaysUntilEscape)
{
    plot.setUserMode(UserModeMeasure);
    const QPoint from = at(0, 2.0, 200.0);
    const QPoint to = at(0, 7.0, 800.0);
    EXPECT_EQ(countAll(picture(), Pointer), 0);
    drag(from, to);
    plot.clearFocus();
    EXPECT_EQ(colorAt(from), Pointer);
    EXPECT_EQ(colorAt(to), Pointer);
    QTest::keyClick(&plot, Qt::Key_Escape);
    EXPECT_EQ(countAll(picture(), Pointer), 0);
}

TEST_F(MultiPlotPictureTest, PointLabelIsADotAtItsRawValueOnACalibratedStrip)
{
    KiroLabel label;
    label.setupPoint(1, 5000, 1000.0, QString(), QString(), Mark);
    addLabel(label);
    EXPECT_EQ(colorAt(at(1, 5.0, 100.0)), Mark);
    EXPECT_EQ(colorsAt(5.0), ".M.");
    EXPECT_LT(countAll(picture(), Mark), 200);
}

TEST_F(MultiPlotPictureTest, SignalLineStandsOnItsStripAndTimeLineOnAll)
{
    KiroLabel label;
    label.setupSignalLine(2, 3000, QString(), QString(), Mark);
    addLabel(label);
    label.setupTimeLine(6000, QString(), QString(), Mark);
    addLabel(label);
    EXPECT_EQ(colorsAt(3.0), "..M");
    EXPECT_EQ(colorsAt(6.0), "MMM");
}

TEST_F(MultiPlotPictureTest, PeriodsAreBandsBetweenLinesOnTheirStripOrOnAll)
{
    KiroLabel label;
    label.setupSignalPeriod(0, 1000, 3000, QString(), QString(), Mark);
    addLabel(label);
    label.setupTimePeriod(6000, 8000, QString(), QString(), Mark);
    addLabel(label);
    EXPECT_EQ(colorsAt(0.9), "...");
    EXPECT_EQ(colorsAt(1.0), "M..");
    EXPECT_EQ(colorsAt(2.0), "+..");
    EXPECT_EQ(colorsAt(3.0), "M..");
    EXPECT_EQ(colorsAt(6.0), "MMM");
    EXPECT_EQ(colorsAt(7.0), "+++");
    EXPECT_EQ(colorsAt(8.0), "MMM");
}

TEST_F(MultiPlotPictureTest, LabelWithoutColourHasThatOfTheMarkerPen)
{
    KiroLabel label;
    label.setupTimeLine(6000, QString(), QString(), QColor());
    addLabel(label);
    EXPECT_EQ(colorAt(middle(1, 6.0)), plot.markerPen().color());
}

TEST_F(MultiPlotPictureTest, NameStandsBesideItsLine)
{
    KiroLabel label;
    label.setupSignalLine(0, 5000, QString(), QString(), Mark);
    addLabel(label);
    const QImage without = picture();
    label.setupSignalLine(0, 5000, QStringLiteral("Cue"), QString(), Mark);
    plot.clearAllLabels();
    addLabel(label);
    const QImage with = picture();
    const int line = at(0, 5.0, 0.0).x();
    int first = -1;
    int last = -1;
    for (int x = 0; x < with.width(); ++x) {
        for (int y = 0; y < with.height(); ++y) {
            if (with.pixel(x, y) != without.pixel(x, y)) {
                first = first < 0 ? x : first;
                last = x;
            }
        }
    }
    EXPECT_GT(first, line);
    EXPECT_LT(first, line + 20);
    EXPECT_LT(last, line + 80);
    EXPECT_GT(last - first, QFontMetrics(plot.font()).horizontalAdvance(QStringLiteral("Cue")) - 2);
}

TEST_F(MultiPlotPictureTest, TitleAndUnitOfTimeAreDrawn)
{
    const QImage before = picture();
    plot.setHorzUnits(QStringLiteral("ks"));
    plot.redraw(true);
    const QImage after = picture();
    EXPECT_NE(after, before);
    EXPECT_EQ(after.copy(0, 0, plot.width(), plot.height() / 2),
              before.copy(0, 0, plot.width(), plot.height() / 2));
    plot.setHorzUnits(QStringLiteral("s"));
    plot.setHorzTitle(QStringLiteral("Zeit"));
    plot.redraw(true);
    EXPECT_NE(picture(), before);
}

TEST_F(MultiPlotPictureTest, FastDrawingKeepsToItsToleranceAndNonsenseChangesNone)
{
    plot.setPlotCount(1);
    QVector<double> saw(4000);
    for (int i = 0; i < saw.size(); ++i)
        saw[i] = (i / 40) % 2 == 0 ? 0.0 : 0.05 + (i == 2050 ? 1.0 : 0.0);
    plot.plot(0)->setData(saw, 0, -1);
    plot.plot(0)->setTimePerSample(0.0025);
    MultiPlotScheme scheme;
    plot.setScheme(scheme);
    plot.redraw(true);
    const QImage exact = picture();
    plot.setFastDrawing(true);
    plot.setFastDrawingTolerance(60.0);
    plot.redraw(true);
    const QImage coarse = picture();
    EXPECT_NE(coarse, exact);
    for (const double nonsense : {0.0, -1.0, NaN, std::numeric_limits<double>::infinity()})
        plot.setFastDrawingTolerance(nonsense);
    plot.redraw(true);
    EXPECT_EQ(picture(), coarse);
    plot.setFastDrawing(false);
    plot.redraw(true);
    EXPECT_EQ(picture(), exact);
}

// On a device of any density a grid line is one device pixel wide, and none is half covered.
TEST_F(MultiPlotPictureTest, GridLinesAreCrispAtAnyDevicePixelRatio)
{
    const QColor grid(10, 120, 130);
    MultiPlotScheme scheme = plot.scheme();
    scheme.setGrid(QPen(grid, 0));
    scheme.setHorzGrid(true);
    plot.setScheme(scheme);
    plot.setHorzGrid(1.0);
    for (const double ratio : {1.0, 1.25, 1.5, 1.75, 2.0, 3.0}) {
        QImage paper((QSizeF(600, 300) * ratio).toSize(), QImage::Format_RGB32);
        paper.setDevicePixelRatio(ratio);
        QPainter painter(&paper);
        plot.print(painter, QRect(0, 0, 600, 300));
        painter.end();
        // A row through the middle of the lowest strip, right of its axis.
        const int row = int(220 * ratio);
        int lines = 0;
        int widest = 0;
        QSet<QRgb> colors;
        for (int x = int(200 * ratio), width = 0; x < paper.width(); ++x) {
            colors.insert(paper.pixel(x, row));
            width = paper.pixelColor(x, row) == grid ? width + 1 : 0;
            lines += width == 1 ? 1 : 0;
            widest = std::max(widest, width);
        }
        EXPECT_EQ(colors, QSet<QRgb>({grid.rgb(), QColor(Qt::white).rgb()})) << ratio;
        EXPECT_EQ(widest, 1) << ratio;
        EXPECT_GE(lines, 6) << ratio;
    }
}
