#include "favoriteviews.h"

#include "inistore.h"

#include <gtest/gtest.h>

namespace
{

const QString S = QStringLiteral("SIGNALS_REVIEW");
const QStringList Eyes{QStringLiteral("LX"), QStringLiteral("LY"), QStringLiteral("RX"),
                       QStringLiteral("RY")};
const QStringList Head{QStringLiteral("GX"), QStringLiteral("GY")};
const QStringList Left = Eyes.mid(0, 2);
const QStringList Right = Eyes.mid(2, 2);

/// "head" for Head, then "left" and "right" for Eyes; all active.
FavoriteViews three()
{
    FavoriteViews views;
    views.add(QStringLiteral("head"), Head, Head.mid(0, 1));
    views.add(QStringLiteral("left"), Eyes, Left);
    views.add(QStringLiteral("right"), Eyes, Right);
    return views;
}

/// The same with the file of Eyes open.
FavoriteViews threeForEyes()
{
    FavoriteViews views = three();
    views.activate(Eyes);
    return views;
}

FavoriteViews loaded(const char* lines)
{
    IniStore store;
    store.parse(QStringLiteral("[SIGNALS_REVIEW]\n") + QString::fromUtf8(lines));
    FavoriteViews views;
    views.load(store, S);
    return views;
}

IniStore storeOf(const FavoriteViews& views)
{
    IniStore store;
    store.setSection(S);
    views.save(store, S);
    return store;
}

QStringList allNames(const FavoriteViews& views)
{
    QStringList names;
    for (const FavoriteView& view : views.all())
        names << view.name;
    return names;
}

} // namespace

TEST(FavoriteViewsTest, AViewFitsTheSameSignalsInTheSameOrder)
{
    FavoriteViews views = three();
    views.activate(Eyes);
    EXPECT_EQ(views.activeNames(), (QStringList{QStringLiteral("left"), QStringLiteral("right")}));
    views.activate(Head);
    EXPECT_EQ(views.activeNames(), QStringList{QStringLiteral("head")});
    views.activate({Head[1], Head[0]});
    EXPECT_EQ(views.activeNames(), QStringList());
    views.activate(Head + Eyes.mid(0, 1));
    EXPECT_EQ(views.activeNames(), QStringList());
    views.activate(Head.mid(0, 1));
    EXPECT_EQ(views.activeNames(), QStringList());
}

TEST(FavoriteViewsTest, AnotherFileKeepsViewsOutOfTheComboAndAmongTheStoredOnes)
{
    FavoriteViews views = threeForEyes();
    views.activate({QStringLiteral("other")});
    EXPECT_EQ(views.activeNames(), QStringList());
    EXPECT_EQ(storeOf(views).toString(), storeOf(three()).toString());
    views.activate(Eyes);
    EXPECT_EQ(views.activeNames(), (QStringList{QStringLiteral("left"), QStringLiteral("right")}));
}

TEST(FavoriteViewsTest, NoViewFitsAnEmptyList)
{
    FavoriteViews views = loaded("views_count=1\nview_0=empty\nview_allsignals_0=\n");
    ASSERT_EQ(views.all().size(), 1);
    views.activate({});
    EXPECT_EQ(views.activeNames(), QStringList());
}

TEST(FavoriteViewsTest, TheFirstActiveOneIsFoundWithAndWithoutItsName)
{
    const FavoriteViews views = threeForEyes();
    ASSERT_TRUE(views.firstActive());
    EXPECT_EQ(views.firstActive()->name, QStringLiteral("left"));
    EXPECT_EQ(views.firstActive()->viewSignals, Left);
    ASSERT_TRUE(views.activeView(QStringLiteral("right")));
    EXPECT_EQ(views.activeView(QStringLiteral("right"))->viewSignals, Right);
    EXPECT_FALSE(views.activeView(QStringLiteral("head")));
    EXPECT_FALSE(FavoriteViews().firstActive());
}

TEST(FavoriteViewsTest, OfTwoActiveOnesOfANameTheFirstIsTaken)
{
    FavoriteViews views = loaded("views_count=2\nview_0=v\nview_allsignals_0=A<<;;;>>B\n"
                                 "view_viewsignals_0=B\nview_1=v\nview_allsignals_1=A<<;;;>>B\n"
                                 "view_viewsignals_1=A\n");
    views.activate({QStringLiteral("A"), QStringLiteral("B")});
    EXPECT_EQ(views.activeView(QStringLiteral("v"))->viewSignals, QStringList{QStringLiteral("B")});
    EXPECT_TRUE(views.remove(QStringLiteral("v")));
    EXPECT_EQ(views.activeView(QStringLiteral("v"))->viewSignals, QStringList{QStringLiteral("A")});
}

TEST(FavoriteViewsTest, TheNumberOfAViewCountsInactiveOnesToo)
{
    const FavoriteViews views = threeForEyes();
    EXPECT_EQ(views.numberShowing(Left), 2);
    EXPECT_EQ(views.numberShowing(Right), 3);
}

TEST(FavoriteViewsTest, OtherSignalsOrAnotherOrderAreNoView)
{
    const FavoriteViews views = threeForEyes();
    EXPECT_EQ(views.numberShowing(Eyes), 0);
    EXPECT_EQ(views.numberShowing({Left[1], Left[0]}), 0);
    EXPECT_EQ(views.numberShowing({}), 0);
    // That of a view which does not fit.
    EXPECT_EQ(views.numberShowing(Head.mid(0, 1)), 0);
}

TEST(FavoriteViewsTest, AnAddedViewIsActiveAndTheLast)
{
    FavoriteViews views = threeForEyes();
    EXPECT_TRUE(views.add(QStringLiteral("all"), Eyes, Eyes));
    EXPECT_EQ(views.activeNames().last(), QStringLiteral("all"));
    EXPECT_EQ(views.all().last().allSignals, Eyes);
    EXPECT_EQ(views.all().last().viewSignals, Eyes);
    EXPECT_EQ(views.numberShowing(Eyes), 4);
}

TEST(FavoriteViewsTest, NamesAreUniqueInTheCombo)
{
    FavoriteViews views = threeForEyes();
    for (const QString& name :
         {QStringLiteral("left"), QStringLiteral("Custom view"), FavoriteViews::customName(), QString()}) {
        EXPECT_FALSE(views.add(name, Eyes, Eyes)) << qPrintable(name);
        EXPECT_EQ(views.all().size(), 3);
    }
    EXPECT_FALSE(views.isFree(QStringLiteral("left")));
    EXPECT_FALSE(views.isFree(QStringLiteral("Custom view")));
    // The name of a view for other files.
    EXPECT_TRUE(views.isFree(QStringLiteral("head")));
    EXPECT_TRUE(views.add(QStringLiteral("head"), Eyes, Eyes));
    EXPECT_EQ(views.activeView(QStringLiteral("head"))->viewSignals, Eyes);
}

TEST(FavoriteViewsTest, OnlyActiveOnesAreRemoved)
{
    FavoriteViews views = threeForEyes();
    EXPECT_FALSE(views.remove(QStringLiteral("head")));
    EXPECT_FALSE(views.remove(QStringLiteral("Custom view")));
    EXPECT_EQ(views.all().size(), 3);
    EXPECT_TRUE(views.remove(QStringLiteral("left")));
    EXPECT_EQ(allNames(views), (QStringList{QStringLiteral("head"), QStringLiteral("right")}));
}

TEST(FavoriteViewsTest, StandUnderTheirKeys)
{
    EXPECT_EQ(storeOf(FavoriteViews()).toString(), QStringLiteral("[SIGNALS_REVIEW]\nviews_count=0\n\n"));
    EXPECT_EQ(storeOf(three()).toString(), QStringLiteral("[SIGNALS_REVIEW]\nviews_count=3\n"
                                                          "view_0=head\n"
                                                          "view_allsignals_0=GX<<;;;>>GY\n"
                                                          "view_viewsignals_0=GX\n"
                                                          "view_signalscount_0=2\n"
                                                          "view_1=left\n"
                                                          "view_allsignals_1=LX<<;;;>>LY<<;;;>>RX<<;;;>>RY\n"
                                                          "view_viewsignals_1=LX<<;;;>>LY\n"
                                                          "view_signalscount_1=4\n"
                                                          "view_2=right\n"
                                                          "view_allsignals_2=LX<<;;;>>LY<<;;;>>RX<<;;;>>RY\n"
                                                          "view_viewsignals_2=RX<<;;;>>RY\n"
                                                          "view_signalscount_2=4\n\n"));
}

TEST(FavoriteViewsTest, WhatIsReadIsInactiveAndElseAsItWasWritten)
{
    FavoriteViews views;
    views.load(storeOf(three()), S);
    ASSERT_EQ(views.all().size(), 3);
    EXPECT_EQ(views.activeNames(), QStringList());
    EXPECT_EQ(storeOf(views).toString(), storeOf(three()).toString());
    EXPECT_EQ(views.all()[1].name, QStringLiteral("left"));
    EXPECT_EQ(views.all()[1].allSignals, Eyes);
    EXPECT_EQ(views.all()[1].viewSignals, Left);
}

TEST(FavoriteViewsTest, AViewOfNoSignalsStaysOne)
{
    FavoriteViews views;
    views.add(QStringLiteral("none"), Eyes, {});
    FavoriteViews read;
    read.load(storeOf(views), S);
    ASSERT_EQ(read.all().size(), 1);
    EXPECT_EQ(read.all()[0].viewSignals, QStringList());
    read.activate(Eyes);
    EXPECT_EQ(read.numberShowing({}), 1);
}

TEST(FavoriteViewsTest, EmptyPartsOfAListAreLeftOut)
{
    const FavoriteViews views = loaded("views_count=1\nview_0=v\nview_allsignals_0=<<;;;>>A<<;;;>><<;;;>>B\n"
                                       "view_viewsignals_0=B<<;;;>>\nview_signalscount_0=4\n");
    ASSERT_EQ(views.all().size(), 1);
    EXPECT_EQ(views.all()[0].allSignals, (QStringList{QStringLiteral("A"), QStringLiteral("B")}));
    EXPECT_EQ(views.all()[0].viewSignals, QStringList{QStringLiteral("B")});
}

TEST(FavoriteViewsTest, LineFeedsInNamesOfSignalsAreKept)
{
    const QStringList odd{QStringLiteral("two\nlines"), QStringLiteral("one")};
    FavoriteViews views;
    views.add(QStringLiteral("v"), odd, odd.mid(0, 1));
    FavoriteViews read;
    read.load(storeOf(views), S);
    read.activate(odd);
    EXPECT_EQ(read.numberShowing(odd.mid(0, 1)), 1);
}

TEST(FavoriteViewsTest, WithoutACountTheViewsStay)
{
    FavoriteViews views = three();
    views.load(IniStore(), S);
    EXPECT_EQ(views.all().size(), 3);
}

TEST(FavoriteViewsTest, CountsThatCannotBeAreSurvived)
{
    EXPECT_EQ(allNames(loaded("views_count=2147483647\nview_0=a\nview_2=b\nview_allsignals_7=x\n")),
              (QStringList{QStringLiteral("a"), QStringLiteral("b")}));
    EXPECT_EQ(loaded("views_count=-5\nview_0=a\n").all().size(), 0);
    EXPECT_EQ(loaded("views_count=x\nview_0=a\n").all().size(), 0);
    EXPECT_EQ(allNames(loaded("views_count=2\nview_0=\nview_1=b\n")), QStringList{QStringLiteral("b")});
}
