#include "labelfile.h"

#include "filesizelimit.h"
#include "recordingbuilder.h"
#include "windows/messagerecorder.h"

#include <QDataStream>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QLocale>

#include <gtest/gtest.h>

#include <cmath>
#include <cstring>
#include <limits>
#include <random>

#include <sys/stat.h>
#include <unistd.h>

namespace
{

const std::string Head =
    "Kiro labels 1.0\n# type\tstart [ms]\tend [ms]\tsignal\tvalue\tcolor\tname\tdescription\n";
const std::string Line = "time line\t1500\t1500\t0\t0\t#ff0000\t\"a\"\t\"b\"\n";
const std::string End = "end\n";

QByteArray toBytes(const std::string& text)
{
    return QByteArray(text.data(), int(text.size()));
}

/// What labelsFromBytes() says of a text; "good" if it takes it.
std::string verdict(const std::string& text, QList<KiroLabel>* result = nullptr)
{
    KiroLabel before;
    before.setName(QStringLiteral("before"));
    QList<KiroLabel> labels{before};
    QString reason;
    if (labelsFromBytes(toBytes(text), labels, reason)) {
        if (result)
            *result = labels;
        return "good";
    }
    EXPECT_EQ(labels.size(), 1) << "a failure must leave the list alone";
    EXPECT_EQ(labels.value(0).name(), before.name());
    return reason.toStdString();
}

/// The same for a file of one label with one of its eight fields replaced.
std::string verdictOn(int field, const std::string& text)
{
    QList<QByteArray> fields = toBytes(Line.substr(0, Line.size() - 1)).split('\t');
    fields[field] = toBytes(text);
    return verdict(Head + fields.join('\t').toStdString() + "\n" + End);
}

std::string broken(const char* field)
{
    return std::string("line 3: the field \"") + field + "\" is broken";
}

std::string written(const QList<KiroLabel>& labels)
{
    QByteArray bytes;
    QString reason;
    EXPECT_TRUE(labelsToBytes(labels, bytes, reason)) << qPrintable(reason);
    return bytes.toStdString();
}

/// What comes back of a label that was written.
KiroLabel roundTrip(const KiroLabel& label)
{
    QList<KiroLabel> labels;
    EXPECT_EQ(verdict(written({label}), &labels), "good");
    EXPECT_EQ(labels.size(), 1);
    return labels.value(0);
}

KiroLabel named(const QString& name, const QString& description = QString())
{
    KiroLabel label;
    label.setName(name);
    label.setDescription(description);
    return label;
}

quint64 bitsOf(double number)
{
    quint64 bits = 0;
    std::memcpy(&bits, &number, sizeof bits);
    return bits;
}

double fromBits(quint64 bits)
{
    double number = 0.0;
    std::memcpy(&number, &bits, sizeof number);
    return number;
}

/// Bytes of a colour as Qt stores it: operator== calls colours the same that are not.
QByteArray colorBytes(const QColor& color)
{
    QByteArray bytes;
    QDataStream stream(&bytes, QIODevice::WriteOnly);
    stream << color;
    return bytes;
}

void expectSame(const KiroLabel& a, const KiroLabel& b)
{
    EXPECT_EQ(a.type, b.type);
    EXPECT_EQ(a.time, b.time);
    EXPECT_EQ(a.endTime, b.endTime);
    EXPECT_EQ(a.signal, b.signal);
    EXPECT_EQ(bitsOf(a.value), bitsOf(b.value)) << a.value << " and " << b.value;
    EXPECT_EQ(colorBytes(a.color), colorBytes(b.color)) << colorBytes(a.color).toHex().constData();
    EXPECT_EQ(a.name(), b.name());
    EXPECT_EQ(a.description(), b.description());
}

/// All messages since the recorder was made.
std::string logged()
{
    return MessageRecorder::texts().join(QLatin1Char('\n')).toStdString();
}

/// Labels with random bits in every field.
class RandomLabels
{
public:
    KiroLabel next()
    {
        KiroLabel label;
        label.type = KiroLabel::indexToType(number() % KiroLabel::TypeCount);
        label.time = number();
        label.endTime = number();
        label.signal = number();
        label.value = fromBits(quint64(number()) << 32 | number());
        label.color = color();
        label.setName(text(12));
        label.setDescription(text(200));
        return label;
    }

private:
    quint32 number() { return quint32(m_engine()); }

    QString text(uint longest)
    {
        // Half of it from the characters that a line or an escape is made of.
        static const ushort Special[] = {'\t', '\n', '\r', '\\', '"',    'u',    'n',    '#',    '0',
                                         0,    0x1b, 0x7f, 0x85, 0x2028, 0x2029, 0xfeff, 0xfffe, 0xffff,
                                         ' ',  ',',  ';',  'e',  0xd800, 0xdbff, 0xdc00, 0xdfff};
        QString result;
        for (uint left = number() % (longest + 1); left > 0; --left)
            result += QChar(number() % 2 ? Special[number() % std::size(Special)] : ushort(number()));
        return result;
    }

    QColor color()
    {
        const auto part = [this] { return int(number() % 256); };
        const auto fraction = [this] { return double(number() % 65536) / 65535.0; };
        switch (number() % 7) {
        case 0:
            return {};
        case 1:
            return QColor(part(), part(), part());
        case 2:
            return QColor(part(), part(), part(), part());
        case 3:
            return QColor::fromRgba64(ushort(number()), ushort(number()), ushort(number()), ushort(number()));
        case 4:
            return QColor::fromHsvF(number() % 4 ? fraction() : -1.0, fraction(), fraction(), fraction());
        case 5:
            return QColor::fromCmykF(fraction(), fraction(), fraction(), fraction(), fraction());
        default:
            return QColor::fromHslF(fraction(), fraction(), fraction(), fraction());
        }
    }

    std::mt19937 m_engine{20240917};
};

class LabelFileTest : public testing::Test
{
protected:
    void write(const std::string& bytes) const { m_folder.write(QStringLiteral("f.lab"), bytes); }
    QString path() const { return m_folder.path(QStringLiteral("f.lab")); }
    std::string content() const { return fileBytes(KiroString(path())); }
    QStringList filesInFolder() const
    {
        return QDir(m_folder.path(QString())).entryList(QDir::Files | QDir::Hidden | QDir::System);
    }
    /// Loads the file and expects that it is refused with one message that ends with `reason`.
    void expectRefused(const QString& file, const QString& reason) const
    {
        const MessageRecorder messages;
        EXPECT_TRUE(KiroLabel::load(file).isEmpty());
        EXPECT_EQ(logged(),
                  "Label file \"" + file.toStdString() + "\" could not be read: " + reason.toStdString());
    }
    /// Saves labels to the file and expects that this fails with one message that ends with `reason`.
    void expectNotSaved(const QString& file, const QList<KiroLabel>& labels, const QString& reason) const
    {
        const MessageRecorder messages;
        EXPECT_FALSE(KiroLabel::save(file, labels));
        EXPECT_EQ(logged(),
                  "Label file \"" + file.toStdString() + "\" could not be saved: " + reason.toStdString());
    }

    TestFolder m_folder;
};

} // namespace

// Written form

TEST(LabelText, OneLineALabelBetweenVersionAndEnd)
{
    KiroLabel point;
    point.setupPoint(3, 1500, -0.1, QStringLiteral("Calibration point"), QStringLiteral("a\tb"), Qt::green);
    KiroLabel period;
    period.setupTimePeriod(1000, 4294967295u, QStringLiteral("Saccade 1"), QString(), QColor(1, 2, 3, 128));
    EXPECT_EQ(written({point, period}),
              "Kiro labels 1.0\n"
              "# type\tstart [ms]\tend [ms]\tsignal\tvalue\tcolor\tname\tdescription\n"
              "point\t1500\t1500\t3\t-0.1\t#00ff00\t\"Calibration point\"\t\"a\\tb\"\n"
              "time period\t1000\t4294967295\t0\t0\t#80010203\t\"Saccade 1\"\t\"\"\n"
              "end\n");
}

TEST(LabelText, OfNoLabelsIsHeadAndEnd)
{
    EXPECT_EQ(written({}), Head + End);
}

TEST(LabelText, EscapesWhatWouldBreakALine)
{
    const QString text = QStringLiteral("\t\n\r\\\"") + QChar(0) + QChar(0x7f) + QChar(0x85) + QChar(0x2028) +
                         QChar(0x2029) + QChar(0xfeff) + QChar(0xd800) + QStringLiteral("a");
    const std::string line = written({named(text)});
    EXPECT_NE(line.find("\t\"\\t\\n\\r\\\\\\\"\\u0000\\u007f\\u0085\\u2028\\u2029\\ufeff\\ud800a\"\t\"\"\n"),
              std::string::npos)
        << line;
}

TEST(LabelText, OtherCharactersStayReadable)
{
    const std::string text = "Za\xc5\xbc\xc3\xb3\xc5\x82\xc4\x87 \xf0\x9f\x91\x81 #'";
    EXPECT_NE(written({named(QString::fromStdString(text))}).find("\t\"" + text + "\"\t"), std::string::npos);
}

TEST(LabelText, DoesNotDependOnTheLocale)
{
    const QLocale before;
    QLocale::setDefault(QLocale(QLocale::Polish));
    KiroLabel label;
    label.setupPoint(3, 1234567, 12345.5, QString(), QString(), Qt::green);
    const std::string text = written({label});
    QLocale::setDefault(before);
    EXPECT_EQ(text, Head + "point\t1234567\t1234567\t3\t12345.5\t#00ff00\t\"\"\t\"\"\n" + End);
}

TEST(LabelText, TypeThatIsNoneIsRefused)
{
    KiroLabel bad;
    bad.type = static_cast<KiroLabel::Type>(6);
    QByteArray bytes = "before";
    QString reason;
    EXPECT_FALSE(labelsToBytes({KiroLabel(), bad}, bytes, reason));
    EXPECT_EQ(reason, QStringLiteral("label 2: unknown type 6"));
    EXPECT_EQ(bytes, "before");
}

TEST(LabelText, ColorWhoseNumbersAreNotFiniteIsRefused)
{
    KiroLabel bad;
    bad.color = QColor::fromRgbF(2.0, 0.0, 0.0);
    bad.color.setRedF(std::numeric_limits<double>::infinity());
    QByteArray bytes;
    QString reason;
    EXPECT_FALSE(labelsToBytes({bad}, bytes, reason));
    EXPECT_EQ(reason, QStringLiteral("label 1: the color extended:3c00:7c00:0000:0000:0000 is none"));
}

// Round trips

TEST(LabelRoundTrip, KeepsFieldsThatTheTypeDoesNotUse)
{
    for (uint i = 0; i < KiroLabel::TypeCount; ++i) {
        KiroLabel label = named(QStringLiteral("n"), QStringLiteral("d"));
        label.type = KiroLabel::indexToType(i);
        label.time = 1;
        label.endTime = 2;
        label.signal = 3;
        label.value = 4.5;
        label.color = QColor(5, 6, 7, 8);
        expectSame(roundTrip(label), label);
    }
}

TEST(LabelRoundTrip, KeepsTheLimitsOfWholeNumbers)
{
    for (const quint32 number : {0u, 2147483648u, 4294967295u}) {
        KiroLabel label;
        label.time = number;
        label.endTime = ~number;
        label.signal = number;
        expectSame(roundTrip(label), label);
    }
}

TEST(LabelRoundTrip, KeepsEveryBitOfValues)
{
    using Limits = std::numeric_limits<double>;
    for (const double value :
         {0.0, -0.0, 0.1, -1.0 / 3.0, 1e6, 1e22, 9007199254740993.0, Limits::max(), Limits::lowest(),
          Limits::min(), Limits::denorm_min(), Limits::infinity(), -Limits::infinity(), Limits::quiet_NaN(),
          -Limits::quiet_NaN(), fromBits(0x7ff8000000000001), fromBits(0xfff0dead0000beef)}) {
        KiroLabel label;
        label.value = value;
        EXPECT_EQ(bitsOf(roundTrip(label).value), bitsOf(value)) << value;
    }
}

TEST(LabelRoundTrip, KeepsEveryCodeUnit)
{
    QString all;
    for (int unit = 0; unit < 65536; ++unit)
        all += QChar(ushort(unit));
    QString backwards;
    for (int unit = 65535; unit >= 0; --unit)
        backwards += QChar(ushort(unit));
    const KiroLabel label = named(all, backwards);
    expectSame(roundTrip(label), label);
}

TEST(LabelRoundTrip, KeepsEveryCodeUnitAlone)
{
    QList<KiroLabel> labels;
    for (int unit = 0; unit < 65536; ++unit)
        labels += named(QString(QChar(ushort(unit))), QChar(ushort(unit)) + QStringLiteral("a"));
    QList<KiroLabel> read;
    ASSERT_EQ(verdict(written(labels), &read), "good");
    ASSERT_EQ(read.size(), labels.size());
    for (int i = 0; i < labels.size(); ++i) {
        ASSERT_EQ(read[i].name(), labels[i].name()) << i;
        ASSERT_EQ(read[i].description(), labels[i].description()) << i;
    }
}

TEST(LabelRoundTrip, KeepsTextsThatLookLikeTheFormItself)
{
    for (const char* text : {"end", "\"", "\\", "\\n", "\\u0041", "#", "# note", "a\"\tb", " a ", "end\n",
                             "Kiro labels 2.0", "\xef\xbb\xbf"}) {
        const KiroLabel label = named(QString::fromUtf8(text), QString::fromUtf8(text).repeated(2));
        expectSame(roundTrip(label), label);
    }
}

TEST(LabelRoundTrip, KeepsColorsOfEveryModel)
{
    QColor invalidWithAlpha;
    invalidWithAlpha.setAlpha(7);
    for (const QColor& color :
         {QColor(), invalidWithAlpha, QColor(Qt::red), QColor(Qt::transparent), QColor(1, 2, 3, 4),
          QColor::fromRgba64(1, 2, 3, 4), QColor::fromRgba64(65535, 0, 0, 65534),
          QColor::fromHsv(-1, 2, 3, 4), QColor::fromHsv(359, 255, 255), QColor::fromCmyk(1, 2, 3, 4, 5),
          QColor::fromHslF(1.0, 0.3, 0.7), QColor(Qt::red).convertTo(QColor::ExtendedRgb),
          QColor::fromRgbF(-1.5, 60000.0, 0.1, 0.3)}) {
        KiroLabel label;
        label.color = color;
        expectSame(roundTrip(label), label);
    }
}

TEST(LabelRoundTrip, KeepsRandomLabels)
{
    RandomLabels random;
    for (int round = 0; round < 200; ++round) {
        QList<KiroLabel> labels;
        for (int count = round % 17; count > 0; --count)
            labels += random.next();
        const std::string text = written(labels);
        QList<KiroLabel> read;
        ASSERT_EQ(verdict(text, &read), "good") << text;
        ASSERT_EQ(read.size(), labels.size());
        for (int i = 0; i < labels.size(); ++i)
            expectSame(read[i], labels[i]);
        ASSERT_EQ(written(read), text);
        ASSERT_FALSE(HasFailure()) << text;
    }
}

// Reading

TEST(LabelReading, TakesWhatEditorsLeaveBehind)
{
    QList<KiroLabel> labels;
    const std::string text = "\xef\xbb\xbfKiro labels 1.0\r\n\r\n# a note\r\n \t\r\n" +
                             Line.substr(0, Line.size() - 1) + "\r\nend\r\n\r\n# after\r\n  ";
    ASSERT_EQ(verdict(text, &labels), "good");
    ASSERT_EQ(labels.size(), 1);
    KiroLabel expected;
    expected.setupTimeLine(1500, QStringLiteral("a"), QStringLiteral("b"), Qt::red);
    expectSame(labels[0], expected);
}

TEST(LabelReading, NeedsNoLineFeedAtTheEnd)
{
    EXPECT_EQ(verdict(Head + Line + "end"), "good");
}

TEST(LabelReading, LaterMinorVersionsMayHaveMoreFields)
{
    QList<KiroLabel> labels;
    const std::string line = Line.substr(0, Line.size() - 1);
    ASSERT_EQ(verdict("Kiro labels 1.1\n" + line + "\tmore\t\n" + Line + End, &labels), "good");
    ASSERT_EQ(labels.size(), 2);
    expectSame(labels[0], labels[1]);
    EXPECT_EQ(verdict("Kiro labels 1.0\n" + line + "\tmore\n" + End), "line 2: it has 9 fields, not 8");
    EXPECT_EQ(verdict("Kiro labels 1.1\nend\tmore\n"), "line 2: it has 2 fields, not 8");
}

TEST(LabelReading, OtherMajorVersionsAreRefused)
{
    for (const std::string version : {"0.9", "2.0", "4294967295.0"}) {
        std::string text = "Kiro labels ";
        text.append(version).append("\n").append(Line).append(End);
        EXPECT_EQ(verdict(text), "line 1: its version is " + version + ", and only versions 1.x can be read");
    }
}

TEST(LabelReading, WhatIsNoLabelFileIsRefused)
{
    for (const char* text :
         {"", "\n", "end\n", "Kiro labels", "Kiro labels \n", "Kiro labels 1\n", "Kiro labels 1.\n",
          "Kiro labels .0\n", "Kiro labels 1.0.0\n", "Kiro labels 1.0 \n", "Kiro labels  1.0\n",
          "Kiro labels +1.0\n", "Kiro labels 4294967297.0\n", " Kiro labels 1.0\n", "kiro labels 1.0\n",
          "\nKiro labels 1.0\n", "\xef\xbb\xbf"})
        EXPECT_EQ(verdict(text),
                  "line 1: it is no label file, which begins with \"Kiro labels\" and a version")
            << text;
    EXPECT_EQ(verdict(std::string(1000, '\0')).substr(0, 7), "line 1:");
}

TEST(LabelReading, EveryCutIsNoticed)
{
    const std::string text = Head + Line + Line + End;
    for (std::size_t length = 0; length < text.size() - 1; ++length)
        EXPECT_NE(verdict(text.substr(0, length)), "good") << length;
    EXPECT_EQ(verdict(text.substr(0, text.size() - 1)), "good") << "only the last line feed is missing";
    EXPECT_EQ(verdict(Head + Line), "line 3: the line \"end\" is missing behind it; the file may be cut");
}

TEST(LabelReading, TextBehindTheEndIsRefused)
{
    EXPECT_EQ(verdict(Head + End + "\n" + Line), "line 5: the text goes on behind the line \"end\"");
    EXPECT_EQ(verdict(Head + End + End), "line 4: the text goes on behind the line \"end\"");
    EXPECT_EQ(verdict(Head + End + std::string(1, '\0')), "line 4: the text goes on behind the line \"end\"");
}

TEST(LabelReading, WrongNumberOfFieldsIsRefused)
{
    EXPECT_EQ(verdict(Head + Line + "time line\n" + End), "line 4: it has 1 fields, not 8");
    EXPECT_EQ(verdict(Head + Line + "END\n"), "line 4: it has 1 fields, not 8");
    EXPECT_EQ(verdict(Head + Line.substr(0, Line.size() - 5) + "\n" + End), "line 3: it has 7 fields, not 8");
    EXPECT_EQ(verdict(Head + std::string(1000000, '\t') + "x\n" + End),
              "line 3: it has 1000001 fields, not 8");
}

TEST(LabelReading, BrokenTypesAreRefused)
{
    for (const char* text : {"", "Point", "point ", "1", "signal", "signal-line"})
        EXPECT_EQ(verdictOn(0, text), broken("type")) << text;
}

TEST(LabelReading, BrokenWholeNumbersAreRefused)
{
    const char* const titles[] = {"start [ms]", "end [ms]", "signal"};
    for (const int field : {1, 2, 3}) {
        EXPECT_EQ(verdictOn(field, "007"), "good");
        for (const char* text :
             {"", "-1", "+1", " 1", "1 ", "1.0", "4294967296", "1e3", "0x10", "x", "99999999999999999999999"})
            EXPECT_EQ(verdictOn(field, text), broken(titles[field - 1])) << text;
    }
}

TEST(LabelReading, BrokenValuesAreRefused)
{
    for (const char* text : {"",
                             "1,5",
                             "+1",
                             " 1",
                             "1 ",
                             "1e999",
                             "-1e999",
                             "1e-999",
                             "0x10",
                             "x",
                             "1e",
                             "--1",
                             "infinity",
                             "INF",
                             "-nan",
                             "nan(1)",
                             "nan:",
                             "nan:7ff0000000000000",
                             "nan:3ff0000000000000",
                             "nan:7ff800000000000",
                             "nan:+ff8000000000000"})
        EXPECT_EQ(verdictOn(4, text), broken("value")) << text;
}

TEST(LabelReading, BrokenColorsAreRefused)
{
    for (const char* text : {"",
                             "red",
                             "#",
                             "#fff",
                             "#ff00000",
                             "#ff00000000",
                             "#gg0000",
                             "#-f0000",
                             "# ff000",
                             "None",
                             "rgb",
                             "rgb:ffff:0000:0000:0000",
                             "rgb:ffff:0000:0000:0000:000",
                             "rgb:ffff:0000:0000:0000:0000:0000",
                             "rgb:ffff:0000:0000:0000:00g0",
                             "rgb;ffff:0000:0000:0000:0000",
                             "lab:ffff:0000:0000:0000:0000",
                             ":ffff:0000:0000:0000:0000",
                             "hsv:ffff:8ca1:0000:0000:0000",
                             "hsl:ffff:fffe:0000:0000:0000",
                             "extended:7c00:0000:0000:0000:0000",
                             "extended:3c00:0000:0000:fe00:0000"})
        EXPECT_EQ(verdictOn(5, text), broken("color")) << text;
    for (const char* text :
         {"#FF0000", "none", "hsv:ffff:8ca0:0000:0000:0000", "hsv:ffff:ffff:0000:0000:0000"})
        EXPECT_EQ(verdictOn(5, text), "good") << text;
}

TEST(LabelReading, BrokenTextsAreRefused)
{
    const std::string zero(1, '\0');
    const char* const titles[] = {"name", "description"};
    for (const int field : {6, 7}) {
        for (const std::string& text : {std::string(),
                                        std::string("\""),
                                        std::string("a"),
                                        std::string("\"a"),
                                        std::string("a\""),
                                        std::string("\"a\"b\""),
                                        std::string("\"\\\""),
                                        std::string("\"\\x\""),
                                        std::string("\"\\u\""),
                                        std::string("\"\\u12\""),
                                        std::string("\"\\u12g4\""),
                                        std::string("\"\\u+123\""),
                                        std::string("\"\\U0041\""),
                                        std::string("\"a\\"),
                                        "\"" + zero + "\"",
                                        std::string("\"\x1b\""),
                                        std::string("\"\r\""),
                                        std::string(" \"a\""),
                                        std::string("\"a\" "),
                                        std::string("\"\xff\""),
                                        std::string("\"\xc5\""),
                                        std::string("\"\xc0\xaf\""),
                                        std::string("\"\xed\xa0\x80\""),
                                        std::string("\"\xf4\x90\x80\x80\"")})
            EXPECT_EQ(verdictOn(field, text), broken(titles[field - 6])) << text;
    }
}

TEST(LabelReading, EscapedPairsAndHighDigitsAreTaken)
{
    QList<KiroLabel> labels;
    const std::string line = "point\t0\t0\t0\t0\tnone\t\"\\ud83d\\uDC41\"\t\"\\uFEFF\"\n";
    ASSERT_EQ(verdict(Head + line + End, &labels), "good");
    EXPECT_EQ(labels[0].name(), QString::fromUtf8("\xf0\x9f\x91\x81"));
    EXPECT_EQ(labels[0].description(), QString(QChar(0xfeff)));
}

// Files

TEST_F(LabelFileTest, WhatIsSavedIsLoadedInOrder)
{
    RandomLabels random;
    QList<KiroLabel> labels;
    for (int i = 0; i < 500; ++i)
        labels += random.next();
    const MessageRecorder messages;
    ASSERT_TRUE(KiroLabel::save(path(), labels));
    const QList<KiroLabel> loaded = KiroLabel::load(path());
    ASSERT_EQ(loaded.size(), labels.size());
    for (int i = 0; i < labels.size(); ++i)
        expectSame(loaded[i], labels[i]);
    EXPECT_EQ(logged(), "");
    EXPECT_EQ(filesInFolder(), QStringList(QStringLiteral("f.lab")));
}

TEST_F(LabelFileTest, NoLabelsAreSavedAndLoadedWithoutAMessage)
{
    const MessageRecorder messages;
    ASSERT_TRUE(KiroLabel::save(path(), {}));
    EXPECT_EQ(content(), Head + End);
    EXPECT_TRUE(KiroLabel::load(path()).isEmpty());
    EXPECT_EQ(logged(), "");
}

TEST_F(LabelFileTest, BrokenLineRefusesTheFileAndIsNamedInTheLog)
{
    write(Head + Line + "time line\t1500\t-1\t0\t0\t#ff0000\t\"a\"\t\"b\"\n" + Line + End);
    expectRefused(path(), QStringLiteral("line 4: the field \"end [ms]\" is broken"));
}

TEST_F(LabelFileTest, WhatIsNoFileIsRefusedAndNotWaitedFor)
{
    expectRefused(path(), QStringLiteral("No such file or directory"));
    expectRefused(QString(), QStringLiteral("this is no file name"));
    expectRefused(QFileInfo(path()).path(), QStringLiteral("it is no regular file"));
    expectRefused(QStringLiteral("/dev/zero"), QStringLiteral("it is no regular file"));
    ASSERT_EQ(::mkfifo(QFile::encodeName(path()).constData(), 0600), 0);
    expectRefused(path(), QStringLiteral("it is no regular file"));
}

TEST_F(LabelFileTest, NameWithAZeroCharacterIsNotCutThere)
{
    write(Head + Line + End);
    const QString name = path() + QChar(0) + QStringLiteral("x");
    expectRefused(name, QStringLiteral("this is no file name"));
    expectNotSaved(name, {}, QStringLiteral("this is no file name"));
    EXPECT_EQ(content(), Head + Line + End);
}

TEST_F(LabelFileTest, LongerFilesThanTheLimitAreRefused)
{
    write(Head + Line + End);
    ASSERT_TRUE(QFile::resize(path(), LabelFileSizeLimit + 1)); // sparse
    expectRefused(path(), QStringLiteral("a label file has at most 67108864 bytes"));
    ASSERT_TRUE(QFile::resize(path(), LabelFileSizeLimit));
    expectRefused(path(), QStringLiteral("line 5: the text goes on behind the line \"end\""));
}

TEST_F(LabelFileTest, WhatWouldPassTheLimitIsNotSaved)
{
    write("old");
    const QString limit = QStringLiteral("label 2: a label file has at most 67108864 bytes");
    const KiroLabel half = named(QString(int(LabelFileSizeLimit / 2), QLatin1Char('a')));
    expectNotSaved(path(), {half, half}, limit);
    EXPECT_EQ(content(), "old");
}

TEST_F(LabelFileTest, TextOfTheLimitIsSavedAndLoaded)
{
    const int room = int(LabelFileSizeLimit) - int(written({KiroLabel()}).size());
    const KiroLabel full = named(QString(room, QLatin1Char('a')));
    ASSERT_TRUE(KiroLabel::save(path(), {full}));
    EXPECT_EQ(QFileInfo(path()).size(), LabelFileSizeLimit);
    const QList<KiroLabel> loaded = KiroLabel::load(path());
    ASSERT_EQ(loaded.size(), 1);
    EXPECT_TRUE(loaded[0].name() == full.name());
    expectNotSaved(path(), {named(QString(room + 1, QLatin1Char('a')))},
                   QStringLiteral("label 1: a label file has at most 67108864 bytes"));
}

TEST_F(LabelFileTest, FailedSavesLeaveTheOldFileAndNoOther)
{
    write("old");
    KiroLabel bad;
    bad.type = static_cast<KiroLabel::Type>(0);
    expectNotSaved(path(), {bad}, QStringLiteral("label 1: unknown type 0"));
    expectNotSaved(QString(), {}, QStringLiteral("this is no file name"));
    expectNotSaved(m_folder.path(QStringLiteral("missing/f.lab")), {},
                   QStringLiteral("No such file or directory"));
    expectNotSaved(QFileInfo(path()).path(), {}, QStringLiteral("it is no regular file"));
    expectNotSaved(QStringLiteral("/dev/full"), {}, QStringLiteral("it is no regular file"));
    EXPECT_EQ(content(), "old");
    EXPECT_EQ(filesInFolder(), QStringList(QStringLiteral("f.lab")));
}

TEST_F(LabelFileTest, PermissionsAndLinksStay)
{
    write("old");
    ASSERT_EQ(::chmod(QFile::encodeName(path()).constData(), 0640), 0);
    const QString link = m_folder.path(QStringLiteral("link.lab"));
    ASSERT_TRUE(QFile::link(path(), link));
    ASSERT_TRUE(KiroLabel::save(link, {}));
    EXPECT_TRUE(QFileInfo(link).isSymLink());
    EXPECT_EQ(content(), Head + End);
    struct stat status = {};
    ASSERT_EQ(::stat(QFile::encodeName(path()).constData(), &status), 0);
    EXPECT_EQ(status.st_mode & 07777u, 0640u);
}

// A limit on the size of files makes a write come back short, as a full disk does.
TEST_F(LabelFileTest, DiskWithoutRoomLeavesTheOldFile)
{
    const std::string old = Head + Line + End;
    write(old);
    const QString tooLarge = QStringLiteral("File too large");
    const QString shortWrite = QStringLiteral("Not all bytes could be written");
    const std::pair<rlim_t, QString> disks[] = {
        {0, tooLarge}, {10, shortWrite}, {65536, shortWrite}, {100000, shortWrite}, {299000, shortWrite}};
    for (const auto& [room, reason] : disks) {
        const FileSizeLimit limit(room);
        ASSERT_TRUE(limit.isSet());
        expectNotSaved(path(), {named(QString(300000, QLatin1Char('x')))}, reason);
        EXPECT_EQ(content(), old);
        EXPECT_EQ(filesInFolder(), QStringList(QStringLiteral("f.lab")));
    }
}

// To root permissions do not apply, so this runs in a child that has given its rights up.
TEST_F(LabelFileTest, MissingPermissionsAreReported)
{
    write(Head + Line + End);
    const QString folder = m_folder.path(QString());
    ASSERT_EQ(::chmod(QFile::encodeName(path()).constData(), 0000), 0);
    ASSERT_EQ(::chmod(QFile::encodeName(folder).constData(), 0555), 0);
    EXPECT_EXIT(
        {
            if (::geteuid() == 0 && ::setuid(65534) != 0)
                ::_exit(9);
            expectRefused(path(), QStringLiteral("Permission denied"));
            expectNotSaved(m_folder.path(QStringLiteral("new.lab")), {}, QStringLiteral("Permission denied"));
            const MessageRecorder messages;
            if (KiroLabel::save(path(), {}) || MessageRecorder::texts().size() != 1)
                ::_exit(8);
            ::_exit(HasFailure() ? 1 : 0);
        },
        testing::ExitedWithCode(0), "");
    ASSERT_EQ(::chmod(QFile::encodeName(folder).constData(), 0755), 0);
    ASSERT_EQ(::chmod(QFile::encodeName(path()).constData(), 0644), 0);
    EXPECT_EQ(content(), Head + Line + End);
}
