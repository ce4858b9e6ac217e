#pragma once

#include "batch/journal.h"
#include "batch/streams.h"

#include <QElapsedTimer>

namespace vistrel
{

/// Tells the user how the run goes: on a terminal a line that is rewritten, with a line of its own for each
/// failure; elsewhere, as where the output is led to a file, one line for every entry.
class Progress
{
public:
    explicit Progress(Streams& streams) : m_streams(streams) {}

    /// The work begins; tally is what earlier runs left to do and have done.
    void start(const Tally& tally);
    void finished(const Entry& entry, const Outcome& outcome);
    /// A line about the run as a whole.
    void message(const QString& text);
    /// Removes the progress line; nothing follows but messages.
    void end();

    [[nodiscard]] qint64 elapsedMilliseconds() const { return m_clock.isValid() ? m_clock.elapsed() : 0; }

private:
    void print(std::ostream& stream, const QString& line);
    void drawLine();
    void clearLine();
    [[nodiscard]] QString state() const;

    Streams& m_streams;
    Tally m_tally;
    qint64 m_finished = 0; // In this run.
    QElapsedTimer m_clock;
};

/// "45 s", "12 min", "3 h 20 min", "2 d 4 h": rounded to what a waiting person wants to know.
[[nodiscard]] QString roughTime(qint64 seconds);

} // namespace vistrel
