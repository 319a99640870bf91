#include "labellayout.h"
#include "labelstore.h"

#include <gtest/gtest.h>

#include <limits>
#include <random>

namespace
{

const QRectF Area(100.0, 50.0, 400.0, 60.0);
constexpr double RowHeight = 15.0;
constexpr double Gap = 4.0;

QVector<QRectF> place(const QVector<LabelText>& texts, const QVector<LabelDot>& dots = {})
{
    return placeLabelTexts(texts, dots, Area, RowHeight, Gap);
}

LabelText text(double x, double y, double width, int mostRowsAway = 1000)
{
    return {x, y, width, mostRowsAway};
}

KiroLabel timeLine(uint ms)
{
    KiroLabel label;
    label.setupTimeLine(ms, QStringLiteral("line"), QString(), Qt::red);
    return label;
}

KiroLabel signalLine(uint signal, uint ms)
{
    KiroLabel label;
    label.setupSignalLine(signal, ms, QStringLiteral("line"), QString(), Qt::red);
    return label;
}

KiroLabel timePeriod(uint from, uint to)
{
    KiroLabel label;
    label.setupTimePeriod(from, to, QStringLiteral("period"), QString(), Qt::red);
    return label;
}

} // namespace

TEST(LabelLayoutTest, LoneTextStandsRightOfItsLine)
{
    EXPECT_EQ(place({text(200.0, 50.0, 80.0)}), QVector<QRectF>({QRectF(204.0, 50.0, 80.0, 15.0)}));
}

TEST(LabelLayoutTest, TextAtTheRightEdgeStandsLeftOfItsLine)
{
    EXPECT_EQ(place({text(480.0, 50.0, 80.0)}), QVector<QRectF>({QRectF(396.0, 50.0, 80.0, 15.0)}));
}

TEST(LabelLayoutTest, TextOfAPeriodFromBeforeStandsAtTheLeftEdge)
{
    EXPECT_EQ(place({text(-9999.0, 50.0, 80.0)}), QVector<QRectF>({QRectF(104.0, 50.0, 80.0, 15.0)}));
}

TEST(LabelLayoutTest, CloseTextsGoToRowsBelow)
{
    const QVector<QRectF> expected{QRectF(204.0, 50.0, 80.0, 15.0), QRectF(224.0, 65.0, 80.0, 15.0),
                                   QRectF(244.0, 80.0, 80.0, 15.0), QRectF(304.0, 50.0, 80.0, 15.0)};
    EXPECT_EQ(place({text(200.0, 50.0, 80.0), text(220.0, 50.0, 80.0), text(240.0, 50.0, 80.0),
                     text(300.0, 50.0, 80.0)}),
              expected);
}

TEST(LabelLayoutTest, TextWithoutRoomIsLeftOut)
{
    QVector<LabelText> texts;
    for (int i = 0; i < 5; ++i)
        texts.append(text(200.0, 50.0, 80.0));
    const QVector<QRectF> places = place(texts);
    EXPECT_FALSE(places[3].isNull());
    EXPECT_TRUE(places[4].isNull());
    EXPECT_TRUE(place({text(200.0, 50.0, 500.0)})[0].isNull());
}

TEST(LabelLayoutTest, TextOfAPointStaysNearIt)
{
    const LabelText point = text(200.0, 100.0, 80.0, 1);
    const QVector<QRectF> places = place({point, point, point, point});
    EXPECT_EQ(places[0].top(), 95.0);
    EXPECT_EQ(places[1].top(), 80.0);
    EXPECT_TRUE(places[2].isNull());
    EXPECT_TRUE(places[3].isNull());
}

TEST(LabelLayoutTest, TextsLeaveDotsFree)
{
    const QVector<LabelDot> dots{{250.0, 57.0, 3.0}, {150.0, 99.0, 3.0}};
    EXPECT_EQ(place({text(200.0, 50.0, 80.0)}, dots)[0], QRectF(204.0, 65.0, 80.0, 15.0));
}

TEST(LabelLayoutTest, AreaLowerThanARowTakesNoText)
{
    EXPECT_TRUE(placeLabelTexts({text(200.0, 50.0, 80.0)}, {}, QRectF(0, 0, 400, 14), 15.0, 4.0)[0].isNull());
    EXPECT_TRUE(placeLabelTexts({text(200.0, 50.0, 80.0)}, {}, QRectF(), 0.0, 4.0)[0].isNull());
}

TEST(LabelLayoutTest, NoTwoOfManyTextsMeet)
{
    std::mt19937 random(11);
    std::uniform_real_distribution<double> x(50.0, 550.0);
    std::uniform_real_distribution<double> y(40.0, 120.0);
    std::uniform_real_distribution<double> width(5.0, 90.0);
    QVector<LabelText> texts;
    for (int i = 0; i < 300; ++i)
        texts.append(text(x(random), y(random), width(random)));
    const QVector<QRectF> places = place(texts);
    int placed = 0;
    for (int i = 0; i < places.size(); ++i) {
        if (places[i].isNull())
            continue;
        ++placed;
        EXPECT_TRUE(Area.contains(places[i]));
        for (int k = i + 1; k < places.size(); ++k)
            EXPECT_FALSE(places[i].intersects(places[k])) << i << " and " << k;
    }
    EXPECT_GE(placed, 16);
}

TEST(LabelStoreTest, IdentifiersCountFromOneAndAreNotUsedAgain)
{
    LabelStore store;
    EXPECT_EQ(store.add(timeLine(1)), 1U);
    EXPECT_EQ(store.add(timeLine(2)), 2U);
    EXPECT_TRUE(store.remove(2));
    EXPECT_FALSE(store.remove(2));
    EXPECT_FALSE(store.remove(0));
    EXPECT_EQ(store.add(timeLine(3)), 3U);
    store.clear();
    EXPECT_EQ(store.add(timeLine(4)), 4U);
    EXPECT_EQ(store.list().size(), 1);
}

TEST(LabelStoreTest, ListKeepsTheOrderOfAdding)
{
    LabelStore store;
    store.add(timeLine(30));
    const unsigned middle = store.add(timeLine(10));
    store.add(timeLine(20));
    EXPECT_EQ(store.label(middle).time, 10U);
    store.remove(middle);
    ASSERT_EQ(store.list().size(), 2);
    EXPECT_EQ(store.list()[0].time, 30U);
    EXPECT_EQ(store.list()[1].time, 20U);
    EXPECT_EQ(store.label(middle).time, 0U);
}

TEST(LabelStoreTest, FindsWithinTheToleranceOnly)
{
    LabelStore store;
    const unsigned id = store.add(timeLine(2000));
    EXPECT_EQ(store.findByTime(0, 2.1, 0.1), id);
    EXPECT_EQ(store.findByTime(0, 1.9, 0.1), id);
    EXPECT_EQ(store.findByTime(0, 2.101, 0.1), 0U);
    EXPECT_EQ(store.findByTime(0, 2.0, 0.0), id);
    EXPECT_EQ(store.findByTime(0, std::numeric_limits<double>::quiet_NaN(), 1.0), 0U);
    EXPECT_EQ(store.findByTime(0, 2.0, std::numeric_limits<double>::quiet_NaN()), 0U);
}

TEST(LabelStoreTest, FindsLabelsOfTheStripAndOfTimeOnly)
{
    LabelStore store;
    const unsigned onSignal = store.add(signalLine(1, 2000));
    EXPECT_EQ(store.findByTime(0, 2.0, 0.5), 0U);
    EXPECT_EQ(store.findByTime(1, 2.0, 0.5), onSignal);
    const unsigned onTime = store.add(timeLine(2000));
    EXPECT_EQ(store.findByTime(0, 2.0, 0.5), onTime);
    EXPECT_EQ(store.findByTime(unsigned(-1), 2.0, 0.5), onTime);
}

TEST(LabelStoreTest, FindsTheNearest)
{
    LabelStore store;
    store.add(timeLine(1000));
    const unsigned nearer = store.add(timeLine(1400));
    store.add(timeLine(1400));
    EXPECT_EQ(store.findByTime(0, 1.3, 1.0), nearer);
}

TEST(LabelStoreTest, PeriodIsFoundAtItsEndsAndWithin)
{
    LabelStore store;
    const unsigned period = store.add(timePeriod(1000, 9000));
    EXPECT_EQ(store.findByTime(0, 0.95, 0.1), period);
    EXPECT_EQ(store.findByTime(0, 5.0, 0.1), period);
    EXPECT_EQ(store.findByTime(0, 9.05, 0.1), period);
    EXPECT_EQ(store.findByTime(0, 9.2, 0.1), 0U);
    const unsigned inside = store.add(timeLine(5050));
    EXPECT_EQ(store.findByTime(0, 5.0, 0.1), inside);
    EXPECT_EQ(store.findByTime(0, 6.0, 0.1), period);
}
