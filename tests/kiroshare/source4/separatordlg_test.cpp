#include "separatordlg.h"

#include "dialogprobe.h"
#include "windows/modalanswers.h"
#include "windows/windowmessages.h"

#include <QDialogButtonBox>
#include <QGroupBox>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>

#include <gtest/gtest.h>

#include <algorithm>

namespace
{

class SeparatorDlgTest : public testing::Test
{
protected:
    void SetUp() override
    {
        m_dialog.show();
        ASSERT_TRUE(QTest::qWaitForWindowActive(&m_dialog));
    }

    void press(QDialogButtonBox::StandardButton button)
    {
        QTest::mouseClick(widgetIn<QDialogButtonBox>(m_dialog, "buttonBox")->button(button), Qt::LeftButton);
    }
    /// A click on the circle of the radio button, which stands at its beginning.
    void choose(const char* radio)
    {
        auto* const button = widgetIn<QRadioButton>(m_dialog, radio);
        QTest::mouseClick(button, Qt::LeftButton, {}, QPoint(8, button->height() / 2));
    }
    QLineEdit* edit() { return widgetIn<QLineEdit>(m_dialog, "editCustom"); }
    std::string checked()
    {
        QStringList names;
        for (const QRadioButton* radio : m_dialog.findChildren<QRadioButton*>()) {
            if (radio->isChecked())
                names << radio->objectName();
        }
        return names.join(QLatin1Char(' ')).toStdString();
    }

    ModalAnswers m_answers;
    SeparatorDlg m_dialog;
};

/// A separator with its radio button.
struct Choice
{
    const char* radio;
    const char* text;
    QString separator;
};

const Choice Choices[] = {{"radioSpace", "space (  )", QStringLiteral(" ")},
                          {"radioTab", "tab ( \\t )", QStringLiteral("\t")},
                          {"radioSemicolon", "semicolon ( ; )", QStringLiteral(";")},
                          {"radioComa", "coma ( , )", QStringLiteral(",")},
                          {"radioColon", "colon ( : )", QStringLiteral(":")}};

} // namespace

TEST_F(SeparatorDlgTest, IsBuiltWithoutAWarning)
{
    EXPECT_EQ(messagesOfBuilding<SeparatorDlg>(), "");
}

TEST_F(SeparatorDlgTest, TextsFromTopToBottom)
{
    EXPECT_EQ(m_dialog.windowTitle(), QStringLiteral("Field separator selection"));
    EXPECT_EQ(widgetIn<QGroupBox>(m_dialog, "groupSeparator")->title(), QStringLiteral("Select separator"));
    QList<QRadioButton*> radios = m_dialog.findChildren<QRadioButton*>();
    std::sort(radios.begin(), radios.end(),
              [](const QRadioButton* a, const QRadioButton* b) { return a->y() < b->y(); });
    ASSERT_EQ(radios.size(), 6);
    for (int i = 0; i < 5; ++i) {
        EXPECT_EQ(radios[i]->objectName(), QLatin1String(Choices[i].radio));
        EXPECT_EQ(radios[i]->text(), QLatin1String(Choices[i].text));
    }
    EXPECT_EQ(radios[5]->objectName(), QStringLiteral("radioCustom"));
    EXPECT_EQ(radios[5]->text(), QStringLiteral("custom"));
    EXPECT_NEAR(edit()->geometry().center().y(), radios[5]->geometry().center().y(), 2);
    EXPECT_GE(edit()->x(), radios[5]->geometry().right());
}

TEST_F(SeparatorDlgTest, StartsWithTheTab)
{
    EXPECT_EQ(m_dialog.separator(), QStringLiteral("\t"));
    EXPECT_EQ(checked(), "radioTab");
}

TEST_F(SeparatorDlgTest, EachRadioButtonGivesItsSeparator)
{
    for (const Choice& choice : Choices) {
        m_dialog.setSeparator(QStringLiteral("--"));
        m_dialog.show();
        choose(choice.radio);
        EXPECT_EQ(m_dialog.separator(), QStringLiteral("--"));
        press(QDialogButtonBox::Ok);
        EXPECT_EQ(m_dialog.result(), int(QDialog::Accepted)) << choice.radio;
        EXPECT_EQ(m_dialog.separator(), choice.separator) << choice.radio;
    }
}

TEST_F(SeparatorDlgTest, EachSeparatorChecksItsRadioButton)
{
    for (const Choice& choice : Choices) {
        edit()->setText(QStringLiteral("old"));
        m_dialog.setSeparator(choice.separator);
        EXPECT_EQ(checked(), choice.radio);
        EXPECT_EQ(edit()->text(), QString());
        EXPECT_EQ(m_dialog.separator(), choice.separator);
    }
}

TEST_F(SeparatorDlgTest, AnotherSeparatorIsTheCustomOne)
{
    for (const QString& separator : {QStringLiteral("|"), QStringLiteral("  "), QStringLiteral(", "),
                                     QString::fromUtf8("→"), QString()}) {
        m_dialog.setSeparator(separator);
        EXPECT_EQ(checked(), "radioCustom");
        EXPECT_EQ(edit()->text(), separator);
        EXPECT_EQ(m_dialog.separator(), separator);
    }
}

TEST_F(SeparatorDlgTest, TypingSelectsTheCustomSeparator)
{
    edit()->setFocus();
    QTest::keyClicks(edit(), QStringLiteral("<>"));
    EXPECT_EQ(checked(), "radioCustom");
    press(QDialogButtonBox::Ok);
    EXPECT_EQ(m_dialog.separator(), QStringLiteral("<>"));
    m_dialog.setSeparator(m_dialog.separator());
    EXPECT_EQ(checked(), "radioCustom");
    EXPECT_EQ(edit()->text(), QStringLiteral("<>"));
}

TEST_F(SeparatorDlgTest, ChoosingCustomLeadsToItsText)
{
    edit()->setText(QStringLiteral("ab"));
    choose("radioCustom");
    EXPECT_EQ(m_dialog.focusWidget(), edit());
    QTest::keyClicks(edit(), QStringLiteral("#"));
    press(QDialogButtonBox::Ok);
    EXPECT_EQ(m_dialog.separator(), QStringLiteral("#"));
}

TEST_F(SeparatorDlgTest, ACustomTextStaysUnusedWithAnotherRadioButton)
{
    QTest::keyClicks(edit(), QStringLiteral("#"));
    choose("radioColon");
    press(QDialogButtonBox::Ok);
    EXPECT_EQ(m_dialog.separator(), QStringLiteral(":"));
}

TEST_F(SeparatorDlgTest, ACustomBlankIsSpaceWhenSetAgain)
{
    QTest::keyClicks(edit(), QStringLiteral(" "));
    EXPECT_EQ(checked(), "radioCustom");
    press(QDialogButtonBox::Ok);
    EXPECT_EQ(m_dialog.separator(), QStringLiteral(" "));
    m_dialog.setSeparator(m_dialog.separator());
    EXPECT_EQ(checked(), "radioSpace");
    EXPECT_EQ(edit()->text(), QString());
    EXPECT_EQ(SeparatorDlg::separatorName(m_dialog.separator()), QStringLiteral("space"));
}

TEST_F(SeparatorDlgTest, AnEmptyCustomSeparatorIsRefused)
{
    choose("radioCustom");
    m_answers.press(QMessageBox::Ok);
    press(QDialogButtonBox::Ok);
    EXPECT_EQ(m_answers.seen().join(QLatin1Char('\n')).toStdString(),
              "Separator selection|The custom separator has not been entered!");
    EXPECT_TRUE(m_dialog.isVisible());
    EXPECT_EQ(m_dialog.focusWidget(), edit());
    EXPECT_EQ(m_dialog.separator(), QStringLiteral("\t"));
    QTest::keyClicks(edit(), QStringLiteral("/"));
    QTest::keyClick(edit(), Qt::Key_Return);
    EXPECT_FALSE(m_dialog.isVisible());
    EXPECT_EQ(m_dialog.separator(), QStringLiteral("/"));
}

TEST_F(SeparatorDlgTest, CancelKeepsTheSeparator)
{
    m_dialog.setSeparator(QStringLiteral(";"));
    choose("radioColon");
    press(QDialogButtonBox::Cancel);
    EXPECT_EQ(m_dialog.result(), int(QDialog::Rejected));
    EXPECT_EQ(m_dialog.separator(), QStringLiteral(";"));
    m_dialog.setSeparator(QStringLiteral("||"));
    m_dialog.show();
    QTest::keyClicks(edit(), QStringLiteral("#"));
    QTest::keyClick(&m_dialog, Qt::Key_Escape);
    EXPECT_EQ(m_dialog.separator(), QStringLiteral("||"));
}

TEST_F(SeparatorDlgTest, ArrowsMoveAmongTheRadioButtonsAndTabLeavesThem)
{
    m_dialog.setSeparator(QStringLiteral(" "));
    for (const Choice& choice : Choices) {
        EXPECT_EQ(checked(), choice.radio);
        QTest::keyClick(m_dialog.focusWidget(), Qt::Key_Down);
    }
    EXPECT_EQ(checked(), "radioCustom");
    EXPECT_EQ(tabOrderOf(m_dialog).substr(0, 23), "radioCustom editCustom ");
}

TEST(SeparatorNameTest, BlankAndTabHaveNames)
{
    EXPECT_EQ(SeparatorDlg::separatorName(QStringLiteral(" ")), QStringLiteral("space"));
    EXPECT_EQ(SeparatorDlg::separatorName(QStringLiteral("\t")), QStringLiteral("tab"));
}

TEST(SeparatorNameTest, AnyOtherTextIsItsOwnName)
{
    for (const QString& text :
         {QStringLiteral(","), QStringLiteral(";"), QStringLiteral(":"), QStringLiteral("  "),
          QStringLiteral("\t\t"), QStringLiteral("ab"), QString()})
        EXPECT_EQ(SeparatorDlg::separatorName(text), text);
}
