#include "labelmemory.h"

#include "inistore.h"

#include <gtest/gtest.h>

#include <tuple>

namespace
{

const QString S = QStringLiteral("SIGNALS_REVIEW");
const QString Name = QStringLiteral("blink");
const QString Description = QStringLiteral("left = right\nboth eyes");

LabelTemplate blink()
{
    return {QStringLiteral("B"), Name, Description, QColor(1, 2, 3)};
}

LabelMemory withTemplates()
{
    LabelMemory memory;
    memory.setTemplates({{QStringLiteral("A"), QString(), QString(), Qt::green}, blink()});
    return memory;
}

IniStore storeOf(const LabelMemory& memory)
{
    IniStore store;
    store.setSection(S);
    memory.save(store, S);
    return store;
}

LabelMemory loaded(const char* lines)
{
    IniStore store;
    store.parse(QStringLiteral("[SIGNALS_REVIEW]\n") + QString::fromUtf8(lines));
    LabelMemory memory;
    memory.load(store, S);
    return memory;
}

void expectTemplate(const LabelTemplate& found, const LabelTemplate& expected)
{
    EXPECT_EQ(found.templateName, expected.templateName);
    EXPECT_EQ(found.labelName, expected.labelName);
    EXPECT_EQ(found.labelDescription, expected.labelDescription);
    EXPECT_EQ(found.labelColor, expected.labelColor);
}

void expectDefaultTexts(const LabelMemory& memory)
{
    EXPECT_EQ(memory.next().labelName, QStringLiteral("New label name"));
    EXPECT_EQ(memory.next().labelDescription, QStringLiteral("New label description"));
}

} // namespace

TEST(LabelMemoryTest, TheFirstLabelHasTheDefaultTextsAndTheDefaultSchemesMarkerColour)
{
    const LabelMemory memory;
    expectTemplate(memory.next(), {QStringLiteral("Last label template"), QStringLiteral("New label name"),
                                   QStringLiteral("New label description"), QColor(0xb5, 0x3a, 0x16)});
    EXPECT_EQ(memory.templates().size(), 0);
}

TEST(LabelMemoryTest, TheTextsOfATemplateAreRemembered)
{
    LabelMemory memory = withTemplates();
    memory.remember(Name, Description, QColor(1, 2, 3));
    expectTemplate(memory.next(),
                   {QStringLiteral("Last label template"), Name, Description, QColor(1, 2, 3)});
}

TEST(LabelMemoryTest, OfAnyOtherLabelOnlyTheColourIsRemembered)
{
    LabelMemory memory = withTemplates();
    const QString other = QStringLiteral("other");
    const QColor color(1, 2, 3);
    for (const auto& label : {std::make_tuple(other, Description, color), std::make_tuple(Name, other, color),
                              std::make_tuple(Name, Description, QColor(1, 2, 4))}) {
        memory.remember(Name, Description, color);
        memory.remember(std::get<0>(label), std::get<1>(label), std::get<2>(label));
        expectDefaultTexts(memory);
        EXPECT_EQ(memory.next().labelColor, std::get<2>(label));
    }
}

TEST(LabelMemoryTest, TheNameOfTheTemplateDoesNotCount)
{
    LabelMemory memory = withTemplates();
    memory.remember(QStringLiteral("B"), Description, QColor(1, 2, 3));
    expectDefaultTexts(memory);
}

TEST(LabelMemoryTest, EmptyTextsOfATemplateAreRememberedToo)
{
    LabelMemory memory = withTemplates();
    memory.remember(QString(), QString(), Qt::green);
    EXPECT_EQ(memory.next().labelName, QString());
    EXPECT_EQ(memory.next().labelDescription, QString());
    EXPECT_EQ(memory.next().labelColor, QColor(Qt::green));
}

TEST(LabelMemoryTest, WhatIsNextMayBeRememberedItself)
{
    LabelMemory memory = withTemplates();
    memory.remember(Name, Description, QColor(1, 2, 3));
    const LabelTemplate& next = memory.next();
    memory.remember(next.labelName, next.labelDescription, next.labelColor);
    expectTemplate(memory.next(),
                   {QStringLiteral("Last label template"), Name, Description, QColor(1, 2, 3)});
}

TEST(LabelMemoryTest, StandsUnderItsKeys)
{
    EXPECT_EQ(storeOf(LabelMemory()).toString(),
              QStringLiteral("[SIGNALS_REVIEW]\nlabel_name=New label name\n"
                             "label_description=New label description\nlabel_color=181,58,22\n"
                             "label_templates_count=0\n\n"));
    LabelMemory memory;
    memory.setTemplates({{QStringLiteral("A"), QStringLiteral("a"), QStringLiteral("aa"), Qt::green},
                         {QStringLiteral("B"), QStringLiteral("b"), QStringLiteral("bb"), Qt::blue}});
    memory.remember(QStringLiteral("b"), QStringLiteral("bb"), Qt::blue);
    EXPECT_EQ(storeOf(memory).toString(), QStringLiteral("[SIGNALS_REVIEW]\nlabel_name=b\n"
                                                         "label_description=bb\nlabel_color=0,0,255\n"
                                                         "label_templates_count=2\n"
                                                         "label_template_name_0=A\n"
                                                         "label_template_labelname_0=a\n"
                                                         "label_template_labeldescription_0=aa\n"
                                                         "label_template_labelcolor_0=0,255,0\n"
                                                         "label_template_name_1=B\n"
                                                         "label_template_labelname_1=b\n"
                                                         "label_template_labeldescription_1=bb\n"
                                                         "label_template_labelcolor_1=0,0,255\n\n"));
}

TEST(LabelMemoryTest, WhatIsWrittenIsReadAgainWithItsLines)
{
    LabelMemory memory = withTemplates();
    memory.remember(Name, Description, QColor(1, 2, 3));
    // Through the text of a file.
    IniStore store;
    store.parse(storeOf(memory).toString());
    LabelMemory read;
    read.load(store, S);
    expectTemplate(read.next(), memory.next());
    ASSERT_EQ(read.templates().size(), 2);
    expectTemplate(read.templates()[0], memory.templates()[0]);
    expectTemplate(read.templates()[1], blink());
}

TEST(LabelMemoryTest, WhatTheStoreLacksKeepsItsValue)
{
    LabelMemory memory = withTemplates();
    memory.remember(Name, Description, QColor(1, 2, 3));
    memory.load(IniStore(), S);
    EXPECT_EQ(memory.next().labelName, Name);
    EXPECT_EQ(memory.next().labelDescription, Description);
    EXPECT_EQ(memory.next().labelColor, QColor(1, 2, 3));
    EXPECT_EQ(memory.templates().size(), 2);
}

TEST(LabelMemoryTest, ATemplateWithoutColourIsBlack)
{
    const LabelMemory memory = loaded("label_templates_count=2\nlabel_template_name_0=A\n"
                                      "label_template_name_1=B\nlabel_template_labelcolor_1=1,2\n");
    ASSERT_EQ(memory.templates().size(), 2);
    expectTemplate(memory.templates()[0], {QStringLiteral("A"), QString(), QString(), Qt::black});
    EXPECT_EQ(memory.templates()[1].labelColor, QColor(Qt::black));
}

TEST(LabelMemoryTest, AColourThatIsNoneKeepsTheOldOne)
{
    EXPECT_EQ(loaded("label_color=256,0,0\n").next().labelColor, QColor(0xb5, 0x3a, 0x16));
    EXPECT_EQ(loaded("label_color=\n").next().labelColor, QColor(0xb5, 0x3a, 0x16));
    EXPECT_EQ(loaded("label_color=255,0,0\n").next().labelColor, QColor(Qt::red));
}

TEST(LabelMemoryTest, CountsThatCannotBeAreSurvived)
{
    const char* const gap = "label_templates_count=2147483647\nlabel_template_name_0=A\n"
                            "label_template_labelname_1=no name\nlabel_template_name_2=C\n";
    const LabelMemory memory = loaded(gap);
    ASSERT_EQ(memory.templates().size(), 2);
    EXPECT_EQ(memory.templates()[1].templateName, QStringLiteral("C"));
    EXPECT_EQ(loaded("label_templates_count=-1\nlabel_template_name_0=A\n").templates().size(), 0);
    EXPECT_EQ(loaded("label_templates_count=x\nlabel_template_name_0=A\n").templates().size(), 0);
}
