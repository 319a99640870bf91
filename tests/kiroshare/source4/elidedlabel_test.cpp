#include "elidedlabel.h"

#include <QHelpEvent>
#include <QImage>
#include <QTest>
#include <QToolTip>

#include <gtest/gtest.h>

namespace
{

QImage pictureOf(ElidedLabel& label)
{
    return label.grab().toImage();
}

/// What its tooltip says, if it has one.
QString toolTipOf(ElidedLabel& label)
{
    QToolTip::hideText();
    QHelpEvent event(QEvent::ToolTip, label.rect().center(), label.mapToGlobal(label.rect().center()));
    QApplication::sendEvent(&label, &event);
    return QToolTip::isVisible() ? QToolTip::text() : QString();
}

class ElidedLabelTest : public testing::Test
{
protected:
    void SetUp() override
    {
        m_label.resize(m_label.fontMetrics().averageCharWidth() * 30, m_label.fontMetrics().height() + 2);
        m_label.show();
        ASSERT_TRUE(QTest::qWaitForWindowExposed(&m_label));
    }

    ElidedLabel m_label;
};

} // namespace

TEST_F(ElidedLabelTest, ALongTextKeepsBothEndsAndHasATooltip)
{
    const QString beginning = QStringLiteral("/recordings/");
    const QString end = QStringLiteral("/patient.kiro");
    m_label.setText(beginning + QString(300, QLatin1Char('x')) + end);
    const QImage shown = pictureOf(m_label);
    EXPECT_EQ(m_label.text(), beginning + QString(300, QLatin1Char('x')) + end);
    EXPECT_EQ(toolTipOf(m_label), m_label.text());
    m_label.setText(beginning + QString(400, QLatin1Char('x')) + end);
    EXPECT_EQ(pictureOf(m_label), shown);
    m_label.setText(beginning + QString(300, QLatin1Char('x')) + QStringLiteral("/patient.edf"));
    EXPECT_NE(pictureOf(m_label), shown);
}

TEST_F(ElidedLabelTest, AShortTextHasNoTooltip)
{
    m_label.setText(QStringLiteral("short"));
    EXPECT_EQ(toolTipOf(m_label), QString());
}

TEST_F(ElidedLabelTest, MarksOfRichTextAreShownAsTheyAre)
{
    m_label.setText(QStringLiteral("<b>bold</b>"));
    const QImage marked = pictureOf(m_label);
    m_label.setText(QStringLiteral("bold"));
    EXPECT_NE(pictureOf(m_label), marked);
    m_label.setText(QStringLiteral("<b>") + QString(300, QLatin1Char('x')));
    EXPECT_EQ(toolTipOf(m_label),
              QStringLiteral("<span>&lt;b&gt;%1</span>").arg(QString(300, QLatin1Char('x'))));
}

TEST_F(ElidedLabelTest, TheTextDoesNotWidenItsWindow)
{
    const int before = m_label.minimumSizeHint().width();
    m_label.setText(QString(300, QLatin1Char('x')));
    EXPECT_EQ(m_label.minimumSizeHint().width(), before);
}
