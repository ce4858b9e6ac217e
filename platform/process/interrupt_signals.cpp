#include "platform/process/interrupt_signals.h"

#include <atomic>
#include <cerrno>
#include <csignal>
#include <cstdlib>
#include <fcntl.h>
#include <unistd.h>

namespace vistrel
{

namespace
{

constexpr std::array kRequests{SIGINT, SIGTERM, SIGHUP};
static_assert(InterruptSignals::kInterrupt == SIGINT && InterruptSignals::kTerminate == SIGTERM &&
              InterruptSignals::kHangUp == SIGHUP);

std::atomic<int> writingEnd{-1};
std::array<struct sigaction, kRequests.size()> earlier;

// Runs inside a signal handler: only write(2) is allowed here.
void forward(int number)
{
    const int kept = errno;
    const auto byte = static_cast<unsigned char>(number);
    [[maybe_unused]] const ssize_t written = ::write(writingEnd, &byte, 1);
    errno = kept;
}

void install(int number, struct sigaction& before)
{
    struct sigaction action {
    };
    action.sa_handler = forward;
    action.sa_flags = SA_RESTART;
    ::sigaction(number, nullptr, &before);
    if (before.sa_handler != SIG_IGN) ::sigaction(number, &action, nullptr);
}

} // namespace

InterruptSignals::InterruptSignals()
{
    if (::pipe2(m_pipe.data(), O_CLOEXEC | O_NONBLOCK) != 0) qFatal("no pipe for signals");
    writingEnd = m_pipe[1];
    m_readable = std::make_unique<QSocketNotifier>(m_pipe[0], QSocketNotifier::Read);
    connect(m_readable.get(), &QSocketNotifier::activated, this, &InterruptSignals::deliver);
    for (size_t i = 0; i < kRequests.size(); ++i)
        install(kRequests[i], earlier[i]);
}

InterruptSignals::~InterruptSignals()
{
    for (size_t i = 0; i < kRequests.size(); ++i)
        ::sigaction(kRequests[i], &earlier[i], nullptr);
    m_readable.reset();
    ::close(m_pipe[0]);
    ::close(m_pipe[1]);
}

void InterruptSignals::deliver()
{
    unsigned char number = 0;
    while (::read(m_pipe[0], &number, 1) == 1)
        Q_EMIT interrupted(number);
}

void endProcessNow(int exitCode) { std::_Exit(exitCode); }

} // namespace vistrel
