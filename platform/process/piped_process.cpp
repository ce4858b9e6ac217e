#include "platform/process/piped_process.h"

#include <array>
#include <csignal>
#include <fcntl.h>
#include <grp.h>
#include <sys/prctl.h>
#include <unistd.h>

using namespace Qt::StringLiterals;

namespace vistrel
{

namespace
{

constexpr int kChildReads = 3;
constexpr int kChildWrites = 4;
constexpr qsizetype kKeptErrorBytes = 16 * 1024;
constexpr auto kKillWait = std::chrono::seconds(5);

/// A pipe whose ends are closed unless they are taken out.
struct PipeEnds {
    int reading = -1;
    int writing = -1;

    PipeEnds()
    {
        std::array<int, 2> ends{};
        if (::pipe2(ends.data(), O_CLOEXEC) != 0) return;
        reading = ends[0];
        writing = ends[1];
    }
    PipeEnds(const PipeEnds&) = delete;
    PipeEnds& operator=(const PipeEnds&) = delete;
    ~PipeEnds()
    {
        if (reading >= 0) ::close(reading);
        if (writing >= 0) ::close(writing);
    }
    [[nodiscard]] bool isOpen() const { return reading >= 0; }
};

/// Occupies descriptors 3 and 4 of this process while a child starts, so that none that the start itself
/// needs lies where the child's pipes are put.
class LowDescriptorsTaken
{
public:
    LowDescriptorsTaken()
    {
        int descriptor = ::open("/dev/null", O_RDONLY | O_CLOEXEC);
        while (descriptor >= 0 && descriptor <= kChildWrites) {
            m_taken[m_count++] = descriptor;
            descriptor = ::open("/dev/null", O_RDONLY | O_CLOEXEC);
        }
        if (descriptor >= 0) ::close(descriptor);
    }
    LowDescriptorsTaken(const LowDescriptorsTaken&) = delete;
    LowDescriptorsTaken& operator=(const LowDescriptorsTaken&) = delete;
    ~LowDescriptorsTaken()
    {
        while (m_count > 0)
            ::close(m_taken[--m_count]);
    }

private:
    std::array<int, kChildWrites + 1> m_taken{};
    size_t m_count = 0;
};

// Runs in the child between fork and exec: system calls only.
void becomeChild(int reads, int writes, const std::optional<Account>& account)
{
    ::setpgid(0, 0);
    if (account) {
        if (::setgroups(0, nullptr) != 0 || ::setgid(account->group) != 0 || ::setuid(account->user) != 0)
            ::_exit(126);
    }
    ::prctl(PR_SET_PDEATHSIG, SIGKILL); // After setuid, which clears it.
    ::dup2(reads, kChildReads);
    ::dup2(writes, kChildWrites);
}

} // namespace

Result<std::unique_ptr<PipedProcess>> PipedProcess::start(const Command& command)
{
    std::unique_ptr<PipedProcess> process(new PipedProcess);
    auto launched = process->launch(command);
    if (!launched) return launched.error();
    return process;
}

Result<void> PipedProcess::launch(const Command& command)
{
    const LowDescriptorsTaken guard;
    PipeEnds toChild;
    PipeEnds fromChild;
    if (!toChild.isOpen() || !fromChild.isOpen())
        return Error{Error::Kind::Io, u"no pipe could be made: "_s + qt_error_string(), {}};

    m_process.setProgram(command.program);
    m_process.setArguments(command.arguments);
    m_process.setProcessEnvironment(command.environment);
    m_process.setStandardInputFile(QProcess::nullDevice());
    m_process.setStandardOutputFile(QProcess::nullDevice());
    m_process.setChildProcessModifier([reads = toChild.reading, writes = fromChild.writing,
                                       account = command.account] { becomeChild(reads, writes, account); });
    connect(&m_process, &QProcess::readyReadStandardError, this, &PipedProcess::keepErrors);
    connect(&m_process, &QProcess::finished, this, &PipedProcess::ended);
    m_process.start();
    if (!m_process.waitForStarted())
        return Error{Error::Kind::Io, command.program + u": "_s + m_process.errorString(), {}};

    m_group = m_process.processId();
    m_pipe =
        std::make_unique<BytePipe>(std::exchange(fromChild.reading, -1), std::exchange(toChild.writing, -1));
    return {};
}

PipedProcess::~PipedProcess()
{
    disconnect(&m_process, nullptr, this, nullptr);
    killGroup();
    waitForEnd(kKillWait);
}

void PipedProcess::killGroup()
{
    if (m_group > 0) ::kill(-pid_t(m_group), SIGKILL);
}

bool PipedProcess::waitForEnd(std::chrono::milliseconds limit)
{
    return !isRunning() || m_process.waitForFinished(int(limit.count()));
}

void PipedProcess::keepErrors()
{
    m_recentErrors += m_process.readAllStandardError();
    if (m_recentErrors.size() > kKeptErrorBytes) m_recentErrors = m_recentErrors.right(kKeptErrorBytes);
}

} // namespace vistrel
