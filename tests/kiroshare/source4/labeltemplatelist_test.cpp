#include "labeltemplatelist.h"

#include "labeltemplateprobe.h"

#include <gtest/gtest.h>

TEST(LabelTemplateListTest, TheFirstTemplateIsCurrent)
{
    const LabelTemplateList list(numberedTemplates(3));
    EXPECT_EQ(list.current(), 0);
    EXPECT_EQ(textOf({list.currentTemplate()}), "T1=name 1/text 1/#010000");
}

TEST(LabelTemplateListTest, AnEmptyListHasNoCurrentTemplate)
{
    LabelTemplateList list;
    EXPECT_EQ(list.current(), -1);
    EXPECT_FALSE(list.currentTemplate().labelColor.isValid());
    list.setCurrent(0);
    list.changeCurrent(QStringLiteral("a"), QStringLiteral("b"), Qt::red);
    EXPECT_FALSE(list.removeCurrent());
    EXPECT_EQ(list.current(), -1);
    EXPECT_TRUE(list.templates().isEmpty());
}

TEST(LabelTemplateListTest, ChangesGoToTheCurrentTemplate)
{
    LabelTemplateList list(numberedTemplates(2));
    list.setCurrent(1);
    list.changeCurrent(QStringLiteral("a"), QStringLiteral("b"), QColor(0, 255, 255));
    EXPECT_EQ(textOf(list.templates()), "T1=name 1/text 1/#010000 T2=a/b/#00ffff");
}

TEST(LabelTemplateListTest, AnIndexOutsideTheListChangesNothing)
{
    LabelTemplateList list(numberedTemplates(2));
    list.setCurrent(1);
    list.setCurrent(-1);
    EXPECT_EQ(list.current(), 1);
    list.setCurrent(2);
    EXPECT_EQ(list.current(), 1);
}

TEST(LabelTemplateListTest, ANewTemplateIsGreenWithoutTextsAtTheEndAndCurrent)
{
    LabelTemplateList list(numberedTemplates(1));
    EXPECT_TRUE(list.add(QStringLiteral("new")));
    EXPECT_EQ(textOf(list.templates()), "T1=name 1/text 1/#010000 new=//#00ff00");
    EXPECT_EQ(list.templates().last().labelColor, QColor(Qt::green));
    EXPECT_EQ(list.current(), 1);
}

TEST(LabelTemplateListTest, AnEmptyListCanGrow)
{
    LabelTemplateList list;
    EXPECT_TRUE(list.add(QStringLiteral("new")));
    EXPECT_EQ(list.current(), 0);
}

TEST(LabelTemplateListTest, ANameInUseIsRefused)
{
    LabelTemplateList list(numberedTemplates(2));
    EXPECT_FALSE(list.add(QStringLiteral("T2")));
    EXPECT_EQ(textOf(list.templates()), textOf(numberedTemplates(2)));
    EXPECT_EQ(list.current(), 0);
    EXPECT_TRUE(list.add(QStringLiteral("t2")));
}

TEST(LabelTemplateListTest, RemovingLeadsToTheNextOneOrTheNewLast)
{
    LabelTemplateList list(numberedTemplates(3));
    list.setCurrent(1);
    EXPECT_TRUE(list.removeCurrent());
    EXPECT_EQ(textOf(list.templates()), "T1=name 1/text 1/#010000 T3=name 3/text 3/#030000");
    EXPECT_EQ(list.current(), 1);
    EXPECT_TRUE(list.removeCurrent());
    EXPECT_EQ(textOf(list.templates()), "T1=name 1/text 1/#010000");
    EXPECT_EQ(list.current(), 0);
}

TEST(LabelTemplateListTest, TheLastTemplateStays)
{
    LabelTemplateList list(numberedTemplates(1));
    EXPECT_FALSE(list.removeCurrent());
    EXPECT_EQ(textOf(list.templates()), textOf(numberedTemplates(1)));
}

TEST(LabelTemplateListTest, OfEqualNamesTheFirstIsFound)
{
    QList<LabelTemplate> templates = numberedTemplates(3);
    templates[2].templateName = QStringLiteral("T2");
    const LabelTemplateList list(templates);
    EXPECT_EQ(list.indexOf(QStringLiteral("T2")), 1);
    EXPECT_EQ(list.indexOf(QStringLiteral("T3")), -1);
    EXPECT_EQ(list.indexOf(QString()), -1);
}
