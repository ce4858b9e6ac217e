#include "capture/protocol/message.h"

#include "capture/protocol/base64.h"

#include <QJsonDocument>

using namespace Qt::StringLiterals;

namespace vistrel
{

namespace
{

constexpr QByteArrayView kDataMember = R"(,"result":{"data":")";
constexpr qsizetype kFarthestMember = 64; // Where the data of a picture's reply has begun by.

QString idKey() { return u"id"_s; }
QString sessionKey() { return u"sessionId"_s; }

/// A picture's reply is {"id":N,"result":{"data":"BASE64"},"sessionId":"S"}. Cuts BASE64 out, so that only
/// the short rest is parsed as JSON; empty when bytes have another shape.
QByteArray takeData(QByteArray& bytes)
{
    const qsizetype member =
        QByteArrayView(bytes).first(qMin(bytes.size(), kFarthestMember)).indexOf(kDataMember);
    if (member < 0) return {};
    const qsizetype start = member + kDataMember.size();
    const qsizetype end = bytes.indexOf('"', start);
    if (end < 0 || bytes.at(end + 1) != '}') return {};
    QByteArray data = decodeBase64(QByteArrayView(bytes).sliced(start, end - start));
    bytes = bytes.first(start) + bytes.sliced(end);
    return data;
}

std::optional<Error> refusal(const QJsonObject& message)
{
    const QJsonValue error = message.value(u"error");
    if (!error.isObject()) return std::nullopt;
    const QString words = error[u"message"].toString() + u" "_s + error[u"data"].toString();
    return Error{Error::Kind::Protocol,
                 u"the browser answered error %1, %2"_s.arg(error[u"code"].toInt()).arg(words.trimmed()),
                 {}};
}

} // namespace

Result<Message> Message::parse(const QByteArray& bytes)
{
    QByteArray text = bytes;
    QByteArray data = takeData(text);
    QJsonParseError problem;
    const QJsonDocument document = QJsonDocument::fromJson(text, &problem);
    if (!document.isObject())
        return Error{
            Error::Kind::Protocol, u"the browser sent no JSON object: "_s + problem.errorString(), {}};

    const QJsonObject object = document.object();
    Message message;
    message.id = object.value(idKey()).toInt();
    message.sessionId = object.value(sessionKey()).toString();
    message.method = object.value(u"method").toString();
    message.params = object.value(u"params").toObject();
    message.reply = {object.value(u"result").toObject(), std::move(data)};
    message.error = refusal(object);
    return message;
}

QByteArray Message::call(int id, const QString& sessionId, const QString& method, const QJsonObject& params)
{
    QJsonObject object{{idKey(), id}, {u"method"_s, method}, {u"params"_s, params}};
    if (!sessionId.isEmpty()) object.insert(sessionKey(), sessionId);
    return QJsonDocument(object).toJson(QJsonDocument::Compact);
}

} // namespace vistrel
