#pragma once

#include "batch/entry_queue.h"
#include "batch/output_names.h"
#include "capture/browser/browser.h"
#include "capture/page/page_run.h"

#include <QThreadPool>

namespace vistrel
{

/// What a failure means for the rest of the run.
enum class Trouble {
    None,        ///< The entry ended, well or not; trying again would not help.
    Passing,     ///< It may go better another time.
    LostBrowser, ///< The browser went away under the page, which need not be the page's fault.
    Cancelled,   ///< The run is being ended.
    Unwritable,  ///< The output folder takes no more files (disk full, folder gone): the run has to end.
};

/// What one attempt at an entry came to.
struct Attempt {
    Outcome outcome;
    Trouble trouble = Trouble::None;
};

/// What the conversions of a run share. All of it outlives them.
struct ConversionTools {
    const Plan& plan;
    Journal& journal;
    OutputNames& names;
    EntryQueue& queue; ///< Told when the page is visited.
    QThreadPool& writers;
};

/// Converts one entry: its page is captured in a browser, its pictures are encoded and written, and the
/// journal is told, off the event loop's thread. It always ends with an attempt's result.
class EntryConversion : public std::enable_shared_from_this<EntryConversion>
{
public:
    /// tools must outlive the run.
    static std::shared_ptr<EntryConversion> create(const ConversionTools& tools, PendingEntry entry);

    /// Runs it, once. The browser is let go of as soon as the picture is there. Only a success is in the
    /// journal afterwards: what to make of a failure is the caller's decision.
    Task<Attempt> run(std::shared_ptr<Browser> browser);

    /// Ends the run soon, with Trouble::Cancelled; what is being written by then is still completed.
    void cancel();

private:
    EntryConversion(const ConversionTools& tools, PendingEntry entry);
    Task<Result<PageShot>> takeShot(std::shared_ptr<Browser> browser);
    [[nodiscard]] Attempt failure(const Error& error, int httpStatus, bool browserLost) const;

    const ConversionTools m_tools;
    PendingEntry m_entry;
    std::shared_ptr<PageRun> m_run; // While the page is captured.
    bool m_cancelled = false;
};

} // namespace vistrel
