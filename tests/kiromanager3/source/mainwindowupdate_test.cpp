#include "launcherfixture.h"

#include "windows/modalanswers.h"
#include "windows/testserver.h"

#include <QAbstractButton>
#include <QNetworkReply>

namespace
{

const QByteArray ListPath = "/files/mwk_software_versions.txt";
const QString Title = QStringLiteral("KiroManager 3.12|");
const QString Invalid = Title + QStringLiteral("Invalid reponse received from server!");
const QString Newest = Title + QStringLiteral("You have a newest version of KiroManager application.");

/// Checks for updates against a server of the test's own.
class UpdateCheckTest : public LauncherFixture
{
protected:
    void SetUp() override
    {
        LauncherFixture::SetUp();
        useServer(m_server.url());
    }
    void TearDown() override
    {
        EXPECT_EQ(QApplication::overrideCursor(), nullptr);
        LauncherFixture::TearDown();
    }

    void useServer(const QString& url)
    {
        writeSettings("[GENERAL]\nlanguage=English\nupdate_server=" + url.toStdString() + "\n");
    }
    void serve(const QByteArray& body) { m_server.setReply(ListPath, TestServer::ok(body)); }

    /// Answers the box to come and keeps its icon; there, no wait cursor is to be seen.
    void expectBox()
    {
        m_answers.answer([this](QWidget* window) {
            auto* const box = qobject_cast<QMessageBox*>(window);
            ASSERT_NE(box, nullptr);
            m_icon = box->icon();
            m_format = box->textFormat();
            m_waiting = isWaiting();
            EXPECT_EQ(box->standardButtons(), QMessageBox::Ok);
            box->button(QMessageBox::Ok)->click();
        });
    }
    /// Checks, and waits for the box.
    QStringList check()
    {
        expectBox();
        m_window->onCheckForUpdates();
        EXPECT_TRUE(isWaiting());
        EXPECT_TRUE(QTest::qWaitFor([this] { return !m_answers.seen().isEmpty(); }));
        EXPECT_FALSE(m_waiting) << "while the box is open";
        return m_answers.seen();
    }

    static bool isWaiting()
    {
        const QCursor* const cursor = QApplication::overrideCursor();
        return cursor && cursor->shape() == Qt::WaitCursor;
    }
    bool waitForRequests(int count) const
    {
        return QTest::qWaitFor([this, count] { return m_server.requests().size() == count; });
    }
    int replyCount() const { return m_window->findChildren<QNetworkReply*>().size(); }

    QMessageBox::Icon m_icon = QMessageBox::NoIcon;
    Qt::TextFormat m_format = Qt::AutoText;
    bool m_waiting = true;
    TestServer m_server;
    ModalAnswers m_answers;
};

} // namespace

TEST_F(UpdateCheckTest, GetsTheListOfVersions)
{
    serve("[KiroManager]\nMAIN=3.12\n");
    check();
    ASSERT_EQ(m_server.requests().size(), 1);
    EXPECT_TRUE(m_server.requests().first().startsWith("GET /files/mwk_software_versions.txt HTTP/1.1\r\n"));
    EXPECT_TRUE(m_server.requests().first().contains("\r\nAccept-Encoding: identity\r\n"));
}

TEST_F(UpdateCheckTest, NewerVersionIsOfferedWithItsLink)
{
    serve("[KiroManager]\nMAIN=3.13\n");
    EXPECT_EQ(check(),
              QStringList(Title +
                          QStringLiteral("<html>An updated version of KiroManager application is available!"
                                         "<br>Your version is 3.12 , an updated version is 3.13.<br>"
                                         "Download it from this <a href=\"%1/files/kiromanager_setup_313.exe"
                                         "\">link</a></html>")
                              .arg(m_server.url())));
    EXPECT_EQ(m_icon, QMessageBox::Information);
    EXPECT_EQ(m_format, Qt::RichText);
}

TEST_F(UpdateCheckTest, VersionIsShownAsTextAndNotAsMarkup)
{
    serve("[KiroManager]\nMAIN=4.<b>\n");
    const QString text = check().first();
    EXPECT_TRUE(text.contains(QStringLiteral("an updated version is 4.&lt;b&gt;.<br>")));
    EXPECT_TRUE(text.contains(QStringLiteral("/files/kiromanager_setup_4%3Cb%3E.exe\"")));
}

TEST_F(UpdateCheckTest, BlanksAroundTheVersionDoNotMatter)
{
    serve("[KiroManager]\nMAIN=  3.13 \n");
    EXPECT_TRUE(check().first().contains(QStringLiteral("an updated version is 3.13.<br>")));
}

TEST_F(UpdateCheckTest, VersionOfALetterIsAccepted)
{
    serve("[KiroManager]\nMAIN=4.x\n");
    EXPECT_TRUE(check().first().contains(QStringLiteral("an updated version is 4.x.<br>")));
}

TEST_F(UpdateCheckTest, EqualVersionIsTheNewest)
{
    serve("[KiroManager]\nMAIN=3.12\n");
    EXPECT_EQ(check(), QStringList(Newest));
    EXPECT_EQ(m_icon, QMessageBox::Information);
}

TEST_F(UpdateCheckTest, OlderVersionIsNoOffer)
{
    serve("[KiroManager]\nMAIN=3.2\n");
    EXPECT_EQ(check(), QStringList(Newest));
}

TEST_F(UpdateCheckTest, VersionWithoutPointIsInvalid)
{
    serve("[KiroManager]\nMAIN=4\n");
    EXPECT_EQ(check(), QStringList(Invalid));
    EXPECT_EQ(m_icon, QMessageBox::Warning);
}

TEST_F(UpdateCheckTest, MissingKeyIsInvalid)
{
    serve("[KiroManager]\nOTHER=3.13\n");
    EXPECT_EQ(check(), QStringList(Invalid));
    EXPECT_EQ(m_icon, QMessageBox::Warning);
}

TEST_F(UpdateCheckTest, EmptyReplyIsInvalid)
{
    serve("");
    EXPECT_EQ(check(), QStringList(Invalid));
}

TEST_F(UpdateCheckTest, ErrorOfTheServerIsShownAsText)
{
    m_server.setReply(ListPath,
                      "HTTP/1.1 500 <b>Broken</b>\r\nContent-Length: 0\r\nConnection: close\r\n\r\n");
    EXPECT_EQ(check(), QStringList(Title + QStringLiteral("Error transferring ") + m_server.url() +
                                   QString::fromLatin1(ListPath) +
                                   QStringLiteral(" - server replied: <b>Broken</b>")));
    EXPECT_EQ(m_icon, QMessageBox::Warning);
    EXPECT_EQ(m_format, Qt::PlainText);
}

TEST_F(UpdateCheckTest, RefusedConnectionIsShown)
{
    m_server.close();
    EXPECT_EQ(check(), QStringList(Title + QStringLiteral("Connection refused")));
    EXPECT_EQ(m_icon, QMessageBox::Warning);
}

TEST_F(UpdateCheckTest, ConnectionThatBreaksOffIsShown)
{
    m_server.setReply(ListPath, "HTTP/1.1 200 OK\r\nContent-Length: 100\r\n\r\n[KiroManager]\nMAIN=3.13\n");
    EXPECT_EQ(check(), QStringList(Title + QStringLiteral("Connection closed")));
}

TEST_F(UpdateCheckTest, ReplyIsReleasedUnlessItIsAnError)
{
    serve("[KiroManager]\nMAIN=3.12\n");
    check();
    QCoreApplication::processEvents();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    EXPECT_EQ(replyCount(), 0);

    m_server.setReply(ListPath, "HTTP/1.1 404 Not Found\r\nContent-Length: 0\r\nConnection: close\r\n\r\n");
    expectBox();
    m_window->onCheckForUpdates();
    EXPECT_TRUE(QTest::qWaitFor([this] { return m_answers.seen().size() == 2; }));
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    EXPECT_EQ(replyCount(), 1);
}

TEST_F(UpdateCheckTest, RedirectIsFollowed)
{
    m_server.setReply(ListPath,
                      "HTTP/1.1 301 Moved Permanently\r\nLocation: /new.txt\r\nContent-Length: 0\r\n"
                      "Connection: close\r\n\r\n");
    m_server.setReply("/new.txt", TestServer::ok("[KiroManager]\nMAIN=3.12\n"));
    EXPECT_EQ(check(), QStringList(Newest));
}

TEST_F(UpdateCheckTest, RedirectsWithoutEndAreAnError)
{
    m_server.setReply(ListPath, "HTTP/1.1 302 Found\r\nLocation: " + ListPath +
                                    "\r\nContent-Length: 0\r\nConnection: close\r\n\r\n");
    EXPECT_EQ(check(), QStringList(Title + QStringLiteral("Too many redirects")));
    EXPECT_EQ(m_server.requests().size(), 6) << "the first and five redirects";
}

TEST_F(UpdateCheckTest, ReplyWithoutEndIsCutOff)
{
    m_server.keepOpen();
    m_server.setReply(ListPath,
                      "HTTP/1.1 200 OK\r\n\r\n[KiroManager]\nMAIN=3.13\n" + QByteArray(2 << 20, 'x'));
    EXPECT_EQ(check(), QStringList(Invalid));
}

TEST_F(UpdateCheckTest, LongReplyIsInvalidAlsoIfItEnds)
{
    serve("[KiroManager]\nMAIN=3.13\n" + QByteArray(2 << 20, 'x') + "\n");
    EXPECT_EQ(check(), QStringList(Invalid));
}

TEST_F(UpdateCheckTest, WindowCanBeUsedMeanwhileAndEveryClickAsksAgain)
{
    serve("[KiroManager]\nMAIN=3.12\n");
    m_server.hold();
    expectBox();
    expectBox();
    m_window->onCheckForUpdates();
    m_window->onCheckForUpdates();
    ASSERT_TRUE(waitForRequests(2));
    EXPECT_TRUE(isWaiting());
    EXPECT_TRUE(m_window->isEnabled());
    m_server.release();
    EXPECT_TRUE(QTest::qWaitFor([this] { return m_answers.seen().size() == 2; }));
    EXPECT_EQ(m_answers.seen(), QStringList({Newest, Newest}));
}

TEST_F(UpdateCheckTest, ClosingTheWindowEndsTheCheckWithoutABox)
{
    serve("[KiroManager]\nMAIN=3.13\n");
    m_server.hold();
    m_window->onCheckForUpdates();
    ASSERT_TRUE(waitForRequests(1));
    EXPECT_TRUE(m_window->close());
    EXPECT_FALSE(isWaiting());
    m_server.release();
    QTest::qWait(200);
    EXPECT_EQ(m_answers.seen(), QStringList());
}

TEST_F(UpdateCheckTest, DestroyingTheWindowEndsTheCheckWithoutABox)
{
    m_server.hold();
    m_window->onCheckForUpdates();
    m_window->onCheckForUpdates();
    ASSERT_TRUE(waitForRequests(2));
    m_window.reset();
    EXPECT_FALSE(isWaiting());
    m_server.release();
    QTest::qWait(200);
    EXPECT_EQ(m_answers.seen(), QStringList());
}
