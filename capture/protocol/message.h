#pragma once

#include "platform/result.h"

#include <QByteArray>
#include <QJsonObject>
#include <QString>

namespace vistrel
{

/// What a call gave back.
struct Reply {
    QJsonObject result;
    /// The decoded bytes of the result's "data" member, when the result is that member alone (pictures); it
    /// is then left out of result. Saves building tens of megabytes of text.
    QByteArray data;
};

/// One message from the browser: a reply (id above 0) or an event (a method).
struct Message {
    int id = 0;
    QString sessionId; ///< Empty for the browser itself.
    QString method;
    QJsonObject params;
    Reply reply;
    std::optional<Error> error; ///< The browser refused the call; kind Protocol, its code and words.

    /// Error::Kind::Protocol when bytes are not a JSON object.
    static Result<Message> parse(const QByteArray& bytes);

    /// The bytes of a call, without the final NUL.
    static QByteArray call(int id, const QString& sessionId, const QString& method,
                           const QJsonObject& params);
};

} // namespace vistrel
