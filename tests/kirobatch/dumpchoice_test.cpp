#include "batchprocess.h"

#include <gtest/gtest.h>

namespace
{

/// Signals whose only sample is their index. Full names: 0 "Eye - left", 1 "Twin", 2 "Twin", 3 "eye",
/// 4 "1", 5 "caf\xe9"; short names: "eye", "t", "u", "x", "t", "y".
class KirobatchDumpChoice : public testing::Test
{
protected:
    KirobatchDumpChoice()
    {
        const char* const names[][2] = {{"Eye - left", "eye"}, {"Twin", "t"}, {"Twin", "u"},
                                        {"eye", "x"},          {"1", "t"},    {"caf\xe9", "y"}};
        std::vector<KiroSignal> table;
        for (const auto& [fullName, shortName] : names) {
            table.push_back(makeSignal(fullName, KiroValue::UnsignedInt, 1, 1));
            table.back().shortName = shortName;
        }
        m_file = writeRecording(m_folder, batchHeader(table, 1), std::string("\0\1\2\3\4\5", 6));
    }

    BatchRun choose(const char* signal) const
    {
        return runBatch(
            {QStringLiteral("dump"), m_file, QStringLiteral("--signal"), QString::fromLatin1(signal)});
    }

    void expectFailure(const char* signal, const std::string& message) const
    {
        const BatchRun run = choose(signal);
        EXPECT_EQ(run.status, 1);
        EXPECT_EQ(run.output, "");
        EXPECT_EQ(run.errors, "kirobatch: " + message);
    }

    std::string file() const { return '\'' + m_file.toStdString() + '\''; }
    QString path() const { return m_file; }

    std::string listHint() const
    {
        return " in " + file() + ", which has 6 signals. To list the signals: kirobatch signals " + file() +
               "\n";
    }

private:
    TestFolder m_folder;
    QString m_file;
};

} // namespace

TEST_F(KirobatchDumpChoice, ByIndex)
{
    EXPECT_EQ(choose("5").output, "5\n");
    EXPECT_EQ(choose("002").output, "2\n");
}

TEST_F(KirobatchDumpChoice, ByFullName)
{
    EXPECT_EQ(choose("Eye - left").output, "0\n");
}

TEST_F(KirobatchDumpChoice, ByShortName)
{
    EXPECT_EQ(choose("u").output, "2\n");
}

TEST_F(KirobatchDumpChoice, FullNameGoesBeforeShortName)
{
    EXPECT_EQ(choose("eye").output, "3\n");
}

TEST_F(KirobatchDumpChoice, IndexGoesBeforeANameOfDigits)
{
    EXPECT_EQ(choose("1").output, "1\n");
}

TEST_F(KirobatchDumpChoice, NameIsComparedByteForByte)
{
    const BatchRun run = runShell(
        QStringLiteral("exec \"$KIROBATCH\" dump \"$1\" --signal \"$(printf 'caf\\351')\""), {path()});
    EXPECT_EQ(run.status, 0);
    EXPECT_EQ(run.output, "5\n");
    EXPECT_EQ(choose("caf\xe9").status, 1); // these are the two bytes of UTF-8
}

TEST_F(KirobatchDumpChoice, FullNameOfTwoSignalsIsRefused)
{
    expectFailure("Twin",
                  "the name 'Twin' belongs to 2 signals of " + file() + ": 1, 2. Give the index instead.\n");
}

TEST_F(KirobatchDumpChoice, ShortNameOfTwoSignalsIsRefused)
{
    expectFailure("t",
                  "the name 't' belongs to 2 signals of " + file() + ": 1, 4. Give the index instead.\n");
}

TEST_F(KirobatchDumpChoice, PartOfANameIsNoName)
{
    expectFailure("Eye", "there is no signal of the name 'Eye'" + listHint());
}

TEST_F(KirobatchDumpChoice, IndexBehindTheLastIsRefused)
{
    expectFailure("6", "there is no signal of index 6" + listHint());
    expectFailure("99999999999999999999", "there is no signal of index 99999999999999999999" + listHint());
}

TEST_F(KirobatchDumpChoice, NegativeNumberIsAName)
{
    expectFailure("-1", "there is no signal of the name '-1'" + listHint());
}

TEST(KirobatchDumpWithoutSignals, SaysThatThereAreNone)
{
    const TestFolder folder;
    const QString file = writeRecording(folder, batchHeader({}, 4), "abc");
    const BatchRun run =
        runBatch({QStringLiteral("dump"), file, QStringLiteral("--signal"), QStringLiteral("0")});
    EXPECT_EQ(run.status, 1);
    EXPECT_EQ(run.output, "");
    EXPECT_EQ(run.errors, "kirobatch: there is no signal of index 0 in '" + file.toStdString() +
                              "', which has no signals at all.\n");
}
