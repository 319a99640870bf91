#pragma once

#include <QLocale>
#include <QString>
#include <QTranslator>

#include <array>

/// The languages of the interface, by the names that the settings and the choice of language have for them.
namespace Language
{
inline QString polish()
{
    return QStringLiteral("Polski");
}
inline QString english()
{
    return QStringLiteral("English");
}
} // namespace Language

/// The language that the settings file at `configPath` names. Where it names none, Polish for Poland and
/// English for every other country, which is stored at once so that later starts stay with it.
QString settleLanguage(const QString& configPath, QLocale::Country country = QLocale().country());

/// Stores the language in the settings file. False if that fails.
bool storeLanguage(const QString& configPath, const QString& language);

/// A file of translated texts.
struct TranslationFile
{
    QString name;           ///< without folder and ".qm"
    QString fallbackFolder; ///< looked into if the application's folder has none that can be used
    bool tellsFolder;       ///< the message about the fallback names the folder

    /// Loads it. What fails is told in debug messages; false if there is no usable file in either folder.
    bool loadInto(QTranslator& translator, const QString& applicationFolder) const;
};

/// The files that make the interface Polish, in the order of loading: Qt's, then the program's.
std::array<TranslationFile, 4> polishTranslationFiles();

/// The translators of the running program; its texts are translated while an object of this class lives.
/// There must be an application object from before to after.
class Translators
{
public:
    /// Loads the files of `language`, English has none, and installs all translators, loaded or not.
    explicit Translators(const QString& language);

private:
    Q_DISABLE_COPY(Translators)
    std::array<QTranslator, 4> m_translators;
};
