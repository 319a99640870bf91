#include "questiondialog.h"

#include "dialogprobe.h"
#include "windows/modalanswers.h"
#include "windows/windowmessages.h"

#include <QLabel>
#include <QPushButton>
#include <QToolButton>

#include <gtest/gtest.h>

#include <functional>

namespace
{

const QString Save = QStringLiteral("   Save changes and open");
const QString DontSave = QStringLiteral("   Don't save changes and open");
const QString Cancel = QStringLiteral("   Cancel and go back to the current data");
const QString Text =
    QStringLiteral("There are unsaved changes in the current data!\nWhat would you like to do?");

QPixmap filledPixmap(int width, int height)
{
    QPixmap pixmap(width, height);
    pixmap.fill(Qt::red);
    return pixmap;
}

class QuestionDialogTest : public testing::Test
{
protected:
    /// Asks with three buttons and does something with the dialog, which must end it.
    int ask(int defaultResult, const std::function<void(QWidget&)>& action)
    {
        m_answers.answer([&](QWidget* window) { action(*window); });
        return QuestionDialog::question(nullptr, Text, {}, Save, filledPixmap(24, 24), DontSave,
                                        filledPixmap(48, 32), Cancel, {}, defaultResult);
    }

    ModalAnswers m_answers;
};

bool shown(QWidget& window, const char* name)
{
    return widgetIn<QWidget>(window, name)->isVisible();
}

void escape(QWidget& window)
{
    QTest::keyClick(&window, Qt::Key_Escape);
}

} // namespace

TEST_F(QuestionDialogTest, EachButtonEndsItWithItsNumber)
{
    EXPECT_EQ(ask(2, [](QWidget& window) { clickOn(window, "button0"); }), 0);
    EXPECT_EQ(ask(2, [](QWidget& window) { clickOn(window, "button1"); }), 1);
    EXPECT_EQ(ask(0, [](QWidget& window) { clickOn(window, "button2"); }), 2);
}

TEST_F(QuestionDialogTest, ThePictureOfAButtonIsThatButton)
{
    EXPECT_EQ(ask(2, [](QWidget& window) { clickOn(window, "toolButton0"); }), 0);
    EXPECT_EQ(ask(2, [](QWidget& window) { clickOn(window, "toolButton1"); }), 1);
}

TEST_F(QuestionDialogTest, ShowsTheTextsAsTheyAre)
{
    QWidget parent;
    parent.setWindowTitle(QStringLiteral("Saccades browser"));
    m_answers.answer([](QWidget* window) {
        EXPECT_EQ(window->windowTitle(), QStringLiteral("Saccades browser"));
        EXPECT_EQ(widgetIn<QLabel>(*window, "labelText")->text(), Text);
        EXPECT_EQ(widgetIn<QLabel>(*window, "labelText")->textFormat(), Qt::PlainText);
        EXPECT_EQ(widgetIn<QPushButton>(*window, "button0")->text(), Save);
        EXPECT_EQ(widgetIn<QPushButton>(*window, "button1")->text(), DontSave);
        EXPECT_EQ(widgetIn<QPushButton>(*window, "button2")->text(), Cancel);
        window->close();
    });
    QuestionDialog::question(&parent, Text, {}, Save, {}, DontSave, {}, Cancel, {}, 2);
}

TEST_F(QuestionDialogTest, OnlyButtonsWithATextAreShownBesideTheFirst)
{
    const auto visible = [this](const QString& text0, const QString& text1, const QString& text2) {
        std::string names;
        m_answers.answer([&](QWidget* window) {
            for (const char* name :
                 {"button0", "button1", "button2", "toolButton0", "toolButton1", "toolButton2"}) {
                if (shown(*window, name))
                    names += std::string(name) + " ";
            }
            window->close();
        });
        const QPixmap icon = filledPixmap(24, 24);
        QuestionDialog::question(nullptr, Text, {}, text0, icon, text1, icon, text2, icon, 0);
        return names;
    };
    EXPECT_EQ(visible(Save, QString(), QString()), "button0 toolButton0 ");
    EXPECT_EQ(visible(Save, DontSave, QString()), "button0 button1 toolButton0 toolButton1 ");
    EXPECT_EQ(visible(Save, QString(), Cancel), "button0 button2 toolButton0 toolButton2 ");
    EXPECT_EQ(visible(QString(), QString(), QString()), "button0 toolButton0 ");
}

TEST_F(QuestionDialogTest, PixmapsStandAtTheirNaturalSize)
{
    ask(0, [](QWidget& window) {
        EXPECT_TRUE(shown(window, "toolButton0"));
        EXPECT_TRUE(shown(window, "toolButton1"));
        EXPECT_FALSE(shown(window, "toolButton2"));
        EXPECT_EQ(widgetIn<QToolButton>(window, "toolButton0")->iconSize(), QSize(24, 24));
        EXPECT_EQ(widgetIn<QToolButton>(window, "toolButton1")->iconSize(), QSize(48, 32));
        for (const char* name : {"toolButton0", "toolButton1", "toolButton2"})
            EXPECT_TRUE(widgetIn<QToolButton>(window, name)->autoRaise());
        EXPECT_EQ(widgetIn<QToolButton>(window, "toolButton0")->accessibleName(),
                  QStringLiteral("Save changes and open"));
        const int middle0 = widgetIn<QWidget>(window, "button0")->geometry().center().y();
        EXPECT_NEAR(widgetIn<QWidget>(window, "toolButton0")->geometry().center().y(), middle0, 1);
        window.close();
    });
}

TEST_F(QuestionDialogTest, APixmapOfADenseScreenIsNotEnlarged)
{
    QPixmap dense = filledPixmap(48, 48);
    dense.setDevicePixelRatio(2);
    m_answers.answer([](QWidget* window) {
        EXPECT_EQ(widgetIn<QToolButton>(*window, "toolButton0")->iconSize(), QSize(24, 24));
        window->close();
    });
    QuestionDialog::question(nullptr, Text, {}, Save, dense, {}, {}, {}, {}, 0);
}

TEST_F(QuestionDialogTest, ThePixmapOfTheQuestionIsShownIfThereIsOne)
{
    m_answers.answer([](QWidget* window) {
        const auto* const label = widgetIn<QLabel>(*window, "labelPixmap");
        EXPECT_TRUE(label->isVisible());
        EXPECT_EQ(label->pixmap(Qt::ReturnByValue).size(), QSize(32, 32));
        window->close();
    });
    QuestionDialog::question(nullptr, Text, filledPixmap(32, 32), Save, {}, {}, {}, {}, {}, 0);
    ask(0, [](QWidget& window) {
        EXPECT_FALSE(shown(window, "labelPixmap"));
        window.close();
    });
}

TEST_F(QuestionDialogTest, EscapeAndClosingGiveTheDefault)
{
    for (const int number : {0, 1, 2}) {
        EXPECT_EQ(ask(number, escape), number);
        EXPECT_EQ(ask(number, [](QWidget& window) { window.close(); }), number);
    }
}

TEST_F(QuestionDialogTest, EnterGivesTheDefault)
{
    for (const int number : {0, 1, 2})
        EXPECT_EQ(ask(number, [](QWidget& window) { QTest::keyClick(&window, Qt::Key_Return); }), number);
}

TEST_F(QuestionDialogTest, ADefaultThatIsNoButtonIsIgnored)
{
    EXPECT_EQ(ask(-1, escape), 0);
    EXPECT_EQ(ask(3, escape), 0);
    EXPECT_EQ(ask(1000000, escape), 0);
    QuestionDialog dialog;
    dialog.setDefaultResult(2);
    dialog.setDefaultResult(3);
    dialog.setDefaultResult(-1);
    dialog.reject();
    EXPECT_EQ(dialog.result(), 2);
}

TEST_F(QuestionDialogTest, TabReachesTheButtonsFromTopToBottom)
{
    ask(0, [](QWidget& window) {
        EXPECT_EQ(tabOrderOf(window), "button0 button1 button2");
        window.close();
    });
}

TEST_F(QuestionDialogTest, IsBuiltWithoutAWarning)
{
    EXPECT_EQ(messagesOfBuilding<QuestionDialog>(), "");
}
