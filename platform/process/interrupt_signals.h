#pragma once

#include <QObject>
#include <QSocketNotifier>

#include <array>
#include <memory>

namespace vistrel
{

/// Turns the requests to end this process (SIGINT, SIGTERM, SIGHUP) into a Qt signal on the event loop of the
/// thread that made this object; until its end they do not kill the process. A request that was ignored when
/// the program was started (nohup) stays ignored. At most one object at a time.
class InterruptSignals : public QObject
{
    Q_OBJECT
public:
    static constexpr int kInterrupt = 2;  ///< SIGINT: Ctrl-C.
    static constexpr int kTerminate = 15; ///< SIGTERM.
    static constexpr int kHangUp = 1;     ///< SIGHUP: the terminal went away.

    InterruptSignals();
    /// Puts the earlier handling back.
    ~InterruptSignals() override;

Q_SIGNALS:
    /// One request, with the system's number; a second Ctrl-C is a second one.
    void interrupted(int number);

private:
    void deliver();

    std::array<int, 2> m_pipe{-1, -1}; // From the handler to the event loop.
    std::unique_ptr<QSocketNotifier> m_readable;
};

/// Ends the process at once with exitCode: no destructor runs, threads that are busy are not waited for.
[[noreturn]] void endProcessNow(int exitCode);

} // namespace vistrel
