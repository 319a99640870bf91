#include "schemecolours.h"

#include "multiplotscheme.h"
#include "palettecolours.h"

#include <QPalette>

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>

namespace
{

QPalette paletteOf(const QColor& base, const QColor& text)
{
    QPalette palette;
    palette.setColor(QPalette::Base, base);
    palette.setColor(QPalette::Text, text);
    palette.setColor(QPalette::Mid, QColor(60, 60, 60));
    return palette;
}

QPalette dark()
{
    return paletteOf(QColor(20, 21, 22), QColor(230, 231, 232));
}

QPalette light()
{
    return paletteOf(Qt::white, Qt::black);
}

void expectSame(const MultiPlotScheme& found, const MultiPlotScheme& expected)
{
    EXPECT_EQ(found.name(), expected.name());
    EXPECT_EQ(found.font(), expected.font());
    EXPECT_EQ(found.bkg(), expected.bkg());
    EXPECT_EQ(found.frg(), expected.frg());
    EXPECT_EQ(found.data(), expected.data());
    EXPECT_EQ(found.grid(), expected.grid());
    EXPECT_EQ(found.marker(), expected.marker());
    EXPECT_EQ(found.pointer(), expected.pointer());
    EXPECT_EQ(found.drawStyle(), expected.drawStyle());
    EXPECT_EQ(found.horzGrid(), expected.horzGrid());
    EXPECT_EQ(found.vertGrid(), expected.vertGrid());
}

/// Of WCAG 2.1, from 1 to 21; only for greys and nearly so.
double contrast(const QColor& one, const QColor& other)
{
    const auto luminance = [](const QColor& color) {
        const auto linear = [](double part) {
            return part <= 0.03928 ? part / 12.92 : std::pow((part + 0.055) / 1.055, 2.4);
        };
        return 0.2126 * linear(color.redF()) + 0.7152 * linear(color.greenF()) +
               0.0722 * linear(color.blueF());
    };
    const double a = luminance(one);
    const double b = luminance(other);
    return (std::max(a, b) + 0.05) / (std::min(a, b) + 0.05);
}

} // namespace

TEST(SchemeColoursTest, DarkIsWhereTextsAreLighter)
{
    EXPECT_TRUE(isDark(dark()));
    EXPECT_FALSE(isDark(light()));
    EXPECT_FALSE(isDark(paletteOf(Qt::gray, Qt::gray)));
    // Of the texts in fields, not of the others.
    QPalette mixed = light();
    mixed.setColor(QPalette::WindowText, Qt::white);
    mixed.setColor(QPalette::Window, Qt::black);
    EXPECT_FALSE(isDark(mixed));
}

TEST(SchemeColoursTest, OnALightDesktopNothingChanges)
{
    expectSame(schemeOn(light(), MultiPlotScheme()), MultiPlotScheme());
}

TEST(SchemeColoursTest, OnADarkDesktopTheDefaultColoursFollow)
{
    MultiPlotScheme scheme;
    scheme.setName(QStringLiteral("mine"));
    scheme.setDrawStyle(MultiPlotScheme::Points);
    scheme.setHorzGrid(false);
    QPen wide = scheme.data();
    wide.setWidth(4); // not a colour
    scheme.setData(wide);
    const MultiPlotScheme found = schemeOn(dark(), scheme);
    MultiPlotScheme expected = scheme;
    expected.setBkg(QColor(20, 21, 22));
    const auto recoloured = [](QPen pen, const QColor& color) {
        pen.setColor(color);
        return pen;
    };
    expected.setFrg(recoloured(scheme.frg(), QColor(230, 231, 232)));
    expected.setData(recoloured(scheme.data(), found.data().color()));
    expected.setGrid(recoloured(scheme.grid(), QColor(90, 90, 90)));
    expected.setPointer(recoloured(scheme.pointer(), found.pointer().color()));
    expectSame(found, expected);
    EXPECT_GE(contrast(found.data().color(), found.bkg()), 4.5);
    EXPECT_GE(contrast(found.pointer().color(), found.bkg()), 3.0);
    // A hue that people know.
    EXPECT_EQ(found.data().color().hsvHue(), scheme.data().color().hsvHue());
}

TEST(SchemeColoursTest, ColoursThatTheUserChoseStay)
{
    const auto coloured = [](const QPen& pen) {
        QPen other = pen;
        other.setColor(QColor(1, 2, 3));
        return other;
    };
    for (int part = 0; part < 5; ++part) {
        MultiPlotScheme scheme;
        switch (part) {
        case 0:
            scheme.setBkg(QColor(1, 2, 3));
            break;
        case 1:
            scheme.setFrg(coloured(scheme.frg()));
            break;
        case 2:
            scheme.setData(coloured(scheme.data()));
            break;
        case 3:
            scheme.setGrid(coloured(scheme.grid()));
            break;
        default:
            scheme.setPointer(coloured(scheme.pointer()));
        }
        SCOPED_TRACE(part);
        expectSame(schemeOn(dark(), scheme), scheme);
    }
}
