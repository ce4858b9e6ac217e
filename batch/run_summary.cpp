#include "batch/run_summary.h"

#include "batch/printable.h"

#include <QRegularExpression>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace vistrel
{

namespace
{

constexpr qsizetype kMostGroups = 200; // Kept; further reasons are counted together.
constexpr qsizetype kShownGroups = 10;

} // namespace

QString generalReason(const QString& reason)
{
    static const QRegularExpression particular(
        u"\"[^\"]*\"|(?<![\\w.])/\\S+|(?<![\\w-])(?<!HTTP )\\d+(\\.\\d+)?"_s);
    return QString(reason).replace(particular, u"…"_s);
}

void RunSummary::add(const Entry& entry, const Outcome& outcome)
{
    switch (outcome.state) {
    case EntryState::Converted: ++m_tally.converted; break;
    case EntryState::Failed: ++m_tally.failed; break;
    case EntryState::Skipped: ++m_tally.pending; break;
    }
    if (outcome.state == EntryState::Failed) count(m_failures, generalReason(outcome.reason), entry);
    if (outcome.state == EntryState::Converted && !outcome.note.isEmpty())
        count(m_notes, generalReason(outcome.note), entry);
}

void RunSummary::count(QHash<QString, Group>& groups, const QString& reason, const Entry& entry)
{
    const bool known = groups.contains(reason) || groups.size() < kMostGroups;
    Group& group = groups[known ? reason : u"other reasons"_s];
    if (group.count++ == 0) group.example = entry.text;
}

QStringList RunSummary::lines(qint64 elapsedMilliseconds, const QString& folder) const
{
    QString totals = u"%1 converted, %2 failed"_s.arg(m_tally.converted).arg(m_tally.failed);
    if (m_tally.pending > 0)
        totals += u", %1 skipped (%2)"_s.arg(QString::number(m_tally.pending),
                                             folder.isEmpty() ? u"the journal is gone: start the run anew"_s
                                                              : u"--resume goes on with them"_s);
    totals += u" in %1 s"_s.arg(double(elapsedMilliseconds) / 1000, 0, 'f', 1);
    if (m_tally.converted > 0 && !folder.isEmpty()) totals += u"; the pictures are in "_s + printable(folder);
    if (m_tally.all() == 0) totals += u": there is no entry in what was given"_s;
    return QStringList{totals} + describe(m_failures, u"failed"_s) + describe(m_notes, u"converted, but"_s);
}

QStringList RunSummary::describe(const QHash<QString, Group>& groups, const QString& verb)
{
    QStringList reasons = groups.keys();
    std::sort(reasons.begin(), reasons.end(), [&](const QString& left, const QString& right) {
        const qint64 difference = groups[left].count - groups[right].count;
        return difference != 0 ? difference > 0 : left < right;
    });
    QStringList lines;
    for (const QString& reason : reasons.mid(0, kShownGroups))
        lines.append(u"  %1 %2: %3 (%4%5)"_s.arg(groups[reason].count)
                         .arg(verb, printable(reason), printable(groups[reason].example).left(100),
                              groups[reason].count > 1 ? u", ..."_s : u""_s));
    if (reasons.size() > kShownGroups)
        lines.append(u"  and %1 reasons more"_s.arg(reasons.size() - kShownGroups));
    return lines;
}

} // namespace vistrel
