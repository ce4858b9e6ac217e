#include "batch/batch_run.h"

#include "batch/journal_filling.h"
#include "batch/run_summary.h"
#include "platform/machine.h"
#include "platform/process/scratch_folder.h"
#include "platform/whole_file.h"

#include <QCoroFuture>
#include <QFileInfo>
#include <QTimer>
#include <QtConcurrentRun>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace vistrel
{

namespace
{

constexpr qint64 kMebibyte = 1024 * 1024;
/// Below this no further page is opened while others are.
constexpr qint64 kMemoryReserve = 300 * kMebibyte;

/// 1, 2, 4, ... up to 60 s before another attempt.
std::chrono::milliseconds pauseBefore(int attempt)
{
    return std::chrono::seconds(std::min(60, 1 << std::min(attempt - 1, 6)));
}

} // namespace

BatchRun::BatchRun(Plan plan, std::unique_ptr<Journal> journal, Streams& streams)
    : m_plan(std::move(plan)),
      m_progress(streams),
      m_input(streams.in),
      m_journal(std::move(journal)),
      m_names(m_plan, *m_journal),
      m_queue(*m_journal, HostLimits(m_plan.perHost, m_plan.perHostDelay),
              m_plan.jobs == 0 ? kMemoryReserve : 0),
      m_browsers(m_plan.browser)
{
}

Task<ExitCode> BatchRun::run()
{
    if (!m_journal->setAside().isEmpty())
        m_progress.message(
            u"vistrel-batch: without --resume this is a new run; the journal of the unfinished one is kept as "_s +
            m_journal->setAside());
    auto ready = prepareFiles();
    if (ready) ready = co_await fill();
    if (!ready) {
        m_progress.message(u"vistrel-batch: "_s + ready.error().text());
        co_return ExitCode::Usage;
    }
    co_await convertAll();
    m_browsers.stop();
    m_progress.end();
    co_return tell();
}

Result<void> BatchRun::prepareFiles()
{
    sweepTemporaryFiles(m_plan.outputFolder);
    sweepScratchFolders(); // Here, too: a run with nothing left to convert starts no browser.
    Result<void> opened;
    if (!m_plan.reportFile.isEmpty()) opened = m_report.open(m_plan.reportFile);
    if (opened && !m_plan.sheetFile.isEmpty()) opened = m_sheet.open(m_plan.sheetFile);
    return opened;
}

Task<Result<void>> BatchRun::fill()
{
    const auto filling = QtConcurrent::run(&m_writers, [this]() -> Result<void> {
        if (m_plan.resume)
            return m_journal->putBack(m_plan.retryFailed,
                                      [this](const QString& name) { return m_names.filesOf(name).all(); });
        return fillJournal(*m_journal, m_plan, m_names, m_input);
    });
    const Result<void> filled = co_await filling;
    if (!filled) co_return filled.error();
    const auto tally = m_journal->tally();
    if (!tally) co_return tally.error();
    m_hasEntries = true;
    m_progress.start(*tally);
    co_return Result<void>();
}

Task<> BatchRun::convertAll()
{
    QTimer growth;
    AutomaticJobs automatic;
    QObject::connect(&growth, &QTimer::timeout, [&] {
        if (m_working > 0) addWorkers(automatic.growth(m_working));
    });
    if (m_plan.jobs == 0) growth.start(AutomaticJobs::kInterval);
    addWorkers(m_plan.jobs > 0 ? m_plan.jobs : AutomaticJobs::first());
    (void)co_await m_allDone;
}

void BatchRun::addWorkers(int count)
{
    m_working += count;
    for (int i = 0; i < count; ++i)
        work();
}

Task<> BatchRun::work()
{
    for (;;) {
        auto next = co_await m_queue.take();
        if (!next) giveUp(ExitCode::SomeFailed, next.error().text());
        if (!next || !*next) break;
        co_await convert(**next);
    }
    if (--m_working == 0) m_allDone.settle({});
}

Task<> BatchRun::convert(PendingEntry entry)
{
    auto browser = co_await m_browsers.browser();
    if (!browser) {
        giveUp(ExitCode::NoBrowser, browser.error().text());
        m_queue.release(entry);
        co_return;
    }
    const ConversionTools tools{m_plan, *m_journal, m_names, m_queue, m_writers};
    const auto conversion = EntryConversion::create(tools, entry);
    m_conversions.append(conversion);
    Attempt attempt = co_await conversion->run(*std::move(browser));
    m_conversions.removeOne(conversion);
    co_await settle(entry, attempt);
}

Task<> BatchRun::settle(PendingEntry entry, Attempt attempt)
{
    if (attempt.trouble == Trouble::LostBrowser && !entry.lostBrowser) {
        entry.lostBrowser = true;
        m_queue.putBack(entry, std::chrono::milliseconds(0));
    } else if (attempt.trouble == Trouble::Passing && entry.attempts < m_plan.retries) {
        ++entry.attempts;
        m_queue.putBack(entry, pauseBefore(entry.attempts));
    } else {
        if (attempt.trouble == Trouble::LostBrowser)
            attempt.outcome.reason = u"the browser went down with this page, twice"_s;
        if (attempt.trouble == Trouble::Unwritable)
            giveUp(ExitCode::SomeFailed, attempt.outcome.reason);
        else if (attempt.trouble != Trouble::Cancelled)
            co_await record(entry, attempt.outcome);
        m_queue.release(entry);
    }
}

Task<> BatchRun::record(PendingEntry entry, Outcome outcome)
{
    if (outcome.state == EntryState::Failed) {
        const auto writing = QtConcurrent::run(&m_writers, [this, number = entry.entry.number, outcome] {
            return m_journal->finish(number, outcome);
        });
        const Result<void> written = co_await writing;
        if (!written) {
            giveUp(ExitCode::SomeFailed, written.error().during(u"writing the journal"_s).text());
            co_return; // A resumed run tries it again.
        }
    }
    m_progress.finished(entry.entry, outcome);
}

void BatchRun::giveUp(ExitCode exitCode, const QString& why)
{
    if (m_stopped) return;
    m_progress.message(u"vistrel-batch: "_s + why);
    stop(exitCode);
}

void BatchRun::stop(ExitCode exitCode)
{
    if (m_stopped) return;
    m_stopped = exitCode;
    if (!m_hasEntries)
        m_progress.message(
            u"vistrel-batch: ended while the entries were being read; nothing was converted"_s);
    m_queue.stop(); // First: what ends now must not let another entry start.
    const auto conversions = m_conversions;
    for (const auto& conversion : conversions)
        conversion->cancel();
    m_browsers.stop();
}

/// Writes the report and the summary; the exit code.
ExitCode BatchRun::tell()
{
    RunSummary summary;
    bool allWell = true;
    const auto told = m_journal->forEach([&](const Entry& entry, const Outcome& outcome) {
        summary.add(entry, outcome);
        allWell = allWell && outcome.state == EntryState::Converted;
        if (!m_plan.reportFile.isEmpty()) m_report.add(entry, outcome);
        if (!m_plan.sheetFile.isEmpty()) m_sheet.add(entry, outcome);
    });
    const auto reported = m_plan.reportFile.isEmpty() ? Result<void>() : m_report.close();
    const auto shown = m_plan.sheetFile.isEmpty() ? Result<void>() : m_sheet.close();
    for (const Result<void>& step : {told, reported, shown}) {
        if (step) continue;
        m_progress.message(u"vistrel-batch: "_s + step.error().text());
        allWell = false;
    }
    const QFileInfo journal(Journal::pathIn(m_plan.outputFolder));
    const QString folder = journal.exists() ? journal.absolutePath() : QString();
    for (const QString& line : summary.lines(m_progress.elapsedMilliseconds(), folder))
        m_progress.message(line);
    if (m_stopped) return *m_stopped;
    return allWell ? ExitCode::Converted : ExitCode::SomeFailed;
}

} // namespace vistrel
