#include "launcherfixture.h"

#include "windows/modalanswers.h"

#include <QComboBox>
#include <QInputDialog>
#include <QLabel>
#include <QLocale>

namespace
{

/// What the dialog shows, and what is done there.
class ChangeLanguageTest : public LauncherFixture
{
protected:
    /// Opens the dialog on settings with `present` and chooses the entry, or leaves for an empty one.
    void change(const std::string& present, const char* choice)
    {
        if (!present.empty())
            writeSettings("[GENERAL]\nlanguage=" + present + "\n");
        m_answers.answer([this, choice](QWidget* window) {
            auto* const dialog = qobject_cast<QInputDialog*>(window);
            ASSERT_NE(dialog, nullptr);
            m_title = dialog->windowTitle();
            m_label = dialog->labelText();
            m_items = dialog->comboBoxItems();
            m_selected = dialog->textValue();
            m_editable = dialog->isComboBoxEditable();
            if (*choice)
                dialog->setTextValue(QString::fromLatin1(choice));
            *choice ? dialog->accept() : dialog->reject();
        });
        if (*choice && choice != present)
            m_answers.press(QMessageBox::Ok);
        m_window->onChangeLanguage();
    }

    QString m_title;
    QString m_label;
    QStringList m_items;
    QString m_selected;
    bool m_editable = true;
    ModalAnswers m_answers;
};

const QString Note =
    QStringLiteral("KiroManager 3.12|Language change will take place after application restart");
const QString Question = QStringLiteral("KiroManager 3.12|");

} // namespace

TEST_F(ChangeLanguageTest, DialogOffersBothAndSelectsThePresentOne)
{
    change("English", "");
    EXPECT_EQ(m_title, QStringLiteral("KiroManager 3.12"));
    EXPECT_EQ(m_label, QStringLiteral("Select application language"));
    EXPECT_EQ(m_items, QStringList({QStringLiteral("Polski"), QStringLiteral("English")}));
    EXPECT_EQ(m_selected, QStringLiteral("English"));
    EXPECT_FALSE(m_editable);
}

TEST_F(ChangeLanguageTest, AnythingButEnglishSelectsPolish)
{
    change("Polski", "");
    EXPECT_EQ(m_selected, QStringLiteral("Polski"));
    change("Deutsch", "");
    EXPECT_EQ(m_selected, QStringLiteral("Polski"));
}

TEST_F(ChangeLanguageTest, ToPolishIsStoredAndNoted)
{
    change("English", "Polski");
    EXPECT_EQ(settings(), "[GENERAL]\nlanguage=Polski\n\n");
    EXPECT_EQ(m_answers.seen(), QStringList({Question, Note}));
    EXPECT_EQ(m_window->windowTitle(), QStringLiteral("KiroManager 3.12")) << "nothing changes yet";
}

TEST_F(ChangeLanguageTest, ToEnglishIsStoredAndNoted)
{
    change("Polski", "English");
    EXPECT_EQ(settings(), "[GENERAL]\nlanguage=English\n\n");
    EXPECT_EQ(m_answers.seen(), QStringList({Question, Note}));
}

TEST_F(ChangeLanguageTest, UnknownOneCanBeReplacedByTheOneSelected)
{
    change("Deutsch", "Polski");
    EXPECT_EQ(settings(), "[GENERAL]\nlanguage=Polski\n\n");
    EXPECT_EQ(m_answers.seen(), QStringList({Question, Note}));
}

TEST_F(ChangeLanguageTest, MissingOneIsSettledByTheCountryAndStoredAtOnce)
{
    const QLocale before;
    QLocale::setDefault(QLocale(QStringLiteral("pl_PL")));
    change("", "");
    QLocale::setDefault(before);
    EXPECT_EQ(m_selected, QStringLiteral("Polski"));
    EXPECT_EQ(settings(), "[GENERAL]\nlanguage=Polski\n\n");
}

TEST_F(ChangeLanguageTest, SameChoiceAndCancelChangeNothing)
{
    change("English", "English");
    EXPECT_EQ(settings(), "[GENERAL]\nlanguage=English\n");
    change("English", "");
    EXPECT_EQ(settings(), "[GENERAL]\nlanguage=English\n");
    EXPECT_EQ(m_answers.seen(), QStringList({Question, Question})) << "no note";
}
