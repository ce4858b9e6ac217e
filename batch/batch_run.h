#pragma once

#include "batch/automatic_jobs.h"
#include "batch/browser_pool.h"
#include "batch/contact_sheet.h"
#include "batch/entry_conversion.h"
#include "batch/entry_queue.h"
#include "batch/exit_code.h"
#include "batch/progress.h"
#include "batch/report_file.h"

namespace vistrel
{

/// Carries a plan out: fills the journal or takes up an earlier one, converts what waits in it, several pages
/// at a time, and reports.
class BatchRun
{
public:
    /// journal is a new one, still empty, or for a plan that resumes the earlier run's. streams must outlive
    /// the run.
    BatchRun(Plan plan, std::unique_ptr<Journal> journal, Streams& streams);
    BatchRun(const BatchRun&) = delete;
    BatchRun& operator=(const BatchRun&) = delete;

    /// Runs it, once. The browser and all its files are gone when this ends.
    Task<ExitCode> run();

    /// Ends the run soon: no entry is started any more, those under way are given up and stay for a resumed
    /// run, and run() ends with exitCode. A first call decides. While the entries are still being read, it
    /// only says that nothing was converted: what they are read from may never answer.
    void stop(ExitCode exitCode);

    /// Whether the entries have been read, so that pages may be under way.
    [[nodiscard]] bool hasEntries() const { return m_hasEntries; }

private:
    [[nodiscard]] Result<void> prepareFiles();
    Task<Result<void>> fill();
    Task<> convertAll();
    void addWorkers(int count);
    Task<> work();
    Task<> convert(PendingEntry entry);
    Task<> settle(PendingEntry entry, Attempt attempt);
    Task<> record(PendingEntry entry, Outcome outcome);
    void giveUp(ExitCode exitCode, const QString& why);
    [[nodiscard]] ExitCode tell();

    const Plan m_plan;
    Progress m_progress;
    std::istream& m_input;
    std::unique_ptr<Journal> m_journal;
    OutputNames m_names;
    EntryQueue m_queue;
    BrowserPool m_browsers;
    QThreadPool m_writers;
    ReportFile m_report;
    ContactSheet m_sheet;
    QList<std::shared_ptr<EntryConversion>> m_conversions; // Those under way.
    int m_working = 0;                                     // Workers, each with one page at a time.
    Completion<void> m_allDone;                            // Settled when the last of them ends.
    std::optional<ExitCode> m_stopped;
    bool m_hasEntries = false;
};

} // namespace vistrel
