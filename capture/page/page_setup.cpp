#include "capture/page/page_setup.h"

#include <QJsonArray>

using namespace Qt::StringLiterals;

namespace vistrel
{

void preferDarkColours(Session& session)
{
    const QJsonObject dark{{u"name"_s, u"prefers-color-scheme"_s}, {u"value"_s, u"dark"_s}};
    session.post(u"Emulation.setEmulatedMedia"_s, {{u"features"_s, QJsonArray{dark}}});
}

Completion<Reply> giveCookies(Session& session, const PageRequest& request)
{
    QJsonArray cookies;
    for (const QUrl& address : request.addresses) {
        if (address.isLocalFile()) continue;
        for (const RequestHeader& cookie : request.cookies)
            cookies.append(QJsonObject{{u"name"_s, cookie.name},
                                       {u"value"_s, cookie.value},
                                       {u"url"_s, QString::fromLatin1(address.toEncoded())},
                                       {u"path"_s, u"/"_s}});
    }
    if (!cookies.isEmpty()) return session.call(u"Network.setCookies"_s, {{u"cookies"_s, cookies}});
    Completion<Reply> nothing;
    nothing.settle(Reply());
    return nothing;
}

} // namespace vistrel
