#include "batchprocess.h"

#include <QDir>
#include <QFile>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

#include <gtest/gtest.h>

#include <algorithm>
#include <cstring>

namespace
{

/// Fields of an expected file that the command does not print: facts of the case itself, results of
/// other work, and texts that depend on a locale.
const char* const OtherFields[] = {"kind",       "check",         "file",   "fileSize", "sha256",
                                   "load",       "requires",      "repair", "ops",      "readSignal",
                                   "shown",      "writtenHeader", "first",  "last",     "findSignal",
                                   "shownDateC", "trueFields"};

QDir recordings()
{
    return QDir(QStringLiteral(KIRO_TEST_DATA "/formats/recordings"));
}

QJsonDocument readJson(const QString& path)
{
    QFile file(path);
    EXPECT_TRUE(file.open(QIODevice::ReadOnly)) << path.toStdString();
    return QJsonDocument::fromJson(file.readAll());
}

QJsonObject withoutOtherFields(QJsonObject object)
{
    for (const char* field : OtherFields)
        object.remove(QLatin1String(field));
    if (object.contains(QStringLiteral("signals"))) {
        QJsonArray table;
        for (const QJsonValue signal : object.value(QStringLiteral("signals")).toArray())
            table.append(withoutOtherFields(signal.toObject()));
        object.insert(QStringLiteral("signals"), table);
    }
    return object;
}

std::string text(const QJsonValue& value)
{
    return QJsonDocument(QJsonArray{value}).toJson(QJsonDocument::Compact).toStdString();
}

bool sameDouble(double a, double b)
{
    return std::memcmp(&a, &b, sizeof(a)) == 0;
}

/// Differences at and below `place`, one text for each. Numbers must be the same doubles, however they
/// are spelt.
std::vector<std::string> differences(const QJsonValue& wanted, const QJsonValue& found,
                                     const std::string& place = {})
{
    std::vector<std::string> result;
    const auto append = [&result](std::vector<std::string> more) {
        result.insert(result.end(), more.begin(), more.end());
    };
    if (wanted.isObject() && found.isObject()) {
        QStringList keys = wanted.toObject().keys() + found.toObject().keys();
        keys.removeDuplicates();
        for (const QString& key : keys)
            append(differences(wanted.toObject().value(key), found.toObject().value(key),
                               place + '/' + key.toStdString()));
    } else if (wanted.isArray() && found.isArray() && wanted.toArray().size() == found.toArray().size()) {
        for (int i = 0; i < wanted.toArray().size(); ++i)
            append(
                differences(wanted.toArray().at(i), found.toArray().at(i), place + '/' + std::to_string(i)));
    } else {
        const bool same = wanted.isDouble() && found.isDouble()
                              ? sameDouble(wanted.toDouble(), found.toDouble())
                              : wanted == found;
        if (!same)
            result.push_back(place + ": wanted " + text(wanted) + ", found " + text(found));
    }
    return result;
}

/// Whether a line of dump is the number, or the name of one, that an expected file holds.
bool isLine(const std::string& line, const QJsonValue& wanted, bool isInteger)
{
    if (wanted.isString())
        return line == wanted.toString().toStdString();
    if (isInteger)
        return line == std::to_string(static_cast<qint64>(wanted.toDouble()));
    bool isNumber = false;
    const double number = QByteArray::fromStdString(line).toDouble(&isNumber);
    return isNumber && sameDouble(number, wanted.toDouble());
}

std::vector<std::string> lines(const std::string& output)
{
    std::vector<std::string> result;
    for (std::size_t start = 0; start < output.size();) {
        const std::size_t end = std::min(output.find('\n', start), output.size());
        result.push_back(output.substr(start, end - start));
        start = end + 1;
    }
    return result;
}

/// Elements of `values`, from `start` on, as many as `like` has.
QJsonArray stretch(const QJsonArray& values, int start, const QJsonArray& like)
{
    QJsonArray result;
    for (int i = 0; i < like.size(); ++i)
        result.append(values.at(start + i));
    return result;
}

struct Golden
{
    std::string name; ///< of the recording, without ".kiro"

    QString file() const
    {
        return recordings().filePath(QString::fromStdString(name) + QStringLiteral(".kiro"));
    }
    QJsonObject expected() const { return readJson(file() + QStringLiteral(".expected.json")).object(); }
};

/// Names of the recordings whose expected results must agree exactly.
std::vector<Golden> goldens()
{
    std::vector<Golden> result;
    for (const QString& entry : recordings().entryList({QStringLiteral("*.kiro")}, QDir::Files, QDir::Name)) {
        const Golden golden{entry.chopped(5).toStdString()};
        if (golden.expected().value(QStringLiteral("check")) == QJsonValue(QStringLiteral("exact")))
            result.push_back(golden);
    }
    return result;
}

void PrintTo(const Golden& golden, std::ostream* stream)
{
    *stream << golden.name;
}

class KirobatchGolden : public testing::TestWithParam<Golden>
{
protected:
    QString file() const { return GetParam().file(); }
    bool isRefused() const { return !m_expected.value(QStringLiteral("load")).toBool(); }
    const QJsonObject& expected() const { return m_expected; }

    static void expectSame(const QJsonValue& wanted, const BatchRun& run)
    {
        EXPECT_EQ(run.status, 0) << run.errors;
        EXPECT_EQ(run.errors, "");
        const auto document = QJsonDocument::fromJson(QByteArray::fromStdString(run.output));
        const QJsonValue found =
            document.isArray() ? QJsonValue(document.array()) : QJsonValue(document.object());
        EXPECT_EQ(differences(wanted, found), std::vector<std::string>());
    }

    static void expectRefusal(const BatchRun& run)
    {
        EXPECT_EQ(run.status, 1);
        EXPECT_EQ(run.output, "");
        EXPECT_EQ(run.errors.rfind("kirobatch: cannot open '", 0), 0u) << run.errors;
    }

    /// Runs dump on each signal that has samples, with further arguments. Calls `check(signal, run)`
    /// with the signal's expected fields; every other signal must be refused.
    template <class Check>
    void dumpEachSignal(const QStringList& arguments, Check check) const
    {
        const QJsonArray table = m_expected.value(QStringLiteral("signals")).toArray();
        for (int i = 0; i < table.size(); ++i) {
            SCOPED_TRACE("signal " + std::to_string(i));
            const BatchRun run = runBatch(
                QStringList{QStringLiteral("dump"), file(), QStringLiteral("--signal"), QString::number(i)} +
                arguments);
            const QJsonObject signal = table.at(i).toObject();
            if (signal.contains(QStringLiteral("first"))) {
                EXPECT_EQ(run.status, 0) << run.errors;
                check(signal, run);
            } else {
                EXPECT_EQ(run.status, 1);
                EXPECT_EQ(run.output, "");
            }
        }
    }

    int readableSamples(const QJsonObject& signal) const
    {
        return m_expected.value(QStringLiteral("readableFrames")).toInt() *
               signal.value(QStringLiteral("samplesPerFrame")).toInt();
    }

private:
    QJsonObject m_expected = GetParam().expected();
};

void expectLines(const std::vector<std::string>& printed, int start, const QJsonObject& signal,
                 const char* expectedField)
{
    const QJsonArray wanted = signal.value(QLatin1String(expectedField)).toArray();
    const int valueType = signal.value(QStringLiteral("valueType")).toInt();
    const bool isInteger = valueType == KiroValue::SignedInt || valueType == KiroValue::UnsignedInt;
    ASSERT_FALSE(wanted.isEmpty());
    ASSERT_GE(start, 0);
    ASSERT_GE(static_cast<int>(printed.size()), start + wanted.size());
    for (int i = 0; i < wanted.size(); ++i) {
        const std::string& line = printed[static_cast<std::size_t>(start + i)];
        EXPECT_TRUE(isLine(line, wanted.at(i), isInteger))
            << expectedField << ' ' << i << ": wanted " << text(wanted.at(i)) << ", found " << line;
    }
}

} // namespace

TEST_P(KirobatchGolden, InfoAgrees)
{
    const BatchRun run = runBatch({QStringLiteral("info"), QStringLiteral("--json"), file()});
    if (isRefused())
        expectRefusal(run);
    else
        expectSame(withoutOtherFields(expected()), run);
}

TEST_P(KirobatchGolden, SignalsAgree)
{
    const BatchRun run = runBatch({QStringLiteral("signals"), QStringLiteral("--json"), file()});
    if (isRefused())
        expectRefusal(run);
    else
        expectSame(withoutOtherFields(expected()).value(QStringLiteral("signals")), run);
}

TEST_P(KirobatchGolden, DumpAgreesAtBothEnds)
{
    if (isRefused())
        expectRefusal(runBatch({QStringLiteral("dump"), QStringLiteral("--signal=0"), file()}));
    dumpEachSignal({}, [this](const QJsonObject& signal, const BatchRun& run) {
        const std::vector<std::string> printed = lines(run.output);
        const int count = readableSamples(signal);
        ASSERT_EQ(static_cast<int>(printed.size()), count);
        expectLines(printed, 0, signal, "first");
        expectLines(printed, count - signal.value(QStringLiteral("last")).toArray().size(), signal, "last");
    });
}

TEST_P(KirobatchGolden, DumpAsJsonAgreesAtBothEnds)
{
    if (isRefused())
        expectRefusal(runBatch(
            {QStringLiteral("dump"), QStringLiteral("--json"), QStringLiteral("--signal=0"), file()}));
    dumpEachSignal({QStringLiteral("--json")}, [this](const QJsonObject& signal, const BatchRun& run) {
        const QJsonObject found = QJsonDocument::fromJson(QByteArray::fromStdString(run.output)).object();
        const QJsonArray values = found.value(QStringLiteral("values")).toArray();
        const QJsonArray first = signal.value(QStringLiteral("first")).toArray();
        const QJsonArray last = signal.value(QStringLiteral("last")).toArray();
        ASSERT_EQ(values.size(), readableSamples(signal));
        EXPECT_EQ(differences(first, stretch(values, 0, first)), std::vector<std::string>());
        EXPECT_EQ(differences(last, stretch(values, values.size() - last.size(), last)),
                  std::vector<std::string>());
        EXPECT_EQ(found.value(QStringLiteral("count")), QJsonValue(values.size()));
        for (const char* name : {"fullName", "shortName"})
            EXPECT_EQ(found.value(QLatin1String(name)), signal.value(QLatin1String(name)));
    });
}

INSTANTIATE_TEST_SUITE_P(Recordings, KirobatchGolden, testing::ValuesIn(goldens()),
                         [](const auto& parameter) {
                             std::string name = parameter.param.name;
                             std::replace(name.begin(), name.end(), '.', '_');
                             return name;
                         });

TEST(KirobatchGoldenFolder, HoldsTheRecordings)
{
    EXPECT_EQ(goldens().size(), 133u);
}

TEST(KirobatchGoldenComparison, SeesTheLastDigitOfADouble)
{
    const QJsonObject wanted{{QStringLiteral("a"), QJsonArray{1, 0.1}}};
    const QJsonObject found{{QStringLiteral("a"), QJsonArray{1, 0.10000000000000002}}};
    EXPECT_EQ(differences(wanted, found),
              std::vector<std::string>{"/a/1: wanted [0.1], found [0.10000000000000002]"});
    EXPECT_EQ(differences(wanted, wanted), std::vector<std::string>());
}

TEST(KirobatchGoldenComparison, SeesFieldsTooFewAndTooMany)
{
    const QJsonObject wanted{{QStringLiteral("a"), 1}};
    const QJsonObject found{{QStringLiteral("b"), QJsonValue()}};
    EXPECT_EQ(differences(wanted, found).size(), 2u);
}

TEST(KirobatchGoldenComparison, SeesASampleLineThatIsOff)
{
    EXPECT_TRUE(isLine("-7", QJsonValue(-7), true));
    EXPECT_FALSE(isLine("-7.0", QJsonValue(-7), true));
    EXPECT_FALSE(isLine("-8", QJsonValue(-7), true));
    EXPECT_FALSE(isLine("0.10000000000000002", QJsonValue(0.1), false));
    EXPECT_FALSE(isLine("", QJsonValue(0), false));
}
