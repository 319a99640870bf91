#include <QDir>
#include <QFile>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QProcess>
#include <QRegularExpression>
#include <QTemporaryDir>

#include <gtest/gtest.h>

namespace
{

const QString Corpus = QStringLiteral(KIRO_TEST_DATA "/formats");
const QString NumericCorpus = QStringLiteral(KIRO_TEST_DATA "/algorithms");
const QString Mixed = QStringLiteral("recordings/v12_mixed.kiro");
const QString CoreTexts = QStringLiteral("ini/core_texts.txt");
const QString IniSteps = QStringLiteral("ini/steps.txt");
const QString SettingsLines = QStringLiteral("profiles/settings_lines.txt");

/// What a run of golden_runner has printed and how it ended.
struct Outcome
{
    int exitCode = -1; // stays so if the process crashed or hung
    QStringList differences;
    QString lastLine;

    /// A number of the last line: 1 passed, 2 failed, 3 skipped; -1 if the line has another form.
    long count(int which) const
    {
        static const QRegularExpression form(
            QStringLiteral("^(\\d+) passed, (\\d+) failed, (\\d+) skipped$"));
        const QRegularExpressionMatch match = form.match(lastLine);
        return match.hasMatch() ? match.captured(which).toLong() : -1;
    }
    long passed() const { return count(1); }
    long failed() const { return count(2); }
    long skipped() const { return count(3); }
    std::string onlyDifference() const
    {
        return differences.size() == 1 ? differences.front().toStdString() : "not one difference";
    }
};

Outcome runGolden(const QStringList& arguments)
{
    QProcess process;
    process.start(QStringLiteral(GOLDEN_RUNNER), arguments);
    Outcome run;
    if (!process.waitForFinished(120000) || process.exitStatus() != QProcess::NormalExit)
        return run;
    run.exitCode = process.exitCode();
    const QString output = QString::fromUtf8(process.readAllStandardOutput());
    run.differences = output.split(QLatin1Char('\n'), Qt::SkipEmptyParts);
    if (!run.differences.isEmpty())
        run.lastLine = run.differences.takeLast();
    return run;
}

QByteArray contentOf(const QString& path)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        ADD_FAILURE() << "cannot read " << path.toStdString();
    return file.readAll();
}

/// A folder in the form of a corpus that a test may damage.
class SmallCorpus
{
public:
    QString path(const QString& name = QString()) const { return m_folder.filePath(name); }

    void write(const QString& name, const QByteArray& bytes) const
    {
        QDir(path()).mkpath(QFileInfo(name).path());
        QFile file(path(name));
        if (!file.open(QIODevice::WriteOnly) || file.write(bytes) != bytes.size())
            ADD_FAILURE() << "cannot write " << name.toStdString();
    }

    /// Copies a case with all its files and makes it the only one of INDEX.json.
    void copyCase(const QString& name, const QString& kind,
                  const QString& check = QStringLiteral("exact")) const
    {
        const QFileInfo original(Corpus + QLatin1Char('/') + name);
        const QStringList files = original.dir().entryList({original.fileName() + QLatin1Char('*')});
        for (const QString& file : files)
            write(QFileInfo(name).path() + QLatin1Char('/') + file, contentOf(original.dir().filePath(file)));
        writeIndex(QJsonArray{QJsonObject{{QStringLiteral("file"), name},
                                          {QStringLiteral("kind"), kind},
                                          {QStringLiteral("check"), check},
                                          {QStringLiteral("why"), QStringLiteral("a test")}}});
    }

    void writeIndex(const QJsonArray& cases) const
    {
        const QJsonObject index{{QStringLiteral("cases"), cases}};
        write(QStringLiteral("INDEX.json"), QJsonDocument(index).toJson());
    }

    /// Replaces the first `from` behind the first `section` in the expected file.
    void changeExpected(const QString& name, const QByteArray& section, const QByteArray& from,
                        const QByteArray& to) const
    {
        const QString expected = name + QStringLiteral(".expected.json");
        QByteArray text = contentOf(path(expected));
        const int start = text.indexOf(section);
        const int place = start < 0 ? -1 : text.indexOf(from, start);
        ASSERT_GE(place, 0) << "the case does not hold " << from.toStdString();
        write(expected, text.replace(place, from.size(), to));
    }

    Outcome run() const { return runGolden({path()}); }

private:
    QTemporaryDir m_folder;
};

QString kindOf(const QString& name)
{
    if (name == CoreTexts)
        return QStringLiteral("coreText");
    if (name == IniSteps)
        return QStringLiteral("iniSteps");
    if (name == SettingsLines)
        return QStringLiteral("settingsLines");
    for (const char* suffix : {"ini", "sdp", "bdp", "sacc"}) {
        if (name.endsWith(QLatin1Char('.') + QLatin1String(suffix)))
            return QLatin1String(suffix);
    }
    return QStringLiteral("recording");
}

} // namespace

TEST(GoldenRunner, AgreesWithTheWholeCorpus)
{
    const Outcome run = runGolden({Corpus});
    EXPECT_EQ(run.exitCode, 0);
    EXPECT_EQ(run.failed(), 0);
    EXPECT_GE(run.passed(), 25000);
    EXPECT_EQ(run.differences.join(QLatin1Char('\n')).toStdString(), "");
}

TEST(GoldenRunner, CountsAllFoldersTogether)
{
    SmallCorpus one;
    one.copyCase(Mixed, kindOf(Mixed));
    const Outcome once = one.run();
    const Outcome twice = runGolden({one.path(), one.path()});
    EXPECT_GT(once.passed(), 0);
    EXPECT_EQ(twice.passed(), 2 * once.passed());
    EXPECT_EQ(twice.skipped(), 2 * once.skipped());
}

/// A change of the last digit of one expected value, and the difference that it must give.
struct LastDigit
{
    const char* name;
    QString file;
    const char* section; ///< stands before the value
    const char* from;
    const char* to;
    const char* unit; ///< that the line names
};

void PrintTo(const LastDigit& change, std::ostream* out)
{
    *out << change.from << " to " << change.to;
}

class ChangedExpectation : public testing::TestWithParam<LastDigit>
{
};

TEST_P(ChangedExpectation, IsTheOnlyDifference)
{
    const LastDigit& change = GetParam();
    SmallCorpus corpus;
    corpus.copyCase(change.file, kindOf(change.file));
    ASSERT_EQ(corpus.run().exitCode, 0);
    corpus.changeExpected(change.file, change.section, change.from, change.to);
    const Outcome run = corpus.run();
    EXPECT_EQ(run.exitCode, 1);
    EXPECT_EQ(run.failed(), 1);
    const std::string start = change.file.toStdString() + ": " + change.unit + ": wanted ";
    EXPECT_EQ(run.onlyDifference().substr(0, start.size()), start);
}

const QString ValueTypes = QStringLiteral("recordings/v03_value_types.kiro");
const QString TooShort = QStringLiteral("recordings/v03_count_high.kiro");
const QString IniNumbers = QStringLiteral("ini/numbers.ini");
const QString IniPens = QStringLiteral("ini/pens.ini");
const QString Saccades = QStringLiteral("profiles/v07.sdp");
const QString Blinks = QStringLiteral("profiles/v01.bdp");
const QString NoProfile = QStringLiteral("profiles/v1001.sdp");
const QString SaccFile = QStringLiteral("sacc/v18_blinks_only.sacc");
const QString OldSaccFile = QStringLiteral("sacc/v06_raw.sacc");
const QString NoSaccFile = QStringLiteral("sacc/refused_magic.sacc");

INSTANTIATE_TEST_SUITE_P(
    LastDigits, ChangedExpectation,
    testing::Values(
        LastDigit{"IntegerField", Mixed, "{", "\"frameCount\": 25", "\"frameCount\": 24", "frameCount"},
        LastDigit{"DoubleSample", Mixed, "\"first\"", "4.823438840394195", "4.823438840394196",
                  "signals[4].first[1]"},
        LastDigit{"FloatSample", Mixed, "\"last\"", "11.787926494418468", "11.787926494418466",
                  "signals[4].last[15]"},
        LastDigit{"IntegerSample", Mixed, "\"last\"", "6747\n", "6746\n", "signals[0].last[15]"},
        LastDigit{"EightByteSample", ValueTypes, "\"first\"", "-6477038694544673788", "-6477038694544673789",
                  "signals[3].first[0]"},
        LastDigit{"Text", Mixed, "{", "Recorder program 12.9", "Recorder program 12.8", "storingProgram"},
        LastDigit{"SignalText", Mixed, "\"signals\"", "\"eyex\"", "\"eyey\"", "signals[1].shortName"},
        LastDigit{"CalibrationFactor", Mixed, "{", "85.66339439573404", "85.66339439573402",
                  "signals[3].calibrationFactor"},
        LastDigit{"Flag", Mixed, "{", "\"checkIntegrity\": true", "\"checkIntegrity\": false",
                  "checkIntegrity"},
        LastDigit{"ByteOrder", Mixed, "{", "\"big\"", "\"bit\"", "byteOrder"},
        LastDigit{"TrueFields", Mixed, "\"trueFields\"", "28", "29", "trueFields[28]"},
        LastDigit{"TechnicalRow", Mixed, "\"technicalRows\"", "32 deg", "32 deh", "technicalRows[0][1]"},
        LastDigit{"Duration", Mixed, "{", "00:00:00.100", "00:00:00.101", "shownDuration"},
        LastDigit{"ReadableFrames", Mixed, "{", "\"readableFrames\": 25", "\"readableFrames\": 24",
                  "readableFrames"},
        LastDigit{"WrittenHeaderHash", Mixed, "\"writtenHeader\"", "d142c31dde63e8", "d142c31dde63e9",
                  "writtenHeader.sha256"},
        LastDigit{"WrittenHeaderSize", Mixed, "\"writtenHeader\"", "3768", "3767", "writtenHeader.size"},
        LastDigit{"RepairFrames", Mixed, "\"repair\"", "25", "24", "repair.frameCount"},
        LastDigit{"RepairHash", Mixed, "\"repair\"", "c2185d2958c", "c2185d2958d", "repair.sha256"},
        LastDigit{"FoundSignal", Mixed, "\"findSignal\"", "\"index\": 5", "\"index\": 4",
                  "findSignal[1].index"},
        LastDigit{"ReadSignalValue", Mixed, "\"readSignal\"", "-9.2532416840014", "-9.2532416840015",
                  "readSignal[3].values[9]"},
        LastDigit{"ReadSignalCount", Mixed, "\"readSignal\"", "\"count\": 23", "\"count\": 24",
                  "readSignal[3].count"},
        LastDigit{"UpdateHeaderHash", Mixed, "\"updateHeader\"", "2a12f30a92cd13cfb79ab7a15cf59d88641b7",
                  "2a12f30a92cd13cfb79ab7a15cf59d88641b8", "ops[19] updateHeader.sha256"},
        LastDigit{"UpdateHeaderSize", Mixed, "\"updateHeader\"", "4918", "4917", "ops[19] updateHeader.size"},
        LastDigit{"InputSize", Mixed, "{", "\"fileSize\": 4918", "\"fileSize\": 4919", "fileSize"},
        LastDigit{"ToInt", CoreTexts, "{", "123456,", "123457,", "toInt[14].value"},
        LastDigit{"RepairReason", TooShort, "\"repair\"", "declares\"", "declared\"", "repair.reason"},
        LastDigit{"RelativePath", CoreTexts, "\"relativePaths\"", "\"../c/r.kiro\"", "\"../d/r.kiro\"",
                  "relativePaths[1].relative"},
        LastDigit{"IniText", IniNumbers, "\"text\"", "a=12", "a=13", "text"},
        LastDigit{"IniSections", IniNumbers, "\"sections\"", "\"12\"", "\"13\"", "sections"},
        LastDigit{"IniInteger", IniNumbers, "\"getters\"", "\"value\": 12", "\"value\": 13", "getters[0]"},
        LastDigit{"IniPen", IniPens, "\"key\": \"e\"", "    2\n", "    1\n", "getters[4]"},
        LastDigit{"IniStepText", IniSteps, "{", "d=0.1000000000", "d=0.1000000001", "steps[6].text"},
        LastDigit{"IniStepResult", IniSteps, "\"removeSection\"", "\"result\": false", "\"result\": true",
                  "steps[14].result"},
        LastDigit{"ProfileLoad", NoProfile, "{", "\"load\": false", "\"load\": true", "load"},
        LastDigit{"SaccadeField", Saccades, "\"record\"", "\"minAmp\": 184.0", "\"minAmp\": 185.0",
                  "record.minAmp"},
        LastDigit{"BlinkField", Blinks, "\"record\"", "\"maxDuration\": 500", "\"maxDuration\": 501",
                  "record.maxDuration"},
        LastDigit{"ProfileWritten", Saccades, "\"writtenAgain\"", "gap: 189", "gap: 188", "writtenAgain"},
        LastDigit{"SettingsLine", Blinks, "\"settingsLine\"", ";500", ";501", "settingsLine"},
        LastDigit{"LineRead", SettingsLines, "\"saccadeRead\"", "\"maxAmp\": 500.0", "\"maxAmp\": 501.0",
                  "saccadeRead[0].maxAmp"},
        LastDigit{"LineWritten", SettingsLines, "\"blinkWrite\"", "0.6000000000", "0.6000000001",
                  "blinkWrite[0]"},
        LastDigit{"SaccField", SaccFile, "{", "\"durationMs\": 641937", "\"durationMs\": 641938",
                  "durationMs"},
        LastDigit{"SaccText", SaccFile, "{", "../pitch/rec.kiro", "../pitch/rec.kirp", "relativeDataFile"},
        LastDigit{"SaccParameter", SaccFile, "\"params\"", "\"gap\": 40", "\"gap\": 41", "params.gap"},
        LastDigit{"SaccBlink", SaccFile, "\"blinks\"", "13.752533114561112", "13.752533114561111",
                  "blinks[0].amp1"},
        LastDigit{"SaccSaved", SaccFile, "\"saved\"", "3501463e0eaa", "3501463e0eab", "saved.sha256"},
        LastDigit{"SaccMeasure", OldSaccFile, "\"saccades\"", "\"reserved\": 0", "\"reserved\": 1",
                  "saccades[0].main.reserved"},
        LastDigit{"SaccValid", OldSaccFile, "\"saccades\"", "\"valid\": true", "\"valid\": false",
                  "saccades[0].valid"},
        LastDigit{"SaccError", NoSaccFile, "{", "(0x   12345)", "(0x  12345)", "error"},
        LastDigit{"Arg", CoreTexts, "\"arg\"", "   12345\"", "   12346\"", "arg[5].result"}),
    [](const testing::TestParamInfo<LastDigit>& row) { return std::string(row.param.name); });

TEST(GoldenRunner, DifferenceLineNamesWantedAndFound)
{
    SmallCorpus corpus;
    corpus.copyCase(Mixed, kindOf(Mixed));
    corpus.changeExpected(Mixed, "{", "\"year\": 2008", "\"year\": 2009");
    EXPECT_EQ(corpus.run().onlyDifference(), "recordings/v12_mixed.kiro: year: wanted 2009, found 2008");
}

TEST(GoldenRunner, FullResultNamesTheFirstDifferingByte)
{
    SmallCorpus corpus;
    const QString out = Mixed + QStringLiteral(".20.updateHeader.out");
    corpus.copyCase(Mixed, kindOf(Mixed));
    QByteArray result = contentOf(corpus.path(out));
    result[13] = 'x';
    corpus.write(out, result);
    const char* const hash = "5720791f05db169dcf404084af378cb9be5e1ee82759def150cf8f857f8f92c8";
    const QByteArray otherHash = QByteArray(hash).replace(63, 1, "9");
    corpus.changeExpected(Mixed, "\"updateHeader\"", hash, otherHash);
    EXPECT_EQ(corpus.run().onlyDifference(),
              "recordings/v12_mixed.kiro: ops[20] updateHeader.sha256: wanted \"" + otherHash.toStdString() +
                  "\", found \"" + hash + "\" (first differing byte 13: wanted 0x78, found 0x00)");
}

TEST(GoldenRunner, InputThatIsAnotherFileFails)
{
    SmallCorpus corpus;
    corpus.copyCase(Mixed, kindOf(Mixed));
    QByteArray bytes = contentOf(corpus.path(Mixed));
    bytes[8] = bytes[8] == 'x' ? 'y' : 'x'; // the stored header size, which nothing reads
    corpus.write(Mixed, bytes);
    const Outcome run = corpus.run();
    EXPECT_EQ(run.exitCode, 1);
    EXPECT_TRUE(run.differences.join(QLatin1Char('\n')).contains(Mixed + QStringLiteral(": sha256: wanted")));
}

TEST(GoldenRunner, RefusalWhereARecordingIsExpectedIsOneFailure)
{
    SmallCorpus corpus;
    corpus.copyCase(Mixed, kindOf(Mixed));
    corpus.write(Mixed, "no recording");
    corpus.changeExpected(Mixed, "{", "\"fileSize\": 4918", "\"fileSize\": 12");
    const QByteArray hash = "58208fc01e008cb66d248ad0494a956bf82e544b1f436088a9de8c2185d2958c";
    corpus.changeExpected(Mixed, "\"fileSize\"", hash,
                          "370d46ecb842a781550572ede50c7abb8a877417d227cfcbb3a8aa085f3ac501");
    const Outcome run = corpus.run();
    EXPECT_EQ(run.exitCode, 1);
    EXPECT_EQ(run.onlyDifference(), "recordings/v12_mixed.kiro: load: wanted true, found false");
}

TEST(GoldenRunner, MissingIndexIsAFailure)
{
    SmallCorpus corpus;
    const Outcome run = corpus.run();
    EXPECT_EQ(run.exitCode, 1);
    EXPECT_EQ(run.onlyDifference(),
              corpus.path().toStdString() + ": INDEX.json: wanted a JSON object, found no readable file");
    EXPECT_EQ(run.lastLine, QStringLiteral("0 passed, 1 failed, 0 skipped"));
}

TEST(GoldenRunner, MissingFolderIsAFailure)
{
    SmallCorpus corpus;
    const Outcome run = runGolden({corpus.path(QStringLiteral("absent"))});
    EXPECT_EQ(run.exitCode, 1);
    EXPECT_EQ(run.lastLine, QStringLiteral("0 passed, 1 failed, 0 skipped"));
}

TEST(GoldenRunner, BrokenIndexIsAFailure)
{
    for (const char* text : {"", "{\"cases\": [", "[]", "{}", "{\"cases\": 5}", "{\"cases\": [5]}",
                             "{\"cases\": [{\"file\": 1, \"kind\": \"recording\"}]}"}) {
        SmallCorpus corpus;
        corpus.write(QStringLiteral("INDEX.json"), text);
        const Outcome run = corpus.run();
        EXPECT_EQ(run.exitCode, 1) << text;
        EXPECT_EQ(run.lastLine, QStringLiteral("0 passed, 1 failed, 0 skipped")) << text;
    }
}

TEST(GoldenRunner, MissingInputIsAFailure)
{
    SmallCorpus corpus;
    corpus.copyCase(Mixed, kindOf(Mixed));
    ASSERT_TRUE(QFile::remove(corpus.path(Mixed)));
    const Outcome run = corpus.run();
    EXPECT_EQ(run.exitCode, 1);
    EXPECT_EQ(run.onlyDifference(),
              "recordings/v12_mixed.kiro: input file: wanted a file, found no readable file");
}

TEST(GoldenRunner, MissingExpectedFileIsAFailure)
{
    SmallCorpus corpus;
    corpus.copyCase(Mixed, kindOf(Mixed));
    ASSERT_TRUE(QFile::remove(corpus.path(Mixed + QStringLiteral(".expected.json"))));
    const Outcome run = corpus.run();
    EXPECT_EQ(run.exitCode, 1);
    EXPECT_EQ(run.onlyDifference(),
              "recordings/v12_mixed.kiro: expected file: wanted a JSON object, found no readable file");
}

TEST(GoldenRunner, BrokenExpectedFileIsAFailure)
{
    SmallCorpus corpus;
    corpus.copyCase(Mixed, kindOf(Mixed));
    corpus.write(Mixed + QStringLiteral(".expected.json"), "{\"load\": tru");
    const Outcome run = corpus.run();
    EXPECT_EQ(run.exitCode, 1);
    EXPECT_EQ(run.lastLine, QStringLiteral("0 passed, 1 failed, 0 skipped"));
}

TEST(GoldenRunner, ExpectedValuesOfWrongTypesAreFailuresWithoutACrash)
{
    SmallCorpus corpus;
    corpus.copyCase(Mixed, kindOf(Mixed));
    corpus.write(Mixed + QStringLiteral(".expected.json"),
                 R"({"load": true, "version": "x", "notes": 5, "trueFields": {}, "technicalRows": [5],
                     "signals": 7, "repair": {"result": 1}, "findSignal": 3, "readSignal": [4],
                     "ops": 6, "storingProgram": "\u0105"})");
    const Outcome run = corpus.run();
    EXPECT_EQ(run.exitCode, 1);
    EXPECT_EQ(run.passed(), 1); // the load
    EXPECT_EQ(run.failed(), 10);
}

TEST(GoldenRunner, UnknownKindsAreSkippedAndCounted)
{
    SmallCorpus corpus;
    corpus.write(QStringLiteral("INDEX.json"), R"({"cases": [
        {"file": "a.xyz", "kind": "unheardOf", "check": "exact", "why": ""},
        {"file": "b.xyz", "kind": "unheardOf", "check": "survive", "why": ""},
        {"file": "c.kiro", "kind": "recording", "check": "unheardOf", "why": ""}]})");
    const Outcome run = corpus.run();
    EXPECT_EQ(run.exitCode, 0);
    EXPECT_EQ(run.lastLine, QStringLiteral("0 passed, 0 failed, 3 skipped"));
}

TEST(GoldenRunner, AgreesWithTheNumericCorpus)
{
    const Outcome run = runGolden({NumericCorpus});
    EXPECT_EQ(run.exitCode, 0);
    EXPECT_EQ(run.failed(), 0);
    EXPECT_EQ(run.passed(), 1199);
    EXPECT_EQ(run.skipped(), 0);
    EXPECT_EQ(run.differences.join(QLatin1Char('\n')).toStdString(), "");
}

TEST(GoldenRunner, CallsOfUnknownRoutinesAreSkippedAndCounted)
{
    SmallCorpus corpus;
    corpus.write(QStringLiteral("INDEX.json"), R"({"seed": 1, "cases": [
        {"case": "ramps", "routines": ["unheardOf"], "calls": 2, "why": ""}]})");
    corpus.write(QStringLiteral("ramps/case.json"), R"({"compare": "exact", "calls": [
        {"routine": "unheardOf", "args": {}, "expect": {}}, {"routine": "unheardOf", "args": {}, "expect": {}}]})");
    const Outcome run = corpus.run();
    EXPECT_EQ(run.exitCode, 0);
    EXPECT_EQ(run.lastLine, QStringLiteral("0 passed, 0 failed, 2 skipped"));
}

TEST(GoldenRunner, MissingNumericCaseIsAFailure)
{
    SmallCorpus corpus;
    corpus.write(QStringLiteral("INDEX.json"), R"({"seed": 1, "cases": [
        {"case": "ramps", "routines": ["movingAverage"], "calls": 3, "why": ""}]})");
    const Outcome run = corpus.run();
    EXPECT_EQ(run.exitCode, 1);
    EXPECT_EQ(run.onlyDifference(), "ramps: case.json: wanted a JSON object, found no readable file");
}

TEST(GoldenRunner, LastDigitOfANumericAnswerIsTheOnlyDifference)
{
    SmallCorpus corpus;
    const QString name = QStringLiteral("roundHalfUp");
    QByteArray content = contentOf(NumericCorpus + QStringLiteral("/roundHalfUp/case.json"));
    const QByteArray wanted = "\"result\":126}";
    ASSERT_EQ(content.count(wanted), 1);
    corpus.write(name + QStringLiteral("/case.json"), content.replace(wanted, "\"result\":127}"));
    corpus.writeIndex(QJsonArray{
        QJsonObject{{QStringLiteral("case"), name}, {QStringLiteral("routines"), QJsonArray{name}}}});
    const Outcome run = corpus.run();
    EXPECT_EQ(run.exitCode, 1);
    EXPECT_EQ(run.onlyDifference(), "roundHalfUp: calls[95] roundHalfUp.result: wanted 127, found 126");
}

TEST(GoldenRunner, UnknownKeysAreSkippedAndCounted)
{
    SmallCorpus corpus;
    corpus.copyCase(Mixed, kindOf(Mixed));
    const Outcome before = corpus.run();
    corpus.changeExpected(Mixed, "{", "\"version\": 12", "\"unheardOf\": 1, \"version\": 12");
    corpus.changeExpected(Mixed, "\"signals\"", "\"fullName\"", "\"unheardOf\": 1, \"fullName\"");
    const Outcome after = corpus.run();
    EXPECT_EQ(after.exitCode, 0);
    EXPECT_EQ(after.passed(), before.passed());
    EXPECT_EQ(after.skipped(), before.skipped() + 2);
}

TEST(GoldenRunner, CallsWithUnknownArgumentsAreSkippedAndCounted)
{
    SmallCorpus corpus;
    corpus.copyCase(Mixed, kindOf(Mixed));
    const Outcome before = corpus.run();
    corpus.changeExpected(Mixed, "\"readSignal\"", "\"calibrate\"", "\"unheardOf\": 1, \"calibrate\"");
    const Outcome after = corpus.run();
    EXPECT_EQ(after.exitCode, 0);
    EXPECT_EQ(after.passed(), before.passed() - 1);
    EXPECT_EQ(after.skipped(), before.skipped() + 1);
}

TEST(GoldenRunner, AdvisoryDifferenceIsShownAndNoFailure)
{
    SmallCorpus corpus;
    corpus.copyCase(Mixed, kindOf(Mixed), QStringLiteral("advisory"));
    corpus.changeExpected(Mixed, "{", "\"year\": 2008", "\"year\": 2009");
    const Outcome run = corpus.run();
    EXPECT_EQ(run.exitCode, 0);
    EXPECT_EQ(run.failed(), 0);
    EXPECT_EQ(run.onlyDifference(), "advisory recordings/v12_mixed.kiro: year: wanted 2009, found 2008");
}

TEST(GoldenRunner, FolderIsNotWrittenTo)
{
    SmallCorpus corpus;
    corpus.copyCase(Mixed, kindOf(Mixed));
    const QStringList before = QDir(corpus.path(QStringLiteral("recordings"))).entryList(QDir::Files);
    const QByteArray recording = contentOf(corpus.path(Mixed));
    EXPECT_EQ(corpus.run().exitCode, 0);
    EXPECT_EQ(QDir(corpus.path(QStringLiteral("recordings"))).entryList(QDir::Files), before);
    EXPECT_EQ(contentOf(corpus.path(Mixed)), recording);
}

TEST(GoldenRunner, WrongUsageHasItsOwnExitStatus)
{
    EXPECT_EQ(runGolden({}).exitCode, 2);
    EXPECT_EQ(runGolden({QStringLiteral("--unheard-of"), Corpus}).exitCode, 2);
}

TEST(GoldenRunner, HelpTellsWhatIsCounted)
{
    const Outcome run = runGolden({QStringLiteral("--help")});
    EXPECT_EQ(run.exitCode, 0);
    EXPECT_TRUE(
        run.differences.join(QLatin1Char('\n')).contains(QStringLiteral("N passed, M failed, K skipped")));
}
