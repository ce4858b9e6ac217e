#include "batch/progress.h"

#include "batch/printable.h"

#include <algorithm>

using namespace Qt::StringLiterals;

namespace vistrel
{

namespace
{

QString seconds(qint64 milliseconds) { return QString::number(double(milliseconds) / 1000, 'f', 1); }

QString resultLine(const Entry& entry, const Outcome& outcome)
{
    const QString text = printable(entry.text);
    switch (outcome.state) {
    case EntryState::Converted:
        return u"converted %1 -> %2 (%3 x %4 px, %5 s)"_s.arg(text, printable(outcome.file))
            .arg(outcome.size.width())
            .arg(outcome.size.height())
            .arg(seconds(outcome.milliseconds));
    case EntryState::Failed:
        return u"failed %1 (line %2): %3"_s.arg(text).arg(entry.line).arg(printable(outcome.reason));
    case EntryState::Skipped: break;
    }
    return u"skipped %1"_s.arg(text);
}

} // namespace

void Tally::count(EntryState state)
{
    switch (state) {
    case EntryState::Converted: ++converted; break;
    case EntryState::Failed: ++failed; break;
    case EntryState::Skipped: ++skipped; break;
    }
}

Progress::Progress(Streams& streams) : m_streams(streams) { m_clock.start(); }

void Progress::finished(const Entry& entry, const Outcome& outcome)
{
    m_tally.count(outcome.state);
    if (!m_streams.terminal)
        print(m_streams.out, resultLine(entry, outcome));
    else if (outcome.state == EntryState::Failed)
        message(resultLine(entry, outcome));
    drawLine();
}

void Progress::message(const QString& text)
{
    clearLine();
    print(m_streams.err, text);
}

void Progress::summary()
{
    clearLine();
    QString line = u"%1 converted, %2 failed"_s.arg(m_tally.converted).arg(m_tally.failed);
    if (m_tally.skipped > 0) line += u", %1 skipped"_s.arg(m_tally.skipped);
    line += u" in %1 s"_s.arg(seconds(m_clock.elapsed()));
    print(m_streams.err, line);
}

void Progress::print(std::ostream& stream, const QString& line)
{
    stream << line.toStdString() << '\n';
    stream.flush();
}

void Progress::drawLine()
{
    if (!m_streams.terminal) return;
    const QString line =
        u"%1 done, %2 failed, %3 a second"_s.arg(m_tally.all()).arg(m_tally.failed).arg(rate(), 0, 'f', 1);
    clearLine();
    m_streams.err << line.left(std::max(m_streams.columns - 1, 1)).toStdString() << std::flush;
}

void Progress::clearLine()
{
    if (m_streams.terminal) m_streams.err << "\r\x1b[K";
}

double Progress::rate() const
{
    return double(m_tally.all()) * 1000 / double(std::max<qint64>(m_clock.elapsed(), 1));
}

} // namespace vistrel
