#include "updatecheck.h"

#include "inistore.h"

#include <gtest/gtest.h>

namespace
{

using Kind = UpdateOffer::Kind;

const QString Own = QStringLiteral("3.12");

struct ReplyCase
{
    const char* name;
    const char* reply;
    Kind kind;
    const char* version;
};

class UpdateReplyTest : public testing::TestWithParam<ReplyCase>
{
};

struct NumberCase
{
    const char* name;
    const char* version;
    qint64 number;
};

class VersionNumberTest : public testing::TestWithParam<NumberCase>
{
};

struct ServerCase
{
    const char* name;
    const char* server;
    const char* address;
};

class UpdateServerTest : public testing::TestWithParam<ServerCase>
{
};

const auto NameOfCase = [](const auto& row) { return std::string(row.param.name); };

} // namespace

TEST_P(UpdateReplyTest, IsEvaluated)
{
    const UpdateOffer offer = UpdateOffer::fromReply(QString::fromUtf8(GetParam().reply), Own);
    EXPECT_EQ(offer.kind, GetParam().kind);
    EXPECT_EQ(offer.version.toStdString(), GetParam().version);
}

INSTANTIATE_TEST_SUITE_P(
    Replies, UpdateReplyTest,
    testing::Values(
        ReplyCase{"Newer", "[KiroManager]\nMAIN=3.13\n\n", Kind::Newer, "3.13"},
        ReplyCase{"Equal", "[KiroManager]\nMAIN=3.12\n", Kind::Nothing, "3.12"},
        ReplyCase{"OlderByNumberThoughGreaterAsDecimal", "[KiroManager]\nMAIN=3.2\n", Kind::Nothing, "3.2"},
        ReplyCase{"NewerMainPart", "[KiroManager]\nMAIN=4.0\n", Kind::Newer, "4.0"},
        ReplyCase{"WithoutPoint", "[KiroManager]\nMAIN=4\n", Kind::Invalid, ""},
        ReplyCase{"SecondPartNoNumber", "[KiroManager]\nMAIN=4.x\n", Kind::Newer, "4.x"},
        ReplyCase{"BlanksAroundTheValue", "[KiroManager]\nMAIN= \t 3.13  \n", Kind::Newer, "3.13"},
        ReplyCase{"CarriageReturns", "[KiroManager]\r\nMAIN=3.13\r\n", Kind::Newer, "3.13"},
        ReplyCase{"AmongOtherPrograms",
                  "[Another]\nMAIN=9.99\n\n[KiroManager]\nOLD=1.0\nMAIN=3.13\nMAIN=3.14\n", Kind::Newer,
                  "3.13"},
        ReplyCase{"KeyInAnotherSection", "[Another]\nMAIN=3.13\n", Kind::Invalid, ""},
        ReplyCase{"KeyInOtherCase", "[KiroManager]\nmain=3.13\n", Kind::Invalid, ""},
        ReplyCase{"KeyMissing", "[KiroManager]\nOTHER=3.13\n", Kind::Invalid, ""},
        ReplyCase{"ValueMissing", "[KiroManager]\nMAIN=\n", Kind::Invalid, ""},
        ReplyCase{"LastLineWithoutLineFeed", "[KiroManager]\nMAIN=3.13", Kind::Invalid, ""},
        ReplyCase{"WebPage", "<html><body>It works. MAIN=3.13</body></html>\n", Kind::Invalid, ""},
        ReplyCase{"Empty", "", Kind::Invalid, ""}),
    NameOfCase);

TEST_P(VersionNumberTest, IsAHundredTimesTheFirstPartPlusTheSecond)
{
    EXPECT_EQ(versionNumber(QString::fromLatin1(GetParam().version)), GetParam().number);
}

INSTANTIATE_TEST_SUITE_P(Versions, VersionNumberTest,
                         testing::Values(NumberCase{"TwoDigits", "3.12", 312},
                                         NumberCase{"OneDigit", "3.2", 302},
                                         NumberCase{"FurtherPartsDoNotCount", "3.12.9", 312},
                                         NumberCase{"LettersAreNought", "4.x", 400},
                                         NumberCase{"NoPoint", "4", 400}, NumberCase{"NoNumber", "x.y", 0},
                                         NumberCase{"PastA32BitNumber", "30000000.5", 3000000005},
                                         NumberCase{"PartPastA32BitNumber", "99999999999.5", 5}),
                         NameOfCase);

TEST_P(UpdateServerTest, IsAskedForTheListOfVersions)
{
    EXPECT_EQ(updateRequest(QString::fromLatin1(GetParam().server)).url().toString().toStdString(),
              GetParam().address);
}

INSTANTIATE_TEST_SUITE_P(Servers, UpdateServerTest,
                         testing::Values(ServerCase{"HostOnly", "example.org",
                                                    "http://example.org/files/mwk_software_versions.txt"},
                                         ServerCase{"HostAndPort", "127.0.0.1:8080",
                                                    "http://127.0.0.1:8080/files/mwk_software_versions.txt"},
                                         ServerCase{"Scheme", "https://example.org",
                                                    "https://example.org/files/mwk_software_versions.txt"},
                                         ServerCase{"SlashBehind", "http://example.org/",
                                                    "http://example.org/files/mwk_software_versions.txt"}),
                         NameOfCase);

TEST(UpdateSetupUrlTest, HasTheVersionWithoutPoints)
{
    EXPECT_EQ(updateSetupUrl(QStringLiteral("http://example.org"), QStringLiteral("3.13")).toString(),
              QStringLiteral("http://example.org/files/kiromanager_setup_313.exe"));
    EXPECT_EQ(updateSetupUrl(QStringLiteral("http://example.org"), QStringLiteral("3.13.1")).toString(),
              QStringLiteral("http://example.org/files/kiromanager_setup_3131.exe"));
}

TEST(UpdateSetupUrlTest, VersionCannotLeadToAnotherPlace)
{
    const QUrl url = updateSetupUrl(QStringLiteral("http://example.org"), QStringLiteral("4.\"?a=1#b"));
    EXPECT_EQ(url.toEncoded().toStdString(), "http://example.org/files/kiromanager_setup_4%22%3Fa=1%23b.exe");
}

TEST(UpdateRequestTest, DoesNotWaitForEver)
{
    const QNetworkRequest request = updateRequest(QStringLiteral("example.org"));
    EXPECT_EQ(request.transferTimeout(), 30'000);
    EXPECT_EQ(request.maximumRedirectsAllowed(), 5);
    EXPECT_EQ(request.attribute(QNetworkRequest::RedirectPolicyAttribute).toInt(),
              int(QNetworkRequest::NoLessSafeRedirectPolicy));
}

TEST(UpdateServerChoiceTest, SettingsNameIt)
{
    IniStore store;
    store.parse(QStringLiteral("[GENERAL]\nupdate_server= http://example.org \n"));
    EXPECT_EQ(updateServer(store), QStringLiteral("http://example.org"));
}

TEST(UpdateServerChoiceTest, WithoutSettingsItIsTheBuilds)
{
    IniStore store;
    EXPECT_EQ(updateServer(store), QStringLiteral(EXPECTED_UPDATE_SERVER));
    store.parse(QStringLiteral("[GENERAL]\nupdate_server=\n"));
    EXPECT_EQ(updateServer(store), QStringLiteral(EXPECTED_UPDATE_SERVER)) << "an empty value is none";
}
