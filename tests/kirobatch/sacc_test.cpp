#include "batchprocess.h"

#include "kirosaccheader.h"

#include <QDir>
#include <QFile>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

#include <gmock/gmock.h>

#include <algorithm>
#include <cctype>
#include <limits>
#include <map>

#include <sys/stat.h>

using testing::EndsWith;
using testing::HasSubstr;
using testing::Not;
using testing::StartsWith;

namespace
{

/// Of longer lists the first ones stand in an expected file.
constexpr int ListedRecords = 12;

BatchRun sacc(const QString& file)
{
    return runBatch({QStringLiteral("sacc"), file});
}

BatchRun saccJson(const QString& file)
{
    return runBatch({QStringLiteral("sacc"), QStringLiteral("--json"), file});
}

QJsonObject jsonOf(const BatchRun& run)
{
    return QJsonDocument::fromJson(QByteArray::fromStdString(run.output)).object();
}

/// Every value by its place, doubles with all their digits.
void flatten(const QJsonValue& value, const std::string& place, std::map<std::string, std::string>& result)
{
    if (value.isObject()) {
        const QJsonObject object = value.toObject();
        for (auto member = object.begin(); member != object.end(); ++member)
            flatten(member.value(), place + '/' + member.key().toStdString(), result);
    } else if (value.isArray()) {
        const QJsonArray array = value.toArray();
        for (int i = 0; i < array.size(); ++i)
            flatten(array[i], place + '/' + std::to_string(i), result);
        result[place] = std::to_string(array.size()) + " elements";
    } else if (value.isDouble()) {
        result[place] = QByteArray::number(value.toDouble() + 0.0, 'g', 17).toStdString();
    } else {
        result[place] = QJsonDocument(QJsonArray{value}).toJson(QJsonDocument::Compact).toStdString();
    }
}

std::map<std::string, std::string> flat(const QJsonObject& object)
{
    std::map<std::string, std::string> result;
    flatten(object, {}, result);
    return result;
}

/// Leaves the start of a list.
void shorten(QJsonObject& object, const QString& key)
{
    QJsonArray array = object.value(key).toArray();
    while (array.size() > ListedRecords)
        array.removeLast();
    object.insert(key, array);
}

/// A file of the corpus whose answer is fixed.
struct Golden
{
    std::string name;

    QString file() const
    {
        return QStringLiteral(KIRO_TEST_DATA "/formats/sacc/") + QString::fromStdString(name);
    }
    QJsonObject expected() const
    {
        QFile file(this->file() + QStringLiteral(".expected.json"));
        EXPECT_TRUE(file.open(QIODevice::ReadOnly)) << name;
        return QJsonDocument::fromJson(file.readAll()).object();
    }
};

void PrintTo(const Golden& golden, std::ostream* stream)
{
    *stream << golden.name;
}

std::vector<Golden> goldens()
{
    std::vector<Golden> result;
    const QDir folder(QStringLiteral(KIRO_TEST_DATA "/formats/sacc"));
    for (const QString& entry : folder.entryList({QStringLiteral("*.sacc")}, QDir::Files, QDir::Name)) {
        const Golden golden{entry.toStdString()};
        if (golden.expected().value(QStringLiteral("check")) == QJsonValue(QStringLiteral("exact")))
            result.push_back(golden);
    }
    return result;
}

class KirobatchSaccGolden : public testing::TestWithParam<Golden>
{
};

/// A run of detection with one saccade and one blink.
KiroSaccHeader someHeader()
{
    KiroSaccHeader header;
    header.setDataFiles("/data/rec.kiro", "../rec.kiro");
    header.comment = "caf\xe9";
    header.detectionType = KiroSaccHeader::Monocular;
    header.setSignal(KiroSaccHeader::RightHorizontal, 3, 12.5, -0.25);
    header.params.local = 7;
    header.params.gap = 50;
    header.params.minTime = 20;
    header.params.maxTime = 300;
    header.params.initVel = 35.5;
    header.params.minSpeed = 100;
    header.params.minSlope = 15000;
    header.ratePeriod = 1000;
    header.samplesPerPeriod = 250;
    header.durationMs = 3723004;
    header.saccades.resize(1);
    KiroSaccadeEye& eye = header.saccades[0].main;
    eye.start = 100;
    eye.end = 119;
    eye.duration = 20;
    eye.fixation = 80;
    eye.amplitude = 4.5;
    eye.peakVelocity = 310.25;
    eye.meanVelocity = 225.5;
    eye.peakAcceleration = 9000.75;
    eye.velocityPerDuration = 0.0625;
    eye.amplitudeHorz = 3.25;
    eye.startHorz = -1.5;
    eye.endHorz = 1.75;
    eye.amplitudeVert = 2.5;
    eye.startVert = 0.5;
    eye.endVert = 3;
    header.blinks = {{400, 599, 200, 90, 20.5, 16.5, 0.75}};
    return header;
}

QString saved(const TestFolder& folder, KiroSaccHeader header)
{
    const QString path = folder.path(QStringLiteral("a.sacc"));
    EXPECT_TRUE(header.saveAs(KiroString(path))) << header.error.bytes();
    return path;
}

} // namespace

TEST_P(KirobatchSaccGolden, JsonAgrees)
{
    const BatchRun run = saccJson(GetParam().file());
    QJsonObject wanted = GetParam().expected();
    if (!wanted.value(QStringLiteral("load")).toBool()) {
        EXPECT_EQ(run.status, 1);
        EXPECT_EQ(run.output, "");
        EXPECT_THAT(run.errors, StartsWith("kirobatch: cannot open '"));
        return;
    }
    EXPECT_EQ(run.status, 0) << run.errors;
    QJsonObject found = jsonOf(run);
    EXPECT_EQ(found.value(QStringLiteral("saccades")).toArray().size(),
              found.value(QStringLiteral("saccadeCount")).toInt());
    if (wanted.contains(QStringLiteral("lastSaccade")))
        found.insert(QStringLiteral("lastSaccade"), found.value(QStringLiteral("saccades")).toArray().last());
    shorten(found, QStringLiteral("saccades"));
    shorten(found, QStringLiteral("blinks"));
    for (const char* key : {"kind", "load", "error", "check", "file", "fileSize", "sha256", "saved"})
        wanted.remove(QLatin1String(key));
    EXPECT_EQ(flat(found), flat(wanted));
}

INSTANTIATE_TEST_SUITE_P(Files, KirobatchSaccGolden, testing::ValuesIn(goldens()), [](const auto& parameter) {
    std::string name = parameter.param.name;
    const auto isOther = [](char c) { return !std::isalnum(static_cast<unsigned char>(c)); };
    std::replace_if(name.begin(), name.end(), isOther, '_');
    return name;
});

TEST(KirobatchSaccGoldenFolder, HoldsTheFiles)
{
    EXPECT_EQ(goldens().size(), 80u);
}

TEST(KirobatchSacc, PrintsFactsSignalsParametersSaccadesAndBlinks)
{
    const TestFolder folder;
    const QString file = saved(folder, someHeader());
    const BatchRun run = sacc(file);
    EXPECT_EQ(run.status, 0);
    EXPECT_EQ(run.errors, "");
    EXPECT_EQ(run.output,
              "File:             " + file.toStdString() +
                  "\n"
                  "Recording:        /data/rec.kiro\n"
                  "Relative path:    ../rec.kiro\n"
                  "Comment:          caf\xe9\n"
                  "Detection type:   Monocular\n"
                  "Blinks found in:  vertical signal\n"
                  "Frequency:        250.000 Hz\n"
                  "Duration:         01:02:03.004\n"
                  "Saccades:         1\n"
                  "Blinks:           1\n"
                  "\n"
                  "Signals:\n"
                  "  Signal            Index  Factor  Offset\n"
                  "  right horizontal      3    12.5   -0.25\n"
                  "  right vertical       -1       1       0\n"
                  "  left horizontal      -1       1       0\n"
                  "  left vertical        -1       1       0\n"
                  "\n"
                  "Detection parameters:\n"
                  "  Half width of the peak window [samples]      7\n"
                  "  Minimum fixation [samples]                  50\n"
                  "  Minimum duration [samples]                  20\n"
                  "  Maximum duration [samples]                 300\n"
                  "  Initial velocity [deg/s]                  35.5\n"
                  "  Minimum peak velocity [deg/s]              100\n"
                  "  Minimum acceleration [deg/s2]            15000\n"
                  "\n"
                  "Saccades:\n"
                  "  Index  Eye   Start  End  Duration  Fixation  Amplitude  Peak vel.  Mean vel.  "
                  "Peak acc.  Vel./duration  Ampl. horz  Start horz  End horz  Ampl. vert  "
                  "Start vert  End vert\n"
                  "      0  main    100  119        20        80        4.5     310.25      225.5    "
                  "9000.75         0.0625        3.25        -1.5      1.75         2.5         "
                  "0.5         3\n"
                  "\n"
                  "Blinks:\n"
                  "  Index  Start  End  Duration  Peaks distance  Amplitude 1  Amplitude 2  "
                  "Relation\n"
                  "      0    400  599       200              90         20.5         16.5      "
                  "0.75\n");
}

TEST(KirobatchSacc, LeavesOutTablesThatAreEmpty)
{
    const TestFolder folder;
    const BatchRun run = sacc(saved(folder, KiroSaccHeader()));
    EXPECT_EQ(run.status, 0);
    EXPECT_THAT(run.output, HasSubstr("\nDetection type:   One signal\n"));
    EXPECT_THAT(run.output, HasSubstr("\nSaccades:         0\nBlinks:           0\n"));
    EXPECT_THAT(run.output, Not(HasSubstr("\nSaccades:\n")));
    EXPECT_THAT(run.output, Not(HasSubstr("\nBlinks:\n")));
    EXPECT_THAT(run.output, Not(HasSubstr(" \n")));
}

TEST(KirobatchSacc, ShowsBothEyesOfABinocularSaccade)
{
    const TestFolder folder;
    KiroSaccHeader header = someHeader();
    header.detectionType = KiroSaccHeader::Binocular;
    header.saccades[0].left.start = 98;
    header.saccades[0].right.start = 101;
    const std::string output = sacc(saved(folder, header)).output;
    EXPECT_THAT(output, HasSubstr("\n      0  main     100 "));
    EXPECT_THAT(output, HasSubstr("\n         left      98 "));
    EXPECT_THAT(output, HasSubstr("\n         right    101 "));
}

TEST(KirobatchSacc, JsonHasOneRecordALine)
{
    const TestFolder folder;
    KiroSaccHeader header = someHeader();
    header.blinks.push_back(header.blinks[0]);
    const BatchRun run = saccJson(saved(folder, header));
    EXPECT_THAT(run.output, HasSubstr("\"blinks\":[\n"
                                      "{\"start\":400,\"end\":599,\"duration\":200,\"peaksDistance\":90,"
                                      "\"amp1\":20.5,\"amp2\":16.5,\"ampRelation\":0.75},\n"));
    EXPECT_THAT(run.output, EndsWith("\"ampRelation\":0.75}]}\n"));
    // U+00E9 in UTF-8.
    EXPECT_THAT(run.output, HasSubstr("\"comment\":\"caf\xc3\xa9\""));
}

TEST(KirobatchSacc, JsonNumbersThatAreNotFiniteAreStrings)
{
    const TestFolder folder;
    KiroSaccHeader header = someHeader();
    header.ratePeriod = 0;
    header.leftVertical.factor = std::numeric_limits<double>::quiet_NaN();
    header.saccades[0].main.amplitude = -std::numeric_limits<double>::infinity();
    const QJsonObject object = jsonOf(saccJson(saved(folder, header)));
    EXPECT_EQ(object.value(QStringLiteral("frequency")), QJsonValue(QStringLiteral("inf")));
    EXPECT_EQ(flat(object)["/leftVertical/factor"], "[\"nan\"]");
    EXPECT_EQ(flat(object)["/saccades/0/main/amplitude"], "[\"-inf\"]");
}

TEST(KirobatchSacc, WarnsOfRecordsThatAreMissing)
{
    const TestFolder folder;
    const std::string bytes = someHeader().toBytes();
    folder.write(QStringLiteral("cut.sacc"), bytes.substr(0, bytes.size() - 41));
    const QString file = folder.path(QStringLiteral("cut.sacc"));
    for (const BatchRun& run : {sacc(file), saccJson(file)}) {
        EXPECT_EQ(run.status, 0);
        EXPECT_EQ(run.errors,
                  "kirobatch: warning: '" + file.toStdString() +
                      "' ends 41 bytes too early: 1 of 1 saccades and 1 of 1 blinks are not there "
                      "whole. Missing numbers are shown as 0.\n");
    }
    EXPECT_EQ(flat(jsonOf(saccJson(file)))["/blinks/0/start"], "0");
}

TEST(KirobatchSacc, SaysWhyAFileIsRefused)
{
    const TestFolder folder;
    folder.write(QStringLiteral("x.sacc"), "no saccades");
    const QString file = folder.path(QStringLiteral("x.sacc"));
    const BatchRun run = sacc(file);
    EXPECT_EQ(run.status, 1);
    EXPECT_EQ(run.output, "");
    EXPECT_EQ(run.errors, "kirobatch: cannot open '" + file.toStdString() +
                              "': invalid magic number (0x6e6f2073). Check that it is a saccade file "
                              "(.sacc), copied whole.\n");
}

TEST(KirobatchSacc, SaysWhatIsNoFile)
{
    const TestFolder folder;
    const QString pipe = folder.path(QStringLiteral("pipe"));
    ASSERT_EQ(::mkfifo(qPrintable(pipe), 0600), 0);
    for (const QString& path : {folder.path(QString()), pipe}) {
        const BatchRun run = sacc(path);
        EXPECT_EQ(run.status, 1);
        EXPECT_EQ(run.errors, "kirobatch: cannot open '" + path.toStdString() +
                                  "': it is no file. Give the path of a saccade file (.sacc).\n");
    }
    EXPECT_THAT(sacc(folder.path(QStringLiteral("absent.sacc"))).errors,
                HasSubstr("absent.sacc': No such file or directory. Check the path"));
}

TEST(KirobatchSacc, SaysThatAFileIsNotReadable)
{
    const TestFolder folder;
    const QString file = saved(folder, someHeader());
    ASSERT_EQ(::chmod(qPrintable(file), 0), 0);
    const BatchRun run = runBatchWithoutPrivilege({QStringLiteral("sacc"), file});
    EXPECT_EQ(run.status, 1);
    EXPECT_THAT(run.errors, HasSubstr("Permission denied"));
}

TEST(KirobatchSacc, ControlCharactersDoNotReachTheTerminal)
{
    const TestFolder folder;
    KiroSaccHeader header = someHeader();
    header.comment = "red\x1b[31m\nline";
    EXPECT_THAT(sacc(saved(folder, header)).output, HasSubstr("\nComment:          red?[31m?line\n"));
}

TEST(KirobatchSacc, WithoutAFileIsWrongUsage)
{
    const BatchRun run = runBatch({QStringLiteral("sacc"), QStringLiteral("--json")});
    EXPECT_EQ(run.status, 2);
    EXPECT_EQ(run.errors, "kirobatch: the FILE is missing: give the path of a saccade file (.sacc).\n"
                          "Try 'kirobatch sacc --help'.\n");
}
