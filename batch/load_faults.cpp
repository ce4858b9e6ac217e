#include "batch/load_faults.h"

#include <QRegularExpression>

#include <algorithm>
#include <array>

using namespace Qt::StringLiterals;

namespace vistrel
{

namespace
{

struct Fault {
    QLatin1StringView code; // Or how a family of codes begins.
    QLatin1StringView words;
    bool passes;
};

// The first that fits holds.
constexpr std::array kFaults{
    Fault{"ERR_NAME_NOT_RESOLVED"_L1, "no host of that name is known"_L1, false},
    Fault{"ERR_NAME_RESOLUTION_FAILED"_L1, "the host's name cannot be looked up now"_L1, true},
    Fault{"ERR_CONNECTION_REFUSED"_L1, "nothing answers at that host and port"_L1, true},
    Fault{"ERR_CONNECTION_TIMED_OUT"_L1, "the server does not answer"_L1, true},
    Fault{"ERR_CONNECTION_"_L1, "the connection to the server broke off"_L1, true},
    Fault{"ERR_TIMED_OUT"_L1, "the server does not answer"_L1, true},
    Fault{"ERR_EMPTY_RESPONSE"_L1, "the server hung up without an answer"_L1, true},
    Fault{"ERR_CONTENT_LENGTH_MISMATCH"_L1, "the server sent less than it announced"_L1, true},
    Fault{"ERR_INCOMPLETE_CHUNKED_ENCODING"_L1, "the server sent less than it announced"_L1, true},
    Fault{"ERR_NETWORK_CHANGED"_L1, "this machine's network changed"_L1, true},
    Fault{"ERR_ADDRESS_UNREACHABLE"_L1, "no way leads to that host"_L1, true},
    Fault{"ERR_INTERNET_DISCONNECTED"_L1, "this machine has no network"_L1, true},
    Fault{"ERR_PROXY_CONNECTION_FAILED"_L1, "the proxy does not answer"_L1, true},
    Fault{"ERR_SOCKS_CONNECTION_"_L1, "the proxy does not reach that host"_L1, false},
    Fault{"ERR_TUNNEL_CONNECTION_FAILED"_L1, "the proxy does not reach that host"_L1, false},
    Fault{"ERR_HTTP2_"_L1, "the connection to the server broke off"_L1, true},
    Fault{"ERR_QUIC_"_L1, "the connection to the server broke off"_L1, true},
    Fault{"ERR_CERT_"_L1, "the server's certificate is not valid; --insecure shows such pages"_L1, false},
    Fault{"ERR_SSL_"_L1, "the server offers no secure connection that the browser takes"_L1, false},
    Fault{"ERR_UNSAFE_PORT"_L1, "the browser opens no page at that port"_L1, false},
    Fault{"ERR_TOO_MANY_REDIRECTS"_L1, "the server sends the browser round in circles"_L1, false},
    Fault{"ERR_UNSAFE_REDIRECT"_L1, "the server leads to an address that is no web page's"_L1, false},
    Fault{"ERR_CONTENT_DECODING_FAILED"_L1, "it is not packed as the server says"_L1, false},
    Fault{"ERR_INVALID_HTTP_RESPONSE"_L1, "what answers there is no web server"_L1, false},
    Fault{"ERR_ABORTED"_L1, "the server gave no document"_L1, false}};

QRegularExpressionMatch codeIn(const QString& reason)
{
    static const QRegularExpression pattern(u"(?:net::)?(ERR_[A-Z0-9_]+)"_s);
    return pattern.match(reason);
}

const Fault* faultOf(const QString& code)
{
    const auto fault = std::find_if(kFaults.begin(), kFaults.end(),
                                    [&](const Fault& known) { return code.startsWith(known.code); });
    return fault == kFaults.end() ? nullptr : fault;
}

} // namespace

bool isPassingFault(const QString& reason)
{
    const Fault* fault = faultOf(codeIn(reason).captured(1));
    return fault != nullptr && fault->passes;
}

QString inWords(const QString& reason)
{
    const auto match = codeIn(reason);
    const Fault* fault = faultOf(match.captured(1));
    if (fault == nullptr) return reason;
    const QString words = fault->words + u" ("_s + match.captured(1) + u')';
    return QString(reason).replace(match.capturedStart(), match.capturedLength(), words);
}

} // namespace vistrel
