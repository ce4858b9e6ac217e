#pragma once

#include "platform/process/account.h"
#include "platform/process/byte_pipe.h"
#include "platform/result.h"

#include <QProcess>

#include <chrono>
#include <memory>
#include <optional>

namespace vistrel
{

/// A child process that talks over two extra pipes: it reads descriptor 3 and writes descriptor 4. Standard
/// input and output are empty; the error stream is always drained. The child leads its own process group and
/// is killed when this process dies, however it dies.
class PipedProcess : public QObject
{
    Q_OBJECT
public:
    struct Command {
        QString program;
        QStringList arguments;
        QProcessEnvironment environment;
        std::optional<Account> account; ///< Ours when empty.
    };

    /// Error::Kind::Io when the program cannot be started; the message names it and the reason.
    static Result<std::unique_ptr<PipedProcess>> start(const Command& command);

    /// Kills the group and waits for the child's end.
    ~PipedProcess() override;

    [[nodiscard]] BytePipe& pipe() { return *m_pipe; }
    [[nodiscard]] bool isRunning() const { return m_process.state() != QProcess::NotRunning; }
    [[nodiscard]] qint64 processId() const { return m_process.processId(); }

    /// SIGKILL to the whole process group. ended() follows.
    void killGroup();

    /// Blocks for at most limit; true when the child has ended.
    bool waitForEnd(std::chrono::milliseconds limit);

    /// The newest part of the error stream, at most 16 KiB.
    [[nodiscard]] const QByteArray& recentErrors() const { return m_recentErrors; }

Q_SIGNALS:
    /// The child has ended, by itself or killed.
    void ended();

private:
    PipedProcess() = default;
    Result<void> launch(const Command& command);
    void keepErrors();

    QProcess m_process;
    std::unique_ptr<BytePipe> m_pipe;
    QByteArray m_recentErrors;
    qint64 m_group = 0; // The child's process id; stays after its end, when stragglers may live on.
};

} // namespace vistrel
