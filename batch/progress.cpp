#include "batch/progress.h"

#include "batch/printable.h"

#include <algorithm>
#include <cmath>

using namespace Qt::StringLiterals;

namespace vistrel
{

namespace
{

/// Where the user finds entry; empty for the command line.
QString placeOf(const Entry& entry)
{
    if (entry.list.isEmpty()) return {};
    return u" (line %1 of %2)"_s.arg(QString::number(entry.line), printable(entry.list));
}

QString resultLine(const Entry& entry, const Outcome& outcome)
{
    const QString text = printable(entry.text);
    const QString seconds = QString::number(double(outcome.milliseconds) / 1000, 'f', 1);
    if (outcome.state != EntryState::Converted)
        return u"failed %1%2: %3"_s.arg(text, placeOf(entry), printable(outcome.reason));
    const QString note = outcome.note.isEmpty() ? QString() : u", "_s + printable(outcome.note);
    return u"converted %1 -> %2 (%3 x %4 px, %5 s%6)"_s.arg(
        text, printable(outcome.file), QString::number(outcome.size.width()),
        QString::number(outcome.size.height()), seconds, note);
}

} // namespace

QString roughTime(qint64 seconds)
{
    constexpr qint64 minute = 60;
    constexpr qint64 hour = 60 * minute;
    constexpr qint64 day = 24 * hour;
    if (seconds < minute) return u"%1 s"_s.arg(seconds);
    if (seconds < hour) return u"%1 min"_s.arg((seconds + minute / 2) / minute);
    if (seconds < day) return u"%1 h %2 min"_s.arg(seconds / hour).arg(seconds % hour / minute);
    return u"%1 d %2 h"_s.arg(seconds / day).arg(seconds % day / hour);
}

void Progress::start(const Tally& tally)
{
    m_tally = tally;
    m_clock.start();
    drawLine();
}

void Progress::finished(const Entry& entry, const Outcome& outcome)
{
    const bool converted = outcome.state == EntryState::Converted;
    ++(converted ? m_tally.converted : m_tally.failed);
    --m_tally.pending;
    ++m_finished;
    const QString line = resultLine(entry, outcome);
    if (!m_streams.terminal || !m_streams.outTerminal) print(m_streams.out, line);
    if (m_streams.terminal && !converted) message(line);
    drawLine();
}

void Progress::message(const QString& text)
{
    clearLine();
    print(m_streams.err, text);
    drawLine();
}

void Progress::end()
{
    clearLine();
    m_streams.terminal = false;
}

void Progress::print(std::ostream& stream, const QString& line)
{
    stream << line.toStdString() << '\n';
    stream.flush();
}

void Progress::drawLine()
{
    if (!m_streams.terminal || !m_clock.isValid()) return;
    clearLine();
    m_streams.err << state().left(std::max(m_streams.columns() - 1, 1)).toStdString() << std::flush;
}

void Progress::clearLine()
{
    if (m_streams.terminal) m_streams.err << "\r\x1b[K";
}

QString Progress::state() const
{
    const double rate = double(m_finished) * 1000 / double(std::max<qint64>(m_clock.elapsed(), 1));
    const qint64 done = m_tally.converted + m_tally.failed;
    QString line = u"%1 of %2, %3 failed, %4 a second"_s.arg(done)
                       .arg(m_tally.all())
                       .arg(m_tally.failed)
                       .arg(rate, 0, 'f', 1);
    if (m_finished > 0 && m_tally.pending > 0)
        line += u", %1 left"_s.arg(roughTime(std::llround(double(m_tally.pending) / rate)));
    return line;
}

} // namespace vistrel
