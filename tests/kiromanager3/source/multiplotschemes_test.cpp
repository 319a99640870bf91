#include "multiplotschemes.h"

#include "inistore.h"
#include "settingsfields.h"

#include <QStringList>

#include <gtest/gtest.h>

namespace
{

const QString S = QStringLiteral("SIGNALS_REVIEW");
const QString DefaultName = QStringLiteral("MultiPlot default scheme");

MultiPlotScheme named(const char* name, int dataWidth = 1)
{
    MultiPlotScheme scheme;
    scheme.setName(QString::fromLatin1(name));
    scheme.setFont(QFont(QStringLiteral("Sans"), 10));
    scheme.setData(storedPen(Qt::black, dataWidth, Qt::SolidLine));
    return scheme;
}

/// Every part other than a new scheme's.
MultiPlotScheme otherScheme()
{
    MultiPlotScheme scheme;
    scheme.setName(QStringLiteral("night = dark"));
    scheme.setFont(QFont(QStringLiteral("Mono"), 14, QFont::Bold));
    scheme.setBkg(QColor(1, 2, 3));
    scheme.setFrg(storedPen(QColor(4, 5, 6), 1, Qt::SolidLine));
    scheme.setData(storedPen(QColor(7, 8, 9), 2, Qt::DashLine));
    scheme.setGrid(storedPen(QColor(10, 11, 12), 3, Qt::DotLine));
    scheme.setMarker(storedPen(QColor(13, 14, 15), 4, Qt::DashDotLine));
    scheme.setPointer(storedPen(QColor(16, 17, 18), 99, Qt::NoPen));
    scheme.setDrawStyle(MultiPlotScheme::Points);
    scheme.setHorzGrid(false);
    scheme.setVertGrid(false);
    scheme.setHorzUnitType(MultiPlotScheme::Samples);
    scheme.setHorzTimeStyle(MultiPlotScheme::Hours);
    return scheme;
}

IniStore storeOf(const MultiPlotSchemes& schemes)
{
    IniStore store;
    store.setSection(S);
    schemes.save(store, S);
    return store;
}

QString written(const MultiPlotSchemes& schemes)
{
    return storeOf(schemes).toString();
}

MultiPlotSchemes loaded(const QString& lines)
{
    IniStore store;
    store.parse(QStringLiteral("[SIGNALS_REVIEW]\n") + lines);
    MultiPlotSchemes schemes;
    schemes.load(store, S);
    return schemes;
}

QStringList names(const MultiPlotSchemes& schemes)
{
    QStringList found;
    for (const MultiPlotScheme& scheme : schemes.schemes())
        found << scheme.name();
    return found;
}

} // namespace

TEST(MultiPlotSchemesTest, BeginWithTheDefaultSchemeUnderItsKeys)
{
    const MultiPlotSchemes schemes;
    EXPECT_EQ(names(schemes), QStringList{DefaultName});
    EXPECT_EQ(schemes.currentName(), DefaultName);
    EXPECT_EQ(schemes.current().name(), DefaultName);
    EXPECT_EQ(written(schemes).toStdString(),
              QStringLiteral("[SIGNALS_REVIEW]\n"
                             "schemes_count=1\n"
                             "scheme_name_0=MultiPlot default scheme\n"
                             "scheme_font_0=%1\n"
                             "scheme_bkg_0=255,255,255\n"
                             "scheme_frg_0=48,48,48,0,1\n"
                             "scheme_data_0=28,95,168,0,1\n"
                             "scheme_grid_0=220,220,220,0,1\n"
                             "scheme_marker_0=181,58,22,0,1\n"
                             "scheme_pointer_0=122,31,138,0,1\n"
                             "scheme_drawstyle_0=lines\n"
                             "scheme_horzgrid_0=1\n"
                             "scheme_vertgrid_0=1\n"
                             "scheme_horzunittype_0=time\n"
                             "scheme_horztimestyle_0=seconds\n"
                             "current_multiplot_scheme=MultiPlot default scheme\n\n")
                  .arg(QFont().toString())
                  .toStdString());
}

TEST(MultiPlotSchemesTest, EveryPartHasItsKey)
{
    MultiPlotSchemes schemes;
    ASSERT_TRUE(schemes.set({named("a"), otherScheme()}, QStringLiteral("night = dark")));
    const QString text = written(schemes);
    EXPECT_TRUE(text.startsWith(QStringLiteral("[SIGNALS_REVIEW]\nschemes_count=2\nscheme_name_0=a\n")));
    const int second = text.indexOf(QStringLiteral("scheme_name_1"));
    EXPECT_EQ(text.mid(second).toStdString(), QStringLiteral("scheme_name_1=night = dark\n"
                                                             "scheme_font_1=%1\n"
                                                             "scheme_bkg_1=1,2,3\n"
                                                             "scheme_frg_1=4,5,6,1,1\n"
                                                             "scheme_data_1=7,8,9,2,2\n"
                                                             "scheme_grid_1=10,11,12,3,3\n"
                                                             "scheme_marker_1=13,14,15,4,4\n"
                                                             "scheme_pointer_1=16,17,18,99,0\n"
                                                             "scheme_drawstyle_1=points\n"
                                                             "scheme_horzgrid_1=0\n"
                                                             "scheme_vertgrid_1=0\n"
                                                             "scheme_horzunittype_1=samples\n"
                                                             "scheme_horztimestyle_1=hours\n"
                                                             "current_multiplot_scheme=night = dark\n\n")
                                                  .arg(otherScheme().font().toString())
                                                  .toStdString());
}

TEST(MultiPlotSchemesTest, EveryPartIsReadAgain)
{
    MultiPlotSchemes schemes;
    schemes.set({named("a"), otherScheme()}, QStringLiteral("night = dark"));
    MultiPlotSchemes read;
    read.load(storeOf(schemes), S);
    ASSERT_EQ(read.schemes().size(), 2);
    const MultiPlotScheme scheme = read.current();
    const MultiPlotScheme expected = otherScheme();
    EXPECT_EQ(scheme.name(), expected.name());
    EXPECT_EQ(scheme.font(), expected.font());
    EXPECT_EQ(scheme.bkg(), expected.bkg());
    EXPECT_EQ(scheme.frg(), expected.frg());
    EXPECT_EQ(scheme.data(), expected.data());
    EXPECT_EQ(scheme.grid(), expected.grid());
    EXPECT_EQ(scheme.marker(), expected.marker());
    EXPECT_EQ(scheme.pointer(), expected.pointer());
    EXPECT_EQ(scheme.drawStyle(), MultiPlotScheme::Points);
    EXPECT_FALSE(scheme.horzGrid());
    EXPECT_FALSE(scheme.vertGrid());
    EXPECT_EQ(scheme.horzUnitType(), MultiPlotScheme::Samples);
    EXPECT_EQ(scheme.horzTimeStyle(), MultiPlotScheme::Hours);
    EXPECT_EQ(written(read), written(schemes));
}

TEST(MultiPlotSchemesTest, EachGridIsItsOwn)
{
    MultiPlotScheme horizontal = named("h");
    horizontal.setVertGrid(false);
    MultiPlotSchemes schemes;
    schemes.set({horizontal}, QString());
    MultiPlotSchemes read;
    read.load(storeOf(schemes), S);
    EXPECT_TRUE(read.current().horzGrid());
    EXPECT_FALSE(read.current().vertGrid());
}

TEST(MultiPlotSchemesTest, WithoutSchemesInTheStoreTheOldOnesStay)
{
    for (const char* lines : {"", "schemes_count=0\n", "schemes_count=-1\n", "schemes_count=x\n",
                              "schemes_count=2147483647\nscheme_name_0=\n"}) {
        const MultiPlotSchemes schemes = loaded(QString::fromLatin1(lines));
        EXPECT_EQ(written(schemes), written(MultiPlotSchemes())) << lines;
    }
}

TEST(MultiPlotSchemesTest, WhatASchemeLacksIsTheDefaultSchemes)
{
    MultiPlotScheme bare;
    bare.setName(QStringLiteral("bare"));
    MultiPlotSchemes expected;
    expected.set({bare}, QStringLiteral("bare"));
    EXPECT_EQ(written(loaded(QStringLiteral("schemes_count=1\nscheme_name_0=bare\n"
                                            "current_multiplot_scheme=bare\n"))),
              written(expected));
}

TEST(MultiPlotSchemesTest, PartsThatCannotBeAreTheDefaultSchemes)
{
    const QString start = QStringLiteral("schemes_count=1\nscheme_name_0=bare\n");
    const QString expected = written(loaded(start));
    for (const char* line :
         {"scheme_font_0=Sans,513,-1,5,50,0,0,0,0,0", "scheme_font_0=Sans,1e300,-1,5,50,0,0,0,0,0",
          "scheme_bkg_0=256,0,0", "scheme_bkg_0=white", "scheme_frg_0=0,0,0,100,1",
          "scheme_data_0=0,0,0,2147483647,1", "scheme_data_0=0,0,0,-1,1", "scheme_grid_0=0,0,0,1,6",
          "scheme_marker_0=0,0,0,1,7", "scheme_pointer_0=0,0,0,1", "scheme_drawstyle_0=curves",
          "scheme_drawstyle_0=", "scheme_drawstyle_0=0", "scheme_horzunittype_0=frames",
          "scheme_horztimestyle_0=days"}) {
        const QString found = written(loaded(start + QString::fromLatin1(line) + QLatin1Char('\n')));
        EXPECT_EQ(found, expected) << line;
    }
}

TEST(MultiPlotSchemesTest, GapsAndNamesThatComeTwiceAreLeftOut)
{
    const MultiPlotSchemes schemes =
        loaded(QStringLiteral("schemes_count=2147483647\nscheme_name_0=a\nscheme_bkg_0=1,1,1\n"
                              "scheme_bkg_1=2,2,2\nscheme_name_2=a\nscheme_bkg_2=3,3,3\nscheme_name_3=b\n"
                              "current_multiplot_scheme=a\n"));
    EXPECT_EQ(names(schemes), (QStringList{QStringLiteral("a"), QStringLiteral("b")}));
    EXPECT_EQ(schemes.current().bkg(), QColor(1, 1, 1));
}

TEST(MultiPlotSchemesTest, AnUnknownCurrentNameIsTheFirstScheme)
{
    EXPECT_EQ(loaded(QStringLiteral("schemes_count=2\nscheme_name_0=a\nscheme_name_1=b\n"
                                    "current_multiplot_scheme=c\n"))
                  .currentName(),
              QStringLiteral("a"));
    EXPECT_EQ(loaded(QStringLiteral("current_multiplot_scheme=c\n")).currentName(), DefaultName);
}

TEST(MultiPlotSchemesTest, NoSchemesAreNotTaken)
{
    MultiPlotSchemes schemes;
    EXPECT_FALSE(schemes.set({}, QStringLiteral("a")));
    EXPECT_EQ(names(schemes), QStringList{DefaultName});
    EXPECT_EQ(schemes.currentName(), DefaultName);
}

TEST(MultiPlotSchemesTest, AChangeMeetsTheSchemeInForceAndKeepsItsName)
{
    MultiPlotSchemes schemes;
    schemes.set({named("a"), named("b")}, QStringLiteral("b"));
    schemes.changeCurrent(named("screen", 7));
    EXPECT_EQ(names(schemes), (QStringList{QStringLiteral("a"), QStringLiteral("b")}));
    EXPECT_EQ(schemes.current().data().width(), 7);
    EXPECT_EQ(schemes.schemes()[0].data().width(), 1);
}
