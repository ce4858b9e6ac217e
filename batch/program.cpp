#include "batch/program.h"

#include "batch/batch_run.h"
#include "batch/command_line.h"
#include "batch/entry_source.h"
#include "capture/page/page_run.h"
#include "platform/folders.h"
#include "platform/process/interrupt_signals.h"
#include "platform/whole_file.h"

#include <QDir>
#include <QEventLoop>
#include <QFileInfo>
#include <QLoggingCategory>
#include <QTimer>

using namespace Qt::StringLiterals;

namespace vistrel
{

namespace
{

/// Pictures that are being encoded when the run is stopped may take this long.
constexpr auto kStopLimit = std::chrono::seconds(3);

ExitCode exitCodeOf(int signal)
{
    switch (signal) {
    case InterruptSignals::kInterrupt: return ExitCode::Interrupted;
    case InterruptSignals::kHangUp: return ExitCode::HungUp;
    default: return ExitCode::Terminated;
    }
}

/// The process around one run: signals, and the event loop.
class Program
{
public:
    Program(const Plan& plan, std::unique_ptr<Journal> journal, Streams& streams)
        : m_outputFolder(plan.outputFolder), m_run(plan, std::move(journal), streams)
    {
        QObject::connect(&m_signals, &InterruptSignals::interrupted, &m_signals,
                         [this](int signal) { interrupt(exitCodeOf(signal)); });
    }

    ExitCode run()
    {
        const auto task = flow();
        if (!task.isReady()) m_loop.exec();
        return m_exitCode;
    }

private:
    Task<> flow()
    {
        m_exitCode = co_await m_run.run();
        m_loop.quit();
    }

    void interrupt(ExitCode exitCode)
    {
        if (m_interrupted) leave(exitCode);
        m_interrupted = true;
        m_run.stop(exitCode);
        if (!m_run.hasEntries()) leave(exitCode);
        QTimer::singleShot(kStopLimit, &m_signals, [this, exitCode] { leave(exitCode); });
    }

    /// Leaves the threads that still read or encode to their fate, but nothing of theirs behind.
    [[noreturn]] void leave(ExitCode exitCode)
    {
        sweepTemporaryFiles(m_outputFolder);
        endProcessNow(int(exitCode));
    }

    QString m_outputFolder;
    InterruptSignals m_signals;
    QEventLoop m_loop;
    BatchRun m_run;
    ExitCode m_exitCode = ExitCode::Converted;
    bool m_interrupted = false;
};

/// A plan that can be carried out, with the journal of its run.
struct PreparedRun {
    Plan plan;
    std::unique_ptr<Journal> journal;
};

Answer refusal(const Error& error) { return {ExitCode::Usage, u"vistrel-batch: %1\n"_s.arg(error.text())}; }

Result<void> checkWritable(const QString& folder)
{
    if (QFileInfo(folder).isFile())
        return Error{Error::Kind::Io, u"%1 is a file, not a folder for images"_s.arg(folder), {}};
    if (isWritable(folder)) return {};
    return Error{Error::Kind::Io, u"the folder %1 cannot be written"_s.arg(folder), {}};
}

std::variant<PreparedRun, Answer> resumeRun(const QStringList& arguments, const Plan& plan)
{
    const bool there = QFileInfo::exists(plan.outputFolder);
    const auto writable = there ? checkWritable(plan.outputFolder) : Result<void>();
    if (!writable) return refusal(writable.error());
    auto journal = Journal::open(plan.outputFolder);
    if (!journal) return refusal(journal.error());
    const auto options = (*journal)->options();
    if (!options) return refusal(options.error());
    auto parsed = parseCommandLine(arguments, *options);
    if (auto* answer = std::get_if<Answer>(&parsed)) return *answer;
    return PreparedRun{std::get<Plan>(std::move(parsed)), *std::move(journal)};
}

/// Tries the selectors of the plan on an empty page: a wrong one would fail entry after entry.
Task<Result<void>> trySelectors(QStringList selectors, std::shared_ptr<Browser> browser,
                                BrowserOptions options)
{
    const auto started = co_await browser->start(options);
    if (!started) co_return Result<void>(); // What is wrong with it is told when the first page needs it.
    PageRequest request;
    request.addresses = {QUrl(u"about:blank"_s)};
    request.hidden = selectors;
    const auto shot = co_await PageRun::create(browser, request)->run();
    if (!shot && shot.error().kind == Error::Kind::Usage) co_return shot.error();
    co_return Result<void>();
}

Result<void> checkSelectors(const Plan& plan)
{
    QStringList selectors = plan.page.hidden + QStringList{plan.page.element, plan.page.awaitedElement};
    selectors.removeAll(QString());
    if (selectors.isEmpty()) return {};
    const auto browser = Browser::create();
    QEventLoop loop;
    Result<void> checked;
    const auto flow = [&]() -> Task<> {
        checked = co_await trySelectors(selectors, browser, plan.browser);
        loop.quit();
    };
    const Task<> task = flow();
    if (!task.isReady()) loop.exec();
    browser->kill({Error::Kind::Cancelled, u"the selectors are tried"_s, {}});
    return checked;
}

std::variant<PreparedRun, Answer> startRun(Plan plan)
{
    const auto readable = EntrySource::check(plan);
    if (!readable) return refusal(readable.error());
    QDir().mkpath(plan.outputFolder);
    const auto writable = checkWritable(plan.outputFolder);
    if (!writable) return refusal(writable.error());
    const auto checked = checkSelectors(plan); // Before an earlier run gives way to this one.
    if (!checked) return refusal(checked.error());
    auto journal = Journal::create(plan.outputFolder, plan.options);
    if (!journal) return refusal(journal.error());
    return PreparedRun{std::move(plan), *std::move(journal)};
}

std::variant<PreparedRun, Answer> prepareRun(const QStringList& arguments)
{
    auto parsed = parseCommandLine(arguments);
    if (auto* answer = std::get_if<Answer>(&parsed)) return *answer;
    Plan& plan = std::get<Plan>(parsed);
    return plan.resume ? resumeRun(arguments, plan) : startRun(std::move(plan));
}

} // namespace

ExitCode runProgram(const QStringList& arguments, Streams& streams)
{
    auto prepared = prepareRun(arguments);
    if (const auto* answer = std::get_if<Answer>(&prepared)) {
        std::ostream& stream = answer->exitCode == ExitCode::Converted ? streams.out : streams.err;
        stream << answer->text.toStdString() << std::flush;
        return answer->exitCode;
    }
    auto& run = std::get<PreparedRun>(prepared);
    if (run.plan.verbose) QLoggingCategory::setFilterRules(u"vistrel.*=true"_s);
    return Program(run.plan, std::move(run.journal), streams).run();
}

} // namespace vistrel
