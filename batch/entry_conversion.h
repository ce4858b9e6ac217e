#pragma once

#include "batch/entry.h"
#include "batch/output_names.h"
#include "batch/plan.h"
#include "capture/browser/browser.h"
#include "capture/page/page_run.h"

#include <QThreadPool>

namespace vistrel
{

/// Converts one entry: its page is captured in a browser, its picture encoded and written off the event
/// loop's thread. It always ends with an outcome.
class EntryConversion : public std::enable_shared_from_this<EntryConversion>
{
public:
    /// plan and writers must outlive the run.
    static std::shared_ptr<EntryConversion> create(const Plan& plan, QThreadPool& writers, Entry entry);

    /// Runs it, once. The browser is let go of as soon as the picture is there.
    Task<Outcome> run(std::shared_ptr<Browser> browser, OutputFiles files);

    /// Ends the run soon; the outcome is EntryState::Skipped then, and no file is left.
    void cancel();

private:
    EntryConversion(const Plan& plan, QThreadPool& writers, Entry entry);
    Task<Result<PageShot>> takeShot(std::shared_ptr<Browser> browser);

    const Plan& m_plan;
    QThreadPool& m_writers;
    Entry m_entry;
    std::shared_ptr<PageRun> m_run; // While the page is captured.
    bool m_cancelled = false;
};

} // namespace vistrel
