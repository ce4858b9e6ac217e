#include "batch/program.h"

#include "batch/batch_run.h"
#include "batch/command_line.h"
#include "platform/process/interrupt_signals.h"
#include "platform/whole_file.h"

#include <QEventLoop>
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

class Program
{
public:
    Program(const Plan& plan, Streams& streams) : m_outputFolder(plan.outputFolder), m_run(plan, streams)
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
        QTimer::singleShot(kStopLimit, &m_signals, [this, exitCode] { leave(exitCode); });
        m_run.stop(exitCode);
    }

    /// Leaves the threads that still encode to their fate, but nothing of theirs behind.
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

} // namespace

ExitCode runProgram(const QStringList& arguments, Streams& streams)
{
    const auto parsed = parseCommandLine(arguments);
    if (const auto* answer = std::get_if<Answer>(&parsed)) {
        std::ostream& stream = answer->exitCode == ExitCode::Converted ? streams.out : streams.err;
        stream << answer->text.toStdString() << std::flush;
        return answer->exitCode;
    }
    const Plan& plan = std::get<Plan>(parsed);
    if (plan.verbose) QLoggingCategory::setFilterRules(u"vistrel.*=true"_s);
    return Program(plan, streams).run();
}

} // namespace vistrel
