#include "testserver.h"

#include <QTcpSocket>

#include <gtest/gtest.h>

TestServer::TestServer()
{
    connect(this, &QTcpServer::newConnection, this, [this] { accept(); });
    if (!listen(QHostAddress::LocalHost))
        ADD_FAILURE() << "cannot listen on this machine";
}

QString TestServer::url() const
{
    return QStringLiteral("http://127.0.0.1:%1").arg(serverPort());
}

QByteArray TestServer::ok(const QByteArray& body)
{
    return "HTTP/1.1 200 OK\r\nContent-Type: text/plain\r\nContent-Length: " +
           QByteArray::number(body.size()) + "\r\nConnection: close\r\n\r\n" + body;
}

void TestServer::release()
{
    m_held = false;
    while (!m_waiting.isEmpty())
        answer(m_waiting.takeFirst());
}

void TestServer::accept()
{
    while (QTcpSocket* const socket = nextPendingConnection()) {
        connect(socket, &QTcpSocket::readyRead, this, [this, socket] { read(socket); });
        connect(socket, &QTcpSocket::disconnected, this, [this, socket] {
            m_waiting.removeAll(socket);
            socket->deleteLater();
        });
    }
}

void TestServer::read(QTcpSocket* socket)
{
    const QByteArray request = socket->property("request").toByteArray() + socket->readAll();
    socket->setProperty("request", request);
    if (!request.endsWith("\r\n\r\n"))
        return;
    m_requests.append(request);
    if (m_held)
        m_waiting.append(socket);
    else
        answer(socket);
}

void TestServer::answer(QTcpSocket* socket)
{
    const QByteArray path = socket->property("request").toByteArray().split(' ').value(1);
    socket->write(
        m_replies.value(path, "HTTP/1.1 404 Not Found\r\nContent-Length: 0\r\nConnection: close\r\n\r\n"));
    if (!m_keepsOpen)
        socket->disconnectFromHost();
}
