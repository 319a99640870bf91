#include "pensetupdialog.h"

#include "dialogprobe.h"
#include "previewframe.h"
#include "windows/modalanswers.h"
#include "windows/windowmessages.h"

#include <QColorDialog>
#include <QComboBox>
#include <QDialogButtonBox>
#include <QLabel>
#include <QPushButton>
#include <QSpinBox>

#include <gtest/gtest.h>

namespace
{

QPen givenPen()
{
    return QPen(QBrush(QColor(10, 20, 30)), 3, Qt::DotLine, Qt::RoundCap, Qt::MiterJoin);
}

class PenSetupDialogTest : public testing::Test
{
protected:
    void SetUp() override
    {
        QCoreApplication::setAttribute(Qt::AA_DontUseNativeDialogs);
        m_dialog.setPen(givenPen());
        m_dialog.show();
        ASSERT_TRUE(QTest::qWaitForWindowActive(&m_dialog));
    }

    QSpinBox* width() { return widgetIn<QSpinBox>(m_dialog, "spinWidth"); }
    QComboBox* style() { return widgetIn<QComboBox>(m_dialog, "comboStyle"); }
    const PreviewFrame* preview() { return widgetIn<PreviewFrame>(m_dialog, "preview"); }
    void chooseColor(const QColor& color)
    {
        m_answers.answer([color](QWidget* window) {
            auto* const chooser = qobject_cast<QColorDialog*>(window);
            ASSERT_TRUE(chooser);
            chooser->setCurrentColor(color);
            chooser->accept();
        });
        clickOn(m_dialog, "buttonColor");
    }
    void press(QWidget& window, QDialogButtonBox::StandardButton button)
    {
        QTest::mouseClick(widgetIn<QDialogButtonBox>(window, "buttonBox")->button(button), Qt::LeftButton);
    }

    ModalAnswers m_answers;
    PenSetupDialog m_dialog;
};

} // namespace

TEST_F(PenSetupDialogTest, IsBuiltWithoutAWarning)
{
    EXPECT_EQ(messagesOfBuilding<PenSetupDialog>(), "");
}

TEST_F(PenSetupDialogTest, Texts)
{
    EXPECT_EQ(m_dialog.windowTitle(), QStringLiteral("Pen settings"));
    EXPECT_EQ(plainText(widgetIn<QLabel>(m_dialog, "labelColor")->text()), "Pen color");
    EXPECT_EQ(plainText(widgetIn<QLabel>(m_dialog, "labelWidth")->text()), "Pen width");
    EXPECT_EQ(plainText(widgetIn<QLabel>(m_dialog, "labelStyle")->text()), "Pen style");
    QStringList styles;
    for (int i = 0; i < style()->count(); ++i)
        styles << style()->itemText(i);
    EXPECT_EQ(styles.join(QLatin1Char('|')).toStdString(),
              "No pen|Solid line|Dash line|Dot line|Dash dot line|Dash dot dot line");
}

TEST_F(PenSetupDialogTest, LabelsLeadToTheirFields)
{
    for (const auto& [label, field] :
         {std::pair("labelColor", "buttonColor"), std::pair("labelWidth", "spinWidth"),
          std::pair("labelStyle", "comboStyle")})
        EXPECT_EQ(widgetIn<QLabel>(m_dialog, label)->buddy(), widgetIn<QWidget>(m_dialog, field));
    widgetIn<QWidget>(m_dialog, "buttonColor")->setFocus();
    EXPECT_EQ(tabOrderOf(m_dialog).substr(0, 33), "buttonColor spinWidth comboStyle ");
}

TEST_F(PenSetupDialogTest, ShowsThePen)
{
    EXPECT_EQ(widgetIn<QPushButton>(m_dialog, "buttonColor")->text(), QStringLiteral("#0a141e"));
    EXPECT_EQ(width()->value(), 3);
    EXPECT_EQ(style()->currentText(), QStringLiteral("Dot line"));
    EXPECT_EQ(preview()->pen(), givenPen());
}

TEST_F(PenSetupDialogTest, ThePreviewFollowsEachChange)
{
    QPen expected = givenPen();
    width()->setFocus();
    QTest::keyClick(width(), Qt::Key_Up);
    expected.setWidth(4);
    EXPECT_EQ(preview()->pen(), expected);
    for (int i = 0; i < 6; ++i) {
        style()->setCurrentIndex(i);
        expected.setStyle(Qt::PenStyle(i));
        EXPECT_EQ(preview()->pen(), expected) << i;
    }
    chooseColor(QColor(200, 100, 50));
    expected.setColor(QColor(200, 100, 50));
    EXPECT_EQ(preview()->pen(), expected);
    EXPECT_EQ(widgetIn<QPushButton>(m_dialog, "buttonColor")->text(), QStringLiteral("#c86432"));
    EXPECT_EQ(m_dialog.pen(), expected);
}

TEST_F(PenSetupDialogTest, LeavingTheColorDialogChangesNothing)
{
    m_answers.reject();
    clickOn(m_dialog, "buttonColor");
    EXPECT_EQ(m_answers.seen(), QStringList(QStringLiteral("Pen color|")));
    EXPECT_EQ(m_dialog.pen(), givenPen());
}

TEST_F(PenSetupDialogTest, AWidthOfZeroShowsAsOneAndStaysUntilChanged)
{
    QPen hairline = givenPen();
    hairline.setWidth(0);
    m_dialog.setPen(hairline);
    EXPECT_EQ(width()->value(), 1);
    EXPECT_EQ(m_dialog.pen(), hairline);
    width()->setFocus();
    QTest::keyClick(width(), Qt::Key_Up);
    EXPECT_EQ(m_dialog.pen().width(), 2);
    QTest::keyClick(width(), Qt::Key_Down);
    EXPECT_EQ(m_dialog.pen().width(), 1);
}

TEST_F(PenSetupDialogTest, AStyleThatIsNotListedStaysUntilChanged)
{
    QPen own = givenPen();
    own.setDashPattern({1, 2, 3, 4});
    m_dialog.setPen(own);
    EXPECT_EQ(style()->currentIndex(), -1);
    EXPECT_EQ(m_dialog.pen(), own);
    style()->setCurrentIndex(1);
    EXPECT_EQ(m_dialog.pen().style(), Qt::SolidLine);
}

TEST_F(PenSetupDialogTest, GetPenGivesTheAcceptedPen)
{
    m_answers.answer([this](QWidget* window) {
        EXPECT_EQ(widgetIn<PreviewFrame>(*window, "preview")->pen(), givenPen());
        EXPECT_EQ(widgetIn<PreviewFrame>(*window, "preview")->background(), QColor(Qt::yellow));
        widgetIn<QSpinBox>(*window, "spinWidth")->setValue(7);
        widgetIn<QComboBox>(*window, "comboStyle")->setCurrentIndex(1);
        press(*window, QDialogButtonBox::Ok);
    });
    QPen expected = givenPen();
    expected.setWidth(7);
    expected.setStyle(Qt::SolidLine);
    EXPECT_EQ(PenSetupDialog::getPen(nullptr, givenPen(), Qt::yellow), expected);
}

TEST_F(PenSetupDialogTest, GetPenGivesThePenBackWhenCancelled)
{
    m_answers.answer([this](QWidget* window) {
        widgetIn<QSpinBox>(*window, "spinWidth")->setValue(7);
        press(*window, QDialogButtonBox::Cancel);
    });
    EXPECT_EQ(PenSetupDialog::getPen(nullptr, givenPen(), Qt::white), givenPen());
}
