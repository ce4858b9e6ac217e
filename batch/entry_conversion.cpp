#include "batch/entry_conversion.h"

#include "batch/load_faults.h"
#include "batch/picture_writing.h"
#include "batch/sitemap_source.h"
#include "capture/page/address.h"

#include <QCoroFuture>
#include <QDateTime>
#include <QElapsedTimer>
#include <QtConcurrentRun>

using namespace Qt::StringLiterals;

namespace vistrel
{

namespace
{

bool isPassing(const Error& error)
{
    if (error.kind == Error::Kind::Page) return isPassingFault(error.message);
    return error.kind == Error::Kind::Timeout || error.kind == Error::Kind::Protocol;
}

QString inWords(int httpStatus) { return u"HTTP %1"_s.arg(httpStatus); }

bool isPassing(int httpStatus)
{
    return httpStatus == 408 || httpStatus == 429 || httpStatus == 500 ||
           (httpStatus >= 502 && httpStatus <= 504);
}

} // namespace

std::shared_ptr<EntryConversion> EntryConversion::create(const ConversionTools& tools, PendingEntry entry)
{
    return std::shared_ptr<EntryConversion>(new EntryConversion(tools, std::move(entry)));
}

EntryConversion::EntryConversion(const ConversionTools& tools, PendingEntry entry)
    : m_tools(tools), m_entry(std::move(entry))
{
}

Task<Attempt> EntryConversion::run(std::shared_ptr<Browser> browser)
{
    const auto self = shared_from_this();
    const qint64 started = QDateTime::currentMSecsSinceEpoch();
    QElapsedTimer clock;
    clock.start();
    auto shot = co_await takeShot(browser);
    const int httpStatus = m_run ? m_run->httpStatus() : 0;
    m_run.reset();
    const bool browserLost = !browser->isUsable();
    browser.reset();
    const bool lastAttempt = m_entry.attempts >= m_tools.plan.retries;
    Attempt attempt;
    if (!shot) {
        attempt = failure(shot.error(), httpStatus, browserLost);
    } else if (m_cancelled) {
        attempt.trouble = Trouble::Cancelled;
    } else if (isPassing(httpStatus) && !lastAttempt) {
        attempt = {Outcome::failed(inWords(httpStatus)), Trouble::Passing};
    } else {
        WritingJob job{m_tools, m_entry, std::move(*shot), started, clock};
        const auto writing = QtConcurrent::run(&m_tools.writers, writePictures, std::move(job));
        attempt = co_await writing;
    }
    attempt.outcome.httpStatus = httpStatus;
    attempt.outcome.started = started;
    attempt.outcome.attempts = m_entry.attempts + 1;
    attempt.outcome.milliseconds = clock.elapsed();
    co_return attempt;
}

Attempt EntryConversion::failure(const Error& error, int httpStatus, bool browserLost) const
{
    const QString remedy =
        error.kind == Error::Kind::Timeout ? u"; --timeout gives pages more time"_s : QString();
    const Error cause = httpStatus >= 400 ? error.during(inWords(httpStatus)) : error;
    Attempt attempt{Outcome::failed(inWords(cause.text()) + remedy)};
    if (m_cancelled || error.kind == Error::Kind::Cancelled)
        attempt.trouble = Trouble::Cancelled;
    else if (error.kind == Error::Kind::Closed && browserLost)
        attempt.trouble = Trouble::LostBrowser;
    else if (isPassing(error) || isPassing(httpStatus))
        attempt.trouble = Trouble::Passing;
    return attempt;
}

Task<Result<PageShot>> EntryConversion::takeShot(std::shared_ptr<Browser> browser)
{
    if (!m_entry.entry.problem.isEmpty()) co_return Error{Error::Kind::Usage, m_entry.entry.problem, {}};
    const auto addresses = resolveAddress(m_entry.entry.target);
    if (!addresses) co_return addresses.error();
    PageRequest request = m_tools.plan.page;
    request.addresses = *addresses;
    if (!mayTakeHeaders(m_entry.entry)) {
        request.headers.clear();
        request.cookies.clear();
    }
    m_run = PageRun::create(std::move(browser), std::move(request));
    QObject::connect(m_run.get(), &PageRun::visiting, &m_tools.queue,
                     [this] { m_tools.queue.visit(m_entry); });
    co_return co_await m_run->run();
}

void EntryConversion::cancel()
{
    m_cancelled = true;
    if (m_run) m_run->cancel();
}

} // namespace vistrel
