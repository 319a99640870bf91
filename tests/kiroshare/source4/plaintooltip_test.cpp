#include "plaintooltip.h"

#include <QTextDocument>

#include <gtest/gtest.h>

namespace
{

TEST(PlainToolTip, LeavesPlainTextsAsTheyAre)
{
    EXPECT_EQ(plainToolTip(QStringLiteral("C & D > E")), QStringLiteral("C & D > E"));
    EXPECT_EQ(plainToolTip(QString()), QString());
}

TEST(PlainToolTip, ShowsMarkupLetterByLetter)
{
    const QString text = QStringLiteral("<b>a & b</b>");
    const QString toolTip = plainToolTip(text);
    ASSERT_TRUE(Qt::mightBeRichText(toolTip));
    QTextDocument document;
    document.setHtml(toolTip);
    EXPECT_EQ(document.toPlainText(), text);
}

} // namespace
