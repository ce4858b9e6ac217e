#include "capture/browser/page_target.h"

#include "platform/log.h"

using namespace Qt::StringLiterals;

namespace vistrel
{

namespace
{

constexpr Session::Limit kClosing = std::chrono::seconds(5);

QString contextKey() { return u"browserContextId"_s; }

} // namespace

Task<Result<std::shared_ptr<PageTarget>>> PageTarget::open(std::shared_ptr<Browser> browser,
                                                           Session::Limit limit)
{
    const auto session = browser->connection().browser().shared_from_this();
    const QJsonObject fresh{{u"disposeOnDetach"_s, true}};
    const auto context = co_await session->call(u"Target.createBrowserContext"_s, fresh, limit);
    if (!context) co_return context.error().during(u"opening a page"_s);
    const QString contextId = context->result.value(contextKey()).toString();
    const std::shared_ptr<PageTarget> page(new PageTarget(browser, contextId));

    session->post(u"Browser.setDownloadBehavior"_s, {{u"behavior"_s, u"deny"_s}, {contextKey(), contextId}});
    const QJsonObject empty{{u"url"_s, u"about:blank"_s}, {contextKey(), contextId}};
    const auto target = co_await session->call(u"Target.createTarget"_s, empty, limit);
    if (!target) co_return target.error().during(u"opening a page"_s);
    const QJsonObject attach{{u"targetId"_s, target->result.value(u"targetId"_s)}, {u"flatten"_s, true}};
    const auto attached = co_await session->call(u"Target.attachToTarget"_s, attach, limit);
    if (!attached) co_return attached.error().during(u"opening a page"_s);
    page->m_session = browser->connection().openSession(attached->result.value(u"sessionId"_s).toString());
    co_return page;
}

std::shared_ptr<PageTarget> PageTarget::reopen(std::shared_ptr<Browser> browser, const IdlePage& page)
{
    const auto session = browser->connection().openSession(page.sessionId);
    const std::shared_ptr<PageTarget> reopened(new PageTarget(std::move(browser), page.contextId));
    reopened->m_session = session;
    reopened->m_uses = page.uses;
    return reopened;
}

PageTarget::PageTarget(std::shared_ptr<Browser> browser, QString contextId)
    : m_browser(std::move(browser)), m_contextId(std::move(contextId))
{
}

PageTarget::~PageTarget()
{
    if (m_session) m_session->end({Error::Kind::Closed, u"the page was closed"_s, {}});
    if (!m_kept) dispose(m_browser, m_contextId);
}

void PageTarget::keep(const QString& setup)
{
    m_kept = m_uses + 1 < kMostUses;
    if (m_kept) m_browser->keepPage({m_contextId, m_session->id(), setup, m_uses + 1, {}});
}

Task<> PageTarget::dispose(std::weak_ptr<Browser> browser, QString contextId)
{
    const auto session = browser.lock()->connection().browser().shared_from_this();
    const QJsonObject context{{contextKey(), contextId}};
    const auto reply = co_await session->call(u"Target.disposeBrowserContext"_s, context, kClosing);
    const auto still = browser.lock();
    if (reply || !still || !still->isUsable()) co_return;
    qCWarning(logBrowser) << "a page would not close:" << reply.error().text();
    still->setFaulty();
}

} // namespace vistrel
