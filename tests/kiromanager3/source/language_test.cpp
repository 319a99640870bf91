#include "language.h"

#include "support/recordingbuilder.h"
#include "support/translationbuilder.h"
#include "windows/messagerecorder.h"

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QLibraryInfo>

#include <gtest/gtest.h>

namespace
{

class LanguageTest : public testing::Test
{
protected:
    std::string settings() const { return fileBytes(m_settings.toLocal8Bit().constData()); }
    void write(const std::string& text) { m_folder.write(QStringLiteral("k.ini"), text); }

    TestFolder m_folder;
    const QString m_settings = m_folder.path(QStringLiteral("k.ini"));
};

struct LocaleCase
{
    const char* locale;
    const char* language;
};

class FirstStartTest : public LanguageTest, public testing::WithParamInterface<LocaleCase>
{
protected:
    void TearDown() override { QLocale::setDefault(m_before); }

private:
    QLocale m_before;
};

/// Two folders in which translations can lie, and one file to load.
class TranslationFileTest : public testing::Test
{
protected:
    bool load(bool tellsFolder = false)
    {
        const TranslationFile file{QStringLiteral("kiro_pl"), folder("fallback"), tellsFolder};
        return file.loadInto(m_translator, folder("application"));
    }
    QString folder(const char* name) const
    {
        const QString path = m_folder.path(QString::fromLatin1(name));
        QDir().mkpath(path);
        return path;
    }
    void put(const char* folderName, const std::string& bytes) const
    {
        folder(folderName);
        m_folder.write(QString::fromLatin1(folderName) + QStringLiteral("/kiro_pl.qm"), bytes);
    }
    std::string hello() const { return m_translator.translate("Any", "Hello").toStdString(); }

    static std::string helloAs(const char* text)
    {
        return translationBytes({{"Hello", QString::fromUtf8(text)}});
    }

    const QString m_first =
        QStringLiteral("Translator is unable to load translation file kiro_pl - falling back to local disk");
    const QString m_second = QStringLiteral("Translator is unable to load translation file kiro_pl - "
                                            "probably there is no translation file");
    TestFolder m_folder;
    MessageRecorder m_messages;
    QTranslator m_translator;
};

} // namespace

TEST_P(FirstStartTest, TakesTheLanguageOfTheDefaultLocalesCountryAndStoresIt)
{
    QLocale::setDefault(QLocale(QString::fromLatin1(GetParam().locale)));
    EXPECT_EQ(settleLanguage(m_settings).toStdString(), GetParam().language);
    EXPECT_EQ(settings(), std::string("[GENERAL]\nlanguage=") + GetParam().language + "\n\n");
}

INSTANTIATE_TEST_SUITE_P(Locales, FirstStartTest,
                         testing::Values(LocaleCase{"pl_PL", "Polski"}, LocaleCase{"en_US", "English"},
                                         LocaleCase{"de_DE", "English"}, LocaleCase{"lt_LT", "English"},
                                         LocaleCase{"C", "English"}),
                         [](const auto& row) { return std::string(row.param.locale); });

TEST_F(LanguageTest, LaterStartsKeepItWhateverTheCountry)
{
    EXPECT_EQ(settleLanguage(m_settings, QLocale::Poland), QStringLiteral("Polski"));
    EXPECT_EQ(settleLanguage(m_settings, QLocale::UnitedStates), QStringLiteral("Polski"));
    EXPECT_EQ(settings(), "[GENERAL]\nlanguage=Polski\n\n");
}

TEST_F(LanguageTest, StoredOneIsNotWrittenAgain)
{
    write("[GENERAL]\nlanguage=English\n");
    EXPECT_EQ(settleLanguage(m_settings, QLocale::Poland), QStringLiteral("English"));
    EXPECT_EQ(settings(), "[GENERAL]\nlanguage=English\n");
}

TEST_F(LanguageTest, EmptyOneIsSettledAnew)
{
    write("[GENERAL]\nlanguage=\n");
    EXPECT_EQ(settleLanguage(m_settings, QLocale::Poland), QStringLiteral("Polski"));
    EXPECT_EQ(settings(), "[GENERAL]\nlanguage=Polski\n\n");
}

TEST_F(LanguageTest, UnknownOneStaysAsItIs)
{
    write("[GENERAL]\nlanguage=Deutsch\n");
    EXPECT_EQ(settleLanguage(m_settings, QLocale::Poland), QStringLiteral("Deutsch"));
}

TEST_F(LanguageTest, StoringKeepsAllOtherSettings)
{
    write("[GENERAL]\nupdate_server=http://example.org\nlanguage=Polski\n\n[MAIN]\nwin_pos=1,2\n");
    EXPECT_TRUE(storeLanguage(m_settings, QStringLiteral("English")));
    EXPECT_EQ(settings(),
              "[GENERAL]\nupdate_server=http://example.org\nlanguage=English\n\n[MAIN]\nwin_pos=1,2\n\n");
}

TEST_F(LanguageTest, SettingsThatCannotBeWrittenDoNotMatter)
{
    const QString nowhere = m_folder.path(QStringLiteral("missing/k.ini"));
    EXPECT_EQ(settleLanguage(nowhere, QLocale::Poland), QStringLiteral("Polski"));
    EXPECT_FALSE(storeLanguage(nowhere, QStringLiteral("English")));
    EXPECT_FALSE(QFile::exists(nowhere));
}

TEST_F(TranslationFileTest, OfTheApplicationsFolderComesFirst)
{
    put("application", helloAs("Cześć"));
    put("fallback", helloAs("Witaj"));
    EXPECT_TRUE(load());
    EXPECT_EQ(hello(), "Cześć");
    EXPECT_EQ(MessageRecorder::texts(), QStringList());
}

TEST_F(TranslationFileTest, OfTheFallbackFolderIsTakenWithOneMessage)
{
    put("fallback", helloAs("Witaj"));
    EXPECT_TRUE(load());
    EXPECT_EQ(hello(), "Witaj");
    EXPECT_EQ(MessageRecorder::texts(), QStringList(m_first));
}

TEST_F(TranslationFileTest, MessageAboutQtsOwnNamesTheFolder)
{
    put("fallback", helloAs("Witaj"));
    EXPECT_TRUE(load(true));
    EXPECT_EQ(MessageRecorder::texts(),
              QStringList(m_first + QStringLiteral(" (%1)").arg(folder("fallback"))));
}

TEST_F(TranslationFileTest, MissingInBothFoldersGivesTwoMessages)
{
    EXPECT_FALSE(load());
    EXPECT_EQ(hello(), "");
    EXPECT_EQ(MessageRecorder::texts(), QStringList({m_first, m_second}));
}

TEST_F(TranslationFileTest, BrokenOrEmptyOneIsLikeAMissingOne)
{
    put("application", "");
    put("fallback", std::string(1000, 'x'));
    EXPECT_FALSE(load());
    EXPECT_EQ(MessageRecorder::texts(), QStringList({m_first, m_second}));
}

TEST_F(TranslationFileTest, FileOfAShorterNameIsNoTranslation)
{
    m_folder.write(QStringLiteral("application.txt"), "");
    folder("application");
    m_folder.write(QStringLiteral("application/kiro.qm"), helloAs("Hej"));
    m_folder.write(QStringLiteral("application/kiro"), helloAs("Hej"));
    EXPECT_FALSE(load());
}

TEST(PolishTranslationFilesTest, AreFourInOrder)
{
    const auto files = polishTranslationFiles();
    const char* const names[] = {"qt_pl", "kiromanager_pl", "kiroshare3_pl", "kiroshare4_pl"};
    for (std::size_t i = 0; i < files.size(); ++i) {
        EXPECT_EQ(files[i].name.toStdString(), names[i]);
        EXPECT_EQ(files[i].tellsFolder, i == 0);
    }
    EXPECT_EQ(files[0].fallbackFolder, QLibraryInfo::location(QLibraryInfo::TranslationsPath));
    for (std::size_t i = 1; i < files.size(); ++i)
        EXPECT_TRUE(files[i].fallbackFolder.endsWith(QStringLiteral("/share/kiromanager/translations")));
}

TEST(TranslatorsTest, EnglishNeedsNoFiles)
{
    const MessageRecorder messages;
    const Translators translators(QStringLiteral("English"));
    EXPECT_EQ(MessageRecorder::texts(), QStringList());
}
