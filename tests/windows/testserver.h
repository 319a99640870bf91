#pragma once

#include <QByteArray>
#include <QHash>
#include <QList>
#include <QTcpServer>

class QTcpSocket;

/// A server for HTTP on this machine. It answers every request with the reply that is set for its path, byte
/// by byte as given, and closes the connection.
class TestServer : public QTcpServer
{
public:
    TestServer();

    /// Such as "http://127.0.0.1:40123".
    QString url() const;

    void setReply(const QByteArray& path, const QByteArray& reply) { m_replies[path] = reply; }
    /// The reply of status 200 with this body.
    static QByteArray ok(const QByteArray& body);

    /// While held, requests get no reply.
    void hold() { m_held = true; }
    /// Ends holding and answers what came meanwhile.
    void release();

    /// Keeps the connection open behind the reply, so that a reply without a length never ends.
    void keepOpen() { m_keepsOpen = true; }

    /// What came, each from the first line to the empty one.
    const QList<QByteArray>& requests() const { return m_requests; }

private:
    void accept();
    void read(QTcpSocket* socket);
    void answer(QTcpSocket* socket);

    QHash<QByteArray, QByteArray> m_replies;
    QList<QByteArray> m_requests;
    QList<QTcpSocket*> m_waiting;
    bool m_held = false;
    bool m_keepsOpen = false;
};
