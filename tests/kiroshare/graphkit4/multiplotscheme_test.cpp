#include "multiplotscheme.h"

#include <QSet>

#include <gtest/gtest.h>

#include <cmath>

namespace
{

/// Relative luminance of the WCAG 2 recommendation.
double luminance(const QColor& color)
{
    const auto linear = [](double part) {
        return part <= 0.04045 ? part / 12.92 : std::pow((part + 0.055) / 1.055, 2.4);
    };
    return 0.2126 * linear(color.redF()) + 0.7152 * linear(color.greenF()) + 0.0722 * linear(color.blueF());
}

double contrast(const QColor& first, const QColor& second)
{
    const double a = luminance(first) + 0.05;
    const double b = luminance(second) + 0.05;
    return a > b ? a / b : b / a;
}

} // namespace

TEST(MultiPlotSchemeTest, EnumerationsHaveTheNumbersThatSettingsKnow)
{
    EXPECT_EQ(MultiPlotScheme::Points, 0);
    EXPECT_EQ(MultiPlotScheme::Lines, 1);
    EXPECT_EQ(MultiPlotScheme::Time, 0);
    EXPECT_EQ(MultiPlotScheme::Samples, 1);
    EXPECT_EQ(MultiPlotScheme::Milliseconds, 0);
    EXPECT_EQ(MultiPlotScheme::Seconds, 1);
    EXPECT_EQ(MultiPlotScheme::Minutes, 2);
    EXPECT_EQ(MultiPlotScheme::Hours, 3);
}

TEST(MultiPlotSchemeTest, EveryTextReadsBackAsWhatWroteIt)
{
    for (int i = 0; i < 2; ++i) {
        const auto draw = static_cast<MultiPlotScheme::DrawStyle>(i);
        EXPECT_EQ(MultiPlotScheme::drawStyleFromString(MultiPlotScheme::drawStyleString(draw)), draw);
        const auto unit = static_cast<MultiPlotScheme::UnitType>(i);
        EXPECT_EQ(MultiPlotScheme::horzUnitTypeFromString(MultiPlotScheme::horzUnitTypeString(unit)), unit);
    }
    QSet<QString> texts;
    for (int i = 0; i < 4; ++i) {
        const auto style = static_cast<MultiPlotScheme::TimeStyle>(i);
        const QString text = MultiPlotScheme::horzTimeStyleString(style);
        texts.insert(text);
        EXPECT_EQ(MultiPlotScheme::horzTimeStyleFromString(text), style);
    }
    EXPECT_EQ(texts.size(), 4);
}

TEST(MultiPlotSchemeTest, TextsStayAsSettingsHoldThem)
{
    EXPECT_EQ(MultiPlotScheme::drawStyleString(MultiPlotScheme::Points), QLatin1String("points"));
    EXPECT_EQ(MultiPlotScheme::drawStyleString(MultiPlotScheme::Lines), QLatin1String("lines"));
    EXPECT_EQ(MultiPlotScheme::horzUnitTypeString(MultiPlotScheme::Time), QLatin1String("time"));
    EXPECT_EQ(MultiPlotScheme::horzUnitTypeString(MultiPlotScheme::Samples), QLatin1String("samples"));
    EXPECT_EQ(MultiPlotScheme::horzTimeStyleString(MultiPlotScheme::Milliseconds),
              QLatin1String("milliseconds"));
    EXPECT_EQ(MultiPlotScheme::horzTimeStyleString(MultiPlotScheme::Seconds), QLatin1String("seconds"));
    EXPECT_EQ(MultiPlotScheme::horzTimeStyleString(MultiPlotScheme::Minutes), QLatin1String("minutes"));
    EXPECT_EQ(MultiPlotScheme::horzTimeStyleString(MultiPlotScheme::Hours), QLatin1String("hours"));
}

TEST(MultiPlotSchemeTest, UnknownTextsReadAsTheUsualLook)
{
    for (const QString& text :
         {QString(), QStringLiteral("Lines "), QStringLiteral("3"), QStringLiteral("ł")}) {
        EXPECT_EQ(MultiPlotScheme::drawStyleFromString(text), MultiPlotScheme::Lines);
        EXPECT_EQ(MultiPlotScheme::horzUnitTypeFromString(text), MultiPlotScheme::Time);
        EXPECT_EQ(MultiPlotScheme::horzTimeStyleFromString(text), MultiPlotScheme::Seconds);
    }
}

TEST(MultiPlotSchemeTest, ValueOutsideAnEnumerationHasNoText)
{
    EXPECT_TRUE(MultiPlotScheme::horzTimeStyleString(static_cast<MultiPlotScheme::TimeStyle>(-1)).isNull());
    EXPECT_TRUE(MultiPlotScheme::horzTimeStyleString(static_cast<MultiPlotScheme::TimeStyle>(4)).isNull());
}

TEST(MultiPlotSchemeTest, NewSchemeShowsLinesOverBothGridsInSeconds)
{
    const MultiPlotScheme scheme;
    EXPECT_TRUE(scheme.name().isEmpty());
    EXPECT_EQ(scheme.drawStyle(), MultiPlotScheme::Lines);
    EXPECT_EQ(scheme.horzUnitType(), MultiPlotScheme::Time);
    EXPECT_EQ(scheme.horzTimeStyle(), MultiPlotScheme::Seconds);
    EXPECT_TRUE(scheme.horzGrid());
    EXPECT_TRUE(scheme.vertGrid());
}

TEST(MultiPlotSchemeTest, NewSchemeHasThinLinesThatStandOut)
{
    const MultiPlotScheme scheme;
    for (const QPen& pen : {scheme.frg(), scheme.data(), scheme.marker(), scheme.pointer()}) {
        EXPECT_GE(contrast(pen.color(), scheme.bkg()), 4.5) << qPrintable(pen.color().name());
        EXPECT_EQ(pen.widthF(), 0.0);
        EXPECT_EQ(pen.style(), Qt::SolidLine);
    }
    EXPECT_LT(contrast(scheme.grid().color(), scheme.bkg()), 2.0);
    EXPECT_EQ(scheme.grid().widthF(), 0.0);
}

TEST(MultiPlotSchemeTest, CopyHoldsEveryFieldAndGoesItsOwnWay)
{
    MultiPlotScheme scheme;
    scheme.setName(QStringLiteral("Night"));
    scheme.setFont(QFont(QStringLiteral("Serif"), 17));
    scheme.setBkg(Qt::black);
    scheme.setFrg(QPen(Qt::red, 1.5));
    scheme.setData(QPen(Qt::green, 2.0, Qt::DashLine));
    scheme.setGrid(QPen(Qt::blue, 2.5));
    scheme.setMarker(QPen(Qt::cyan, 3.0));
    scheme.setPointer(QPen(Qt::magenta, 3.5));
    scheme.setDrawStyle(MultiPlotScheme::Points);
    scheme.setHorzGrid(false);
    scheme.setVertGrid(false);
    scheme.setHorzUnitType(MultiPlotScheme::Samples);
    scheme.setHorzTimeStyle(MultiPlotScheme::Hours);
    const MultiPlotScheme copy = scheme;
    scheme = MultiPlotScheme();

    EXPECT_EQ(copy.name(), QLatin1String("Night"));
    EXPECT_EQ(copy.font(), QFont(QStringLiteral("Serif"), 17));
    EXPECT_EQ(copy.bkg(), QColor(Qt::black));
    EXPECT_EQ(copy.frg(), QPen(Qt::red, 1.5));
    EXPECT_EQ(copy.data(), QPen(Qt::green, 2.0, Qt::DashLine));
    EXPECT_EQ(copy.grid(), QPen(Qt::blue, 2.5));
    EXPECT_EQ(copy.marker(), QPen(Qt::cyan, 3.0));
    EXPECT_EQ(copy.pointer(), QPen(Qt::magenta, 3.5));
    EXPECT_EQ(copy.drawStyle(), MultiPlotScheme::Points);
    EXPECT_FALSE(copy.horzGrid());
    EXPECT_FALSE(copy.vertGrid());
    EXPECT_EQ(copy.horzUnitType(), MultiPlotScheme::Samples);
    EXPECT_EQ(copy.horzTimeStyle(), MultiPlotScheme::Hours);
}
