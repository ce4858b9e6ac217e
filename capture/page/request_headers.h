#pragma once

#include "capture/page/page_request.h"
#include "capture/protocol/session.h"

#include <QUrl>

namespace vistrel
{

/// Adds headers to the requests that a page sends to its own host, and to no others: neither what a page
/// takes from elsewhere nor a redirect to another host gets to see them.
class RequestHeaders : public QObject
{
    Q_OBJECT
public:
    /// From now on, for the addresses' origins and, where one is plain http at its usual port, the same
    /// host's https. session must outlive this object. The page's requests are held up for a moment each.
    RequestHeaders(Session& session, QList<RequestHeader> headers, const QList<QUrl>& addresses);

private:
    void answer(const QJsonObject& params);

    Session& m_session;
    QList<RequestHeader> m_headers;
};

} // namespace vistrel
