#pragma once

#include "batch/browser_pool.h"
#include "batch/entry_conversion.h"
#include "batch/entry_source.h"
#include "batch/exit_code.h"
#include "batch/output_names.h"
#include "batch/progress.h"
#include "batch/report_file.h"

namespace vistrel
{

/// Carries a plan out: reads the lists, converts entry after entry, reports.
class BatchRun
{
public:
    /// streams must outlive the run.
    BatchRun(Plan plan, Streams& streams);
    BatchRun(const BatchRun&) = delete;
    BatchRun& operator=(const BatchRun&) = delete;

    /// Runs it, once. The browser and all its files are gone when this ends.
    Task<ExitCode> run();

    /// Ends the run soon: no entry is started any more, the one under way is given up and counts as skipped,
    /// and run() ends with exitCode. A first call decides.
    void stop(ExitCode exitCode);

private:
    [[nodiscard]] Result<void> prepare();
    Task<> convertAll();
    Task<> convert(Entry entry);
    void finish(const Entry& entry, const Outcome& outcome);
    [[nodiscard]] ExitCode exitCode() const;

    const Plan m_plan;
    Progress m_progress;
    ReportFile m_report;
    EntrySource m_entries;
    OutputNames m_names;
    BrowserPool m_browsers;
    QThreadPool m_writers;
    std::shared_ptr<EntryConversion> m_conversion; // The one under way.
    std::optional<ExitCode> m_stopped;
};

} // namespace vistrel
