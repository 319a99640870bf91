#include "kirolabeltemplateeditdlg.h"

#include "colorsample.h"
#include "descriptionedit.h"
#include "labeldialogfixture.h"
#include "windows/windowmessages.h"

#include <QGroupBox>
#include <QPushButton>

namespace
{

class KiroLabelTemplateEditDlgTest : public testing::Test
{
protected:
    void SetUp() override
    {
        QCoreApplication::setAttribute(Qt::AA_DontUseNativeDialogs);
        m_dialog.setTemplates(numberedTemplates(3));
        m_dialog.show();
        ASSERT_TRUE(QTest::qWaitForWindowActive(&m_dialog));
    }

    QComboBox* box() { return widgetIn<QComboBox>(m_dialog, "comboTemplate"); }
    QLineEdit* name() { return widgetIn<QLineEdit>(m_dialog, "editLabelName"); }
    DescriptionEdit* description() { return widgetIn<DescriptionEdit>(m_dialog, "editLabelDescription"); }
    QColor sampleColor()
    {
        return widgetIn<ColorSample>(m_dialog, "sampleLabelColor")->palette().color(QPalette::Window);
    }
    /// The shown template: "T1=name 1/text 1/#010000"
    std::string shown()
    {
        return textOf({LabelTemplate{box()->currentText(), name()->text(), description()->description(),
                                     sampleColor()}});
    }
    void answerName(const QString& templateName)
    {
        m_answers.answer([templateName](QWidget* window) {
            auto* const question = qobject_cast<QInputDialog*>(window);
            ASSERT_TRUE(question);
            EXPECT_EQ(question->labelText(), QStringLiteral("Enter new label template name"));
            EXPECT_EQ(question->textValue(), QStringLiteral("New label template"));
            question->setTextValue(templateName);
            question->accept();
        });
    }
    std::string accepted()
    {
        press(m_dialog, QDialogButtonBox::Ok);
        EXPECT_EQ(m_dialog.result(), int(QDialog::Accepted));
        return textOf(m_dialog.templates());
    }

    ModalAnswers m_answers;
    KiroLabelTemplateEditDlg m_dialog;
};

constexpr char First[] = "T1=name 1/text 1/#010000";
constexpr char Second[] = "T2=name 2/text 2/#020000";
constexpr char Third[] = "T3=name 3/text 3/#030000";

} // namespace

TEST_F(KiroLabelTemplateEditDlgTest, IsBuiltWithoutAWarning)
{
    EXPECT_EQ(messagesOfBuilding<KiroLabelTemplateEditDlg>(), "");
}

TEST_F(KiroLabelTemplateEditDlgTest, Texts)
{
    EXPECT_EQ(m_dialog.windowTitle(), QStringLiteral("Kiro label templates"));
    const std::tuple<const char*, const char*, const char*> captions[] = {
        {"labelTemplateName", "Template name", "comboTemplate"},
        {"labelLabelName", "Label name", "editLabelName"},
        {"labelLabelDescription", "Label description", "editLabelDescription"},
        {"labelLabelColor", "Label color", "buttonLabelColor"}};
    for (const auto& [label, text, field] : captions) {
        EXPECT_EQ(plainText(widgetIn<QLabel>(m_dialog, label)->text()), text);
        EXPECT_EQ(widgetIn<QLabel>(m_dialog, label)->buddy(), widgetIn<QWidget>(m_dialog, field));
    }
    for (const auto& [button, text] : {std::pair("buttonAddTemplate", "Add new label template"),
                                       std::pair("buttonDelTemplate", "Remove current label template"),
                                       std::pair("buttonLabelColor", "Change label template color")})
        EXPECT_EQ(plainText(widgetIn<QPushButton>(m_dialog, button)->text()), text);
    EXPECT_EQ(widgetIn<QGroupBox>(m_dialog, "groupSettings")->title(),
              QStringLiteral("Current template settings"));
}

TEST_F(KiroLabelTemplateEditDlgTest, MnemonicsLeadToOneField)
{
    QStringList letters = mnemonicsOf(m_dialog);
    EXPECT_GE(letters.size(), 7);
    letters.removeDuplicates();
    EXPECT_EQ(letters, mnemonicsOf(m_dialog));
    EXPECT_EQ(namelessFieldsOf(m_dialog), "");
    box()->setFocus();
    EXPECT_EQ(tabOrderOf(m_dialog), "comboTemplate buttonAddTemplate buttonDelTemplate editLabelName "
                                    "editLabelDescription buttonLabelColor - -");
}

TEST_F(KiroLabelTemplateEditDlgTest, ShowsTheFirstTemplate)
{
    EXPECT_EQ(box()->count(), 3);
    EXPECT_EQ(shown(), First);
}

TEST_F(KiroLabelTemplateEditDlgTest, ChoosingATemplateKeepsWhatWasEnteredForTheOneLeft)
{
    name()->setText(QStringLiteral("n"));
    description()->setPlainText(QStringLiteral("d"));
    answerColor(m_answers, QColor(200, 100, 50));
    clickOn(m_dialog, "buttonLabelColor");
    chooseRow(box(), 2);
    EXPECT_EQ(shown(), Third);
    chooseRow(box(), 0);
    EXPECT_EQ(shown(), "T1=n/d/#c86432");
    EXPECT_EQ(accepted(), std::string("T1=n/d/#c86432 ") + Second + " " + Third);
}

TEST_F(KiroLabelTemplateEditDlgTest, ATemplateThatIsNotThereLeavesTheCurrentOne)
{
    chooseRow(box(), 1);
    ASSERT_TRUE(QMetaObject::invokeMethod(&m_dialog, "on_comboTemplate_activated",
                                          Q_ARG(QString, QStringLiteral("T4"))));
    EXPECT_EQ(shown(), Second);
}

TEST_F(KiroLabelTemplateEditDlgTest, OkStoresTheEdits)
{
    chooseRow(box(), 1);
    name()->setText(QStringLiteral("n"));
    EXPECT_EQ(accepted(), std::string(First) + " T2=n/text 2/#020000 " + Third);
}

TEST_F(KiroLabelTemplateEditDlgTest, CancelKeepsTheGivenTemplates)
{
    name()->setText(QStringLiteral("n"));
    clickOn(m_dialog, "buttonDelTemplate");
    press(m_dialog, QDialogButtonBox::Cancel);
    EXPECT_EQ(m_dialog.result(), int(QDialog::Rejected));
    EXPECT_EQ(textOf(m_dialog.templates()), textOf(numberedTemplates(3)));
}

TEST_F(KiroLabelTemplateEditDlgTest, AddingAppendsAGreenTemplateAndShowsIt)
{
    name()->setText(QStringLiteral("n"));
    answerName(QStringLiteral("new one"));
    clickOn(m_dialog, "buttonAddTemplate");
    EXPECT_EQ(m_answers.seen(), QStringList(QStringLiteral("Kiro label templates|")));
    EXPECT_EQ(shown(), "new one=//#00ff00");
    EXPECT_EQ(box()->currentIndex(), 3);
    EXPECT_EQ(m_dialog.focusWidget(), name());
    EXPECT_EQ(accepted(), std::string("T1=n/text 1/#010000 ") + Second + " " + Third + " new one=//#00ff00");
}

TEST_F(KiroLabelTemplateEditDlgTest, AnEmptyNameAddsNothing)
{
    for (const QString& empty : {QString(), QStringLiteral("  ")}) {
        answerName(empty);
        clickOn(m_dialog, "buttonAddTemplate");
        EXPECT_EQ(box()->count(), 3);
        EXPECT_EQ(shown(), First);
    }
    m_answers.reject();
    clickOn(m_dialog, "buttonAddTemplate");
    EXPECT_EQ(accepted(), textOf(numberedTemplates(3)));
}

TEST_F(KiroLabelTemplateEditDlgTest, ANameInUseWarnsAndChangesNothing)
{
    name()->setText(QStringLiteral("n"));
    answerName(QStringLiteral("T3"));
    m_answers.press(QMessageBox::Ok);
    clickOn(m_dialog, "buttonAddTemplate");
    EXPECT_EQ(m_answers.seen().value(1).toStdString(),
              "Kiro label templates|The label template name \"T3\" already exists!\n"
              "Please use unique template name.");
    EXPECT_EQ(box()->count(), 3);
    EXPECT_EQ(shown(), "T1=n/text 1/#010000");
}

TEST_F(KiroLabelTemplateEditDlgTest, RemovingLeavesTheOtherTemplates)
{
    chooseRow(box(), 1);
    clickOn(m_dialog, "buttonDelTemplate");
    EXPECT_EQ(shown(), Third);
    clickOn(m_dialog, "buttonDelTemplate");
    EXPECT_EQ(shown(), First);
    EXPECT_EQ(accepted(), First);
}

TEST_F(KiroLabelTemplateEditDlgTest, TheLastTemplateCannotBeRemoved)
{
    m_dialog.setTemplates(numberedTemplates(1));
    EXPECT_FALSE(widgetIn<QPushButton>(m_dialog, "buttonDelTemplate")->isEnabled());
    ASSERT_TRUE(QMetaObject::invokeMethod(&m_dialog, "on_buttonDelTemplate_clicked"));
    EXPECT_EQ(shown(), First);
    answerName(QStringLiteral("new"));
    clickOn(m_dialog, "buttonAddTemplate");
    EXPECT_TRUE(widgetIn<QPushButton>(m_dialog, "buttonDelTemplate")->isEnabled());
    clickOn(m_dialog, "buttonDelTemplate");
    EXPECT_FALSE(widgetIn<QPushButton>(m_dialog, "buttonDelTemplate")->isEnabled());
    EXPECT_EQ(accepted(), First);
}

TEST_F(KiroLabelTemplateEditDlgTest, AnEmptyListWaitsForATemplate)
{
    m_dialog.setTemplates({});
    EXPECT_FALSE(box()->isEnabled());
    EXPECT_FALSE(name()->isEnabled());
    EXPECT_EQ(name()->text(), QString());
    answerName(QStringLiteral("T1"));
    clickOn(m_dialog, "buttonAddTemplate");
    EXPECT_TRUE(name()->isEnabled());
    EXPECT_EQ(accepted(), "T1=//#00ff00");
    m_dialog.setTemplates({});
    m_dialog.show();
    EXPECT_EQ(accepted(), "");
}

TEST_F(KiroLabelTemplateEditDlgTest, LeavingTheColorDialogChangesNothing)
{
    m_answers.reject();
    clickOn(m_dialog, "buttonLabelColor");
    EXPECT_EQ(m_answers.seen(), QStringList(QStringLiteral("Label color|")));
    EXPECT_EQ(shown(), First);
}
