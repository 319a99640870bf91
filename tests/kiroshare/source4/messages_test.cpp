#include "messages.h"

#include "windows/modalanswers.h"

#include <QPushButton>

#include <gtest/gtest.h>

namespace
{

class MessagesTest : public testing::Test
{
protected:
    void SetUp() override { m_window.setWindowTitle(QStringLiteral("The window")); }
    std::string seen() const { return m_answers.seen().join(QLatin1Char('\n')).toStdString(); }

    ModalAnswers m_answers;
    QWidget m_window;
};

void expectBox(ModalAnswers& answers, QMessageBox::Icon icon, QMessageBox::StandardButton press)
{
    answers.answer([icon, press](QWidget* window) {
        auto* const box = qobject_cast<QMessageBox*>(window);
        ASSERT_TRUE(box);
        EXPECT_EQ(box->icon(), icon);
        EXPECT_EQ(box->textFormat(), Qt::PlainText);
        box->button(press)->click();
    });
}

} // namespace

TEST_F(MessagesTest, AWarningBearsTheTitleOfTheWindow)
{
    expectBox(m_answers, QMessageBox::Warning, QMessageBox::Ok);
    showWarning(&m_window, QStringLiteral("<b>No</b> file"));
    EXPECT_EQ(seen(), "The window|<b>No</b> file");
}

TEST_F(MessagesTest, AWarningMayBearATitleOfItsOwn)
{
    expectBox(m_answers, QMessageBox::Warning, QMessageBox::Ok);
    showWarning(&m_window, QStringLiteral("A step"), QStringLiteral("failed"));
    EXPECT_EQ(seen(), "A step|failed");
}

TEST_F(MessagesTest, ANoteIsNoWarning)
{
    expectBox(m_answers, QMessageBox::Information, QMessageBox::Ok);
    showInformation(&m_window, QStringLiteral("done"));
    EXPECT_EQ(seen(), "The window|done");
}

TEST_F(MessagesTest, AQuestionIsYesOnlyByTheButton)
{
    expectBox(m_answers, QMessageBox::Warning, QMessageBox::Yes);
    EXPECT_TRUE(askWarning(&m_window, QStringLiteral("Go on?")));
    expectBox(m_answers, QMessageBox::Warning, QMessageBox::No);
    EXPECT_FALSE(askWarning(&m_window, QStringLiteral("Go on?")));
    m_answers.reject();
    EXPECT_FALSE(askWarning(&m_window, QStringLiteral("Go on?")));
    m_answers.answer([](QWidget* window) {
        const auto* box = qobject_cast<QMessageBox*>(window);
        EXPECT_TRUE(box->defaultButton() == box->button(QMessageBox::No));
        window->close();
    });
    EXPECT_FALSE(askWarning(&m_window, QStringLiteral("Go on?")));
}
