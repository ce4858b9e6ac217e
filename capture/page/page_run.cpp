#include "capture/page/page_run.h"

#include "capture/image/image_encoder.h"
#include "capture/page/archive.h"
#include "capture/page/hung_parts.h"
#include "capture/page/local_files.h"
#include "capture/page/longest_side.h"
#include "capture/page/page_setup.h"
#include "capture/page/page_steps.h"
#include "capture/page/request_headers.h"
#include "capture/page/screenshot.h"
#include "capture/page/settling.h"
#include "platform/log.h"

#include <QTimer>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace vistrel
{

namespace
{

// Progress, in percent of a page's way.
constexpr int kOpened = 5;
constexpr int kAnswered = 20;
constexpr int kParsed = 40;
constexpr int kSettled = 75;
constexpr int kDone = 100;

constexpr std::chrono::milliseconds kDefaultTimeout = std::chrono::seconds(30);
/// No page slows this down; a browser that takes longer is lost, and the page with another one is not.
constexpr std::chrono::milliseconds kOpenLimit = std::chrono::seconds(10);
constexpr int kMostDocuments = 4; // That a page may lead through by itself.
constexpr int kMostShots = 2;     // Of a page that changes its address while it is drawn.

Error cancelled() { return {Error::Kind::Cancelled, u"the capture was stopped"_s, {}}; }

Error unusable(const QUrl& address)
{
    return {Error::Kind::Usage, u"\"%1\" is no usable address"_s.arg(address.toDisplayString()), {}};
}

} // namespace

std::shared_ptr<PageRun> PageRun::create(std::shared_ptr<Browser> browser, PageRequest request)
{
    return std::shared_ptr<PageRun>(new PageRun(std::move(browser), std::move(request)));
}

PageRun::PageRun(std::shared_ptr<Browser> browser, PageRequest request)
    : m_browser(std::move(browser)), m_request(std::move(request))
{
    m_request.timeout = timeoutOf(m_request);
}

std::chrono::milliseconds PageRun::timeoutOf(const PageRequest& request)
{
    return request.timeout.count() > 0 ? request.timeout : kDefaultTimeout;
}

Task<Result<PageShot>> PageRun::run(QDeadlineTimer end)
{
    const auto self = shared_from_this();
    m_deadline = std::min(end, QDeadlineTimer(m_request.timeout));
    report(0);
    m_target = reusedTarget();
    if (m_target) {
        auto shot = co_await runInTarget();
        if (shot || m_cancelled || m_deadline.hasExpired()) co_return shot;
        qCInfo(logPage).noquote() << shot.error().text()
                                  << "in a page that was used before; trying a fresh one";
        m_attempt = {};
    }
    const auto opened = co_await open();
    if (!opened) co_return opened.error();
    co_return co_await runInTarget();
}

Task<Result<PageShot>> PageRun::runInTarget()
{
    m_session = m_target->session();
    if (m_cancelled) m_session->end(cancelled());
    report(kOpened);
    QTimer::singleShot(std::chrono::milliseconds(m_deadline.remainingTime()), m_session.get(),
                       [this] { m_session->end(outOfTime()); });
    auto shot = co_await runOpened();
    if (shot && mayBeReused()) m_target->keep(nameOfSetup(m_request));
    m_httpStatus = m_watch->httpStatus();
    m_files.reset();
    m_headers.reset();
    m_watch.reset();
    m_session->end(cancelled());
    m_target.reset();
    co_return shot;
}

Error PageRun::outOfTime() const
{
    const double seconds = double(m_request.timeout.count()) / 1000;
    return {Error::Kind::Timeout, u"the time-out of %1 s ran out"_s.arg(seconds), {}};
}

Task<Result<PageShot>> PageRun::runOpened()
{
    const auto prepared = co_await prepare();
    if (!prepared) co_return prepared.error();
    const auto loaded = co_await load();
    if (!loaded) co_return loaded.error();
    auto picture = co_await shoot();
    if (!picture) co_return picture.error();
    QString title;
    if (m_request.wantsTitle) title = co_await readTitle(m_session, m_watch->mainFrame());
    report(kDone);
    co_return PageShot{std::move(*picture), m_watch->address(), m_watch->httpStatus(), title,
                       m_attempt.warnings};
}

std::shared_ptr<PageTarget> PageRun::reusedTarget()
{
    const QUrl& address = m_request.addresses.first();
    // To a fragment a browser goes without loading anything, when the page before was the same.
    return address.isLocalFile() && !address.hasFragment() ? m_browser->reusePage(nameOfSetup(m_request))
                                                           : nullptr;
}

bool PageRun::mayBeReused() const
{
    const QString file = m_watch->address().toLocalFile();
    return !file.isEmpty() && !isArchive(file) && m_watch->keptToItself() && m_attempt.warnings.isEmpty() &&
           m_attempt.growth == 0;
}

Task<Result<void>> PageRun::open()
{
    const std::chrono::milliseconds left(m_deadline.remainingTime());
    auto target = co_await m_browser->openPage(std::min(left, kOpenLimit));
    if (!target && target.error().kind == Error::Kind::Timeout && left < kOpenLimit) co_return outOfTime();
    if (!target) co_return withoutPage(target.error());
    m_target = std::move(*target);
    co_return Result<void>();
}

/// What it means that the browser opens no page: one that is being ended refuses to, before it goes.
Error PageRun::withoutPage(const Error& error)
{
    const bool silent = error.kind == Error::Kind::Timeout;
    if (!silent && error.kind != Error::Kind::Protocol) return error;
    m_browser->setFaulty();
    return {Error::Kind::Closed, silent ? u"the browser does not answer"_s : error.message, error.context};
}

Task<Result<void>> PageRun::prepare()
{
    m_watch = std::make_unique<PageWatch>(*m_session);
    connect(m_watch.get(), &PageWatch::changed, this, [this] {
        if (m_watch->isParsed()) report(kParsed);
        if (m_watch->isLoaded()) report(kLoaded);
    });
    guardLocalFiles();
    addHeaders();
    if (!m_target->isReused()) co_return co_await setUpPage(m_session, m_request);
    const auto emptying = co_await forgetDocument(m_session);
    if (!emptying) co_return emptying.error().during(u"preparing the page"_s);
    m_emptyingScript = *emptying;
    co_return Result<void>();
}

void PageRun::guardLocalFiles()
{
    const bool local = m_request.addresses.first().isLocalFile();
    if (local && (m_browser->account() || !m_request.confinement.isEmpty()))
        m_files = std::make_unique<LocalFiles>(*m_session, m_browser->account(), m_request.confinement);
}

void PageRun::addHeaders()
{
    const bool local = m_request.addresses.first().isLocalFile();
    if (local || m_request.headers.isEmpty()) return;
    m_headers = std::make_unique<RequestHeaders>(*m_session, m_request.headers, m_request.addresses);
}

Task<Result<void>> PageRun::load()
{
    const auto navigated = co_await navigateToFirstReachable();
    if (!navigated) co_return navigated.error().during(u"loading the page"_s);
    if (m_target->isReused()) {
        const auto replaced = co_await replaceDocument();
        if (!replaced) co_return replaced.error().during(u"loading the page"_s);
    }
    const auto loaded = co_await waitForDocument();
    if (!loaded || !isArchive(m_request.addresses.first().toLocalFile())) co_return loaded;
    const auto shown = co_await checkArchive(m_session, m_watch->mainFrame());
    if (!shown) co_return shown.error().during(u"loading the page"_s);
    co_return Result<void>();
}

/// The one before may not want to go.
Task<Result<void>> PageRun::replaceDocument()
{
    const auto replaced =
        co_await m_session->until([this] { return m_watch->isThere(); }, kReuseLimit, u"the next page"_s);
    if (!replaced) co_return replaced.error();
    const QJsonObject script{{u"identifier"_s, m_emptyingScript}};
    m_session->post(u"Page.removeScriptToEvaluateOnNewDocument"_s, script);
    co_return Result<void>();
}

Task<Result<void>> PageRun::waitForDocument()
{
    const auto leftOut = co_await waitForMarkup(m_session, *m_watch, m_request.timeout / 3);
    if (!leftOut) co_return leftOut.error().during(u"loading the page"_s);
    if (!leftOut->isEmpty()) warn(describeLeftOut(*leftOut));
    const auto loaded = co_await m_session->until(
        [this] { return m_watch->isLoaded() && !m_watch->isLeaving(); }, loadLimit(), u"loading"_s);
    if (!m_session->isOpen()) co_return loaded.error().during(u"loading the page"_s);
    if (!loaded) {
        warn(u"the page never finished loading"_s);
        m_session->post(u"Page.stopLoading"_s);
    }
    co_return m_watch->checkDocument();
}

Task<Result<void>> PageRun::navigateToFirstReachable()
{
    Result<void> navigated;
    for (const QUrl& address : std::as_const(m_request.addresses)) {
        navigated = co_await navigate(address);
        if (navigated || navigated.error().kind != Error::Kind::Page) break;
    }
    co_return navigated;
}

Task<Result<void>> PageRun::navigate(QUrl address)
{
    const auto reachable =
        address.isLocalFile() ? LocalFiles::reachable(*m_browser, address) : Result<QUrl>(address);
    if (!reachable) co_return reachable.error();
    if (m_files) m_files->expectPage(*reachable);
    const QJsonObject params{{u"url"_s, QString::fromUtf8(reachable->toEncoded())}};
    Q_EMIT visiting();
    const auto limit = m_target->isReused() ? kReuseLimit : m_request.timeout;
    const auto reply = co_await m_session->call(u"Page.navigate"_s, params, limit);
    // A browser that lives refuses the order for its address alone: "1.2.3.4.5" is no host for it, say.
    if (!reply && reply.error().kind == Error::Kind::Protocol && m_session->isOpen())
        co_return unusable(address);
    if (!reply) co_return reply.error();
    const QString problem = reply->result.value(u"errorText"_s).toString();
    if (reply->result.value(u"isDownload"_s).toBool())
        co_return Error{Error::Kind::Page, u"the address is a download, not a page"_s, {}};
    if (!problem.isEmpty()) co_return Error{Error::Kind::Page, problem, {}};
    m_watch->expectDocument(reply->result.value(u"frameId"_s).toString(),
                            reply->result.value(u"loaderId"_s).toString());
    report(kAnswered);
    co_return Result<void>();
}

Task<Result<void>> PageRun::becomeReady()
{
    const auto settled = co_await settle();
    if (!settled) co_return settled.error().during(u"waiting for the page"_s);
    report(kSettled);
    const auto waited = co_await waitOutDelay();
    if (!waited) co_return waited.error().during(u"waiting for the delay"_s);
    report(kReady);
    const auto frozen = co_await freezePage(m_session, m_watch->mainFrame());
    if (!m_session->isOpen()) co_return frozen.error().during(u"stopping animations"_s);
    co_return Result<void>();
}

/// A page that goes elsewhere meanwhile is followed, without a second delay.
Task<Result<void>> PageRun::waitOutDelay()
{
    if (m_request.delay.count() == 0) co_return Result<void>();
    const QString document = m_watch->loaderId();
    const auto waited = co_await m_session->pause(m_request.delay);
    if (!waited) co_return waited.error();
    if (m_watch->loaderId() == document && !m_watch->isLeaving()) co_return Result<void>();
    const auto loaded = co_await waitForDocument();
    if (!loaded) co_return loaded.error();
    co_return co_await settle();
}

Task<Result<void>> PageRun::settle()
{
    for (int documents = 0; documents < kMostDocuments; ++documents) {
        const auto asBefore = co_await growWindow(0);
        if (!asBefore) co_return asBefore.error();
        const QString document = m_watch->loaderId();
        const auto adapted = co_await adapt();
        if (!adapted) co_return adapted.error();
        const auto growth = co_await settlePage(m_session, *m_watch);
        if (!m_session->isOpen()) co_return growth.error();
        const auto grown = co_await growWindow(growth && !m_request.windowOnly ? *growth : 0);
        if (!grown) co_return grown.error();
        if (m_watch->loaderId() == document && !m_watch->isLeaving()) {
            if (!growth) warn(u"the page did not come to rest: "_s + growth.error().message);
            co_return Result<void>();
        }
        const auto loaded = co_await waitForDocument();
        if (!loaded) co_return loaded.error();
    }
    warn(u"the page kept changing its address"_s);
    co_return Result<void>();
}

Task<Result<void>> PageRun::growWindow(int rows)
{
    if (rows == std::exchange(m_attempt.growth, rows)) co_return Result<void>();
    const auto grown =
        co_await resizeWindow(*m_session, m_request.viewport + QSize(0, rows), m_request.scale);
    if (!grown) co_return grown.error();
    co_return Result<void>();
}

Task<Result<void>> PageRun::adapt()
{
    auto request = m_request;
    if (std::exchange(m_attempt.scriptRan, true)) request.script.clear();
    const auto warnings = co_await adaptPage(m_session, *m_watch, request);
    if (!warnings) co_return warnings.error();
    for (const QString& words : *warnings)
        warn(words);
    co_return Result<void>();
}

Task<Result<PagePicture>> PageRun::shoot()
{
    for (int tries = 1;; ++tries) {
        const auto ready = co_await becomeReady();
        if (!ready) co_return ready.error();
        const QString document = m_watch->loaderId();
        auto picture = co_await shootOnce();
        const auto stillThere = m_watch->checkDocument();
        if (!stillThere) co_return stillThere.error();
        const bool isOneDocument = document == m_watch->loaderId();
        if (!isOneDocument && tries == kMostShots) warn(u"the page kept changing its address"_s);
        if (isOneDocument || tries == kMostShots) co_return picture;
        const auto loaded = co_await waitForDocument();
        if (!loaded) co_return loaded.error();
    }
}

Task<Result<PagePicture>> PageRun::shootOnce()
{
    const auto area = co_await measureArea(m_session, m_watch->mainFrame(), m_request);
    if (!area) co_return area.error();
    const auto side = co_await findLongestSide(m_browser, m_session, area->size() * m_request.scale);
    if (!side) co_return side.error();
    ShotSettings settings{m_request.encoding, m_request.jpegQuality, *side, m_request.scale};
    const auto checked = checkArea(*area, settings);
    if (!checked) co_return checked.error();
    // A JPEG whose pieces would be too large is made of PNGs, and so is one that is to keep all colours.
    if (stripRows(*area, settings) == 0 || settings.jpegQuality >= kFullColourQuality)
        settings.encoding = PagePicture::Encoding::Png;
    co_return co_await takePicture(m_session, *area, settings, [this, height = area->height()](int rows) {
        report(kReady + (kDone - 1 - kReady) * rows / height);
    });
}

void PageRun::cancel()
{
    m_cancelled = true;
    if (m_session) m_session->end(cancelled());
}

void PageRun::report(int percent)
{
    if (percent <= m_percent) return;
    m_percent = percent;
    Q_EMIT progress(percent);
}

void PageRun::warn(const QString& words)
{
    qCInfo(logPage).noquote() << m_request.addresses.first().toDisplayString() << words;
    m_attempt.warnings += words;
}

/// Leaves time for the delay, for settling and for the picture.
std::chrono::milliseconds PageRun::loadLimit() const
{
    const std::chrono::milliseconds left(m_deadline.remainingTime());
    return std::max(left - m_request.delay, std::chrono::milliseconds(0)) * 6 / 10;
}

} // namespace vistrel
