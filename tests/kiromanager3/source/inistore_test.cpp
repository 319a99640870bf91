#include "inistore.h"

#include "filesizelimit.h"
#include "recordingbuilder.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QLocale>

#include <gtest/gtest.h>

#include <sys/stat.h>
#include <unistd.h>

namespace
{

const QString S = QStringLiteral("s");
const QString K = QStringLiteral("k");

IniStore parsed(const char* text)
{
    IniStore store;
    store.parse(QString::fromUtf8(text));
    return store;
}

/// A store with the section "s" and in it one key "k".
IniStore holding(const QString& value)
{
    IniStore store;
    store.setSection(S);
    store.setValue(K, value);
    return store;
}

IniStore holding(const char* value)
{
    return holding(QString::fromLatin1(value));
}

class IniStoreFile : public testing::Test
{
protected:
    QString write(const std::string& bytes) const
    {
        return m_folder.write(QStringLiteral("settings"), bytes).toQString();
    }
    std::string content() const { return fileBytes(KiroString(path())); }
    QString path() const { return m_folder.path(QStringLiteral("settings")); }
    QStringList filesInFolder() const
    {
        return QDir(m_folder.path(QString())).entryList(QDir::Files | QDir::Hidden | QDir::System);
    }

    TestFolder m_folder;
};

} // namespace

// Text form

TEST(IniStoreParse, TheFirstEqualsSignSplitsTheLine)
{
    EXPECT_EQ(parsed("[s]\nkey=a=b\n").value(S, QStringLiteral("key"), QString()), QStringLiteral("a=b"));
}

TEST(IniStoreParse, BlanksStayInKeysAndValues)
{
    const IniStore store = parsed("[s]\n key = a \n");
    EXPECT_EQ(store.value(S, QStringLiteral(" key "), QString()), QStringLiteral(" a "));
    EXPECT_FALSE(store.hasKey(S, QStringLiteral("key")));
}

TEST(IniStoreParse, LinesBeforeTheFirstSectionAreDropped)
{
    EXPECT_EQ(parsed("x=1\n[s]\ny=2\n").toString(), QStringLiteral("[s]\ny=2\n\n"));
}

TEST(IniStoreParse, TheLastBracketEndsASectionName)
{
    EXPECT_EQ(parsed("[a]b]\n").sections(), QStringList{QStringLiteral("a]b")});
    EXPECT_EQ(parsed("[a]b\n").sections(), QStringList{QStringLiteral("a")});
}

TEST(IniStoreParse, SectionsWithoutNameOrEndAreSkippedAndTheOneBeforeGoesOn)
{
    EXPECT_EQ(parsed("[s]\n[]\nx=1\n[open=2\ny=3\n").toString(), QStringLiteral("[s]\nx=1\ny=3\n\n"));
}

TEST(IniStoreParse, SectionThatComesAgainIsContinued)
{
    EXPECT_EQ(parsed("[s]\na=1\n[t]\nb=2\n[s]\nc=3\n").toString(),
              QStringLiteral("[s]\na=1\nc=3\n\n[t]\nb=2\n\n"));
}

TEST(IniStoreParse, LinesWithoutEqualsSignAndEmptyLinesAreSkipped)
{
    EXPECT_EQ(parsed("[s]\n\nno value\n; note\na=1\n\n").toString(), QStringLiteral("[s]\na=1\n\n"));
}

TEST(IniStoreParse, OfARepeatedKeyTheFirstCountsAndBothStay)
{
    IniStore store = parsed("[s]\nk=1\nk=2\n");
    EXPECT_EQ(store.value(S, K, QString()), QStringLiteral("1"));
    EXPECT_TRUE(store.setValue(S, K, QStringLiteral("3")));
    EXPECT_EQ(store.toString(), QStringLiteral("[s]\nk=3\nk=2\n\n"));
}

TEST(IniStoreParse, EmptyKeysAndValuesAreKept)
{
    const IniStore store = parsed("[s]\n=x\nk=\n");
    EXPECT_EQ(store.value(S, QString(), QStringLiteral("fallback")), QStringLiteral("x"));
    EXPECT_EQ(store.value(S, K, QStringLiteral("fallback")), QString());
}

TEST(IniStoreParse, LastLineWithoutLineFeedIsNotRead)
{
    EXPECT_EQ(parsed("[s]\na=1\nb=2").toString(), QStringLiteral("[s]\na=1\n\n"));
    EXPECT_EQ(parsed("[s]").toString(), QString());
}

TEST(IniStoreParse, CarriageReturnsArePartOfAValue)
{
    EXPECT_EQ(parsed("[s]\nk=v\r\n").value(S, K, QString()), QStringLiteral("v\r"));
}

TEST(IniStoreParse, ReplacesWhatWasThereAndLeavesNoSectionCurrent)
{
    IniStore store = holding("old");
    store.parse(QStringLiteral("[t]\nk=new\n"));
    EXPECT_EQ(store.sections(), QStringList{QStringLiteral("t")});
    EXPECT_EQ(store.currentSection(), QString());
    EXPECT_FALSE(store.hasKey(K));
    EXPECT_FALSE(store.setValue(K, QStringLiteral("x")));
}

TEST(IniStoreParse, SurvivesZeroCharactersAndAVeryLongLine)
{
    IniStore store;
    QString text = QStringLiteral("[s]\nk=a%b\n");
    text.replace(QLatin1Char('%'), QChar(0));
    store.parse(text);
    EXPECT_EQ(store.value(S, K, QString()), QStringLiteral("a") + QChar(0) + QStringLiteral("b"));

    const QString longValue(100 * 1000 * 1000, QLatin1Char('='));
    store.parse(QStringLiteral("[s]\nk=") + longValue + QLatin1Char('\n'));
    EXPECT_EQ(store.value(S, K, QString()).size(), longValue.size());
    EXPECT_EQ(store.penValue(S, K, QPen(Qt::red)).color(), QColor(Qt::red));
}

TEST(IniStoreText, SectionsAreSortedByCodeUnit)
{
    IniStore store;
    for (const char* name : {"b", "B", "_", "1", "\xc5\xbb"})
        store.setSection(QString::fromUtf8(name));
    EXPECT_EQ(store.toString(), QString::fromUtf8("[1]\n\n[B]\n\n[_]\n\n[b]\n\n[\xc5\xbb]\n\n"));
}

// Sections and raw values

TEST(IniStoreSections, SetSectionMakesItOnceAndMakesItCurrent)
{
    IniStore store = holding("v");
    store.setSection(QStringLiteral("t"));
    EXPECT_EQ(store.currentSection(), QStringLiteral("t"));
    EXPECT_FALSE(store.hasKey(K));
    store.setSection(S);
    EXPECT_TRUE(store.hasKey(K));
    EXPECT_EQ(store.sections(), (QStringList{S, QStringLiteral("t")}));
}

TEST(IniStoreSections, RemovingAnAbsentOneIsRefused)
{
    IniStore store = holding("v");
    EXPECT_FALSE(store.removeSection(QStringLiteral("t")));
    EXPECT_EQ(store.toString(), QStringLiteral("[s]\nk=v\n\n"));
}

TEST(IniStoreSections, RemovingAnotherLeavesTheCurrentOne)
{
    IniStore store = holding("v");
    store.setSection(QStringLiteral("t"));
    EXPECT_TRUE(store.removeSection(S));
    EXPECT_FALSE(store.hasSection(S));
    EXPECT_EQ(store.currentSection(), QStringLiteral("t"));
    EXPECT_EQ(store.toString(), QStringLiteral("[t]\n\n"));
}

TEST(IniStoreSections, RemovingTheCurrentOneLeavesANamelessOneThatParsingDrops)
{
    IniStore store = holding("v");
    EXPECT_TRUE(store.removeSection(store.currentSection()));
    EXPECT_EQ(store.currentSection(), QString());
    EXPECT_TRUE(store.setValue(K, QStringLiteral("w")));
    EXPECT_EQ(store.toString(), QStringLiteral("[]\nk=w\n\n"));
    store.parse(store.toString());
    EXPECT_EQ(store.sections(), QStringList());
}

TEST(IniStoreSections, EntriesAreListedInOrder)
{
    const IniStore store = parsed("[s]\nb=1\na=2\nb=3\n");
    const IniStore::Entries expected = {{QStringLiteral("b"), QStringLiteral("1")},
                                        {QStringLiteral("a"), QStringLiteral("2")},
                                        {QStringLiteral("b"), QStringLiteral("3")}};
    EXPECT_EQ(store.entries(S), expected);
    EXPECT_TRUE(store.entries(QStringLiteral("t")).empty());
}

TEST(IniStoreValues, SettersToAMissingSectionStoreNothing)
{
    IniStore store;
    EXPECT_FALSE(store.setValue(S, K, QStringLiteral("v")));
    EXPECT_FALSE(store.setInt(S, K, 1));
    EXPECT_FALSE(store.setUInt(S, K, 1));
    EXPECT_FALSE(store.setInt64(S, K, 1));
    EXPECT_FALSE(store.setBool(S, K, true));
    EXPECT_FALSE(store.setDouble(S, K, 1));
    EXPECT_FALSE(store.setColor(S, K, Qt::red));
    EXPECT_FALSE(store.setFont(S, K, QFont()));
    EXPECT_FALSE(store.setPen(S, K, QPen()));
    EXPECT_FALSE(store.setPoint(S, K, {1, 2}));
    EXPECT_FALSE(store.setSize(S, K, {1, 2}));
    EXPECT_EQ(store.toString(), QString());
}

TEST(IniStoreValues, TextsWithALineFeedAreRefusedSinceTheyWouldBeReadAsOtherLines)
{
    IniStore store = holding("old");
    const QString folder = QStringLiteral("/tmp/a\n[GENERAL]\nupdate_server=elsewhere");
    EXPECT_FALSE(store.setValue(S, K, folder));
    EXPECT_FALSE(store.setValue(S, folder, QStringLiteral("v")));
    store.setSection(folder);
    EXPECT_FALSE(store.setValue(K, QStringLiteral("v")));
    EXPECT_EQ(store.toString(), QStringLiteral("[s]\nk=old\n\n"));
}

TEST(IniStoreValues, AbsentKeysGiveTheFallbackOfEveryType)
{
    for (const IniStore& store : {IniStore(), parsed("[s]\nother=1\n")}) {
        EXPECT_EQ(store.value(S, K, QStringLiteral("f")), QStringLiteral("f"));
        EXPECT_EQ(store.intValue(S, K, -7), -7);
        EXPECT_EQ(store.uintValue(S, K, 7u), 7u);
        EXPECT_EQ(store.int64Value(S, K, qint64(1) << 40), qint64(1) << 40);
        EXPECT_TRUE(store.boolValue(S, K, true));
        EXPECT_EQ(store.doubleValue(S, K, 0.5), 0.5);
        EXPECT_EQ(store.colorValue(S, K, Qt::green), QColor(Qt::green));
        EXPECT_EQ(store.fontValue(S, K, QFont(QStringLiteral("Mono"), 17)),
                  QFont(QStringLiteral("Mono"), 17));
        EXPECT_EQ(store.penValue(S, K, QPen(Qt::green)), QPen(Qt::green));
        EXPECT_EQ(store.pointValue(S, K, {3, 4}), QPoint(3, 4));
        EXPECT_EQ(store.sizeValue(S, K, {3, 4}), QSize(3, 4));
    }
}

TEST(IniStoreValues, FormsWithoutSectionUseTheCurrentOne)
{
    IniStore store;
    store.setSection(S);
    const auto key = [](const char* name) { return QString::fromLatin1(name); };
    const QFont font(QStringLiteral("Mono"), 17);
    EXPECT_TRUE(store.setInt(key("int"), -5) && store.setUInt(key("uint"), 5) &&
                store.setInt64(key("long"), 6));
    EXPECT_TRUE(store.setBool(key("bool"), true) && store.setDouble(key("double"), 0.5));
    EXPECT_TRUE(store.setColor(key("color"), Qt::blue) && store.setFont(key("font"), font));
    EXPECT_TRUE(store.setPen(key("pen"), QPen(Qt::blue)) && store.setPoint(key("point"), {1, 2}));
    EXPECT_TRUE(store.setSize(key("size"), {3, 4}) && store.setValue(key("text"), key("t")));
    EXPECT_EQ(store.entries(S).size(), 11u);
    EXPECT_EQ(store.intValue(key("int"), 0), -5);
    EXPECT_EQ(store.uintValue(key("uint"), 0), 5u);
    EXPECT_EQ(store.int64Value(key("long"), 0), 6);
    EXPECT_EQ(store.boolValue(key("bool"), false), true);
    EXPECT_EQ(store.doubleValue(key("double"), 0), 0.5);
    EXPECT_EQ(store.colorValue(key("color"), Qt::red), QColor(Qt::blue));
    EXPECT_EQ(store.fontValue(key("font"), QFont()), font);
    EXPECT_EQ(store.penValue(key("pen"), QPen()).color(), QColor(Qt::blue));
    EXPECT_EQ(store.pointValue(key("point"), {}), QPoint(1, 2));
    EXPECT_EQ(store.sizeValue(key("size"), {}), QSize(3, 4));
    EXPECT_EQ(store.value(key("text"), QString()), QStringLiteral("t"));
}

// Written forms

TEST(IniStoreWritten, NumbersAndFlags)
{
    IniStore store;
    store.setSection(S);
    store.setInt(QStringLiteral("int"), -2147483647 - 1);
    store.setUInt(QStringLiteral("uint"), 4294967295u);
    store.setInt64(QStringLiteral("long"), -9223372036854775807LL - 1);
    store.setBool(QStringLiteral("on"), true);
    store.setBool(QStringLiteral("off"), false);
    EXPECT_EQ(store.toString(),
              QStringLiteral("[s]\nint=-2147483648\nuint=4294967295\nlong=-9223372036854775808\n"
                             "on=1\noff=0\n\n"));
}

TEST(IniStoreWritten, DoublesHaveTenDecimalsInEveryLocale)
{
    const QLocale before;
    QLocale::setDefault(QLocale(QLocale::Polish));
    IniStore store = holding("");
    store.setDouble(K, 0.1);
    QLocale::setDefault(before);
    EXPECT_EQ(store.value(K, QString()), QStringLiteral("0.1000000000"));
    store.setDouble(K, -1234567.0);
    EXPECT_EQ(store.value(K, QString()), QStringLiteral("-1234567.0000000000"));
}

TEST(IniStoreWritten, ColoursPensPointsAndSizes)
{
    IniStore store;
    store.setSection(S);
    store.setColor(QStringLiteral("color"), QColor(1, 22, 255, 100));
    store.setPen(QStringLiteral("pen"), QPen(QBrush(QColor(255, 0, 7)), 3, Qt::DashDotLine));
    store.setPoint(QStringLiteral("point"), {-3, 4});
    store.setSize(QStringLiteral("size"), {640, 480});
    EXPECT_EQ(store.toString(),
              QStringLiteral("[s]\ncolor=1,22,255\npen=255,0,7,3,4\npoint=-3,4\nsize=640,480\n\n"));
}

TEST(IniStoreWritten, FontsAreTextsOfQFont)
{
    IniStore store = holding("");
    QFont font(QStringLiteral("DejaVu Sans"), 11, QFont::Bold, true);
    font.setUnderline(true);
    store.setFont(K, font);
    EXPECT_EQ(store.value(K, QString()), QStringLiteral("DejaVu Sans,11,-1,5,75,1,1,0,0,0"));
    EXPECT_EQ(store.fontValue(K, QFont()), font);
}

// Reading

TEST(IniStoreRead, NumbersThatAreNoneAreZero)
{
    for (const char* text : {"x", "", "1.5", "0x10", "99999999999999999999"}) {
        EXPECT_EQ(holding(text).intValue(S, K, 7), 0) << text;
        EXPECT_EQ(holding(text).uintValue(S, K, 7), 0u) << text;
        EXPECT_EQ(holding(text).int64Value(S, K, 7), 0) << text;
        EXPECT_FALSE(holding(text).boolValue(S, K, true)) << text;
    }
    EXPECT_EQ(holding("1,5").doubleValue(S, K, 7), 0.0);
    EXPECT_EQ(holding("-7").uintValue(S, K, 7), 0u);
}

TEST(IniStoreRead, EveryNumberButZeroIsTrue)
{
    EXPECT_TRUE(holding("2").boolValue(S, K, false));
    EXPECT_TRUE(holding("-1").boolValue(S, K, false));
    EXPECT_FALSE(holding("0").boolValue(S, K, true));
    EXPECT_FALSE(holding("true").boolValue(S, K, true));
}

TEST(IniStoreRead, NumberWithoutCommaIsAnOlderColour)
{
    EXPECT_EQ(holding("16711680").colorValue(S, K, Qt::blue), QColor(Qt::red));
    EXPECT_EQ(holding("4294901760").colorValue(S, K, Qt::blue), QColor(Qt::red)) << "alpha is dropped";
    EXPECT_EQ(holding("255").colorValue(S, K, Qt::red), QColor(Qt::blue));
}

TEST(IniStoreRead, BadColoursGiveTheFallback)
{
    for (const char* text : {"", "1,2", "1,2,3,4", "1,x,3", "1,2,", "256,0,0", "0,-1,0", "0,0,99999999999",
                             "red", "-1", "4294967296"})
        EXPECT_EQ(holding(text).colorValue(S, K, QColor(9, 8, 7)), QColor(9, 8, 7)) << text;
}

TEST(IniStoreRead, PensHaveSolidBrushSquareCapAndBevelJoin)
{
    const QPen pen = holding("255,0,7,3,4").penValue(S, K, QPen(Qt::black, 1, Qt::SolidLine, Qt::RoundCap));
    EXPECT_EQ(pen, QPen(QBrush(QColor(255, 0, 7), Qt::SolidPattern), 3, Qt::DashDotLine, Qt::SquareCap,
                        Qt::BevelJoin));
}

TEST(IniStoreRead, BadPensGiveTheFallback)
{
    const QPen fallback(QColor(9, 8, 7), 5);
    for (const char* text : {"", "255,0,0,2", "1,2,3,4,5,6", "1,2,x,4,5", "256,0,0,1,1", "0,0,0,-1,1",
                             "0,0,0,1,7", "0,0,0,1,-1", ",,,,"})
        EXPECT_EQ(holding(text).penValue(S, K, fallback), fallback) << text;
}

TEST(IniStoreRead, BadPointsAndSizesGiveTheFallback)
{
    for (const char* text : {"", "1", "1,2,3", "x,y", ",", "1,", "1.5,2", "1,99999999999"}) {
        EXPECT_EQ(holding(text).pointValue(S, K, {11, 12}), QPoint(11, 12)) << text;
        EXPECT_EQ(holding(text).sizeValue(S, K, {13, 14}), QSize(13, 14)) << text;
    }
}

TEST(IniStoreRead, BadFontsGiveTheFallback)
{
    const QFont fallback(QStringLiteral("Mono"), 17);
    for (const char* text : {"", "a,1,2", ",11,-1,5,75,1,1,0,0,0"})
        EXPECT_EQ(holding(text).fontValue(S, K, fallback), fallback) << text;
}

// The older split forms

TEST(IniStoreSplit, FontOfFourKeysComesBeforeTheSingleKey)
{
    const IniStore store = parsed("[s]\nk=Single,5,-1,5,50,0,0,0,0,0\nk_font_name=Split\nk_font_size=14\n"
                                  "k_font_weight=75\nk_font_italic=1\n");
    EXPECT_EQ(store.fontValue(S, K, QFont()), QFont(QStringLiteral("Split"), 14, QFont::Bold, true));
}

TEST(IniStoreSplit, FontPartsThatAreAbsentComeFromTheFallback)
{
    const IniStore store = parsed("[s]\nk_font_name=Split\n");
    EXPECT_EQ(store.fontValue(S, K, QFont(QStringLiteral("Mono"), 17, QFont::Bold, true)),
              QFont(QStringLiteral("Split"), 17, QFont::Bold, true));
}

TEST(IniStoreSplit, FontPartsOutOfRangeAreHeld)
{
    const IniStore store = parsed("[s]\nk_font_name=Split\nk_font_size=-3\nk_font_weight=100000\n");
    const QFont font = store.fontValue(S, K, QFont());
    EXPECT_EQ(font.weight(), 99);
    EXPECT_GT(font.pointSize(), 0);
}

TEST(IniStoreSplit, PenOfThreeKeysComesBeforeTheSingleKey)
{
    const IniStore store = parsed("[s]\nk=1,1,1,1,1\nk_pen_color=255\nk_pen_width=3\nk_pen_style=2\n");
    EXPECT_EQ(store.penValue(S, K, QPen()),
              QPen(QBrush(QColor(0, 0, 255)), 3, Qt::DashLine, Qt::SquareCap, Qt::BevelJoin));
}

TEST(IniStoreSplit, PointAndSizeOfTwoKeysComeBeforeTheSingleKey)
{
    const IniStore store = parsed("[s]\nk=1,1\nk_point_x=5\nk_point_y=-6\nk_size_width=7\nk_size_height=8\n");
    EXPECT_EQ(store.pointValue(S, K, {}), QPoint(5, -6));
    EXPECT_EQ(store.sizeValue(S, K, {}), QSize(7, 8));
}

TEST(IniStoreSplit, WithoutTheFirstKeyTheSingleKeyIsRead)
{
    const IniStore store = parsed("[s]\nk=7,8\nk_point_y=5\nk_size_height=5\nk_pen_width=5\nk_font_size=5\n");
    EXPECT_EQ(store.pointValue(S, K, {}), QPoint(7, 8));
    EXPECT_EQ(store.sizeValue(S, K, {}), QSize(7, 8));
    EXPECT_EQ(store.penValue(S, K, QPen(Qt::red)), QPen(Qt::red));
}

// Files

TEST_F(IniStoreFile, MissingAndEmptyFilesAndFoldersAreNotLoaded)
{
    IniStore store = holding("v");
    EXPECT_FALSE(store.load(path()));
    EXPECT_EQ(store.toString(), QString()) << "a failed load leaves the store empty";
    EXPECT_FALSE(store.load(write("")));
    EXPECT_FALSE(store.load(m_folder.path(QString())));
    EXPECT_FALSE(store.save()) << "none of them gives its name";
}

TEST_F(IniStoreFile, LastLineWithoutLineFeedIsLoaded)
{
    IniStore store;
    EXPECT_TRUE(store.load(write("[s]\nk=v")));
    EXPECT_EQ(store.toString(), QStringLiteral("[s]\nk=v\n\n"));
}

TEST_F(IniStoreFile, CarriageReturnsAreNoPartOfLoadedLines)
{
    IniStore store;
    EXPECT_TRUE(store.load(write("[s]\r\nk=v\r\n")));
    EXPECT_EQ(store.value(S, K, QString()), QStringLiteral("v"));
}

TEST_F(IniStoreFile, SurvivesBytesThatAreNoText)
{
    std::string bytes = "[s]\nk=";
    for (int byte = 255; byte >= 0; --byte)
        bytes += byte == '\n' ? ' ' : static_cast<char>(byte);
    IniStore store;
    EXPECT_TRUE(store.load(write(bytes)));
    EXPECT_TRUE(store.hasKey(S, K));
    EXPECT_TRUE(store.load(write(std::string(1000, '\0'))));
    EXPECT_EQ(store.sections(), QStringList());
}

TEST_F(IniStoreFile, TooLargeFilesAreNotLoaded)
{
    write("[s]\nk=v\n");
    ASSERT_TRUE(QFile::resize(path(), IniStore::FileSizeLimit + 1)); // sparse
    EXPECT_FALSE(IniStore().load(path()));
}

TEST_F(IniStoreFile, PipesAreNotWaitedFor)
{
    ASSERT_EQ(::mkfifo(QFile::encodeName(path()).constData(), 0600), 0);
    EXPECT_FALSE(IniStore().load(path()));
}

TEST_F(IniStoreFile, SavedTextIsInTheEncodingOfTheLocale)
{
    IniStore store = holding(QString::fromUtf8("\xc5\xbb\xc3\xb3\xc5\x82"));
    EXPECT_TRUE(store.saveAs(path()));
    EXPECT_EQ(content(), "[s]\nk=\xc5\xbb\xc3\xb3\xc5\x82\n\n"); // tests run in UTF-8
    IniStore again;
    EXPECT_TRUE(again.load(path()));
    EXPECT_EQ(again.toString(), store.toString());
}

TEST_F(IniStoreFile, NamedCodecIsUsedBothWays)
{
    IniStore store = holding(QString::fromUtf8("\xc3\xb3"));
    store.setCodecName(QStringLiteral("ISO-8859-1"));
    EXPECT_TRUE(store.saveAs(path()));
    EXPECT_EQ(content(), "[s]\nk=\xf3\n\n");
    EXPECT_TRUE(store.load(path()));
    EXPECT_EQ(store.value(S, K, QString()), QString::fromUtf8("\xc3\xb3"));
}

TEST_F(IniStoreFile, SaveGoesToTheFileLastLoadedOrSaved)
{
    IniStore store;
    EXPECT_FALSE(store.save());
    ASSERT_TRUE(store.load(write("[s]\nk=v\n")));
    store.setValue(S, K, QStringLiteral("w"));
    EXPECT_TRUE(store.save());
    EXPECT_EQ(content(), "[s]\nk=w\n\n");

    const QString other = m_folder.path(QStringLiteral("other"));
    EXPECT_TRUE(store.saveAs(other));
    EXPECT_EQ(store.fileName(), other);
    store.setValue(S, K, QStringLiteral("x"));
    EXPECT_TRUE(store.save());
    EXPECT_EQ(fileBytes(KiroString(other)), "[s]\nk=x\n\n");
    EXPECT_EQ(content(), "[s]\nk=w\n\n");
}

TEST_F(IniStoreFile, FailedSaveReportsItAndKeepsTheOldName)
{
    IniStore store;
    ASSERT_TRUE(store.load(write("[s]\nk=v\n")));
    EXPECT_FALSE(store.saveAs(m_folder.path(QStringLiteral("missing/file"))));
    EXPECT_EQ(store.fileName(), path());
}

// As root permissions do not bind, so the saving runs in a child that has given its rights up.
TEST_F(IniStoreFile, AFileInAFolderThatTakesNoNewOneIsWrittenOver)
{
    write("[s]\nk=a long old value that must not shine through\n");
    ASSERT_EQ(::chmod(qPrintable(path()), 0666), 0);
    ASSERT_EQ(::chmod(qPrintable(m_folder.path(QString())), 0555), 0);
    EXPECT_EXIT(
        {
            if (::geteuid() == 0 && ::setuid(65534) != 0)
                ::_exit(9);
            IniStore store;
            const bool loaded = store.load(path());
            store.setValue(S, K, QStringLiteral("new"));
            ::_exit(loaded && store.save() ? 0 : 1);
        },
        testing::ExitedWithCode(0), "");
    ASSERT_EQ(::chmod(qPrintable(m_folder.path(QString())), 0755), 0);
    EXPECT_EQ(content(), "[s]\nk=new\n\n");
}

TEST_F(IniStoreFile, DiskWithoutRoomLeavesTheOldFile)
{
    IniStore store;
    ASSERT_TRUE(store.load(write("[s]\nk=old\n")));
    store.setValue(S, K, QString(300000, QLatin1Char('x')));
    bool saved = true;
    {
        const FileSizeLimit limit(100000);
        saved = store.save();
    }
    EXPECT_FALSE(saved);
    EXPECT_EQ(content(), "[s]\nk=old\n");
    EXPECT_EQ(filesInFolder(), QStringList{QStringLiteral("settings")});
}

// The section of a window

TEST_F(IniStoreFile, ReplacedSectionLosesItsOldKeysAndLeavesTheOthers)
{
    write("[A]\nx=1\n[B]\nold=1\nkept=no\n[C]\ny=2\n");
    EXPECT_TRUE(replaceSection(path(), QStringLiteral("B"), [](IniStore& store) {
        EXPECT_EQ(store.currentSection(), QStringLiteral("B"));
        store.setInt(QStringLiteral("new"), 5);
    }));
    EXPECT_EQ(content(), "[A]\nx=1\n\n[B]\nnew=5\n\n[C]\ny=2\n\n");
}

TEST_F(IniStoreFile, SectionsReplacedInTurnDoNotOverwriteEachOther)
{
    for (const char* name : {"A", "B", "A"})
        EXPECT_TRUE(replaceSection(path(), QString::fromLatin1(name),
                                   [](IniStore& store) { store.setInt(QStringLiteral("x"), 1); }));
    EXPECT_EQ(content(), "[A]\nx=1\n\n[B]\nx=1\n\n");
}

TEST_F(IniStoreFile, ReplacingASectionMakesAMissingOrEmptyFile)
{
    const auto nothing = [](IniStore&) {};
    EXPECT_TRUE(replaceSection(path(), S, nothing));
    EXPECT_EQ(content(), "[s]\n\n");
    write("");
    EXPECT_TRUE(replaceSection(path(), S, nothing));
    EXPECT_EQ(content(), "[s]\n\n");
}

TEST_F(IniStoreFile, FileThatCannotBeReadIsNotReplaced)
{
    write("[A]\nx=1\n");
    ASSERT_TRUE(QFile::resize(path(), IniStore::FileSizeLimit + 1));
    bool called = false;
    EXPECT_FALSE(replaceSection(path(), S, [&called](IniStore&) { called = true; }));
    EXPECT_FALSE(called);
    EXPECT_EQ(QFileInfo(path()).size(), IniStore::FileSizeLimit + 1);
}

// Paths

struct PathPair
{
    const char* base;
    const char* path;
    const char* relative;
};

TEST(IniStorePaths, RelativeAndAbsolutePathsAreInverse)
{
    for (const PathPair& each :
         {PathPair{"/a/b/x.sacc", "/a/b/r.kiro", "r.kiro"},
          PathPair{"/a/b/x.sacc", "/a/c/r.kiro", "../c/r.kiro"},
          PathPair{"/a/x.sacc", "/a/b/c/r.kiro", "b/c/r.kiro"},
          PathPair{"/a/b/c/x.sacc", "/r.kiro", "../../../r.kiro"},
          PathPair{"/x.sacc", "/a/r.kiro", "a/r.kiro"}, PathPair{"/a/x.sacc", "/ab/r.kiro", "../ab/r.kiro"},
          PathPair{"/A/x.sacc", "/a/r.kiro", "../a/r.kiro"}}) {
        const QString base = QString::fromLatin1(each.base);
        const QString path = QString::fromLatin1(each.path);
        EXPECT_EQ(IniStore::relativePath(base, path), QString::fromLatin1(each.relative)) << each.path;
        EXPECT_EQ(IniStore::absolutePath(base, QString::fromLatin1(each.relative)), path) << each.relative;
    }
}

TEST(IniStorePaths, AbsoluteAndEmptyPathsStay)
{
    const QString base = QStringLiteral("/a/x.sacc");
    EXPECT_EQ(IniStore::absolutePath(base, QStringLiteral("/b/../r.kiro")), QStringLiteral("/b/../r.kiro"));
    EXPECT_EQ(IniStore::absolutePath(base, QString()), QString());
}

TEST(IniStorePaths, WaysUpWithinAnAbsolutePathAreTakenFirst)
{
    EXPECT_EQ(IniStore::relativePath(QStringLiteral("/a/b/x.sacc"), QStringLiteral("/a/c/../b//r.kiro")),
              QStringLiteral("r.kiro"));
}

TEST_F(IniStoreFile, RelativePathComesBackCanonical)
{
    const QString before = QDir::currentPath();
    write("[s]\n");
    ASSERT_TRUE(QFile::link(path(), m_folder.path(QStringLiteral("link"))));
    ASSERT_TRUE(QDir::setCurrent(m_folder.path(QString())));
    const QString base = QStringLiteral("/a/x.sacc");
    EXPECT_EQ(IniStore::relativePath(base, QStringLiteral("./link")), QFileInfo(path()).canonicalFilePath());
    EXPECT_EQ(IniStore::relativePath(base, QStringLiteral("./missing//r.kiro")),
              QStringLiteral("missing/r.kiro"));
    QDir::setCurrent(before);
}
