#include "language.h"

#include "inistore.h"
#include "settingsedit.h"

#include <QCoreApplication>
#include <QDebug>
#include <QFileInfo>
#include <QLibraryInfo>

namespace
{

const QLatin1String Section("GENERAL");
const QLatin1String Key("language");

bool loadFrom(const QString& folder, const QString& name, QTranslator& translator)
{
    // QTranslator would also try shorter names, down to that of the program itself.
    const QString path = folder + QLatin1Char('/') + name + QStringLiteral(".qm");
    return QFileInfo(path).isFile() && translator.load(path);
}

} // namespace

QString settleLanguage(const QString& configPath, QLocale::Country country)
{
    IniStore store;
    store.load(configPath);
    QString language = store.value(Section, Key, QString());
    if (language.isEmpty()) {
        language = country == QLocale::Poland ? Language::polish() : Language::english();
        storeLanguage(configPath, language);
    }
    return language;
}

bool storeLanguage(const QString& configPath, const QString& language)
{
    return editSection(configPath, Section, [&](IniStore& store) { store.setValue(Key, language); });
}

bool TranslationFile::loadInto(QTranslator& translator, const QString& applicationFolder) const
{
    if (loadFrom(applicationFolder, name, translator))
        return true;
    const QString failure = QStringLiteral("Translator is unable to load translation file ") + name;
    const QString folder = tellsFolder ? QStringLiteral(" (%1)").arg(fallbackFolder) : QString();
    qDebug("%s - falling back to local disk%s", qUtf8Printable(failure), qUtf8Printable(folder));
    if (loadFrom(fallbackFolder, name, translator))
        return true;
    qDebug("%s - probably there is no translation file", qUtf8Printable(failure));
    return false;
}

std::array<TranslationFile, 4> polishTranslationFiles()
{
    const QString qtFolder = QLibraryInfo::location(QLibraryInfo::TranslationsPath);
    const QString ownFolder = QStringLiteral(KIRO_TRANSLATIONS_FOLDER);
    return {{{QStringLiteral("qt_pl"), qtFolder, true},
             {QStringLiteral("kiromanager_pl"), ownFolder, false},
             {QStringLiteral("kiroshare3_pl"), ownFolder, false},
             {QStringLiteral("kiroshare4_pl"), ownFolder, false}}};
}

Translators::Translators(const QString& language)
{
    if (language == Language::polish()) {
        const std::array<TranslationFile, 4> files = polishTranslationFiles();
        for (std::size_t i = 0; i < files.size(); ++i)
            files[i].loadInto(m_translators[i], QCoreApplication::applicationDirPath());
    }
    for (QTranslator& translator : m_translators)
        QCoreApplication::installTranslator(&translator);
}
