#include "kirolabel.h"

#include <QCoreApplication>
#include <QLocale>
#include <QTranslator>

#include <gtest/gtest.h>

#include <cmath>
#include <cstring>
#include <limits>

namespace
{

const QString Name = QStringLiteral("Blink 7");
const QString Description = QStringLiteral("seen on both eyes");
const QColor Color(1, 2, 3, 4);

constexpr KiroLabel::Type AllTypes[] = {KiroLabel::Point, KiroLabel::SignalLine, KiroLabel::TimeLine,
                                        KiroLabel::SignalPeriod, KiroLabel::TimePeriod};

/// A label that holds something in every field before a setup.
KiroLabel used()
{
    KiroLabel label;
    label.setupPoint(99, 98, 97.0, QStringLiteral("old"), QStringLiteral("old"), Qt::red);
    label.endTime = 96;
    return label;
}

void expectFields(const KiroLabel& label, KiroLabel::Type type, quint32 signal, double value, quint32 time,
                  quint32 endTime)
{
    EXPECT_EQ(label.type, type);
    EXPECT_EQ(label.signal, signal);
    EXPECT_EQ(label.value, value);
    EXPECT_EQ(label.time, time);
    EXPECT_EQ(label.endTime, endTime);
    EXPECT_EQ(label.name(), Name);
    EXPECT_EQ(label.description(), Description);
    EXPECT_EQ(label.color, Color);
}

/// Translates every text into itself in angle brackets.
class Brackets : public QTranslator
{
public:
    Brackets() { QCoreApplication::installTranslator(this); }
    ~Brackets() override { QCoreApplication::removeTranslator(this); }
    bool isEmpty() const override { return false; }
    QString translate(const char* context, const char* text, const char* /*disambiguation*/,
                      int /*count*/) const override
    {
        return QString::fromLatin1("<%1>")
            .arg(QString::fromLatin1(text))
            .repeated(std::strcmp(context, "KiroLabel") == 0 ? 1 : 0);
    }

private:
    Q_DISABLE_COPY(Brackets)
};

/// Makes a locale the default while it lives.
class DefaultLocale
{
public:
    explicit DefaultLocale(const QLocale& locale) { QLocale::setDefault(locale); }
    ~DefaultLocale() { QLocale::setDefault(m_before); }

private:
    Q_DISABLE_COPY(DefaultLocale)
    QLocale m_before;
};

QString positionOf(double value)
{
    KiroLabel label;
    label.value = value;
    return label.positionText();
}

} // namespace

// Setting up

TEST(KiroLabelSetup, NewLabelIsAnEmptyPoint)
{
    const KiroLabel label;
    EXPECT_EQ(label.type, KiroLabel::Point);
    EXPECT_EQ(label.time, 0u);
    EXPECT_EQ(label.endTime, 0u);
    EXPECT_EQ(label.signal, 0u);
    EXPECT_EQ(label.value, 0.0);
    EXPECT_EQ(label.color, QColor());
    EXPECT_EQ(label.name(), QString());
    EXPECT_EQ(label.description(), QString());
}

TEST(KiroLabelSetup, PointHasSignalAndValueAndEndsWhereItIs)
{
    KiroLabel label = used();
    label.setupPoint(3, 1500, -2.5, Name, Description, Color);
    expectFields(label, KiroLabel::Point, 3, -2.5, 1500, 1500);
}

TEST(KiroLabelSetup, SignalLineHasNoValue)
{
    KiroLabel label = used();
    label.setupSignalLine(3, 1500, Name, Description, Color);
    expectFields(label, KiroLabel::SignalLine, 3, 0.0, 1500, 1500);
}

TEST(KiroLabelSetup, TimeLineHasNoSignal)
{
    KiroLabel label = used();
    label.setupTimeLine(1500, Name, Description, Color);
    expectFields(label, KiroLabel::TimeLine, 0, 0.0, 1500, 1500);
}

TEST(KiroLabelSetup, SignalPeriodHasSignalAndEnd)
{
    KiroLabel label = used();
    label.setupSignalPeriod(3, 1500, 4000000000u, Name, Description, Color);
    expectFields(label, KiroLabel::SignalPeriod, 3, 0.0, 1500, 4000000000u);
}

TEST(KiroLabelSetup, TimePeriodHasEndAndNoSignal)
{
    KiroLabel label = used();
    label.setupTimePeriod(1500, 2500, Name, Description, Color);
    expectFields(label, KiroLabel::TimePeriod, 0, 0.0, 1500, 2500);
}

TEST(KiroLabelSetup, ReversedPeriodIsKeptAsGiven)
{
    KiroLabel label;
    label.setupTimePeriod(2500, 1500, Name, Description, Color);
    expectFields(label, KiroLabel::TimePeriod, 0, 0.0, 2500, 1500);
}

TEST(KiroLabelSetup, CopiesAreIndependent)
{
    KiroLabel label;
    label.setupPoint(3, 1500, -2.5, Name, Description, Color);
    KiroLabel copy = label;
    copy.setName(QStringLiteral("other"));
    copy.setDescription(QStringLiteral("of it"));
    copy.time = 1;
    expectFields(label, KiroLabel::Point, 3, -2.5, 1500, 1500);
    EXPECT_EQ(copy.name(), QStringLiteral("other"));
    EXPECT_EQ(copy.description(), QStringLiteral("of it"));
}

TEST(KiroLabelFields, EachTypeHasItsOwn)
{
    const bool values[] = {true, false, false, false, false};
    const bool signalFields[] = {true, true, false, true, false};
    const bool ends[] = {false, false, false, true, true};
    for (int i = 0; i < 5; ++i) {
        KiroLabel label;
        label.type = AllTypes[i];
        EXPECT_EQ(label.hasValue(), values[i]) << i;
        EXPECT_EQ(label.hasSignal(), signalFields[i]) << i;
        EXPECT_EQ(label.hasEnd(), ends[i]) << i;
    }
}

// Readers

TEST(KiroLabelDuration, IsEndLessStart)
{
    KiroLabel label;
    label.setupTimePeriod(1500, 2501, Name, Description, Color);
    EXPECT_EQ(label.durationTime(), 1001);
    EXPECT_EQ(label.durationTimeSec(), 1.001);
}

TEST(KiroLabelDuration, OfALineIsZero)
{
    KiroLabel label;
    label.setupTimeLine(1500, Name, Description, Color);
    EXPECT_EQ(label.durationTime(), 0);
    EXPECT_EQ(label.durationTimeSec(), 0.0);
}

TEST(KiroLabelDuration, DoesNotWrapAtTheLimits)
{
    KiroLabel label;
    label.setupTimePeriod(0, 4294967295u, Name, Description, Color);
    EXPECT_EQ(label.durationTime(), 4294967295);
    EXPECT_EQ(label.durationTimeSec(), 4294967.295);
    label.setupTimePeriod(4294967295u, 0, Name, Description, Color);
    EXPECT_EQ(label.durationTime(), -4294967295);
    EXPECT_EQ(label.durationTimeSec(), -4294967.295);
}

TEST(KiroLabelSignal, IsMinusOneForTimeLabels)
{
    const int expected[] = {7, 7, -1, 7, -1};
    for (int i = 0; i < 5; ++i) {
        KiroLabel label;
        label.signal = 7;
        label.type = AllTypes[i];
        EXPECT_EQ(label.signalSignedInt(), expected[i]) << i;
    }
}

TEST(KiroLabelSignal, IsMinusOneForAnIndexThatIsNoInt)
{
    KiroLabel label;
    label.signal = 2147483647u;
    EXPECT_EQ(label.signalSignedInt(), 2147483647);
    label.signal = 2147483648u;
    EXPECT_EQ(label.signalSignedInt(), -1);
    label.signal = 4294967295u;
    EXPECT_EQ(label.signalSignedInt(), -1);
}

TEST(KiroLabelPosition, IsPlainWhereAPersonWouldWriteItSo)
{
    const DefaultLocale english(QLocale(QLocale::English, QLocale::UnitedStates));
    EXPECT_EQ(positionOf(0.0), QStringLiteral("0"));
    EXPECT_EQ(positionOf(0.1), QStringLiteral("0.1"));
    EXPECT_EQ(positionOf(-1234567.0), QStringLiteral("-1234567"));
    EXPECT_EQ(positionOf(0.000001), QStringLiteral("0.000001"));
    EXPECT_EQ(positionOf(1.0 / 3.0), QStringLiteral("0.3333333333333333"));
    EXPECT_EQ(positionOf(1e300), QStringLiteral("1e+300"));
    EXPECT_EQ(positionOf(1e-7), QStringLiteral("1e-07"));
}

TEST(KiroLabelPosition, FollowsTheLocaleWithoutGroups)
{
    const DefaultLocale polish(QLocale(QLocale::Polish, QLocale::Poland));
    EXPECT_EQ(positionOf(12345678.5), QStringLiteral("12345678,5"));
}

TEST(KiroLabelPosition, IsReadBackTheSameInEveryLocale)
{
    const double values[] = {0.0,
                             0.1,
                             -1.0 / 3.0,
                             123456789.125,
                             9007199254740993.0,
                             std::numeric_limits<double>::max(),
                             std::numeric_limits<double>::min(),
                             std::numeric_limits<double>::denorm_min(),
                             999999999999999.9,
                             1e15,
                             9.9999999999e-7};
    for (const QLocale::Language language : {QLocale::C, QLocale::English, QLocale::Polish, QLocale::German,
                                             QLocale::French, QLocale::Arabic, QLocale::Swedish}) {
        const DefaultLocale locale{QLocale(language)};
        for (const double value : values) {
            bool good = false;
            const double read = QLocale().toDouble(positionOf(value), &good);
            EXPECT_TRUE(good) << qPrintable(positionOf(value));
            EXPECT_EQ(read, value) << qPrintable(positionOf(value));
        }
    }
}

TEST(KiroLabelPosition, OfWhatIsNoNumberIsReadBackToo)
{
    const double infinity = std::numeric_limits<double>::infinity();
    EXPECT_EQ(QLocale().toDouble(positionOf(infinity)), infinity);
    EXPECT_EQ(QLocale().toDouble(positionOf(-infinity)), -infinity);
    EXPECT_TRUE(std::isnan(QLocale().toDouble(positionOf(std::numeric_limits<double>::quiet_NaN()))));
}

// Types

TEST(KiroLabelTypes, HaveTheirNumbers)
{
    for (int i = 0; i < 5; ++i)
        EXPECT_EQ(int(AllTypes[i]), i + 1);
}

TEST(KiroLabelTypes, AreWalkedByIndex)
{
    EXPECT_EQ(KiroLabel::TypeCount, 5u);
    for (uint i = 0; i < 5; ++i)
        EXPECT_EQ(KiroLabel::indexToType(i), AllTypes[i]);
}

TEST(KiroLabelTypes, IndexBeyondTheLastIsAPoint)
{
    EXPECT_EQ(KiroLabel::indexToType(5), KiroLabel::Point);
    EXPECT_EQ(KiroLabel::indexToType(4294967295u), KiroLabel::Point);
}

TEST(KiroLabelTypes, NamesAreThoseOfTheDialogs)
{
    const char* expected[] = {"Point", "Signal line", "Time line", "Signal period", "Time period"};
    for (int i = 0; i < 5; ++i)
        EXPECT_EQ(KiroLabel::typeToName(AllTypes[i]), QString::fromLatin1(expected[i]));
}

TEST(KiroLabelTypes, NamesAreTranslatedAndReadBack)
{
    const Brackets translator;
    EXPECT_EQ(KiroLabel::typeToName(KiroLabel::SignalLine), QStringLiteral("<Signal line>"));
    for (const KiroLabel::Type type : AllTypes)
        EXPECT_EQ(KiroLabel::nameToType(KiroLabel::typeToName(type)), type);
}

TEST(KiroLabelTypes, ExportTextsAreNotTranslatedAndReadBack)
{
    const Brackets translator;
    const char* expected[] = {"point", "signal line", "time line", "signal period", "time period"};
    for (int i = 0; i < 5; ++i) {
        EXPECT_EQ(KiroLabel::typeToString(AllTypes[i]), QString::fromLatin1(expected[i]));
        EXPECT_EQ(KiroLabel::nameToType(QString::fromLatin1(expected[i])), AllTypes[i]);
    }
}

TEST(KiroLabelTypes, UnknownOnesHaveNoTextsAndUnknownNamesArePoints)
{
    for (const int number : {0, 6, -1}) {
        EXPECT_EQ(KiroLabel::typeToName(static_cast<KiroLabel::Type>(number)), QString());
        EXPECT_EQ(KiroLabel::typeToString(static_cast<KiroLabel::Type>(number)), QString());
    }
    for (const char* name : {"", "<keep>", "Time", "time  line"})
        EXPECT_EQ(KiroLabel::nameToType(QString::fromLatin1(name)), KiroLabel::Point) << name;
}
