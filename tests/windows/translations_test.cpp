#include <QDir>
#include <QFile>
#include <QProcess>
#include <QTemporaryDir>
#include <QTranslator>
#include <QXmlStreamReader>

#include <gtest/gtest.h>

namespace
{

/// A file of translations and the folders whose texts it holds.
struct TranslationSource
{
    const char* name;
    QStringList folders;
};

const TranslationSource Sources[] = {
    {"kiromanager_pl", {QStringLiteral("kiromanager3")}},
    {"kiroshare3_pl", {QStringLiteral("kiroshare/source")}},
    {"kiroshare4_pl", {QStringLiteral("kiroshare/source4"), QStringLiteral("kiroshare/graphkit4")}}};

struct Message
{
    QString source;
    QString translation;
    bool finished = true;
};

QList<Message> messagesIn(const QString& path)
{
    QFile file(path);
    EXPECT_TRUE(file.open(QIODevice::ReadOnly)) << qPrintable(path);
    QXmlStreamReader xml(&file);
    QList<Message> messages;
    while (!xml.atEnd()) {
        if (xml.readNext() != QXmlStreamReader::StartElement)
            continue;
        if (xml.name() == QLatin1String("message"))
            messages.append(Message());
        else if (xml.name() == QLatin1String("source"))
            messages.last().source = xml.readElementText();
        else if (xml.name() == QLatin1String("translation")) {
            messages.last().finished = !xml.attributes().hasAttribute(QStringLiteral("type"));
            messages.last().translation = xml.readElementText();
        }
    }
    EXPECT_FALSE(xml.hasError()) << qPrintable(xml.errorString());
    return messages;
}

QString inTree(const QString& path)
{
    return QStringLiteral(KIRO_SOURCE_FOLDER "/") + path;
}

QString translationFile(const TranslationSource& source)
{
    return inTree(QStringLiteral("kiromanager3/translations/%1.ts").arg(QLatin1String(source.name)));
}

/// The placeholders, mnemonic marks and line feeds of a text, which a translation must keep.
QStringList marks(const QString& text)
{
    QStringList found;
    for (int i = 0; i + 1 < text.size(); ++i) {
        if (text[i] == QLatin1Char('%') && text[i + 1].isDigit())
            found << text.mid(i, 2);
    }
    found.sort();
    found << QStringLiteral("%1 line feeds").arg(text.count(QLatin1Char('\n')));
    found << QStringLiteral("%1 mnemonics").arg(text.count(QLatin1Char('&')));
    return found;
}

class Translations : public testing::TestWithParam<TranslationSource>
{
};

INSTANTIATE_TEST_SUITE_P(Polish, Translations, testing::ValuesIn(Sources),
                         [](const auto& row) { return std::string(row.param.name); });

} // namespace

TEST_P(Translations, HaveNoUnfinishedEntries)
{
    for (const Message& message : messagesIn(translationFile(GetParam())))
        EXPECT_TRUE(message.finished && !message.translation.isEmpty()) << qPrintable(message.source);
}

TEST_P(Translations, KeepPlaceholdersMnemonicsAndLines)
{
    for (const Message& message : messagesIn(translationFile(GetParam())))
        EXPECT_EQ(marks(message.translation), marks(message.source)) << qPrintable(message.source);
}

// The texts of the sources are taken out once more: a new one would come out unfinished, a dropped one
// vanish.
TEST_P(Translations, HoldJustTheTextsOfTheSources)
{
    const QTemporaryDir folder;
    const QString copy = folder.filePath(QStringLiteral("copy.ts"));
    ASSERT_TRUE(QFile::copy(translationFile(GetParam()), copy));
    QStringList arguments{QStringLiteral("-silent"), QStringLiteral("-locations"), QStringLiteral("none"),
                          QStringLiteral("-no-obsolete")};
    for (const QString& name : GetParam().folders) {
        if (QDir(inTree(name)).exists())
            arguments << inTree(name);
    }
    QProcess lupdate;
    lupdate.start(QStringLiteral(LUPDATE), arguments << QStringLiteral("-ts") << copy);
    ASSERT_TRUE(lupdate.waitForFinished());
    EXPECT_EQ(lupdate.exitCode(), 0);
    EXPECT_EQ(lupdate.readAllStandardError().toStdString(), "");
    const QList<Message> now = messagesIn(copy);
    for (const Message& message : now)
        EXPECT_TRUE(message.finished) << "new: " << qPrintable(message.source);
    EXPECT_EQ(now.size(), messagesIn(translationFile(GetParam())).size());
}

TEST_P(Translations, StandCompiledBesideTheProgram)
{
    QTranslator translator;
    const QString name = QString::fromLatin1(GetParam().name);
    EXPECT_TRUE(QFile::exists(QStringLiteral(PROGRAM_FOLDER "/") + name + QStringLiteral(".qm")));
    EXPECT_TRUE(translator.load(name, QStringLiteral(PROGRAM_FOLDER)));
}

// Qt's own Polish calls this key after the home folder.
TEST(PolishKeys, HomeIsNamedAsOnTheKeyboard)
{
    QTranslator translator;
    ASSERT_TRUE(translator.load(QStringLiteral("kiromanager_pl"), QStringLiteral(PROGRAM_FOLDER)));
    EXPECT_EQ(translator.translate("QShortcut", "Home"), QStringLiteral("Home"));
}
