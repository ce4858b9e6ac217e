#pragma once

#include "batch/entry.h"
#include "batch/streams.h"

#include <QElapsedTimer>

namespace vistrel
{

/// How many entries ended in which way.
struct Tally {
    qint64 converted = 0;
    qint64 failed = 0;
    qint64 skipped = 0;

    void count(EntryState state);
    [[nodiscard]] qint64 all() const { return converted + failed + skipped; }
};

/// Tells the user how the run goes: on a terminal a line that is rewritten, with a line of its own for each
/// failure; elsewhere one line for every entry.
class Progress
{
public:
    explicit Progress(Streams& streams);

    void finished(const Entry& entry, const Outcome& outcome);
    /// A line about the run as a whole.
    void message(const QString& text);
    /// The last line, with the totals.
    void summary();

    [[nodiscard]] const Tally& tally() const { return m_tally; }

private:
    void print(std::ostream& stream, const QString& line);
    void drawLine();
    void clearLine();
    [[nodiscard]] double rate() const;

    Streams& m_streams;
    Tally m_tally;
    QElapsedTimer m_clock;
};

} // namespace vistrel
