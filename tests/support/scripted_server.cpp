#include "tests/support/scripted_server.h"

#include <QUrl>

using namespace Qt::StringLiterals;

namespace vistrel::test
{

Exchange::Exchange(QTcpSocket& socket, const QByteArray& request) : m_socket(socket)
{
    const QList<QByteArray> lines = request.split('\n');
    const QList<QByteArray> words = lines.first().split(' ');
    m_path = QUrl(QString::fromLatin1(words.value(1))).path();
    for (const QByteArray& line : lines.mid(1)) {
        const qsizetype colon = line.indexOf(':');
        if (colon > 0) m_headers.insert(line.first(colon).toLower(), line.sliced(colon + 1).trimmed());
    }
}

void Exchange::reply(const QByteArray& body, const QByteArray& type, const QByteArray& status,
                     const QByteArray& moreHeaders)
{
    m_socket.write("HTTP/1.1 " + status + "\r\nContent-Type: " + type +
                   "\r\nContent-Length: " + QByteArray::number(body.size()) + "\r\nConnection: close\r\n" +
                   moreHeaders + "\r\n" + body);
    m_socket.disconnectFromHost();
}

void Exchange::redirect(const QByteArray& location)
{
    reply({}, "text/plain", "302 Found", "Location: " + location + "\r\n");
}

void Exchange::begin(const QByteArray& type, const QByteArray& moreHeaders)
{
    m_socket.write("HTTP/1.1 200 OK\r\nContent-Type: " + type + "\r\nConnection: close\r\n" + moreHeaders +
                   "\r\n");
}

ScriptedServer::ScriptedServer()
{
    m_server.listen(QHostAddress::LocalHost);
    connect(&m_server, &QTcpServer::newConnection, this, [this] {
        while (QTcpSocket* socket = m_server.nextPendingConnection()) {
            connect(socket, &QTcpSocket::readyRead, this, [this, socket] { serve(*socket); });
            connect(socket, &QTcpSocket::disconnected, socket, &QObject::deleteLater);
        }
    });
}

void ScriptedServer::page(const QString& path, const QByteArray& html)
{
    on(path, [html](Exchange& exchange) { exchange.reply(html); });
}

QString ScriptedServer::url(const QString& path) const
{
    return u"http://127.0.0.1:%1%2"_s.arg(port()).arg(path);
}

void ScriptedServer::serve(QTcpSocket& socket)
{
    if (!socket.peek(64 * 1024).contains("\r\n\r\n")) return;
    Exchange exchange(socket, socket.readAll());
    ++m_requests[exchange.path()];
    const Handler handler = m_handlers.value(exchange.path());
    if (handler)
        handler(exchange);
    else
        exchange.reply("nothing here", "text/plain", "404 Not Found");
}

} // namespace vistrel::test
