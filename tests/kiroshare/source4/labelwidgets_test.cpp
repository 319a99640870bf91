// The parts that the windows of labels share.

#include "colorsample.h"
#include "descriptionedit.h"
#include "labeltemplateprobe.h"
#include "templatebuttons.h"

#include <QApplication>
#include <QComboBox>
#include <QScrollBar>
#include <QTest>
#include <QToolButton>

#include <gtest/gtest.h>

namespace
{

/// Whether the pixels of `square` have the colour and all others of the image are black.
bool isJustIn(const QImage& image, const QColor& color, const QRect& square)
{
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x) {
            const QColor expected = square.contains(x, y) ? color : QColor(Qt::black);
            if (image.pixelColor(x, y) != expected)
                return false;
        }
    }
    return true;
}

} // namespace

TEST(TemplatePixmapTest, IsABlackSquareWithTheColourWithin)
{
    const QPixmap picture = templatePixmap(QColor(10, 200, 30), 1.0);
    EXPECT_EQ(picture.size(), QSize(22, 22));
    EXPECT_TRUE(isJustIn(picture.toImage(), QColor(10, 200, 30), QRect(2, 2, 19, 19)));
}

TEST(TemplatePixmapTest, HasTheResolutionOfTheScreen)
{
    const QPixmap picture = templatePixmap(QColor(10, 200, 30), 2.0);
    EXPECT_EQ(picture.size(), QSize(44, 44));
    EXPECT_EQ(picture.devicePixelRatioF(), 2.0);
    EXPECT_TRUE(isJustIn(picture.toImage(), QColor(10, 200, 30), QRect(4, 4, 38, 38)));
}

TEST(TemplateButtonsTest, TemplatesFillTheFirstButtons)
{
    QToolButton first;
    QToolButton second;
    QToolButton third;
    fillTemplateButtons({&first, &second, &third}, numberedTemplates(2));
    EXPECT_TRUE(first.isEnabled());
    EXPECT_EQ(first.toolTip(), QStringLiteral("T1"));
    EXPECT_EQ(first.accessibleName(), QStringLiteral("T1"));
    const QImage picture = first.icon().pixmap(22, 22).toImage();
    EXPECT_TRUE(isJustIn(picture, QColor(1, 0, 0), QRect(2, 2, 19, 19)));
    EXPECT_EQ(first.iconSize(), QSize(22, 22));
    EXPECT_TRUE(second.isEnabled());
    EXPECT_EQ(second.toolTip(), QStringLiteral("T2"));
    EXPECT_FALSE(third.isEnabled());
    EXPECT_TRUE(third.icon().isNull());
    EXPECT_EQ(third.toolTip(), QString());
    EXPECT_EQ(third.accessibleName(), QStringLiteral("No label template"));
}

TEST(TemplateButtonsTest, AShorterListEmptiesTheOthers)
{
    QToolButton first;
    QToolButton second;
    fillTemplateButtons({&first, &second}, numberedTemplates(2));
    fillTemplateButtons({&first, &second}, {});
    EXPECT_FALSE(first.isEnabled());
    EXPECT_TRUE(first.icon().isNull());
    EXPECT_EQ(second.toolTip(), QString());
}

TEST(TemplateButtonsTest, ANameThatLooksLikeRichTextIsShownAsItStands)
{
    QList<LabelTemplate> templates = numberedTemplates(2);
    templates[0].templateName = QStringLiteral("<b>a</b>");
    templates[1].templateName = QStringLiteral("a & b");
    QToolButton first;
    QToolButton second;
    fillTemplateButtons({&first, &second}, templates);
    EXPECT_EQ(first.toolTip(), QStringLiteral("<span>&lt;b&gt;a&lt;/b&gt;</span>"));
    EXPECT_EQ(first.accessibleName(), QStringLiteral("<b>a</b>"));
    EXPECT_EQ(second.toolTip(), QStringLiteral("a & b"));
}

TEST(TemplateBoxTest, ListsTheNamesBehindAnEmptyEntry)
{
    QComboBox box;
    box.addItem(QStringLiteral("old"));
    fillTemplateBox(box, numberedTemplates(2));
    ASSERT_EQ(box.count(), 3);
    EXPECT_EQ(box.itemText(0), QString());
    EXPECT_EQ(box.itemText(1), QStringLiteral("T1"));
    EXPECT_EQ(box.itemText(2), QStringLiteral("T2"));
    EXPECT_EQ(box.currentIndex(), 0);
}

TEST(ColorSampleTest, ShowsColourAndName)
{
    ColorSample sample;
    sample.setColor(QColor(255, 128, 0));
    EXPECT_EQ(sample.palette().color(QPalette::Window), QColor(255, 128, 0));
    EXPECT_EQ(sample.text(), QStringLiteral("#ff8000"));
    EXPECT_EQ(sample.color(), QColor(255, 128, 0));
    sample.resize(100, 30);
    EXPECT_EQ(sample.grab().toImage().pixelColor(5, 5), QColor(255, 128, 0));
}

// Contrasts with white by WCAG 2: #767676 4.54, #777777 4.48; black has 21 divided by that.
TEST(ColorSampleTest, TheNameIsBlackOrWhiteWhicheverReadsBetter)
{
    ColorSample sample;
    const auto textOn = [&sample](const QColor& color) {
        sample.setColor(color);
        return sample.palette().color(QPalette::WindowText);
    };
    EXPECT_EQ(textOn(Qt::white), QColor(Qt::black));
    EXPECT_EQ(textOn(Qt::green), QColor(Qt::black));
    EXPECT_EQ(textOn(QColor(0x77, 0x77, 0x77)), QColor(Qt::black));
    EXPECT_EQ(textOn(QColor(0x74, 0x74, 0x74)), QColor(Qt::white));
    EXPECT_EQ(textOn(Qt::blue), QColor(Qt::white));
    EXPECT_EQ(textOn(Qt::black), QColor(Qt::white));
}

TEST(ColorSampleTest, WithoutAColourItIsEmpty)
{
    ColorSample sample;
    sample.setColor(Qt::red);
    sample.setColor(QColor());
    EXPECT_EQ(sample.text(), QString());
    EXPECT_EQ(sample.palette().color(QPalette::Window), QPalette().color(QPalette::Window));
    EXPECT_FALSE(sample.color().isValid());
}

TEST(DescriptionEditTest, AnUntouchedTextComesBackAsItWas)
{
    const QString text = QString::fromUtf8("5\u00a0°\r\nnext\u2028line");
    DescriptionEdit edit;
    edit.setDescription(text);
    ASSERT_NE(edit.toPlainText(), text) << "the edit keeps such characters after all";
    EXPECT_EQ(edit.description(), text);
    edit.setPlainText(QStringLiteral("other"));
    EXPECT_EQ(edit.description(), QStringLiteral("other"));
    edit.setPlainText(QString());
    EXPECT_EQ(edit.description(), QString());
}

TEST(DescriptionEditTest, ReturnAddsALine)
{
    DescriptionEdit edit;
    edit.setDescription(QStringLiteral("a"));
    edit.moveCursor(QTextCursor::End);
    QTest::keyClick(&edit, Qt::Key_Return);
    QTest::keyClicks(&edit, QStringLiteral("b"));
    EXPECT_EQ(edit.description(), QStringLiteral("a\nb"));
}

TEST(DescriptionEditTest, ShowsTwoLinesAtLeastWithoutScrolling)
{
    DescriptionEdit edit;
    edit.setDescription(QStringLiteral("a\nb"));
    edit.resize(edit.minimumSizeHint());
    edit.show();
    QApplication::processEvents();
    EXPECT_EQ(edit.verticalScrollBar()->maximum(), 0);
    edit.setDescription(QStringLiteral("a\nb\nc\nd\ne"));
    QApplication::processEvents();
    EXPECT_GT(edit.verticalScrollBar()->maximum(), 0);
    edit.setDescription(QStringLiteral("a\nb\nc\nd"));
    edit.resize(edit.sizeHint());
    QApplication::processEvents();
    EXPECT_EQ(edit.verticalScrollBar()->maximum(), 0);
}
