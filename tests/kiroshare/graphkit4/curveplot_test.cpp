#include "curveplot.h"

#include "windows/messagerecorder.h"

#include <QApplication>
#include <QBuffer>
#include <QHelpEvent>
#include <QKeyEvent>
#include <QLocale>
#include <QPainter>
#include <QPdfWriter>
#include <QPicture>
#include <QSignalSpy>
#include <QTest>
#include <QToolTip>
#include <QWheelEvent>

#include <gtest/gtest.h>

#include <cmath>
#include <limits>

namespace
{

constexpr double Infinity = std::numeric_limits<double>::infinity();
constexpr double NotANumber = std::numeric_limits<double>::quiet_NaN();

using Points = QVector<QPointF>;

/// Pixels of exactly this colour in a part of a picture.
int countOf(const QImage& image, const QColor& color, const QRect& rect)
{
    int count = 0;
    for (int y = rect.top(); y <= rect.bottom(); ++y) {
        for (int x = rect.left(); x <= rect.right(); ++x)
            count += image.pixel(x, y) == color.rgb() ? 1 : 0;
    }
    return count;
}

/// A chart of 0 to 100 by -10 to 10, shown.
class CurvePlotTest : public testing::Test
{
protected:
    void SetUp() override
    {
        QLocale::setDefault(QLocale::c());
        m_plot.setBkgColor(Qt::white);
        m_plot.setBorderPen(QPen(Qt::black));
        m_plot.setGridPen(QPen(QColor(200, 200, 200)));
        m_plot.setHorzMinMax(0.0, 100.0);
        m_plot.setVertMinMax(-10.0, 10.0);
        m_plot.resize(500, 300);
        m_plot.show();
        ASSERT_TRUE(QTest::qWaitForWindowExposed(&m_plot));
    }
    void TearDown() override { QToolTip::hideText(); }

    int add(const QString& name, const Points& points, const QPen& pen)
    {
        const int index = m_plot.addCurve(name);
        m_plot.curve(index)->setData(points);
        m_plot.curve(index)->setPen(pen);
        return index;
    }
    int add(const char* name, const Points& points, const QColor& color = Qt::red)
    {
        return add(QString::fromLatin1(name), points, QPen(color, 3.0));
    }
    QPoint pixelOf(double x, double y) const
    {
        return {m_plot.horzScalePoints(x), m_plot.vertScalePoints(y)};
    }
    QImage picture() { return m_plot.grab().toImage(); }
    QColor colorAt(double x, double y) { return picture().pixelColor(pixelOf(x, y)); }
    QString nameAt(double x, double y, double tolerance = -1.0, const char* filter = "",
                   bool isExpression = true)
    {
        const auto found = m_plot.curveFromPoint(x, y, tolerance, QString::fromLatin1(filter), isExpression);
        return found == m_plot.curveListEnd() ? QStringLiteral("none") : found->name();
    }
    bool press(Qt::Key key, Qt::KeyboardModifiers modifiers = Qt::NoModifier)
    {
        QKeyEvent event(QEvent::KeyPress, key, modifiers);
        QApplication::sendEvent(&m_plot, &event);
        return event.isAccepted();
    }
    /// The tooltip that comes up; empty for none.
    QString toolTipAt(double x, double y)
    {
        QToolTip::hideText();
        EXPECT_TRUE(QTest::qWaitFor([] { return !QToolTip::isVisible(); }));
        askForToolTip(x, y);
        return QToolTip::isVisible() ? QToolTip::text() : QString();
    }
    void askForToolTip(double x, double y)
    {
        const QPoint place = pixelOf(x, y);
        QHelpEvent event(QEvent::ToolTip, place, m_plot.mapToGlobal(place));
        QApplication::sendEvent(&m_plot, &event);
    }

    CurvePlot m_plot;
};

} // namespace

TEST_F(CurvePlotTest, CurvesGetIndicesInOrderOfAdding)
{
    EXPECT_EQ(m_plot.addCurve(QStringLiteral("a")), 0);
    EXPECT_EQ(m_plot.addCurve(QStringLiteral("b")), 1);
    EXPECT_EQ(m_plot.curveCount(), 2);
    EXPECT_EQ(m_plot.curve(1)->name(), QStringLiteral("b"));
    EXPECT_EQ(m_plot.curve(2), m_plot.curveListEnd());
    EXPECT_EQ(m_plot.curve(-1), m_plot.curveListEnd());
}

TEST_F(CurvePlotTest, RemovedCurveMovesTheOthersUp)
{
    for (const char* name : {"a", "b", "c"})
        m_plot.addCurve(QString::fromLatin1(name));
    EXPECT_TRUE(m_plot.removeCurve(1));
    EXPECT_EQ(m_plot.curveCount(), 2);
    EXPECT_EQ(m_plot.curve(1)->name(), QStringLiteral("c"));
    EXPECT_FALSE(m_plot.removeCurve(2));
    EXPECT_FALSE(m_plot.removeCurve(-1));
    EXPECT_EQ(m_plot.curveCount(), 2);
}

TEST_F(CurvePlotTest, CurveCountIsSetFromTheEnd)
{
    m_plot.addCurve(QStringLiteral("a"));
    m_plot.addCurve(QStringLiteral("b"));
    EXPECT_TRUE(m_plot.setCurveCount(4));
    EXPECT_EQ(m_plot.curve(1)->name(), QStringLiteral("b"));
    EXPECT_EQ(m_plot.curve(3)->name(), QString());
    EXPECT_TRUE(m_plot.setCurveCount(1));
    EXPECT_EQ(m_plot.curveCount(), 1);
    EXPECT_EQ(m_plot.curve(0)->name(), QStringLiteral("a"));
    EXPECT_FALSE(m_plot.setCurveCount(-1));
    EXPECT_FALSE(m_plot.setCurveCount(std::numeric_limits<int>::max()));
    EXPECT_EQ(m_plot.curveCount(), 1);
    EXPECT_TRUE(m_plot.setCurveCount(0));
    EXPECT_EQ(m_plot.curveCount(), 0);
    EXPECT_FALSE(picture().isNull());
}

TEST_F(CurvePlotTest, ScaleFunctionsUndoEachOther)
{
    for (int x = 0; x < m_plot.width(); ++x)
        EXPECT_EQ(m_plot.horzScalePoints(m_plot.horzScaleValue(x)), x);
    for (int y = 0; y < m_plot.height(); ++y)
        EXPECT_EQ(m_plot.vertScalePoints(m_plot.vertScaleValue(y)), y);
    const QRect area = m_plot.plotArea();
    EXPECT_EQ(m_plot.horzScaleValue(area.left()), 0.0);
    EXPECT_EQ(m_plot.horzScaleValue(area.right()), 100.0);
    EXPECT_EQ(m_plot.vertScaleValue(area.top()), 10.0);
    EXPECT_EQ(m_plot.vertScaleValue(area.bottom()), -10.0);
    EXPECT_DOUBLE_EQ(m_plot.horzPoints2Scale(area.width() - 1), 100.0);
    EXPECT_DOUBLE_EQ(m_plot.vertPoints2Scale(area.height() - 1), 20.0);
    EXPECT_DOUBLE_EQ(m_plot.vertPoints2Scale(-(area.height() - 1) / 2),
                     -20.0 * ((area.height() - 1) / 2) / (area.height() - 1));
}

TEST_F(CurvePlotTest, ScaleFunctionsFollowLimitsAtOnce)
{
    const QRect area = m_plot.plotArea();
    m_plot.setHorzMin(50.0);
    EXPECT_EQ(m_plot.horzScaleValue(area.left()), 50.0);
    m_plot.setHorzMax(60.0);
    EXPECT_EQ(m_plot.horzScaleValue(m_plot.plotArea().right()), 60.0);
    m_plot.setVertMin(1.0);
    m_plot.setVertMax(2.0);
    EXPECT_EQ(m_plot.vertScaleValue(m_plot.plotArea().bottom()), 1.0);
    EXPECT_EQ(m_plot.vertScaleValue(m_plot.plotArea().top()), 2.0);
    EXPECT_EQ(m_plot.horzMin(), 50.0);
    EXPECT_EQ(m_plot.horzMax(), 60.0);
    EXPECT_EQ(m_plot.vertMin(), 1.0);
    EXPECT_EQ(m_plot.vertMax(), 2.0);
}

TEST_F(CurvePlotTest, NumbersThatMakeNoSenseAreLoggedAndChangeNothing)
{
    m_plot.setHorzGrid(10.0);
    m_plot.setVertGridStart(3.0);
    const MessageRecorder messages;
    m_plot.setHorzMin(NotANumber);
    m_plot.setHorzMax(Infinity);
    m_plot.setVertMinMax(-1e308, 1e308);
    m_plot.setHorzGrid(-1.0);
    m_plot.setVertGrid(Infinity);
    m_plot.setVertGridStart(NotANumber);
    EXPECT_EQ(messages.texts().size(), 6);
    EXPECT_EQ(m_plot.horzMin(), 0.0);
    EXPECT_EQ(m_plot.horzMax(), 100.0);
    EXPECT_EQ(m_plot.vertMin(), -10.0);
    EXPECT_EQ(m_plot.horzGrid(), 10.0);
    EXPECT_EQ(m_plot.vertGrid(), 0.0);
    EXPECT_EQ(m_plot.vertGridStart(), 3.0);
}

TEST_F(CurvePlotTest, AdjustGridChoosesBothSteps)
{
    m_plot.setHorzMinMax(0.0, 3.7);
    m_plot.setVertMinMax(-200.0, 600.0);
    m_plot.adjustGrid();
    EXPECT_EQ(m_plot.horzGrid(), 0.5);
    EXPECT_EQ(m_plot.vertGrid(), 100.0);
}

TEST_F(CurvePlotTest, AnyLimitsCanBeDrawn)
{
    add("a", {{0.0, 0.0}, {NotANumber, 1.0}, {1e300, -1e300}, {Infinity, 3.0}, {2.0, 2.0}});
    const double values[] = {0.0, -1.0, 1e-300, 1e300, -1e300, 86400.0, 86400.0000001};
    for (const double min : values) {
        for (const double max : values) {
            m_plot.setHorzMinMax(min, max);
            m_plot.setVertMinMax(max, min);
            m_plot.adjustGrid();
            EXPECT_GT(m_plot.horzGrid(), 0.0);
            for (const QSize& size : {QSize(1, 1), QSize(30, 20), QSize(400, 300)}) {
                m_plot.resize(size);
                EXPECT_EQ(picture().size(), size);
            }
        }
    }
}

TEST_F(CurvePlotTest, LineIsDrawnWhereItsValuesAre)
{
    add("a", {{10.0, 5.0}, {90.0, 5.0}});
    const QImage image = picture();
    for (double x = 11.0; x < 90.0; x += 1.0)
        EXPECT_EQ(image.pixelColor(pixelOf(x, 5.0)), QColor(Qt::red)) << x;
    EXPECT_EQ(image.pixelColor(pixelOf(5.0, 5.0)), QColor(Qt::white));
    EXPECT_EQ(image.pixelColor(pixelOf(50.0, 6.0)), QColor(Qt::white));
}

TEST_F(CurvePlotTest, NonFinitePointsLeaveAGap)
{
    add("a", {{0.0, 5.0}, {40.0, 5.0}, {50.0, NotANumber}, {60.0, 5.0}, {100.0, 5.0}, {100.0, Infinity}});
    const QImage image = picture();
    EXPECT_EQ(image.pixelColor(pixelOf(20.0, 5.0)), QColor(Qt::red));
    EXPECT_EQ(image.pixelColor(pixelOf(50.0, 5.0)), QColor(Qt::white));
    EXPECT_EQ(image.pixelColor(pixelOf(80.0, 5.0)), QColor(Qt::red));
}

TEST_F(CurvePlotTest, PointBetweenGapsIsADot)
{
    add("a", {{0.0, 5.0}, {40.0, NotANumber}, {50.0, 5.0}, {60.0, NotANumber}, {90.0, 5.0}});
    EXPECT_EQ(colorAt(50.0, 5.0), QColor(Qt::red));
}

TEST_F(CurvePlotTest, NothingIsDrawnBesideTheArea)
{
    add("a", {{-100.0, -100.0}, {200.0, 100.0}, {200.0, -100.0}, {-100.0, 100.0}});
    const QImage image = picture();
    const QRect area = m_plot.plotArea();
    EXPECT_EQ(countOf(image, Qt::red, image.rect()), countOf(image, Qt::red, area));
    EXPECT_GT(countOf(image, Qt::red, area), 500);
}

TEST_F(CurvePlotTest, HiddenCurveIsNotDrawn)
{
    const int index = add("a", {{0.0, 5.0}, {100.0, 5.0}});
    m_plot.curve(index)->setVisible(false);
    EXPECT_EQ(colorAt(50.0, 5.0), QColor(Qt::white));
    m_plot.curve(index)->setVisible(true);
    EXPECT_EQ(colorAt(50.0, 5.0), QColor(Qt::red));
}

TEST_F(CurvePlotTest, CurveWithoutPenHasTheColorOfTheBorder)
{
    m_plot.setBorderPen(QPen(Qt::blue));
    const int index = m_plot.addCurve(QStringLiteral("a"));
    m_plot.curve(index)->setData(Points{{50.0, -9.0}, {50.0, 9.0}});
    m_plot.setHorzMinMax(0.0, m_plot.plotArea().width() - 1);
    EXPECT_EQ(colorAt(50.0, 5.0), QColor(Qt::blue));
}

TEST_F(CurvePlotTest, WithoutPenStyleThePointsAreDots)
{
    add(QStringLiteral("a"), {{20.0, 5.0}, {80.0, 5.0}}, QPen(QBrush(Qt::red), 3.0, Qt::NoPen));
    const QImage image = picture();
    EXPECT_EQ(image.pixelColor(pixelOf(20.0, 5.0)), QColor(Qt::red));
    EXPECT_EQ(image.pixelColor(pixelOf(80.0, 5.0)), QColor(Qt::red));
    EXPECT_EQ(image.pixelColor(pixelOf(50.0, 5.0)), QColor(Qt::white));
}

TEST_F(CurvePlotTest, ManyDotsAreDrawnAtTheirPoints)
{
    Points points;
    for (int i = 0; i < 200000; ++i)
        points << QPointF(i % 60 + 20.0, 5.0);
    const int index = add(QStringLiteral("a"), points, QPen(QBrush(Qt::red), 3.0));
    m_plot.curve(index)->setStyle(Curve::Dots);
    const QImage image = picture();
    EXPECT_EQ(image.pixelColor(pixelOf(20.0, 5.0)), QColor(Qt::red));
    EXPECT_EQ(image.pixelColor(pixelOf(79.0, 5.0)), QColor(Qt::red));
    EXPECT_EQ(image.pixelColor(pixelOf(90.0, 5.0)), QColor(Qt::white));
    EXPECT_LE(countOf(image, Qt::red, m_plot.plotArea()), 60 * 9);
}

TEST_F(CurvePlotTest, CharactersAreCentredOnThePoints)
{
    const int index = add("a", {{20.0, 5.0}, {80.0, 5.0}});
    QFont font(QStringLiteral("DejaVu Sans"));
    font.setPixelSize(30);
    m_plot.curve(index)->setStyle(Curve::Characters, QChar(0x25cf), font);
    const QImage image = picture();
    for (const double x : {20.0, 80.0}) {
        const QPoint centre = pixelOf(x, 5.0);
        EXPECT_EQ(image.pixelColor(centre), QColor(Qt::red));
        int left = 0;
        int right = 0;
        for (int away = 1; away < 20; ++away) {
            left += image.pixelColor(centre - QPoint(away, 0)) == QColor(Qt::red) ? 1 : 0;
            right += image.pixelColor(centre + QPoint(away, 0)) == QColor(Qt::red) ? 1 : 0;
        }
        EXPECT_NEAR(left, right, 1);
        EXPECT_GE(left, 4);
    }
    EXPECT_EQ(image.pixelColor(pixelOf(50.0, 5.0)), QColor(Qt::white));
}

TEST_F(CurvePlotTest, StyleOfCharactersWithoutOneDrawsDots)
{
    const int index = add("a", {{20.0, 5.0}, {80.0, 5.0}});
    m_plot.curve(index)->setStyle(Curve::Characters);
    EXPECT_EQ(colorAt(20.0, 5.0), QColor(Qt::red));
    EXPECT_EQ(colorAt(50.0, 5.0), QColor(Qt::white));
}

TEST_F(CurvePlotTest, LastAddedCurveIsInFrontUntilAnotherIsBroughtThere)
{
    const int red = add("red", {{0.0, 5.0}, {100.0, 5.0}}, Qt::red);
    add("blue", {{0.0, 5.0}, {100.0, 5.0}}, Qt::blue);
    EXPECT_EQ(colorAt(50.0, 5.0), QColor(Qt::blue));
    m_plot.curveToFront(red);
    EXPECT_EQ(colorAt(50.0, 5.0), QColor(Qt::red));
    EXPECT_EQ(m_plot.curve(red)->name(), QStringLiteral("red"));
    m_plot.curveToFront(77);
    EXPECT_EQ(nameAt(50.0, 5.0), QStringLiteral("red"));
    m_plot.removeCurve(red);
    EXPECT_EQ(colorAt(50.0, 5.0), QColor(Qt::blue));
}

TEST_F(CurvePlotTest, ThousandsOfCurvesAreDrawnInTheirOrder)
{
    for (int i = 0; i < 3000; ++i)
        add("many", {{0.0, -9.0 + i * 0.002}, {30.0, -8.0 + i * 0.001}, {100.0, -9.0 + i * 0.002}},
            Qt::green);
    add("red", {{0.0, 5.0}, {100.0, 5.0}}, Qt::red);
    add("seen through", {{0.0, 8.0}, {100.0, 8.0}}, QColor(255, 0, 0, 128));
    add("blue", {{50.0, -10.0}, {50.0, 10.0}}, Qt::blue);
    const QImage image = picture();
    EXPECT_EQ(image.pixelColor(pixelOf(70.0, -7.0)), QColor(Qt::green));
    EXPECT_EQ(image.pixelColor(pixelOf(70.0, 5.0)), QColor(Qt::red));
    EXPECT_EQ(image.pixelColor(pixelOf(50.0, 5.0)), QColor(Qt::blue));
    EXPECT_EQ(image.pixelColor(pixelOf(50.0, -7.0)), QColor(Qt::blue));
    EXPECT_EQ(image.pixelColor(pixelOf(70.0, 8.0)).red(), 255);
    EXPECT_NEAR(image.pixelColor(pixelOf(70.0, 8.0)).green(), 127, 2);
    EXPECT_EQ(image.pixelColor(pixelOf(70.0, 2.0)), QColor(Qt::white));
}

TEST_F(CurvePlotTest, DenseCurveInAWidePenIsDrawn)
{
    Points points;
    for (int i = 0; i <= 200000; ++i)
        points << QPointF(i * 0.0005, i % 2 ? 5.0 : -5.0);
    add(QStringLiteral("a"), points, QPen(Qt::red, 4.0));
    const QImage image = picture();
    for (const double y : {-4.9, 0.0, 4.9})
        EXPECT_EQ(image.pixelColor(pixelOf(50.0, y)), QColor(Qt::red)) << y;
    EXPECT_EQ(image.pixelColor(pixelOf(50.0, 6.0)), QColor(Qt::white));
}

TEST_F(CurvePlotTest, LookIsDrawn)
{
    m_plot.setBkgColor(QColor(10, 20, 30));
    m_plot.setBorderPen(QPen(QColor(0, 255, 0)));
    m_plot.setGridPen(QPen(QColor(255, 0, 255)));
    m_plot.setHorzGrid(25.0);
    const QImage image = picture();
    const QRect area = m_plot.plotArea();
    EXPECT_EQ(image.pixelColor(1, 1), QColor(10, 20, 30));
    EXPECT_EQ(image.pixelColor(area.left(), area.center().y()), QColor(0, 255, 0));
    EXPECT_EQ(image.pixelColor(area.center().x(), area.bottom()), QColor(0, 255, 0));
    EXPECT_EQ(image.pixelColor(m_plot.horzScalePoints(25.0), area.top() + 5), QColor(255, 0, 255));
    EXPECT_EQ(countOf(image, QColor(255, 0, 255), area.adjusted(1, 1, -1, -1)), 3 * (area.height() - 2));
}

TEST_F(CurvePlotTest, LinesAreCrispAndInPlaceAtAnyDevicePixelRatio)
{
    add("a", {{0.0, 5.0}, {100.0, 5.0}});
    const QRect area = m_plot.plotArea();
    for (const double ratio : {1.0, 1.5, 2.0, 2.25}) {
        QImage image(m_plot.size() * ratio, QImage::Format_RGB32);
        image.setDevicePixelRatio(ratio);
        m_plot.render(&image);
        const int row = int((area.bottom() - 5) * ratio);
        const QRect leftBorder(int(area.left() * ratio) - 3, row, 9, 1);
        const int black = countOf(image, Qt::black, leftBorder);
        EXPECT_EQ(black, int(std::ceil(ratio - 0.5))) << ratio;
        EXPECT_EQ(countOf(image, Qt::white, leftBorder), 9 - black) << ratio;

        const int column = int(area.center().x() * ratio);
        double ink = 0.0;
        double centre = 0.0;
        for (int y = int(area.top() * ratio) + 4; y < int(area.bottom() * ratio) - 4; ++y) {
            const double red = 1.0 - image.pixelColor(column, y).greenF();
            ink += red;
            centre += red * (y + 0.5);
        }
        EXPECT_NEAR(ink, 3.0 * ratio, 0.05) << ratio;
        EXPECT_NEAR(centre / ink, (area.top() + 0.5 + (area.height() - 1) * 0.25) * ratio, 0.3) << ratio;
    }
}

TEST_F(CurvePlotTest, SchemeSetsTheWholeLook)
{
    CurvePlotScheme scheme;
    scheme.setBkg(Qt::darkCyan);
    scheme.setBorder(QPen(Qt::yellow, 2.0));
    scheme.setGrid(QPen(Qt::gray, 1.0, Qt::DotLine));
    QFont font;
    font.setPixelSize(23);
    scheme.setAxis(font);
    scheme.setAxisTitle(font);
    scheme.setTitle(font);
    m_plot.setScheme(scheme);
    EXPECT_EQ(m_plot.bkgColor(), QColor(Qt::darkCyan));
    EXPECT_EQ(m_plot.borderPen(), QPen(Qt::yellow, 2.0));
    EXPECT_EQ(m_plot.gridPen(), QPen(Qt::gray, 1.0, Qt::DotLine));
    EXPECT_EQ(m_plot.axisFont(), font);
    EXPECT_EQ(m_plot.axisTitleFont(), font);
    EXPECT_EQ(m_plot.titleFont(), font);
}

TEST_F(CurvePlotTest, WithoutALookOfItsOwnItFollowsPaletteAndFont)
{
    CurvePlot plot;
    plot.resize(400, 300);
    const int left = plot.plotArea().left();
    QPalette palette;
    palette.setColor(QPalette::Base, Qt::black);
    palette.setColor(QPalette::Text, Qt::white);
    plot.setPalette(palette);
    QFont font = plot.font();
    font.setPixelSize(40);
    plot.setFont(font);
    EXPECT_EQ(plot.bkgColor(), QColor(Qt::black));
    EXPECT_EQ(plot.borderPen().color(), QColor(Qt::white));
    EXPECT_EQ(plot.axisFont().pixelSize(), 40);
    EXPECT_EQ(plot.titleFont().pixelSize(), 42);
    EXPECT_GT(plot.plotArea().left(), left);
    EXPECT_EQ(plot.grab().toImage().pixelColor(2, 2), QColor(Qt::black));
}

TEST_F(CurvePlotTest, TopmostCurveWithinTheToleranceIsFound)
{
    const double pixel = m_plot.vertPoints2Scale(1);
    add("1", {{0.0, 5.0}, {100.0, 5.0}});
    add("2", {{0.0, 5.0 - 4 * pixel}, {100.0, 5.0 - 4 * pixel}});
    EXPECT_EQ(nameAt(50.0, 5.0, 2.0), QStringLiteral("1"));
    EXPECT_EQ(nameAt(50.0, 5.0, 4.5), QStringLiteral("2"));
    EXPECT_EQ(nameAt(50.0, 5.0 + 3 * pixel, 2.5), QStringLiteral("none"));
    EXPECT_EQ(nameAt(50.0, 5.0 + 3 * pixel, 3.5), QStringLiteral("1"));
    EXPECT_EQ(nameAt(50.0, 5.0, 0.0), QStringLiteral("1"));
    m_plot.curveToFront(0);
    EXPECT_EQ(nameAt(50.0, 5.0, 4.5), QStringLiteral("1"));
}

TEST_F(CurvePlotTest, DefaultToleranceFindsTheTopmostUnderThePointerOrElseTheNearest)
{
    const double pixel = m_plot.vertPoints2Scale(1);
    add("1", {{0.0, 5.0}, {100.0, 5.0}});
    add("2", {{0.0, 5.0 - 4 * pixel}, {100.0, 5.0 - 4 * pixel}});
    add("3", {{0.0, -9.0}, {100.0, -9.0}});
    EXPECT_EQ(nameAt(50.0, 5.0), QStringLiteral("2"));
    EXPECT_EQ(nameAt(50.0, 9.0), QStringLiteral("1"));
    EXPECT_EQ(nameAt(50.0, -5.0), QStringLiteral("3"));
    EXPECT_EQ(nameAt(-30.0, -50.0), QStringLiteral("3"));
}

TEST_F(CurvePlotTest, NearestOfCurvesAsFarAsEachOtherIsTheTopmost)
{
    add("1", {{0.0, 5.0}, {100.0, 5.0}});
    add("2", {{0.0, 5.0}, {100.0, 5.0}});
    EXPECT_EQ(nameAt(50.0, -8.0), QStringLiteral("2"));
    m_plot.curveToFront(0);
    EXPECT_EQ(nameAt(50.0, -8.0), QStringLiteral("1"));
}

TEST_F(CurvePlotTest, FilterIsAnExpressionForTheWholeName)
{
    add("12", {{0.0, 5.0}, {100.0, 5.0}});
    add("BLINK_3", {{0.0, 5.0}, {100.0, 5.0}});
    add("", {{0.0, 5.0}, {100.0, 5.0}});
    EXPECT_EQ(nameAt(50.0, 5.0, -1.0, "\\d+"), QStringLiteral("12"));
    EXPECT_EQ(nameAt(50.0, 5.0, -1.0, "BLINK_\\d+"), QStringLiteral("BLINK_3"));
    EXPECT_EQ(nameAt(50.0, 5.0, -1.0, "1|2"), QStringLiteral("none"));
    EXPECT_EQ(nameAt(50.0, 5.0, -1.0, "("), QStringLiteral("none"));
    EXPECT_EQ(nameAt(50.0, 5.0, -1.0, ""), QString());
}

TEST_F(CurvePlotTest, FilterMayBeANameItself)
{
    add("12", {{0.0, 5.0}, {100.0, 5.0}});
    add("1", {{0.0, 5.0}, {100.0, 5.0}});
    add("\\d+", {{0.0, -5.0}, {100.0, -5.0}});
    EXPECT_EQ(nameAt(50.0, 5.0, -1.0, "12", false), QStringLiteral("12"));
    EXPECT_EQ(nameAt(50.0, 5.0, -1.0, "\\d+", false), QStringLiteral("\\d+"));
    EXPECT_EQ(nameAt(50.0, 5.0, -1.0, "2", false), QStringLiteral("none"));
}

TEST_F(CurvePlotTest, OnlyWhatIsDrawnIsFound)
{
    EXPECT_EQ(nameAt(50.0, 5.0), QStringLiteral("none"));
    const int index = add("a", {{0.0, 5.0}, {40.0, 5.0}, {50.0, NotANumber}, {60.0, 5.0}, {100.0, 5.0}});
    add("far", {{0.0, 500.0}, {100.0, 500.0}});
    EXPECT_EQ(nameAt(50.0, 5.0, 3.0), QStringLiteral("none"));
    EXPECT_EQ(nameAt(30.0, 5.0, 3.0), QStringLiteral("a"));
    EXPECT_EQ(nameAt(50.0, 500.0), QStringLiteral("a"));
    EXPECT_EQ(nameAt(NotANumber, 5.0), QStringLiteral("none"));
    EXPECT_EQ(nameAt(50.0, Infinity), QStringLiteral("none"));
    EXPECT_EQ(nameAt(50.0, 5.0, NotANumber), QStringLiteral("none"));
    m_plot.curve(index)->setVisible(false);
    EXPECT_EQ(nameAt(30.0, 5.0), QStringLiteral("none"));
}

TEST_F(CurvePlotTest, CurvesOfPointsAreFoundAtTheirPointsOnly)
{
    const int index = add("a", {{20.0, 5.0}, {80.0, 5.0}});
    EXPECT_EQ(nameAt(50.0, 5.0, 5.0), QStringLiteral("a"));
    m_plot.curve(index)->setStyle(Curve::Characters, QLatin1Char('+'), QFont());
    EXPECT_EQ(nameAt(50.0, 5.0, 5.0), QStringLiteral("none"));
    EXPECT_EQ(nameAt(80.0, 5.0, 5.0), QStringLiteral("a"));
}

TEST_F(CurvePlotTest, LongCurvesAreFoundAsShortOnesAre)
{
    Points points;
    for (int i = 0; i <= 100000; ++i)
        points << QPointF(i * 0.001, 5.0);
    add("long", points);
    add("short", {{10.0, -5.0}, {12.0, -5.0}});
    EXPECT_EQ(nameAt(50.0, 5.0, 2.0), QStringLiteral("long"));
    EXPECT_EQ(nameAt(90.0, -9.0), QStringLiteral("long"));
    EXPECT_EQ(nameAt(12.0, -9.0), QStringLiteral("short"));
}

TEST_F(CurvePlotTest, MouseSignalsCarryWidgetPixels)
{
    QStringList seen;
    const auto record = [&seen](const char* what) {
        return [&seen, what](int x, int y, Qt::MouseButton button, Qt::KeyboardModifiers modifiers) {
            seen << QStringLiteral("%1 %2 %3 button %4 modifiers %5")
                        .arg(QLatin1String(what))
                        .arg(x)
                        .arg(y)
                        .arg(button)
                        .arg(int(modifiers), 0, 16);
        };
    };
    QObject::connect(&m_plot, &CurvePlot::mousePress, record("press"));
    QObject::connect(&m_plot, &CurvePlot::mouseRelease, record("release"));
    QObject::connect(&m_plot, &CurvePlot::mouseDoubleClick, record("double"));
    QTest::mousePress(&m_plot, Qt::LeftButton, Qt::ShiftModifier, QPoint(101, 52));
    QTest::mouseRelease(&m_plot, Qt::LeftButton, Qt::ShiftModifier, QPoint(111, 62));
    EXPECT_EQ(seen, (QStringList{QStringLiteral("press 101 52 button 1 modifiers 2000000"),
                                 QStringLiteral("release 111 62 button 1 modifiers 2000000")}));
    seen.clear();
    QTest::mouseDClick(&m_plot, Qt::RightButton, Qt::NoModifier, QPoint(7, 8));
    EXPECT_EQ(seen, QStringList{QStringLiteral("double 7 8 button 2 modifiers 0")});
}

TEST_F(CurvePlotTest, MovesAreTold)
{
    m_plot.setMouseTracking(true);
    QSignalSpy moved(&m_plot, &CurvePlot::mouseMove);
    QTest::mouseMove(m_plot.windowHandle(), QPoint(33, 44));
    QApplication::processEvents();
    ASSERT_EQ(moved.size(), 1);
    EXPECT_EQ(moved[0], (QVariantList{33, 44}));
    m_plot.setMouseTracking(false);
    QTest::mouseMove(m_plot.windowHandle(), QPoint(35, 46));
    QApplication::processEvents();
    EXPECT_EQ(moved.size(), 1);
}

TEST_F(CurvePlotTest, WheelIsToldInEighthsOfADegree)
{
    QSignalSpy turned(&m_plot, &CurvePlot::mouseWheel);
    const auto turn = [this](const QPoint& angle) {
        const QPointF place(40.0, 30.0);
        QWheelEvent event(place, m_plot.mapToGlobal(place.toPoint()), QPoint(), angle, Qt::NoButton,
                          Qt::NoModifier, Qt::NoScrollPhase, false);
        QApplication::sendEvent(&m_plot, &event);
    };
    turn(QPoint(0, 120));
    turn(QPoint(-240, 0));
    turn(QPoint(0, 0));
    ASSERT_EQ(turned.size(), 2);
    EXPECT_EQ(turned[0], (QVariantList{40, 30, 120}));
    EXPECT_EQ(turned[1], (QVariantList{40, 30, -240}));
}

TEST_F(CurvePlotTest, SlotsOfFormsConnectByName)
{
    EXPECT_GE(
        m_plot.metaObject()->indexOfSignal("mouseRelease(int,int,Qt::MouseButton,Qt::KeyboardModifiers)"), 0);
    EXPECT_GE(m_plot.metaObject()->indexOfSignal("mouseMove(int,int)"), 0);
    EXPECT_GE(m_plot.metaObject()->indexOfSignal("mouseWheel(int,int,int)"), 0);
}

TEST_F(CurvePlotTest, ToolTipsNameThePointUnderTheMouse)
{
    m_plot.adjustGrid();
    add("7", {{20.0, 5.0}, {60.0, 5.0}, {80.0, -2.5}});
    EXPECT_EQ(toolTipAt(20.0, 5.0), QString());
    m_plot.setShowToolTips(true, QStringLiteral("%3: %1 ms, %2 deg, 100%"));
    EXPECT_EQ(toolTipAt(22.0, 5.0), QStringLiteral("7: 20.00 ms, 5.00 deg, 100%"));
    EXPECT_EQ(toolTipAt(58.0, 5.0), QStringLiteral("7: 60.00 ms, 5.00 deg, 100%"));
    EXPECT_EQ(toolTipAt(20.0, -9.0), QString());
    m_plot.setHorzPrecision(0);
    m_plot.setVertPrecision(1);
    m_plot.setShowToolTips(true);
    EXPECT_EQ(toolTipAt(80.0, -2.5), QStringLiteral("80.00; -2.500"));
    askForToolTip(80.0, -9.0);
    EXPECT_TRUE(QTest::qWaitFor([] { return !QToolTip::isVisible(); }));
    m_plot.setShowToolTips(false);
    EXPECT_EQ(toolTipAt(80.0, -2.5), QString());
}

TEST_F(CurvePlotTest, ToolTipOfACurveGoesBefore)
{
    const int index = add("BLINK_0", {{20.0, 5.0}, {60.0, 5.0}});
    m_plot.curve(index)->setToolTip(QStringLiteral("Blink\nDuration 240 ms"));
    m_plot.setShowToolTips(true);
    EXPECT_EQ(toolTipAt(40.0, 5.0), QStringLiteral("Blink\nDuration 240 ms"));
    m_plot.curve(index)->setToolTip(QStringLiteral("a <b>bold</b> one"));
    EXPECT_TRUE(toolTipAt(40.0, 5.0).contains(QStringLiteral("&lt;b&gt;")));
}

TEST_F(CurvePlotTest, KeysReadThePointsOut)
{
    m_plot.adjustGrid();
    add("back", {{1.0, 1.0}});
    add("front", {{20.0, 5.0}, {21.0, NotANumber}, {20.5, 5.0}, {80.0, -2.5}, {500.0, 0.0}});
    m_plot.setFocus(Qt::TabFocusReason);
    EXPECT_TRUE(press(Qt::Key_Right));
    EXPECT_EQ(QToolTip::text(), QStringLiteral("20.00; 5.00"));
    EXPECT_TRUE(press(Qt::Key_Right));
    EXPECT_EQ(QToolTip::text(), QStringLiteral("20.50; 5.00"));
    EXPECT_TRUE(press(Qt::Key_Right));
    EXPECT_EQ(QToolTip::text(), QStringLiteral("80.00; -2.50"));
    EXPECT_TRUE(press(Qt::Key_Right));
    EXPECT_EQ(QToolTip::text(), QStringLiteral("80.00; -2.50"));
    EXPECT_TRUE(m_plot.accessibleDescription().contains(QStringLiteral("80.00; -2.50")));
    EXPECT_TRUE(press(Qt::Key_Left));
    EXPECT_EQ(QToolTip::text(), QStringLiteral("20.50; 5.00"));
    EXPECT_TRUE(press(Qt::Key_Escape));
    EXPECT_FALSE(m_plot.accessibleDescription().contains(QStringLiteral("20.50; 5.00")));
    EXPECT_TRUE(press(Qt::Key_Left));
    EXPECT_EQ(QToolTip::text(), QStringLiteral("80.00; -2.50"));
}

TEST_F(CurvePlotTest, WithShiftTheMarkLeavesOutNearPoints)
{
    m_plot.setHorzMinMax(0.0, m_plot.plotArea().width() - 1);
    m_plot.adjustGrid();
    Points points;
    for (int i = 20; i < 60; ++i)
        points << QPointF(i, 0.0);
    add("a", points);
    EXPECT_TRUE(press(Qt::Key_Right));
    EXPECT_TRUE(press(Qt::Key_Right, Qt::ShiftModifier));
    EXPECT_EQ(QToolTip::text(), QStringLiteral("30.00; 0.00"));
    EXPECT_TRUE(press(Qt::Key_Left, Qt::ShiftModifier));
    EXPECT_EQ(QToolTip::text(), QStringLiteral("20.00; 0.00"));
}

TEST_F(CurvePlotTest, MarkIsDrawnAndGoesWithTheFocus)
{
    add("a", {{30.0, 5.0}, {70.0, 5.0}});
    m_plot.activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&m_plot));
    m_plot.setFocus();
    press(Qt::Key_Right);
    press(Qt::Key_Escape);
    const QImage without = picture();
    press(Qt::Key_Right);
    const QRect around(pixelOf(30.0, 5.0) - QPoint(8, 8), QSize(17, 17));
    EXPECT_NE(picture().copy(around), without.copy(around));
    m_plot.clearFocus();
    EXPECT_EQ(picture().copy(around), without.copy(around));
}

TEST_F(CurvePlotTest, FocusByTabIsShownAndThatByTheMouseIsNot)
{
    m_plot.activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&m_plot));
    m_plot.clearFocus();
    const QImage without = picture();
    m_plot.setFocus(Qt::MouseFocusReason);
    EXPECT_EQ(picture(), without);
    m_plot.clearFocus();
    m_plot.setFocus(Qt::TabFocusReason);
    EXPECT_NE(picture(), without);
}

TEST_F(CurvePlotTest, OtherKeysAreLeftToTheParents)
{
    EXPECT_FALSE(press(Qt::Key_Right));
    EXPECT_FALSE(press(Qt::Key_Escape));
    add("a", {{30.0, 5.0}});
    for (const Qt::Key key :
         {Qt::Key_Up, Qt::Key_Down, Qt::Key_Home, Qt::Key_End, Qt::Key_Plus, Qt::Key_Minus})
        EXPECT_FALSE(press(key)) << key;
    EXPECT_FALSE(press(Qt::Key_Right, Qt::ControlModifier));
}

TEST_F(CurvePlotTest, MarkOutlivesChangesOfItsCurve)
{
    add("first", {{10.0, 1.0}});
    const int index = add("a", {{30.0, 5.0}, {40.0, 5.0}, {50.0, 5.0}});
    press(Qt::Key_Left);
    m_plot.curve(index)->setData(Points{{30.0, 5.0}});
    EXPECT_FALSE(picture().isNull());
    EXPECT_TRUE(press(Qt::Key_Right));
    m_plot.removeCurve(0);
    EXPECT_TRUE(press(Qt::Key_Right));
    m_plot.removeCurve(0);
    EXPECT_FALSE(picture().isNull());
    EXPECT_FALSE(press(Qt::Key_Right));
}

TEST_F(CurvePlotTest, TitlesNameItForScreenReaders)
{
    CurvePlot plot;
    EXPECT_EQ(plot.accessibleName(), QStringLiteral("Chart"));
    plot.setVertTitle(QStringLiteral("Velocity"));
    EXPECT_EQ(plot.accessibleName(), QStringLiteral("Velocity"));
    plot.setTitle(QStringLiteral("Profile"));
    EXPECT_EQ(plot.accessibleName(), QStringLiteral("Profile"));
    EXPECT_TRUE(plot.accessibleDescription().contains(QStringLiteral("Velocity")));
    plot.setAccessibleName(QStringLiteral("Mine"));
    plot.setTitle(QStringLiteral("Other"));
    EXPECT_EQ(plot.accessibleName(), QStringLiteral("Mine"));
    EXPECT_EQ(plot.focusPolicy(), Qt::StrongFocus);
}

TEST_F(CurvePlotTest, PrintFillsItsRectangleAndNothingElse)
{
    add("a", {{0.0, -10.0}, {100.0, 10.0}});
    QImage image(700, 500, QImage::Format_RGB32);
    image.fill(Qt::yellow);
    QPainter painter(&image);
    m_plot.print(painter, QRect(100, 50, 500, 400), 1.0);
    painter.end();
    EXPECT_EQ(countOf(image, Qt::yellow, image.rect()), 700 * 500 - 500 * 400);
    EXPECT_EQ(image.pixelColor(101, 51), QColor(Qt::white));
    EXPECT_GT(countOf(image, Qt::red, image.rect()), 500);
}

TEST_F(CurvePlotTest, PrintAtScaleOneIsThePictureOfTheScreen)
{
    QFont font;
    font.setPixelSize(13);
    m_plot.setFont(font);
    m_plot.setTitle(QStringLiteral("Title"));
    m_plot.setVertTitle(QStringLiteral("Up"));
    m_plot.adjustGrid();
    add("a", {{0.0, -10.0}, {100.0, 10.0}});
    QImage image(m_plot.size(), QImage::Format_RGB32);
    QPainter painter(&image);
    m_plot.print(painter, QRect(QPoint(), m_plot.size()), 1.0);
    painter.end();
    EXPECT_EQ(image, picture().convertToFormat(QImage::Format_RGB32));
}

TEST_F(CurvePlotTest, PrintScalesPensAndFonts)
{
    m_plot.setVertGrid(2.0);
    add("a", {{0.0, 5.0}, {100.0, 5.0}});
    const auto printed = [this](double scale) {
        QImage image(1000, 800, QImage::Format_RGB32);
        QPainter painter(&image);
        m_plot.print(painter, image.rect(), scale);
        return image;
    };
    const auto thickness = [](const QImage& image) {
        double sum = 0.0;
        for (int y = 0; y < image.height(); ++y) {
            const QColor color = image.pixelColor(500, y);
            sum += color.red() == 255 ? 1.0 - color.greenF() : 0.0;
        }
        return sum;
    };
    const auto firstBlack = [](const QImage& image) {
        for (int x = 0; x < image.width(); ++x) {
            // The left border is the first column that is black over its length.
            if (countOf(image, Qt::black, QRect(x, 0, 1, image.height())) > image.height() / 2)
                return x;
        }
        return -1;
    };
    EXPECT_NEAR(thickness(printed(1.0)), 3.0, 0.02);
    EXPECT_NEAR(thickness(printed(4.0)), 12.0, 0.02);
    EXPECT_NEAR(firstBlack(printed(4.0)), firstBlack(printed(1.0)) * 4, 12);
}

TEST_F(CurvePlotTest, PrintMayHaveAnotherLook)
{
    CurvePlotScheme scheme;
    scheme.setBkg(Qt::cyan);
    QImage image(300, 200, QImage::Format_RGB32);
    QPainter painter(&image);
    m_plot.print(painter, image.rect(), 1.0, scheme);
    painter.end();
    EXPECT_EQ(image.pixelColor(1, 1), QColor(Qt::cyan));
    EXPECT_EQ(m_plot.bkgColor(), QColor(Qt::white));
}

TEST_F(CurvePlotTest, PrintWithoutRoomIsLogged)
{
    QImage image(30, 20, QImage::Format_RGB32);
    image.fill(Qt::yellow);
    QPainter painter(&image);
    const MessageRecorder messages;
    m_plot.print(painter, QRect(0, 0, 0, 10), 1.0);
    m_plot.print(painter, image.rect(), 0.0);
    m_plot.print(painter, image.rect(), NotANumber);
    painter.end();
    EXPECT_EQ(messages.texts().size(), 3);
    EXPECT_EQ(countOf(image, Qt::yellow, image.rect()), 600);
}

TEST_F(CurvePlotTest, DrawingCommandsGiveThePictureThatPixelsGive)
{
    add("a", {{0.0, 5.0}, {100.0, 5.0}});
    Points dense;
    for (int i = 0; i < 20000; ++i)
        dense << QPointF(i * 0.005, i % 2 ? -3.0 : -7.0);
    add(QStringLiteral("dense"), dense, QPen(Qt::blue));
    QPicture commands;
    QPainter recorder(&commands);
    m_plot.print(recorder, QRect(0, 0, 500, 300), 1.0);
    recorder.end();
    QImage image(500, 300, QImage::Format_RGB32);
    image.fill(Qt::yellow);
    QPainter painter(&image);
    painter.drawPicture(0, 0, commands);
    painter.end();
    EXPECT_EQ(countOf(image, Qt::yellow, image.rect()), 0);
    EXPECT_EQ(image.pixelColor(250, m_plot.vertScalePoints(5.0)), QColor(Qt::red));
    EXPECT_EQ(image.pixelColor(250, m_plot.vertScalePoints(-5.0)).blue(), 255);
    EXPECT_LT(image.pixelColor(250, m_plot.vertScalePoints(-5.0)).red(), 128);
    EXPECT_EQ(image.pixelColor(250, m_plot.vertScalePoints(1.0)), QColor(Qt::white));
}

TEST_F(CurvePlotTest, PdfHoldsTheCurveAsALine)
{
    add("a", {{0.0, -10.0}, {100.0, 10.0}});
    QBuffer buffer;
    buffer.open(QIODevice::WriteOnly);
    {
        QPdfWriter pdf(&buffer);
        pdf.setResolution(600);
        QPainter painter(&pdf);
        m_plot.print(painter, QRect(500, 500, 3000, 2000), 600.0 / 96.0);
    }
    // Content streams are compressed.
    const QByteArray file = buffer.data();
    ASSERT_TRUE(file.startsWith("%PDF-"));
    bool found = false;
    for (int at = file.indexOf("\nstream\n"); at >= 0; at = file.indexOf("\nstream\n", at + 1)) {
        const QByteArray packed = file.mid(at + 8, file.indexOf("endstream", at) - at - 8);
        if (!packed.startsWith('\x78'))
            continue;
        const QByteArray content = qUncompress(QByteArray("\0\1\0\0", 4) + packed);
        found = found || (content.contains("1 0 0 SCN") && content.contains("18.7500000 w "));
    }
    EXPECT_TRUE(found);
}
