// A browser program that speaks the DevTools pipe and misbehaves on purpose. Which way is told by the name
// that it is started under, so that nothing else has to reach it.
#include <QByteArray>
#include <QFileInfo>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QtEndian>

#include <cstdio>
#include <unistd.h>

using namespace Qt::StringLiterals;

namespace
{

QString mode;
qint32 pageWidth = 1280; ///< Px; the page fills the window that was asked for last.
qint32 pageHeight = 800;

void say(const QByteArray& bytes)
{
    for (qsizetype sent = 0; sent < bytes.size();) {
        const ssize_t count = ::write(4, bytes.constData() + sent, size_t(bytes.size() - sent));
        if (count <= 0) ::_exit(0);
        sent += count;
    }
}

void sayJson(const QJsonObject& message)
{
    say(QJsonDocument(message).toJson(QJsonDocument::Compact) + '\0');
}

void event(const QString& method, const QJsonObject& params)
{
    sayJson({{u"method"_s, method}, {u"params"_s, params}, {u"sessionId"_s, u"S"_s}});
}

QByteArray bigEndian(qint32 number)
{
    const qint32 turned = qToBigEndian(number);
    return {reinterpret_cast<const char*>(&turned), sizeof turned};
}

/// A PNG header without pixels: enough for whoever only looks at the size.
QByteArray picture(qint32 width, qint32 height)
{
    return QByteArray::fromHex("89504e470d0a1a0a0000000d49484452") + bigEndian(width) + bigEndian(height) +
           QByteArray::fromHex("0802000000000000000000000049454e44ae426082");
}

QJsonObject shot(const QJsonObject& clip)
{
    if (mode == u"empty-picture") return {{u"data"_s, QString()}};
    const qint32 width = clip[u"width"].toInt() + (mode == u"wrong-size" ? 1 : 0);
    return {{u"data"_s, QString::fromLatin1(picture(width, clip[u"height"].toInt()).toBase64())}};
}

QJsonObject navigate()
{
    const QJsonObject frame{{u"id"_s, u"F"_s}, {u"loaderId"_s, u"L"_s}, {u"url"_s, u"http://x.test/"_s}};
    event(u"Some.unknownEvent"_s, {{u"of"_s, u"no interest"_s}});
    event(u"Page.frameNavigated"_s, {{u"frame"_s, frame}});
    for (const QString& name : {u"DOMContentLoaded"_s, u"load"_s})
        event(u"Page.lifecycleEvent"_s, {{u"frameId"_s, u"F"_s}, {u"loaderId"_s, u"L"_s}, {u"name"_s, name}});
    return {{u"frameId"_s, u"F"_s}, {u"loaderId"_s, u"L"_s}};
}

QJsonObject metrics()
{
    const QJsonObject content{{u"x"_s, 0}, {u"y"_s, 0}, {u"width"_s, pageWidth}, {u"height"_s, pageHeight}};
    return {{u"cssContentSize"_s, content}};
}

QJsonObject answer(const QString& method, const QJsonObject& params)
{
    if (method == u"Browser.getVersion") return {{u"product"_s, u"Fake/1"_s}};
    if (method == u"Target.createBrowserContext") return {{u"browserContextId"_s, u"C"_s}};
    if (method == u"Target.createTarget") return {{u"targetId"_s, u"T"_s}};
    if (method == u"Target.attachToTarget") return {{u"sessionId"_s, u"S"_s}};
    if (method == u"Page.navigate") return navigate();
    if (method == u"Page.createIsolatedWorld") return {{u"executionContextId"_s, 1}};
    if (method == u"Page.getLayoutMetrics") return metrics();
    if (method == u"Page.captureScreenshot") return shot(params[u"clip"].toObject());
    return {};
}

QJsonObject refusal() { return {{u"code"_s, -32000}, {u"message"_s, u"Not supported"_s}}; }

void misbehave(const QString& method)
{
    if (mode == u"torn" && method == u"Page.navigate") say("{\"id\":3,\"resu");
    if (mode == u"torn" && method == u"Page.navigate") say(QByteArray("\xff\xfe}\0", 4));
    if (mode == u"closing" && method == u"Page.navigate") ::_exit(0);
    if (mode == u"never-closes" && method == u"Target.disposeBrowserContext") ::pause();
    if (mode == u"hangs" && method == u"Page.captureScreenshot") ::pause();
    if (mode == u"crashing" && method == u"Page.captureScreenshot") event(u"Inspector.targetCrashed"_s, {});
    if (mode == u"late" && method == u"Page.navigate") sayJson({{u"id"_s, 1}, {u"result"_s, QJsonObject{}}});
}

void resize(const QJsonObject& window)
{
    pageWidth = window[u"width"].toInt();
    pageHeight = window[u"height"].toInt();
}

void serve(const QByteArray& bytes)
{
    const QJsonObject call = QJsonDocument::fromJson(bytes).object();
    const QString method = call[u"method"].toString();
    if (method == u"Emulation.setDeviceMetricsOverride") resize(call[u"params"].toObject());
    misbehave(method);
    QJsonObject reply{{u"id"_s, call[u"id"]}};
    if (mode == u"leaving" && method == u"Target.createTarget")
        reply.insert(u"error"_s, refusal());
    else
        reply.insert(u"result"_s, answer(method, call[u"params"].toObject()));
    if (call.contains(u"sessionId")) reply.insert(u"sessionId"_s, call[u"sessionId"]);
    sayJson(reply);
}

void start()
{
    if (mode == u"unlinked") std::fputs("error while loading shared libraries: libnss3.so\n", stderr);
    if (mode == u"no-sandbox-here") std::fputs("No usable sandbox!\n", stderr);
    if (mode == u"unlinked" || mode == u"no-sandbox-here") ::_exit(127);
    if (mode == u"silent") ::pause();
    if (mode == u"chatty")
        for (int i = 0; i < 200000; ++i)
            std::fputs("an error line of sixty-odd characters that nobody waits for\n", stderr);
}

} // namespace

int main(int /*argc*/, char** argv)
{
    mode = QFileInfo(QString::fromLocal8Bit(argv[0])).fileName();
    start();
    QByteArray pending;
    QByteArray chunk(65536, '\0');
    for (ssize_t count = ::read(3, chunk.data(), size_t(chunk.size())); count > 0;
         count = ::read(3, chunk.data(), size_t(chunk.size()))) {
        pending += chunk.first(count);
        for (qsizetype end = pending.indexOf('\0'); end >= 0; end = pending.indexOf('\0')) {
            serve(pending.first(end));
            pending = pending.sliced(end + 1);
        }
    }
    return 0;
}
