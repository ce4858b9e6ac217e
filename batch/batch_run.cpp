#include "batch/batch_run.h"

#include "platform/folders.h"
#include "platform/whole_file.h"

#include <QDir>

using namespace Qt::StringLiterals;

namespace vistrel
{

BatchRun::BatchRun(Plan plan, Streams& streams)
    : m_plan(std::move(plan)),
      m_progress(streams),
      m_entries(m_plan, streams.in),
      m_names(m_plan),
      m_browsers(m_plan.browser)
{
}

Task<ExitCode> BatchRun::run()
{
    const auto prepared = prepare();
    if (!prepared) {
        m_progress.message(u"vistrel-batch: "_s + prepared.error().text());
        co_return ExitCode::Usage;
    }
    co_await convertAll();
    m_browsers.stop();
    m_progress.summary();
    const auto reported = m_report.close();
    if (!reported) m_progress.message(u"vistrel-batch: "_s + reported.error().text());
    co_return exitCode();
}

Result<void> BatchRun::prepare()
{
    const auto readable = EntrySource::check(m_plan);
    if (!readable) return readable.error();
    if (!QDir().mkpath(m_plan.outputFolder) || !isWritable(m_plan.outputFolder))
        return Error{Error::Kind::Io, u"the folder %1 cannot be written"_s.arg(m_plan.outputFolder), {}};
    sweepTemporaryFiles(m_plan.outputFolder);
    if (m_plan.reportFile.isEmpty()) return {};
    return m_report.open(m_plan.reportFile);
}

Task<> BatchRun::convertAll()
{
    for (;;) {
        auto entry = m_entries.next();
        if (!entry) {
            m_progress.message(u"vistrel-batch: "_s + entry.error().text());
            stop(ExitCode::SomeFailed);
        }
        if (!entry || !*entry) co_return;
        if (m_stopped)
            finish(**entry, Outcome::skipped(u"the run was ended before"_s));
        else
            co_await convert(**entry);
    }
}

Task<> BatchRun::convert(Entry entry)
{
    const auto browser = co_await m_browsers.browser();
    if (!browser) {
        if (!m_stopped) m_progress.message(u"vistrel-batch: "_s + browser.error().text());
        stop(ExitCode::NoBrowser);
        finish(entry, Outcome::skipped(u"the browser could not be started"_s));
        co_return;
    }
    m_conversion = EntryConversion::create(m_plan, m_writers, entry);
    const Outcome outcome = co_await m_conversion->run(*browser, m_names.claim(entry));
    m_conversion.reset();
    finish(entry, outcome);
}

void BatchRun::finish(const Entry& entry, const Outcome& outcome)
{
    m_progress.finished(entry, outcome);
    m_report.add(entry, outcome);
}

void BatchRun::stop(ExitCode exitCode)
{
    if (m_stopped) return;
    m_stopped = exitCode;
    if (m_conversion) m_conversion->cancel();
    m_browsers.stop();
}

ExitCode BatchRun::exitCode() const
{
    if (m_stopped) return *m_stopped;
    const Tally& tally = m_progress.tally();
    return tally.converted == tally.all() ? ExitCode::Converted : ExitCode::SomeFailed;
}

} // namespace vistrel
