#pragma once

#include <QHash>
#include <QTcpServer>
#include <QTcpSocket>

#include <functional>

namespace vistrel::test
{

/// One request under way at a ScriptedServer. The connection stays open until the handler or the client
/// closes it.
class Exchange
{
public:
    Exchange(QTcpSocket& socket, const QByteArray& request);

    [[nodiscard]] const QString& path() const { return m_path; }
    /// Value of a request header, empty when it was not sent; name in lower case.
    [[nodiscard]] QByteArray header(const QByteArray& name) const { return m_headers.value(name); }

    /// Answers in full and closes.
    void reply(const QByteArray& body, const QByteArray& type = "text/html; charset=utf-8",
               const QByteArray& status = "200 OK", const QByteArray& moreHeaders = {});
    /// 302 to location.
    void redirect(const QByteArray& location);
    /// Status line and headers alone, without a length; what comes after is up to send().
    void begin(const QByteArray& type, const QByteArray& moreHeaders = {});
    void send(const QByteArray& bytes) { m_socket.write(bytes); }
    [[nodiscard]] QTcpSocket& socket() { return m_socket; }

private:
    QTcpSocket& m_socket;
    QString m_path;
    QHash<QByteArray, QByteArray> m_headers;
};

/// A loopback HTTP/1.1 server with one handler per path, on the test's own event loop. A path without a
/// handler is answered with 404. A handler that neither replies nor closes lets its client wait.
class ScriptedServer : public QObject
{
    Q_OBJECT
public:
    using Handler = std::function<void(Exchange& exchange)>;

    ScriptedServer();

    void on(const QString& path, const Handler& handler) { m_handlers.insert(path, handler); }
    /// Serves an HTML document at path.
    void page(const QString& path, const QByteArray& html);
    [[nodiscard]] QString url(const QString& path) const;
    [[nodiscard]] quint16 port() const { return m_server.serverPort(); }
    /// How often path was asked for.
    [[nodiscard]] int requests(const QString& path) const { return m_requests.value(path); }

private:
    void serve(QTcpSocket& socket);

    QTcpServer m_server;
    QHash<QString, Handler> m_handlers;
    QHash<QString, int> m_requests;
};

} // namespace vistrel::test
