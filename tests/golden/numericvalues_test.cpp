#include "numericvalues.h"

#include "numericcases.h"
#include "report.h"

#include <QFile>
#include <QJsonDocument>
#include <QTemporaryDir>

#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <sstream>
#include <stdexcept>

namespace
{

constexpr double Infinity = std::numeric_limits<double>::infinity();

/// The only element of a JSON array.
QJsonValue parsed(const char* element)
{
    return QJsonDocument::fromJson(QByteArray("[") + element + "]").array().at(0);
}

CallArgs argsOf(const char* object)
{
    return CallArgs(parsed(object).toObject());
}

bool agrees(const char* rule, const char* wanted, const Answer& found, const char* args = "{}")
{
    return Comparison(parsed(rule), parsed(args).toObject()).compare(parsed(wanted), found).empty();
}

/// "PLACE: wanted WANTED, found FOUND" of all differences, separated by "; ".
std::string differences(const char* wanted, const Answer& found)
{
    std::string all;
    for (const Mismatch& one : Comparison(parsed("\"exact\""), {}).compare(parsed(wanted), found)) {
        if (!all.empty())
            all += "; ";
        all += one.place.toStdString() + ": wanted " + one.wanted.toStdString() + ", found " +
               one.found.toStdString();
    }
    return all;
}

Answer field(const char* name, Answer value)
{
    return Answer::Fields{{QString::fromLatin1(name), std::move(value)}};
}

/// A folder for the files of a case.
class CaseFolder
{
public:
    QString path() const { return m_folder.path(); }

    void write(const char* name, const QByteArray& bytes) const
    {
        QFile file(m_folder.filePath(QString::fromLatin1(name)));
        if (!file.open(QIODevice::WriteOnly) || file.write(bytes) != bytes.size())
            ADD_FAILURE() << "cannot write " << name;
    }

    QJsonValue filled(const char* value) const { return withFiles(parsed(value), path()); }

    /// What a run of a case says, with its closing line.
    std::string run(const char* content) const
    {
        std::ostringstream out;
        Report report(out, true);
        report.beginCase(QStringLiteral("case"));
        runNumericCase(path(), parsed(content).toObject(), report);
        return out.str() + report.summary().toStdString();
    }

private:
    QTemporaryDir m_folder;
};

/// 1.0, -2.5 and NaN.
QByteArray threeDoubles()
{
    return QByteArray::fromHex("000000000000f03f00000000000004c0000000000000f87f");
}

} // namespace

TEST(NumericValues, ArraysOfFilesArePutInPlaceAtAnyDepth)
{
    CaseFolder folder;
    folder.write("x.f64", threeDoubles());
    EXPECT_EQ(folder.filled(R"({"f64": "x.f64", "n": 3})"), parsed(R"([1, -2.5, "nan"])"));
    EXPECT_EQ(folder.filled(R"({"a": [{"b": {"f64": "x.f64", "n": 3}}, 5], "c": "x.f64"})"),
              parsed(R"({"a": [{"b": [1, -2.5, "nan"]}, 5], "c": "x.f64"})"));
}

TEST(NumericValues, TextsOfFilesArePutInPlaceAsBytes)
{
    CaseFolder folder;
    folder.write("report.txt", "a\xb1\r\n");
    EXPECT_EQ(folder.filled(R"({"r": {"text": "report.txt"}})"), parsed(R"({"r": "a\u00b1\r\n"})"));
    EXPECT_EQ(folder.filled(R"({"text": "0.50", "v": 1})"), parsed(R"({"text": "0.50", "v": 1})"));
}

TEST(NumericValues, FilesThatAreMissingOrOfAnotherLengthAreRefused)
{
    CaseFolder folder;
    folder.write("x.f64", threeDoubles());
    folder.write("cut.f64", threeDoubles().chopped(1));
    for (const char* value :
         {R"({"f64": "absent.f64", "n": 3})", R"({"f64": "x.f64", "n": 2})", R"({"f64": "x.f64", "n": 4})",
          R"({"f64": "cut.f64", "n": 2})", R"({"f64": "cut.f64", "n": 3})", R"({"f64": "x.f64"})",
          R"({"f64": 5, "n": 3})", R"({"text": "absent.txt"})", R"({"text": 5})"})
        EXPECT_THROW(folder.filled(value), std::runtime_error) << value;
}

TEST(NumericValues, ArgumentsHaveTheirTypes)
{
    const CallArgs args =
        argsOf(R"({"x": [1, "inf", 0.5], "w": 4, "on": true, "v": "-inf", "t": "a\u00b1", "p": {"gap": 7}})");
    EXPECT_EQ(args.numbers("x"), std::vector<double>({1, Infinity, 0.5}));
    EXPECT_EQ(args.integer("w"), 4);
    EXPECT_EQ(args.number("w"), 4.0);
    EXPECT_EQ(args.number("v"), -Infinity);
    EXPECT_TRUE(args.flag("on"));
    EXPECT_EQ(args.text("t"), "a\xb1");
    EXPECT_EQ(args.object("p").integer("gap"), 7);
    EXPECT_EQ(args.array("x").size(), 3);
    EXPECT_TRUE(args.has("w"));
    EXPECT_FALSE(args.has("gap"));
}

TEST(NumericValues, ArgumentsOfOtherTypesAreRefused)
{
    const CallArgs args = argsOf(R"({"x": [1, "one"], "w": 4.5, "on": 1, "p": []})");
    EXPECT_THROW(args.numbers("x"), std::runtime_error);
    EXPECT_THROW(args.numbers("w"), std::runtime_error);
    EXPECT_THROW(args.integer("w"), std::runtime_error);
    EXPECT_THROW(args.number("on1"), std::runtime_error);
    EXPECT_THROW(args.number("x"), std::runtime_error);
    EXPECT_THROW(args.flag("on"), std::runtime_error);
    EXPECT_THROW(args.flag("absent"), std::runtime_error);
    EXPECT_THROW(args.object("p"), std::runtime_error);
    EXPECT_THROW(args.text("w"), std::runtime_error);
}

TEST(Comparison, ExactAsksForTheSameDouble)
{
    EXPECT_TRUE(agrees("\"exact\"", "0.1", 0.1));
    EXPECT_FALSE(agrees("\"exact\"", "0.1", std::nextafter(0.1, 1.0)));
    EXPECT_TRUE(agrees("\"exact\"", "0", -0.0));
    EXPECT_TRUE(agrees("\"exact\"", "\"nan\"", std::nan("")));
}

TEST(Comparison, ToleranceIsTheLargerOfItsTwoParts)
{
    const char* const rule = R"({"rel": 0.01, "abs": 0.5})";
    EXPECT_TRUE(agrees(rule, "10", 10.5));
    EXPECT_FALSE(agrees(rule, "10", 10.51));
    EXPECT_TRUE(agrees(rule, "-100", -101.0));
    EXPECT_FALSE(agrees(rule, "-100", -101.1));
    EXPECT_TRUE(agrees(R"({"abs": 0.5})", "1000", 999.5));
    EXPECT_FALSE(agrees(R"({"abs": 0.5})", "1000", 999.4));
    EXPECT_TRUE(agrees(R"({"rel": 0.01})", "1000", 990.0));
    EXPECT_FALSE(agrees(R"({"rel": 0.01})", "0", 1e-9));
}

TEST(Comparison, ToleranceAdmitsNoNanAndNoInfinity)
{
    const char* const rule = R"({"rel": 1, "abs": 1e300})";
    EXPECT_FALSE(agrees(rule, "1", std::nan("")));
    EXPECT_FALSE(agrees(rule, "1", Infinity));
    EXPECT_FALSE(agrees(rule, "\"nan\"", 1.0));
    EXPECT_FALSE(agrees(rule, "\"inf\"", -Infinity));
    EXPECT_FALSE(agrees(rule, "null", 1.0));
    EXPECT_TRUE(agrees(rule, "\"inf\"", Infinity));
}

TEST(Comparison, ToleranceIsForDoublesAlone)
{
    const char* const rule = R"({"rel": 1, "abs": 10})";
    EXPECT_TRUE(agrees(rule, "5", 5));
    EXPECT_FALSE(agrees(rule, "5", 6));
    EXPECT_FALSE(agrees(rule, "\"a\"", "b"));
    EXPECT_FALSE(agrees(rule, "true", false));
    EXPECT_FALSE(agrees(rule, "1", true));
}

TEST(Comparison, ExactCallsAreTakenOutOfTheTolerance)
{
    const char* const rule = R"({"exact": "when dropExtremes is false", "abs": 1})";
    EXPECT_TRUE(agrees(rule, "5", 5.5, R"({"dropExtremes": true})"));
    EXPECT_FALSE(agrees(rule, "5", 5.5, R"({"dropExtremes": false})"));
    EXPECT_FALSE(agrees(rule, "5", 5.5, "{}"));
}

TEST(Comparison, NamedFieldsHaveTheirOwnTolerance)
{
    const char* const rule = R"({"curve": {"abs": 1}, "ok": "exact", "other": {"abs": 0.1}})";
    EXPECT_TRUE(agrees(rule, R"({"curve": [1, 2]})", field("curve", std::vector<double>{1.5, 2.5})));
    EXPECT_FALSE(agrees(rule, R"({"curve": [1, 2]})", field("curve", std::vector<double>{1.5, 3.5})));
    EXPECT_FALSE(agrees(rule, R"({"rest": 1})", field("rest", 1.5)));
    EXPECT_TRUE(agrees(rule, R"({"rest": 1})", field("rest", 1.05)));
    EXPECT_FALSE(agrees(rule, R"({"ok": 1})", field("ok", 1.05)));
    EXPECT_FALSE(agrees(R"({"curve": {"abs": 1}})", R"({"rest": 1})", field("rest", 1.05)));
}

TEST(Comparison, NamedFieldsHoldForAllBelowThem)
{
    const char* const rule = R"({"scales": {"abs": 1}, "numbers": {"abs": 0.1}})";
    EXPECT_TRUE(
        agrees(rule, R"({"scales": {"horz": [1]}})", field("scales", field("horz", Answer::List{1.5}))));
    EXPECT_TRUE(agrees(rule, R"([{"scales": 1}])", Answer::List{field("scales", 1.5)}));
    EXPECT_FALSE(agrees(rule, R"({"horz": [1]})", field("horz", Answer::List{1.5})));
}

TEST(Comparison, UnknownRulesAreRefused)
{
    for (const char* rule : {"\"roughly\"", "5", "null", "[]", R"({"x": {"parts": 1}})", R"({"x": {}})",
                             R"({"abs": "much"})", R"({"exact": "sometimes", "abs": 1})"})
        EXPECT_THROW(Comparison(parsed(rule), {}), std::runtime_error) << rule;
}

TEST(Comparison, LengthsAndNamesMustBeTheSame)
{
    EXPECT_EQ(differences("[1, 2]", std::vector<double>{1}), ": wanted 2 values, found 1 values");
    EXPECT_EQ(differences("[1]", std::vector<double>{3, 2}),
              ": wanted 1 values, found 2 values; [0]: wanted 1, found 3");
    EXPECT_EQ(differences(R"({"a": 1, "b": null})", field("a", 2.0)),
              ".a: wanted 1, found 2; .b: wanted null, found nothing");
    EXPECT_EQ(
        differences(R"({"a": 1})", Answer::Fields{{QStringLiteral("a"), 1}, {QStringLiteral("b"), nullptr}}),
        ".b: wanted nothing, found null");
}

TEST(Comparison, AnotherKindOfAnswerIsADifference)
{
    EXPECT_EQ(differences(R"({"y": null})", field("y", std::vector<double>{})),
              ".y: wanted null, found 0 values");
    EXPECT_EQ(differences(R"({"y": [1]})", field("y", nullptr)), ".y: wanted [1], found null");
    EXPECT_EQ(differences("5", field("y", 5)), ": wanted 5, found 1 fields");
    EXPECT_EQ(differences(R"({"y": null})", field("y", nullptr)), "");
}

TEST(NumericCases, CallsAreCountedOneByOne)
{
    CaseFolder folder;
    folder.write("x.f64", threeDoubles().left(16));
    EXPECT_EQ(folder.run(R"({"compare": "exact", "calls": [
        {"routine": "rangeMin", "args": {"x": {"f64": "x.f64", "n": 2}}, "expect": {"result": -2.5}},
        {"routine": "rangeMin", "args": {"x": {"f64": "x.f64", "n": 2}}, "expect": {"result": 1}},
        {"routine": "rangeMin", "args": {"x": [1], "unheardOf": 1}, "expect": {"result": 1}},
        {"routine": "unheardOf", "args": {}, "expect": {}}]})"),
              "case: calls[1] rangeMin.result: wanted 1, found -2.5\n"
              "skipped case: calls[2] rangeMin\n"
              "skipped case: calls[3] unheardOf\n"
              "1 passed, 1 failed, 2 skipped");
}

TEST(NumericCases, RefusalIsAnAnswer)
{
    CaseFolder folder;
    EXPECT_EQ(folder.run(R"({"compare": "exact", "calls": [
        {"routine": "runningMedian", "args": {"x": [1, 2], "w": 3}, "expect": {"y": null}},
        {"routine": "runningMedian", "args": {"x": [1, 2, 3], "w": 3}, "expect": {"y": null}},
        {"routine": "runningMedian", "args": {"x": [1, 2], "w": 3}, "expect": {"y": [1, 2]}}]})"),
              "case: calls[1] runningMedian.y: wanted null, found 3 values\n"
              "case: calls[2] runningMedian.y: wanted [1,2], found null\n"
              "1 passed, 2 failed, 0 skipped");
}

TEST(NumericCases, BrokenCasesAreFailures)
{
    CaseFolder folder;
    EXPECT_EQ(folder.run(R"({"compare": "exact"})"),
              "case: calls: wanted an array of calls, found nothing\n0 passed, 1 failed, 0 skipped");
    EXPECT_EQ(folder.run(R"({"calls": [5]})"),
              "case: calls[0]: wanted a routine, found 5\n0 passed, 1 failed, 0 skipped");
    EXPECT_EQ(
        folder.run(R"({"calls": [{"routine": "rangeMin", "args": {"x": []}, "expect": {"result": 0}}]})"),
        "case: calls[0] rangeMin: wanted an answer, found no rule of comparison: nothing\n"
        "0 passed, 1 failed, 0 skipped");
    EXPECT_EQ(folder.run(R"({"compare": "exact", "calls": [{"routine": "rangeMin"}]})"),
              "case: calls[0] rangeMin: wanted an answer, found no argument x\n"
              "0 passed, 1 failed, 0 skipped");
}
